#include "window/sheets/QuestionSheet.h"

#include "window/QtText.h"

namespace korvel {

QuestionSheet::QuestionSheet(QWidget* parent, Text title, Text words, Text yes)
    : Sheet(parent, toQString(title), QDialogButtonBox::Cancel) {
    words_.setText(toQString(words));
    addNote(words_);
    yes_.setText(toQString(yes));
    yes_.setMinimumSize(3 * kRowPixels, kRowPixels);
    yes_.setDefault(true);
    buttons().addButton(&yes_, QDialogButtonBox::AcceptRole);
    connect(this, &QDialog::accepted, this, [this] {
        if (onYes)
            onYes();
    });
    setPreferredWidth(10 * kRowPixels);
}

}  // namespace korvel
