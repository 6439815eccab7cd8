#include "app/HelpSheet.h"

#include "app/QtText.h"

namespace korvel {
HelpSheet::HelpSheet(QWidget* parent, HelpTopic topic)
    : Sheet(parent, toQString(TextId::ProgramName), QDialogButtonBox::Close) {
    words_.setText(toQString(topic == HelpTopic::About ? TextId::AboutWords : TextId::HelpWords));
    words_.setTextFormat(Qt::PlainText);
    words_.setWordWrap(true);
    words_.setMinimumWidth(14 * kRowPixels);
    addRow(words_);
}

}  // namespace korvel
