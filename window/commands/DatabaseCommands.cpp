#include "window/commands/DatabaseCommands.h"

#include "cockpit/CKorvelDoc.h"
#include "cockpit/ConnectedText.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/SheetTexts.h"
#include "platform/Folders.h"
#include "screen/Screen.h"
#include "window/QtText.h"
#include "window/sheets/LoadProgress.h"
#include "window/sheets/TextSheet.h"

namespace korvel {

void DatabaseCommands::addToFile(QMenu& menu) {
    host_.addCommand(menu, kCommandTexts.commandReload, {Qt::Key_F5}, [this] { reload(); });
}

void DatabaseCommands::addToHelp(QMenu& menu) {
    host_.addCommand(menu, kCommandTexts.commandLoadReport, {QKeySequence(Qt::SHIFT | Qt::Key_F2)},
                     [this] { showReport(); });
}

void DatabaseCommands::load() {
    // The window is painted while it loads, and rows of closed files mean nothing any more.
    host_.screen().databasesChanged();
    LoadProgress progress(host_.view());
    host_.document().flight().loadDatabases(
        dataFolders(),
        [&progress](std::string_view doing, int percent) { progress.show(doing, percent); });
    host_.screen().databasesChanged();
}

void DatabaseCommands::reload() {
    load();
    const Flight& flight = host_.document().flight();
    for (const DatabaseLoader::OpenedFile& file : flight.loader().openedFiles())
        if (!file.error.empty())
            return showReport();
    host_.screen().say(formatText(kMessageTexts.databasesLoaded,
                                  {static_cast<int>(flight.database().files().size())}));
}

void DatabaseCommands::showReport() {
    host_.openSheet(
        std::make_unique<TextSheet>(&host_.window(), toQString(kSheetTexts.loadReportTitle),
                                    toQString(loadReportText(host_.document(), dataFolders()))));
}

}  // namespace korvel
