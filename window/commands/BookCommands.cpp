#include "window/commands/BookCommands.h"

#include "cockpit/CKorvelDoc.h"
#include "config/texts/BookTexts.h"
#include "nav/track/LogBook.h"
#include "platform/FileIo.h"
#include "platform/Folders.h"
#include "platform/PathText.h"
#include "window/sheets/ChecklistSheet.h"
#include "window/sheets/LogBookSheet.h"

namespace korvel {
namespace {

/// The flights of a life.
constexpr std::size_t kLongestLog = std::size_t{4} << 20U;

}  // namespace

void BookCommands::addTo(QMenu& menu) {
    host_.addCommand(
        menu, kBookTexts.checklistCommand, {Qt::Key_K}, [this] { openChecklists(); });
    host_.addCommand(menu, kBookTexts.logCommand, {QKeySequence(Qt::SHIFT | Qt::Key_K)},
                     [this] { openLogBook(); });
}

void BookCommands::openChecklists() {
    checklists_.load(dataFolders());
    host_.openSheet(std::make_unique<ChecklistSheet>(&host_.window(), checklists_,
                                                     textOf(documentsFolder() / "checklists")));
}

void BookCommands::openLogBook() {
    const Flight& flight = host_.document().flight();
    const auto log = readWholeFile(flight.logFile(), kLongestLog);
    host_.openSheet(std::make_unique<LogBookSheet>(&host_.window(),
                                                   LogBook::read(log.value_or(std::string())),
                                                   flight.timeOfDay().localNow()));
}

}  // namespace korvel
