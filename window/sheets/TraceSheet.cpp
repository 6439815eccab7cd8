#include "window/sheets/TraceSheet.h"

#include "cockpit/CKorvelDoc.h"
#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kTakeMs = 500;

}  // namespace

TraceSheet::TraceSheet(QWidget* parent, CKorvelDoc& document)
    : TextSheet(parent, toQString(kSheetTexts.traceTitle), {}), document_(document) {
    words().setMaximumBlockCount(kLines);
    words().setLineWrapMode(QPlainTextEdit::NoWrap);
    pause_.setText(toQString(kSheetTexts.tracePause));
    addRow(pause_);
    document.setTracing(true);
    connect(&timer_, &QTimer::timeout, this, [this] { takeLines(); });
    // Closed, it may live on until the next sheet opens.
    connect(this, &QDialog::finished, this, [this] {
        timer_.stop();
        document_.setTracing(false);
    });
    timer_.start(kTakeMs);
}

TraceSheet::~TraceSheet() {
    // A later sheet may be tracing when this one, closed long ago, goes.
    if (timer_.isActive())
        document_.setTracing(false);
}

void TraceSheet::takeLines() {
    // Paused, the lines are taken all the same: the store must not grow.
    for (const std::string& line : document_.takeTrace())
        if (!pause_.isChecked())
            words().appendPlainText(
                QString::fromLatin1(line.data(), static_cast<int>(line.size())));
}

}  // namespace korvel
