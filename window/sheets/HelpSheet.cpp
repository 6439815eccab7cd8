#include "window/sheets/HelpSheet.h"

#include <QCoreApplication>

#include "window/QtText.h"

namespace korvel {
HelpSheet::HelpSheet(QWidget* parent, HelpTopic topic)
    : Sheet(parent, toQString(TextId::ProgramName), QDialogButtonBox::Close) {
    QString words = toQString(topic == HelpTopic::About ? TextId::AboutWords : TextId::HelpWords);
    if (topic == HelpTopic::About)
        words.prepend(toQString(TextId::ProgramName) + QLatin1Char(' ') +
                      QCoreApplication::applicationVersion() + QLatin1String("\n\n"));
    words_.setText(words);
    words_.setTextFormat(Qt::PlainText);
    words_.setWordWrap(true);
    words_.setMinimumWidth(14 * kRowPixels);
    addRow(words_);
}

}  // namespace korvel
