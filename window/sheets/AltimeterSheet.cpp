#include "window/sheets/AltimeterSheet.h"

#include "cockpit/CKorvelDoc.h"
#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kStateMs = 500;

}  // namespace

AltimeterSheet::AltimeterSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kSheetTexts.altimeterTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document) {
    state_.setWordWrap(true);
    name_.setText(toQString(
        formatText(kSheetTexts.altimeterReads, {document.settings().altUnit == 1 ? "m" : "ft"})));
    name_.setBuddy(&reading_);
    reading_.setAccessibleName(name_.text());
    reading_.setText(toQString(form().proposed()));
    hint_.setWordWrap(true);
    hint_.setText(toQString(kSheetTexts.altimeterHint));
    message_.setObjectName(QStringLiteral("refusal"));
    for (QWidget* row : std::initializer_list<QWidget*>{&state_, &name_, &reading_})
        addRow(*row);
    addNote(message_);
    addRow(hint_);
    column().addStretch();
    remove_.setText(toQString(kSheetTexts.altimeterRemove));
    remove_.setAutoDefault(false);
    remove_.setMinimumSize(2 * kRowPixels, kRowPixels);
    buttons().addButton(&remove_, QDialogButtonBox::ActionRole);
    connect(&remove_, &QPushButton::clicked, this, [this] {
        document_.setAltimeterOffsetFt(std::nullopt);
        Sheet::accept();
    });
    setPreferredWidth(11 * kRowPixels);
    connect(&timer_, &QTimer::timeout, this, [this] { showState(); });
    timer_.start(kStateMs);
    showState();
    reading_.selectAll();
    reading_.setFocus();
}

AltimeterForm AltimeterSheet::form() const {
    return {.receiverFt = document_.receiverAltitudeFt(),
            .offsetFt = document_.altimeterOffsetFt(),
            .altUnit = document_.settings().altUnit};
}

void AltimeterSheet::showState() {
    state_.setText(toQString(form().words()));
    remove_.setEnabled(document_.altimeterOffsetFt().has_value());
}

void AltimeterSheet::accept() {
    std::int32_t offsetFt = 0;
    const std::string error = form().read(reading_.text().trimmed().toStdString(), offsetFt);
    message_.setText(toQString(error));
    if (!error.empty())
        return reading_.setFocus();
    document_.setAltimeterOffsetFt(offsetFt);
    Sheet::accept();
}

}  // namespace korvel
