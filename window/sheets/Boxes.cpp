#include "window/sheets/Boxes.h"

#include <utility>

#include <QAbstractButton>
#include <QComboBox>

#include "config/texts/CommandTexts.h"
#include "config/texts/FileTexts.h"
#include "config/texts/SheetTexts.h"
#include "window/QtText.h"
#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr int kFromEdge = 12;

/// The toolkit's own words may be of another language.
void nameButtons(QMessageBox& box) {
    for (const auto& [which, name] : {std::pair{QMessageBox::Save, kSheetTexts.saveBox},
                                      {QMessageBox::Discard, kSheetTexts.discardBox},
                                      {QMessageBox::Cancel, kSheetTexts.cancelSheet}})
        if (QAbstractButton* button = box.button(which))
            button->setText(toQString(name));
}

}  // namespace

QMessageBox& openBox(QWidget& window, QMessageBox::Icon kind, const QString& words,
                     QMessageBox::StandardButtons buttons) {
    const bool fails = kind == QMessageBox::Critical;
    auto* box = new QMessageBox(
        QMessageBox::NoIcon, toQString(fails ? kFileTexts.errorTitle : kCommandTexts.programName),
        words, buttons, &window, Qt::Dialog | Qt::FramelessWindowHint);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setProperty("alarm", fails);  // known to the style
    nameButtons(*box);
    box->open();
    const QPoint corner = window.mapToGlobal(window.rect().bottomRight());
    box->move(corner - box->rect().bottomRight() - QPoint(kFromEdge, kFromEdge));
    return *box;
}

void openFileDialog(QFileDialog& dialog) {
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.setWindowFlag(Qt::FramelessWindowHint);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setViewMode(QFileDialog::List);
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    dialog.setLabelText(QFileDialog::LookIn, dialog.windowTitle());  // no frame says it
    for (const auto& [label, name] :
         {std::pair{QFileDialog::FileName, kSheetTexts.fileName},
          {QFileDialog::FileType, kSheetTexts.fileKind},
          {QFileDialog::Accept, saves ? kSheetTexts.saveBox : kSheetTexts.openFile},
          {QFileDialog::Reject, kSheetTexts.cancelSheet}})
        dialog.setLabelText(label, toQString(name));
    for (auto* list : dialog.findChildren<QComboBox*>())
        list->setMinimumSize(
            1, Sheet::kRowPixels);  // or all kinds of files in one line are as wide as they like
    dialog.open();
    if (const QWidget* window = dialog.parentWidget())
        dialog.setGeometry(window->geometry());
}

}  // namespace korvel
