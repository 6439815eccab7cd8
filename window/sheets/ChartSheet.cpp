#include "window/sheets/ChartSheet.h"

#include <utility>

#include "cockpit/ChartCompiling.h"
#include "cockpit/ChartText.h"
#include "config/texts/ChartTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kUpdateMs = 100;
constexpr int kFingerPixels = 48;  // these are pressed in flight

}  // namespace

ChartSheet::ChartSheet(QWidget* parent, Source source)
    : Sheet(parent, toQString(kChartTexts.title), QDialogButtonBox::Close),
      source_(std::move(source)),
      explanation_(toQString(kChartTexts.explain)),
      folder_(toQString(kChartTexts.chooseFolder)),
      zip_(toQString(kChartTexts.chooseZip)),
      stop_(toQString(kChartTexts.stop)),
      take_(toQString(kChartTexts.take)) {
    words_.setReadOnly(true);
    addTallRow(words_);
    addRow({&folder_, &zip_});
    addNote(explanation_);
    addRow(progress_);
    addRow(stop_);
    addRow(take_);
    doOnClick(
        folder_, [this] { source_.chooseFolder(); });
    doOnClick(
        zip_, [this] { source_.chooseZip(); });
    doOnClick(
        stop_,
        [this] {
            if (ChartCompiling* const compiling = source_.compiling())
                compiling->breakOff();
        });
    doOnClick(take_, [this] { source_.take(); });
    setPreferredWidth(13 * kRowPixels);
    update();
    connect(&timer_, &QTimer::timeout, this, [this] { update(); });
    connect(this, &QDialog::finished, &timer_, &QTimer::stop);
    timer_.start(kUpdateMs);
}

void ChartSheet::doOnClick(QPushButton& button, const std::function<void()>& action) {
    button.setAutoDefault(false);
    button.setMinimumHeight(kFingerPixels);
    connect(&button, &QPushButton::clicked, this, [this, action] {
        action();
        update();
    });
}

/// Words that have not changed stay as they are scrolled.
void ChartSheet::update() {
    const ChartCompiling* const compiling = source_.compiling();
    const bool isBusy = compiling != nullptr;
    if (isBusy) {
        const ChartCompiling::State state = compiling->state();
        progress_.setValue(state.percent);
        progress_.setFormat(toQString(compilingText(*compiling) + ": " + state.doing) +
                            QStringLiteral("  %p %"));
    }
    for (QWidget* const widget : {static_cast<QWidget*>(&progress_), static_cast<QWidget*>(&stop_)})
        widget->setVisible(isBusy);
    for (QWidget* const widget : {static_cast<QWidget*>(&folder_), static_cast<QWidget*>(&zip_)})
        widget->setVisible(!isBusy);
    const bool canTake = !isBusy && source_.canTake();
    take_.setVisible(canTake);
    explanation_.setVisible(!isBusy && !canTake);  // a small window has no room for both
    QString now = toQString(source_.words());
    if (now == shown_)
        return;
    shown_ = std::move(now);
    words_.setPlainText(shown_);
}

}  // namespace korvel
