#include "navdb/NavDatabase.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "geo/Geodesy.h"
#include "geo/MagneticModel.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/records/AirportDetails.h"
#include "navdb/search/Editions.h"
#include "navdb/search/NameSearch.h"
#include "navdb/search/NameWords.h"
#include "navdb/search/PlaceRows.h"
#include "navdb/search/PlaceSearch.h"
#include "navdb/search/PrefixSearch.h"
#include "navdb/search/TownSearch.h"
#include "navdb/user/UserRecordStore.h"

namespace korvel {
namespace {

using RecordPtr = std::unique_ptr<DatabaseRecord>;

constexpr double kFartherThanAnything = 2147483647.0;
constexpr double kNavaidPreferenceNm = 25.0;
constexpr std::size_t kMostNamesLookedThrough = 400;
constexpr double kNamesLookedThroughNm = 150;

double distanceTo(GeoPoint from, GeoPoint to) {
    return GreatCircleDistance(from.lat, from.lon, to.lat, to.lon);
}

enum class Preference { FirstWithinReach, StrictlyNearest };

/// Which of two equally named places is meant.
RecordPtr choose(RecordPtr p, RecordPtr q, const std::optional<GeoPoint>& near,
                 Preference preference) {
    if (!p || !q)
        return p ? std::move(p) : std::move(q);
    if (!near)
        return p;
    const double toP = distanceTo(*near, p->position);
    const double toQ = distanceTo(*near, q->position);
    if (toP < toQ)
        return p;
    const bool keepsFirst = preference == Preference::FirstWithinReach &&
                            std::abs(toQ - toP) * kNmPerRadian <= kNavaidPreferenceNm;
    return keepsFirst ? std::move(p) : std::move(q);
}

}  // namespace

/// One search, and the best place so far.
struct NavDatabase::Search {
    std::string_view index;
    std::string_view table;
    std::optional<GeoPoint> near{};
    char wanted = 0;  ///< kind letter, 0 for any

    double distance = kFartherThanAnything;
    std::optional<RowMatch> row{};               ///< the one chosen
    const DatabaseRecord* userRecord = nullptr;  ///< chosen instead of a row

