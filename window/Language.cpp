#include "window/Language.h"

#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "config/DataFileSearch.h"
#include "config/Translation.h"
#include "platform/Folders.h"
#include "window/QtText.h"

namespace korvel {
namespace {

std::vector<std::string> systemLanguages() {
    std::vector<std::string> languages;
    for (const QString& language : QLocale::system().uiLanguages())
        languages.push_back(language.toStdString());
    return languages;
}

void translateToolkit(std::string_view language) {
    auto translator = std::make_unique<QTranslator>(QApplication::instance());
    if (translator->load(QLocale(toQString(language)), QStringLiteral("qtbase"),
                         QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(translator.release());  // the application owns it
}

}  // namespace

void chooseLanguage(std::string_view asked) {
    Translation translation =
        findTranslation(DataFileSearch(dataFolders()),
                        asked.empty() ? systemLanguages() : std::vector{std::string(asked)});
    translateToolkit(translation.language());
    useTranslation(std::move(translation));
}

}  // namespace korvel
