#include "window/commands/HelpCommands.h"

#include "cockpit/CKorvelDoc.h"
#include "cockpit/ConnectedText.h"
#include "config/ProfileFile.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/SheetTexts.h"
#include "platform/Folders.h"
#include "window/QtText.h"
#include "window/sheets/HelpSheet.h"
#include "window/sheets/TextSheet.h"

namespace korvel {
namespace {

constexpr std::string_view kWelcomedKey = "Welcomed";

QString keyLine(const QAction& action) {
    const QString keys = QKeySequence::listToString(action.shortcuts());
    const QString name = action.text().remove(QLatin1Char('&')).remove(QLatin1String("..."));
    return keys.isEmpty() ? QString() : QStringLiteral("%1:   %2\n").arg(name, keys);
}

}  // namespace

void HelpCommands::addTo(QMenu& menu) {
    host_.addCommand(
        menu, kCommandTexts.commandHelp, {Qt::Key_F1},
        [this] {
            host_.openSheet(std::make_unique<HelpSheet>(&host_.window(), HelpTopic::FirstFlight));
        });
    host_.addCommand(
        menu, kCommandTexts.commandKeys, {QKeySequence(Qt::SHIFT | Qt::Key_F1)},
        [this] {
            host_.openSheet(std::make_unique<TextSheet>(
                &host_.window(), toQString(kSheetTexts.keysTitle), keyList()));
        });
    host_.addCommand(menu, kCommandTexts.commandConnected, {Qt::Key_F2},
                     [this] { showConnected({}); });
}

void HelpCommands::addAbout(QMenu& menu) {
    host_.addCommand(
        menu, kCommandTexts.commandAbout, {QKeySequence(Qt::CTRL | Qt::Key_F1)},
        [this] {
            host_.openSheet(std::make_unique<HelpSheet>(&host_.window(), HelpTopic::About));
        });
}

void HelpCommands::showConnected(const std::vector<ConnectedSheet::Choice>& colors) {
    auto sheet = std::make_unique<ConnectedSheet>(
        &host_.window(), [this] { return connectedText(host_.document(), dataFolders()); });
    if (!colors.empty())
        sheet->addChoices(colors);
    sheet->addNext(kCommandTexts.nextPort, onPort);
    sheet->addNext(kCommandTexts.nextSimulator, onSimulator);
    sheet->addNext(kCommandTexts.nextPlan, onPlan);
    host_.openSheet(std::move(sheet));
}

void HelpCommands::welcome() {
    if (host_.profile().getInt(kOptionsSection, kWelcomedKey, 0) != 0)
        return;
    host_.profile().setInt(kOptionsSection, kWelcomedKey, 1, true);
    showConnected(onColors ? onColors() : std::vector<ConnectedSheet::Choice>());
}

/// Every command with a key, menu by menu, and before them what is in no menu.
QString HelpCommands::keyList() const {
    QString list;
    for (const QAction* action : host_.window().actions())
        if (action->associatedObjects().size() == 1)
            list += keyLine(*action);
    list += QLatin1Char('\n');
    for (const QAction* menu : menus_.actions()) {
        list += menu->text().remove(QLatin1Char('&')).toUpper() + QLatin1Char('\n');
        for (const QAction* action : menu->menu()->actions())
            list += keyLine(*action);
        list += QLatin1Char('\n');
    }
    return list;
}

}  // namespace korvel
