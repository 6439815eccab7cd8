#include "window/sheets/LoadProgress.h"

#include <QCoreApplication>

#include "window/QtText.h"
#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr qint64 kPatienceMs = 300;  // a bar that flashes up tells nobody anything
constexpr int kBarShare = 3;         // of the window's height, it lies above the lower third

}  // namespace

LoadProgress::LoadProgress(QWidget& parent) : parent_(parent), bar_(&parent) {
    bar_.hide();
    since_.start();
}

void LoadProgress::show(std::string_view doing, int percent) {
    if (since_.elapsed() < kPatienceMs)
        return;
    const int width = parent_.width() - 2 * Sheet::kRowPixels;
    bar_.setGeometry(Sheet::kRowPixels, parent_.height() - parent_.height() / kBarShare, width,
                     Sheet::kRowPixels);
    bar_.setValue(percent);
    bar_.setFormat(toQString(doing) + QStringLiteral("  %p %"));
    bar_.show();
    bar_.raise();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace korvel