    [[nodiscard]] bool isDone() const { return !near && hasFound(); }
    [[nodiscard]] bool hasFound() const { return row || userRecord != nullptr; }
    [[nodiscard]] bool wants(KindMask kind) const {
        return kind != 0 && (wanted == 0 || kindLetter(kind) == wanted);
    }
    /// Whether a place there is the best so far. Without a reference position the first one is.
    [[nodiscard]] bool improves(GeoPoint position) {
        if (!near)
            return !hasFound();
        const double candidate =
            IsValid(position) ? distanceTo(*near, position) : kFartherThanAnything;
        if (candidate < distance) {
            distance = candidate;
            return true;
        }
        return false;
    }
};

NavDatabase::NavDatabase(const Clock& clock, FileSystem& disk) : clock_(clock), disk_(disk) {}
NavDatabase::~NavDatabase() = default;

std::string NavDatabase::openFile(const std::filesystem::path& path,
                                  const std::function<bool(int)>& progress) {
    auto file = std::make_unique<DatabaseFile>();
    std::string message = file->Open(path, clock_, progress, disk_);
    if (message.empty())
        files_.push_back(std::move(file));
    return message;
}

std::string NavDatabase::openTowns(const std::filesystem::path& path) {
    auto file = std::make_unique<DatabaseFile>();
    std::string message = file->Open(path, clock_, {}, disk_);
    if (message.empty())
        towns_ = std::move(file);
    return message;
}

void NavDatabase::clear() {
    files_.clear();
    towns_.reset();
    exclusions_.clear();
    excludedPlaces_.clear();
    userRecords_ = nullptr;
    lastFound_.reset();
    lastMatch_.reset();
}

void NavDatabase::takeFilesFrom(NavDatabase& other) {
    files_ = std::exchange(other.files_, {});
    towns_ = std::exchange(other.towns_, {});
    exclusions_ = std::exchange(other.exclusions_, {});
    excludedPlaces_ = std::exchange(other.excludedPlaces_, {});
    lastFound_.reset();
    lastMatch_.reset();
    other.clear();
}

char NavDatabase::regionLetter() const {
    return files_.empty() ? '\0' : files_.front()->regionLetter();
}

void NavDatabase::exclude(const RowMatch& row) {
    const auto place = std::lower_bound(exclusions_.begin(), exclusions_.end(), row);
    if (place != exclusions_.end() && *place == row)
        return;
    exclusions_.insert(place, row);
    if (const auto record = recordAt(row)) {
        const auto byLatitude = [](double lat, const ExcludedPlace& excluded) {
            return lat < excluded.position.lat;
        };
        excludedPlaces_.insert(
            std::upper_bound(excludedPlaces_.begin(), excludedPlaces_.end(), record->position.lat,
                             byLatitude),
            {.file = row.file, .position = record->position, .ident = record->ident});
    }
}

PlaceSources NavDatabase::sources() const { return {files_, excludedPlaces_, userRecords_}; }

bool NavDatabase::isExcluded(const RowMatch& row) const {
    return std::binary_search(exclusions_.begin(), exclusions_.end(), row);
}

void NavDatabase::searchFile(int file, std::string_view ident, Search& search) const {
    const DatabaseFile& source = *files_[static_cast<std::size_t>(file)];
    const IndexEntry* const index = source.index(search.index);
    const FieldEntry* const order = index != nullptr ? orderingField(*index) : nullptr;
    if (order == nullptr || index->table->name != packName(search.table))
        return;
    const PlaceFields fields(*index->table);
    const bool mayBeOutdone = korvel::mayBeOutdone(files_, file);
    std::vector<Place> waiting;  // to be looked for in other files, too, when no lock is held
    const auto lookAtRows = [&] {
        const auto rows = source.rows();
        std::uint32_t row = rows->firstNotBelow(*index, *order, ident);
        while (!search.isDone() && rows->equals(*index, row, *order, ident)) {
            const RowMatch match{.file = file, .row = index->rowPosition(row++)};
            if (isExcluded(match) || !rows->load(*index->table, match.row) ||
                !search.wants(kindOfRow(*rows, fields)))
                continue;
            if (mayBeOutdone)
                waiting.push_back(buildPlace(*rows, fields, source, match));
            else if (search.improves(positionOfRow(*rows, fields)))
                search.row = match;
        }
    };
    lookAtRows();
    for (const Place& place : waiting)
        if (!isOutdone(sources(), place) && search.improves(place.position))
            search.row = place.match;
}

void NavDatabase::searchUserRecords(std::string_view ident, Search& search) const {
    static constexpr std::array<std::pair<std::string_view, KindMask>, 4> kKindsOfIndex{
        {{"AptKey", kAirportKind},
         {"NavKey", kVorKind},
         {"NavKey", kNdbKind},
         {"WptKey", kFixKind}}};
    if (userRecords_ == nullptr)
        return;
    for (const auto& [index, kind] : kKindsOfIndex) {
        if (index != search.index || search.isDone() || !search.wants(kind))
            continue;
        const DatabaseRecord* const record = userRecords_->find(makeRecordKey(kind, ident));
        if (record != nullptr && search.improves(record->position))
            search.userRecord = record;
    }
}

RecordPtr NavDatabase::recordAt(const RowMatch& match) const {
    if (match.file < 0 || match.file >= static_cast<int>(files_.size()))
        return nullptr;
    const DatabaseFile& file = *files_[static_cast<std::size_t>(match.file)];
    const TableEntry* const table = file.directory().tableOfRow(match.row);
    const auto rows = file.rows();
    return table != nullptr && rows->load(*table, match.row)
               ? buildRecord(*rows, *table, file, match)
               : nullptr;
}

RecordPtr NavDatabase::FindInIndex(std::string_view ident, std::string_view index,
                                   std::string_view table, std::optional<GeoPoint> near,
                                   char wanted) {
    Search search{.index = index, .table = table, .wanted = wanted};
    if (near && IsValid(*near))
        search.near = near;
    const int count = static_cast<int>(files_.size());
    for (int file = 0; file < count; ++file)
        searchFile(file, ident, search);
    searchUserRecords(ident, search);
    if (!search.hasFound() && (index == "AptKey" || index == "Ap2Key")) {
        for (int file = 0; file < count; ++file)
            if (const char region = files_[static_cast<std::size_t>(file)]->regionLetter();
                region != 0)
                searchFile(file, otherSpelling(ident, region), search);
    }
    if (!search.hasFound())
        return nullptr;
    RecordPtr record =
        search.userRecord != nullptr ? search.userRecord->Clone() : recordAt(*search.row);
    noteMatch(record.get());
    return record;
}

/// For whoever wants more of the same row; user records have none.
void NavDatabase::noteMatch(const DatabaseRecord* record) {
    if (record != nullptr) {
        lastMatch_ = record->origin.match.file == RecordOrigin::kNoFile
                         ? std::nullopt
                         : std::optional(record->origin.match);
    }
}

RecordPtr NavDatabase::findAirport(std::string_view ident, std::optional<GeoPoint> near) {
    RecordPtr found = FindInIndex(ident, "AptKey", "_APT", near, 0);
    return found ? std::move(found) : FindInIndex(ident, "Ap2Key", "_AP2", near, 0);
}

RecordPtr NavDatabase::findBare(std::string_view ident, std::optional<GeoPoint> near) {
    RecordPtr navaid = FindInIndex(ident, "NavKey", "_NAV", near, 0);
    RecordPtr airport = findAirport(ident, near);
    RecordPtr fix = FindInIndex(ident, "WptKey", "_WPT", near, 0);
    RecordPtr place =
        choose(std::move(navaid), std::move(airport), near, Preference::FirstWithinReach);
    place = choose(std::move(place), std::move(fix), near, Preference::StrictlyNearest);
    noteMatch(place.get());
    return place;
}

const DatabaseRecord* NavDatabase::Find(std::string_view key, std::optional<GeoPoint> near) {
    if (near && !IsValid(*near))
        near.reset();
    const std::string_view ident = identOfKey(key);
    switch (hasKindPrefix(key) ? key.front() : '\0') {
        case 'a':
            lastFound_ = findAirport(ident, near);
            break;
        case 'v':
        case 'n':
            lastFound_ = FindInIndex(ident, "NavKey", "_NAV", near, key.front());
            break;
        case 'f':
            lastFound_ = FindInIndex(ident, "WptKey", "_WPT", near, 0);
            break;
        default:
            lastFound_ = findBare(ident, near);
            break;
    }
    return lastFound_.get();
}

void NavDatabase::loadDetails(AirportRecord& airport) const {
    const auto& [match, fileName] = airport.origin;
    if (match.file < 0 || match.file >= static_cast<int>(files_.size()))
        return;
    const DatabaseFile& file = *files_[static_cast<std::size_t>(match.file)];
    // The text itself, not what it says: a file of that name may have been opened anew.
    if (file.fileName() == fileName)
        readAirportDetails(file, airport);
}

void NavDatabase::GetAirwayRoutes(std::string_view name, std::vector<std::string>& routes) const {
    routes.clear();
    const bool hasSeveral = files_.size() > 1;
    std::vector<std::size_t> filesOf;  // of the routes
    for (std::size_t number = 0; number < files_.size(); ++number) {
        const DatabaseFile& file = *files_[number];
        const IndexEntry* const index = file.index("Airway");
        const FieldEntry* const order = index != nullptr ? orderingField(*index) : nullptr;
        if (file.isExpired() || order == nullptr)
            continue;
        const auto rows = file.rows();
        std::uint32_t row = rows->firstNotBelow(*index, *order, name);
        for (; rows->equals(*index, row, *order, name) && rows->load(*index, row); ++row) {
            rows->text(index->table->field(packName("ROUTE")), routes.emplace_back());
            if (hasSeveral)
                filesOf.push_back(number);
        }
    }
    if (hasSeveral)
        dropOutdone(files_, filesOf, routes);
}

void NavDatabase::placesIn(const GeoBox& box, KindMask kinds, std::size_t limit,
                           std::vector<Place>& places, const PlaceFilter& accept) const {
    findPlacesIn(sources(), box, kinds, limit, accept, places);
}

void NavDatabase::userPlacesIn(const GeoBox& box, KindMask kinds,
                               std::vector<Place>& places) const {
    findPlacesIn({{}, {}, userRecords_}, box, kinds, std::numeric_limits<std::size_t>::max(), {},
                 places);
}

std::vector<NearPlace> NavDatabase::nearest(GeoPoint position, KindMask kinds, std::size_t count,
                                            double withinNm) const {
    return findNearest(sources(), position, kinds, count, withinNm);
}

bool NavDatabase::placesBeginning(std::string_view beginning, KindMask kinds, std::size_t rowLimit,
                                  std::vector<Place>& places) const {
    return findPlacesBeginning(sources(), beginning, kinds, rowLimit, places);
}

void NavDatabase::placesNamed(std::string_view ident, KindMask kinds, std::size_t rowLimit,
                              std::vector<Place>& places) const {
    findPlacesNamed(sources(), ident, kinds, rowLimit, places);
}

std::vector<NamedPlace> NavDatabase::placesByName(std::string_view text, KindMask kinds,
                                                  std::optional<GeoPoint> near,
                                                  std::size_t limit) const {
    const std::vector<std::string> words = nameWords(text);
    if (words.empty())
        return {};
    std::vector<NamedPlace> places = findPlacesByName(sources(), words, kinds, near, limit);
    if (near)
        addUnindexedNames(words, kinds, *near, places);
    if (towns_ && (kinds & kAirportKind) != 0)
        addAirportsOfTowns(sources(), *towns_, words, near, places);
    std::ranges::stable_sort(places, {}, &NamedPlace::distanceNm);
    places.resize(std::min(places.size(), limit));
    return places;
}

void NavDatabase::addUnindexedNames(std::span<const std::string> words, KindMask kinds,
                                    GeoPoint near, std::vector<NamedPlace>& places) const {
    const auto lacksNames = [](const auto& file) { return file->index("NamKey") == nullptr; };
    if (std::ranges::none_of(files_, lacksNames))
        return;
    for (const NearPlace& around :
         nearest(near, kinds & ~kFixKind, kMostNamesLookedThrough, kNamesLookedThroughNm)) {
        const int file = around.place.match.file;
        if (file == RecordOrigin::kNoFile || !lacksNames(files_[static_cast<std::size_t>(file)]))
            continue;
        const auto record = recordAt(around.place.match);
        if (record && hasWords(record->GetName(), words))
            places.push_back({.place = around.place, .town = {}, .distanceNm = around.distanceNm});
    }
}

RecordPtr NavDatabase::recordOf(const Place& place) const {
    if (place.match.file != RecordOrigin::kNoFile)
        return recordAt(place.match);
    const DatabaseRecord* const record =
        userRecords_ != nullptr ? userRecords_->find(makeRecordKey(place.kind, place.ident.view()))
                                : nullptr;
    return record != nullptr ? record->Clone() : nullptr;
}

double NavDatabase::variationAt(GeoPoint position) const {
    const LocalTime today = clock_.localNow();
    return IsValid(position)
               ? modelVariationDeg(position, decimalYear(today.year, today.month, today.day))
               : kNoAngle;
}

}  // namespace korvel
