#include "window/commands/SchemeCommands.h"

#include <vector>

#include "cockpit/CKorvelDoc.h"
#include "config/DataFileSearch.h"
#include "config/texts/CommandTexts.h"
#include "paint/ColorScheme.h"
#include "window/QtText.h"

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

void SchemeCommands::showChosen() {
    const std::vector<std::string> schemes = listSchemes(dataFiles_);
    show(schemes[selectedScheme(schemes, host_.document().settings().schemeFile)]);
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
