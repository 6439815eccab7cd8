#include "window/sheets/HelpSheet.h"

#include <QCoreApplication>

#include "config/texts/CommandTexts.h"
#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {
HelpSheet::HelpSheet(QWidget* parent, HelpTopic topic)
    : Sheet(parent, toQString(kCommandTexts.programName), QDialogButtonBox::Close) {
    QString words =
        toQString(topic == HelpTopic::About ? kSheetTexts.aboutWords : kSheetTexts.helpWords);
    if (topic == HelpTopic::About)
        words.prepend(toQString(kCommandTexts.programName) + QLatin1Char(' ') +
                      QCoreApplication::applicationVersion() + QLatin1String("\n\n"));
    words_.setText(words);
    words_.setTextFormat(Qt::PlainText);
    words_.setWordWrap(true);
    words_.setMinimumWidth(14 * kRowPixels);
    addRow(words_);
}

}  // namespace korvel
