#include "window/sheets/PlanRowSheet.h"

#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/SheetTexts.h"
#include "nav/plan/PlanEdit.h"
#include "nav/plan/RouteWords.h"
#include "window/QtText.h"

namespace korvel {

PlanRowSheet::PlanRowSheet(QWidget* parent, CKorvelDoc& document, std::size_t row)
    : Sheet(parent, toQString(kSheetTexts.planRowTitle), QDialogButtonBox::Close),
      document_(document),
      row_(row) {
    const PlanEntries entries = document.flight().plan().entries();
    if (row < entries.size()) {
        place_ = {.identifier = entries[row].key, .where = entries[row].record->position};
        const QString ident = QString::fromStdString(entries[row].text);
        const QString name = toQString(entries[row].record->GetName());
        title_.setText(name == ident ? ident : QStringLiteral("%1   %2").arg(ident, name));
    }
    title_.setAccessibleName(title_.text());
    words_.setPlaceholderText(toQString(kSheetTexts.insertHint));
    altitude_.setPlaceholderText(toQString(kSheetTexts.altitudeHint));
    addRow(title_);
    addButton(fly_, kSheetTexts.flyToRow, [this] {
        document_.flight().plan().flyTo(row_);
        QDialog::accept();
    });
    addButton(
        direct_, kSheetTexts.directToTitle,
        [this] {
            QDialog::accept();
            if (onDirectTo)
                onDirectTo(place_);
        });
    addButton(
        up_, kSheetTexts.moveRowUp, [this] { move(true); });
    addButton(
        down_, kSheetTexts.moveRowDown, [this] { move(false); });
    addButton(
        remove_, kSheetTexts.removeRow, [this] { remove(); });
    addButton(
        setAltitude_, kSheetTexts.setAltitude, [this] { setAltitude(); });
    addButton(insert_, kSheetTexts.insertWords, [this] { insertBefore(); });
    addRow({&fly_, &direct_});
    addRow({&up_, &down_, &remove_});
    addRow({&altitude_, &setAltitude_});
    addRow({&words_, &insert_});
    addNote(message_);
    connect(
        &altitude_, &QLineEdit::returnPressed, this, [this] { setAltitude(); });
    connect(&words_, &QLineEdit::returnPressed, this, [this] { insertBefore(); });
    setPreferredWidth(12 * kRowPixels);
}

void PlanRowSheet::addButton(QPushButton& button, Text text, const std::function<void()>& handler) {
    button.setText(toQString(text));
    button.setAutoDefault(false);
    connect(&button, &QPushButton::clicked, this, handler);
}

void PlanRowSheet::setAltitude() {
    ActivePlan& plan = document_.flight().plan();
    const auto feet = typedAltitude(altitude_.text().toStdString());
    if (!feet)
        return message_.setText(toQString(kFlightTexts.invalidAltitude));
    PlanEditResult result = withAltitude(plan.entries(), row_, *feet);
    if (!result.error.empty())
        return message_.setText(toQString(result.error));
    plan.replace(std::move(result.entries));
    QDialog::accept();
}

void PlanRowSheet::insertBefore() {
    ActivePlan& plan = document_.flight().plan();
    PlanEditResult result =
        insertWords(plan.entries(), row_, typedIdents(words_.text().toStdString()),
                    document_.charts().database(), plan.fixes(), document_.cockpitData().position,
                    plan.icaoPrefix());
    if (!result.error.empty())
        return message_.setText(toQString(result.error));
    plan.replace(std::move(result.entries));
    QDialog::accept();
}

void PlanRowSheet::move(bool up) {
    ActivePlan& plan = document_.flight().plan();
    plan.replace(withRowMoved(plan.entries(), row_, up ? row_ - 1 : row_ + 1));
    QDialog::accept();
}

void PlanRowSheet::remove() {
    ActivePlan& plan = document_.flight().plan();
    plan.replace(withoutRow(plan.entries(), row_));
    QDialog::accept();
}

}  // namespace korvel
