#include "window/sheets/TextSheet.h"

namespace korvel {

TextSheet::TextSheet(QWidget* parent, const QString& title, const QString& words)
    : Sheet(parent, title, QDialogButtonBox::Close) {
    words_.setReadOnly(true);
    words_.setPlainText(words);
    addTallRow(words_);
    setPreferredWidth(18 * kRowPixels);
}

}  // namespace korvel
