#include "window/sheets/FieldSheet.h"

#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

QString rowText(const NavField& field, const CockpitData& data) {
    const NavFieldText shown = field.format(data);
    return QStringLiteral("%1     %2 %3  %4")
        .arg(toQString(field.header), toQString(shown.value), toQString(shown.unit),
             toQString(shown.secondLine))
        .trimmed();
}

}  // namespace

FieldSheet::FieldSheet(QWidget* parent, NavFieldId current, const CockpitData& shown)
    : Sheet(parent, toQString(kSheetTexts.fieldTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel) {
    for (const NavField& field : navFields()) {
        auto* item = new QListWidgetItem(rowText(field, shown), &list_);
        item->setSizeHint({0, kRowPixels});
        if (field.id == current)
            list_.setCurrentItem(item);
    }
    addTallRow(list_);
    altimeter_.setText(toQString(kSheetTexts.fieldAltimeter));
    altimeter_.setAutoDefault(false);
    connect(&altimeter_, &QPushButton::clicked, this, [this] {
        if (onAltimeter)
            onAltimeter();
    });
    if (current == NavFieldId::Altitude)
        addRow(altimeter_);
    else
        altimeter_.hide();
    connect(&list_, &QListWidget::itemClicked, this, [this] { accept(); });
    setPreferredWidth(10 * kRowPixels);
    list_.setFocus();
}

void FieldSheet::accept() {
    if (const int row = list_.currentRow(); row >= 0 && onChosen)
        onChosen(navFields()[static_cast<std::size_t>(row)].id);
    Sheet::accept();
}

}  // namespace korvel
