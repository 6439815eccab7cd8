#include "window/commands/PlaceCommands.h"

#include <QListWidget>

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
#include "window/sheets/KindWord.h"
#include "window/sheets/LegendSheet.h"
#include "window/sheets/UserFixSheets.h"

namespace korvel {
namespace {

/// Several places under one finger: a row for each.
class PlaceChooser final : public Sheet {
 public:
    PlaceChooser(QWidget* parent, std::vector<std::unique_ptr<DatabaseRecord>> records)
        : Sheet(parent, toQString(kSheetTexts.choosePlace), QDialogButtonBox::Close),
          records_(std::move(records)) {
        for (const auto& record : records_) {
            const QString row = QStringLiteral("%1   %2   %3")
                                    .arg(toQString(record->ident.view()),
                                         kindWord(record->GetKind()), toQString(record->GetName()));
            auto* item = new QListWidgetItem(row, &list_);  // the list owns it
            item->setSizeHint({0, kRowPixels});
        }
        setPreferredWidth(11 * kRowPixels);
        addTallRow(list_);
        connect(
            &list_, &QListWidget::itemClicked, this, [this] { choose(); });
        connect(&list_, &QListWidget::itemActivated, this, [this] { choose(); });
    }

    std::function<void(std::unique_ptr<DatabaseRecord>)> onChosen;

 private:
    void choose() {
        if (!isVisible())
            return;  // a click that also activates counts once
        QDialog::accept();
        onChosen(std::move(records_.at(static_cast<std::size_t>(list_.currentRow()))));
    }

    std::vector<std::unique_ptr<DatabaseRecord>> records_;
    QListWidget list_;
};

}  // namespace

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
    auto sheet = std::make_unique<MarkSheet>(&host_.window(), host_.document(), *where);
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

void PlaceCommands::identify(const std::vector<MapPlace>& places) {
    const NavDatabase& database = host_.document().charts().database();
    // At once: while the pilot chooses, other databases may come into use.
    std::vector<std::unique_ptr<DatabaseRecord>> records;
    for (const MapPlace& place : places)
        if (auto record = database.recordOf(place.place))
            records.push_back(std::move(record));
    if (records.size() < 2)
        return open(records.empty() ? nullptr : std::move(records.front()));
    auto sheet = std::make_unique<PlaceChooser>(&host_.window(), std::move(records));
    sheet->onChosen = [this](std::unique_ptr<DatabaseRecord> record) { open(std::move(record)); };
    host_.openSheet(std::move(sheet));
}

void PlaceCommands::openAirport(const NearAirport& airport) {
    const DatabaseRecord* found =
        host_.document().charts().database().Find(airport.key, airport.position);
    open(found != nullptr ? found->Clone() : nullptr);
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

std::unique_ptr<PlaceSheet> PlaceCommands::sheetFor(std::shared_ptr<DatabaseRecord> record) {
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
