#include "window/commands/PlaceCommands.h"

#include "cockpit/CKorvelDoc.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/LegendTexts.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/SheetTexts.h"
#include "navdb/records/AirportRecord.h"
#include "screen/Screen.h"
#include "window/QtText.h"
#include "window/sheets/CAirportSheet.h"
#include "window/sheets/FindSheet.h"
#include "window/sheets/LegendSheet.h"
#include "window/sheets/UserFixSheets.h"

namespace korvel {

void PlaceCommands::addLegendTo(QMenu& menu) {
    host_.addCommand(
        menu, kLegendTexts.command, {QKeySequence(Qt::SHIFT | Qt::Key_L)},
        [this] {
            host_.openSheet(std::make_unique<LegendSheet>(&host_.window(),
                                                          CAirportSheet::Look{labels_, colors_}));
        });
}

void PlaceCommands::addTo(QMenu& menu) {
    host_.addCommand(
        menu, kCommandTexts.commandFind,
        {QKeySequence(Qt::CTRL | Qt::Key_F), QKeySequence(Qt::Key_Slash)}, [this] { find(); });
    host_.addCommand(
        menu, kCommandTexts.commandMark, {Qt::Key_M}, [this] { mark(); });
    host_.addCommand(menu, kCommandTexts.commandMarks, {QKeySequence(Qt::CTRL | Qt::Key_M)},
                     [this] { listMarks(); });
}

void PlaceCommands::mark() {
    Screen& screen = host_.screen();
    const auto where = screen.placeToMark();
    if (!where)
        return screen.say(std::string(text(kMessageTexts.nothingToMark)));
    mark(*where);
}

void PlaceCommands::mark(GeoPoint where) {
    Screen& screen = host_.screen();
    auto sheet = std::make_unique<MarkSheet>(&host_.window(), host_.document(), where);
    sheet->onMarked = [this, &screen](const std::string& name) {
        screen.databasesChanged();
        const bool saved = host_.document().userFixes().isSaved();
        screen.say(formatText(saved ? kMessageTexts.marked : kMessageTexts.markedUnsaved,
                              {std::string_view(name)}));
    };
    host_.openSheet(std::move(sheet));
}

void PlaceCommands::listMarks() {
    auto sheet = std::make_unique<UserFixesSheet>(&host_.window(), host_.document());
    sheet->onOpen = [this](const std::string& key) {
        const DatabaseRecord* found = host_.document().charts().database().Find(key);
        open(found != nullptr ? found->Clone() : nullptr);
    };
    sheet->onRemoved = [this] { host_.screen().databasesChanged(); };
    host_.openSheet(std::move(sheet));
}

void PlaceCommands::find() {
    auto sheet = std::make_unique<FindSheet>(&host_.window(), host_.document(),
                                             host_.screen().camera().center());
    sheet->onFound = [this](std::unique_ptr<DatabaseRecord> record) {
        host_.screen().lookAt(record->position);
        open(std::move(record));
    };
    host_.openSheet(std::move(sheet));
}

void PlaceCommands::open(std::unique_ptr<DatabaseRecord> record) {
    if (!record)
        return host_.screen().say(std::string(text(kFlightTexts.notFound)));
    std::unique_ptr<PlaceSheet> sheet = sheetFor(std::move(record));
    sheet->onDirectTo = [this](const PlaceChoice& place) {
        if (onDirectTo)
            onDirectTo(place);
    };
    sheet->onAdded = [this](const std::string& name) {
        host_.screen().say(formatText(kMessageTexts.addedToPlan, {std::string_view(name)}));
    };
    sheet->onShow = [this](GeoPoint place) { host_.screen().lookAt(place); };
    host_.openSheet(std::move(sheet));
}

std::unique_ptr<PlaceSheet> PlaceCommands::sheetFor(const std::shared_ptr<DatabaseRecord>& record) {
    CKorvelDoc& document = host_.document();
    if (record->GetKind() != kAirportKind)
        return std::make_unique<PlaceSheet>(&host_.window(), document, record, [&document, record] {
            return placeText(document, *record);
        });
    const auto airport = std::static_pointer_cast<AirportRecord>(record);
    document.charts().database().loadDetails(*airport);
    auto sheet = std::make_unique<CAirportSheet>(&host_.window(), document,
                                                 CAirportSheet::Look{labels_, colors_}, airport);
    sheet->onApproach = [this](std::vector<LandingRunway> runways) {
        if (onApproach)
            onApproach(std::move(runways));
    };
    return sheet;
}

}  // namespace korvel
