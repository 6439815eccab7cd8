#include "window/commands/SchemeCommands.h"

#include <utility>
#include <vector>

#include "cockpit/CKorvelDoc.h"
#include "config/DataFileSearch.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/StatusTexts.h"
#include "paint/ColorScheme.h"
#include "window/QtText.h"
#include "window/SchemePicture.h"
#include "window/sheets/CPrefsSheet.h"

namespace korvel {

SchemeCommands::SchemeCommands(CommandHost& host, ColorScheme& scheme,
                               const DataFileSearch& dataFiles)
    : host_(host), scheme_(scheme), dataFiles_(dataFiles) {}

void SchemeCommands::addTo(QMenu& menu) {
    host_.addCommand(menu, kCommandTexts.commandNight, {Qt::Key_C},
                     [this] { choose(night_.other()); });
    QMenu& list = *menu.addMenu(toQString(kCommandTexts.menuSchemes));
    for (const std::string& name : listSchemes(dataFiles_)) {
        QAction* action = actions_.addAction(toQString(name));
        action->setCheckable(true);
        QObject::connect(action, &QAction::triggered, action, [this, name] { choose(name); });
        list.addAction(action);
    }
}

void SchemeCommands::choose(const std::string& name) {
    Settings settings = host_.document().settings();
    settings.schemeFile = name;
    host_.document().applySettings(settings);
    show(name);
}

/// The one that the settings name, or the day's.
std::string SchemeCommands::chosen() {
    const std::vector<std::string> schemes = listSchemes(dataFiles_);
    return schemes[selectedScheme(schemes, host_.document().settings().schemeFile)];
}

void SchemeCommands::showChosen() { show(chosen()); }

std::vector<ConnectedSheet::Choice> SchemeCommands::firstChoices() {
    std::vector<ConnectedSheet::Choice> choices;
    for (const auto& [text, name] : {std::pair{kCommandTexts.colorsDay, daySchemeName()},
                                     {kStatusTexts.glassSchemeName, glassSchemeName()},
                                     {kCommandTexts.colorsNight, nightSchemeName()}}) {
        ColorScheme scheme;
        scheme.load(name, dataFiles_);
        choices.push_back({.name = text,
                           .picture = schemePicture(scheme),
                           .chosen = name == chosen(),
                           .choose = [this, name = name] { choose(name); }});
    }
    return choices;
}

void SchemeCommands::offerIn(CPrefsSheet& prefs) {
    prefs.offerSchemes(listSchemes(dataFiles_), chosen());
    prefs.onScheme = [this](const std::string& name) { choose(name); };
}

void SchemeCommands::show(const std::string& name) {
    night_.show(name);
    scheme_.load(name, dataFiles_);
    for (QAction* action : actions_.actions())
        action->setChecked(action->text() == toQString(name));
    if (onShown)
        onShown();
}

}  // namespace korvel
