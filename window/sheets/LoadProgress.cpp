#include "window/sheets/LoadProgress.h"

#include "window/QtText.h"
#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr qint64 kPatienceMs = 300;  // a bar that flashes up tells nobody anything
constexpr int kBarShare = 3;         // of the window's height, it lies above the lower third

}  // namespace

LoadProgress::LoadProgress(QWidget& parent, const std::function<void()>& onBreakOff)
    : parent_(parent), bar_(&parent), breakOff_(&parent) {
    bar_.hide();
    breakOff_.hide();
    breakOff_.setText(QStringLiteral("X"));
    breakOff_.setFocusPolicy(Qt::NoFocus);
    QObject::connect(&breakOff_, &QToolButton::clicked, &breakOff_, onBreakOff);
    since_.start();
}

void LoadProgress::show(std::string_view doing, int percent) {
    if (since_.elapsed() < kPatienceMs)
        return;
    const int size = Sheet::kRowPixels;
    const int top = parent_.height() - parent_.height() / kBarShare;
    bar_.setGeometry(size, top, parent_.width() - 3 * size, size);
    breakOff_.setGeometry(parent_.width() - 2 * size, top, size, size);
    bar_.setValue(percent);
    bar_.setFormat(toQString(doing) + QStringLiteral("  %p %"));
    for (QWidget* part : {static_cast<QWidget*>(&bar_), static_cast<QWidget*>(&breakOff_)}) {
        part->show();
        part->raise();
    }
}

}  // namespace korvel
