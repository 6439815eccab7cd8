#include "navdb/search/PlaceSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <optional>

#include "geo/Geodesy.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/file/LocationIndex.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/NavaidRecord.h"
#include "navdb/search/Editions.h"
#include "navdb/search/PlaceRows.h"

namespace korvel {
namespace {

constexpr double kFullTurnDeg = 360.0;
constexpr double kHalfPi = std::numbers::pi / 2;
constexpr double kFirstRadiusNm = 20.0;  // of the nearest search; then wider and wider
constexpr double kRadiusGrowth = 3.0;
constexpr double kEdge = 1e-9;  // radians: a place on a box's edge is in it
constexpr double kHalfwayRoundNm = 10800.0;
constexpr int kMiddleCell = kCellCount / 2;  // from the meridian of Greenwich eastwards

/// Latitudes in radians, both included.
struct Band {
    double south;
    double north;
};

std::int32_t storedDegrees(double value) {
    return static_cast<std::int32_t>(std::clamp(value,
                                                double{std::numeric_limits<std::int32_t>::min()},
                                                double{std::numeric_limits<std::int32_t>::max()}));
}

/// What a search wants; asked cell by cell and place by place.
class Search {
 public:
    Search() = default;
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;
    virtual ~Search() = default;

    [[nodiscard]] virtual bool wantsCell(int cell) const = 0;
    /// Latitudes that are wanted by now.
    [[nodiscard]] virtual Band band() const = 0;
    [[nodiscard]] virtual bool wants(GeoPoint position) = 0;
    /// The caller's own choice among places that have no identifier yet; empty keeps all.
    [[nodiscard]] virtual const PlaceFilter& filter() const { return noFilter_; }
    /// The place that was wanted last. False ends the search.
    virtual bool take(const Place& place) = 0;

 private:
    PlaceFilter noFilter_;
};

class BoxSearch final : public Search {
 public:
    BoxSearch(const GeoBox& box, std::size_t limit, const PlaceFilter& accept,
              std::vector<Place>& places)
        : band_{.south = box.south * kDegToRad - kEdge, .north = box.north * kDegToRad + kEdge},
          west_(box.west * kDegToRad - kEdge),
          width_(box.widthDeg() * kDegToRad + 2 * kEdge),
          limit_(limit),
          accept_(accept),
          places_(places) {}

    [[nodiscard]] bool wantsCell(int) const override { return true; }
    [[nodiscard]] Band band() const override { return band_; }
    [[nodiscard]] bool wants(GeoPoint position) override {
        return position.lat >= band_.south && position.lat <= band_.north &&
               PositiveMod(position.lon - west_, kTwoPi) <= width_ && places_.size() < limit_;
    }
    [[nodiscard]] const PlaceFilter& filter() const override { return accept_; }
    bool take(const Place& place) override {
        places_.push_back(place);
        return places_.size() < limit_;
    }

 private:
    Band band_;
    double west_;
    double width_;
    std::size_t limit_;
    const PlaceFilter& accept_;
    std::vector<Place>& places_;
};

/// Keeps the nearest places so far; the reach shrinks as soon as there are enough of them.
class NearestSearch final : public Search {
 public:
    NearestSearch(GeoPoint origin, std::size_t count, double reach)
        : origin_(origin), cosLat_(std::cos(origin.lat)), count_(count), reach_(reach) {}

    [[nodiscard]] bool wantsCell(int cell) const override {
        const double west = (cell - kMiddleCell) * kDegToRad;
        const double past = PositiveMod(origin_.lon - west, kTwoPi);
        if (past <= kDegToRad)
            return true;
        const double aside = std::min(past - kDegToRad, kTwoPi - past);
        const double nearest = aside < kHalfPi ? std::asin(cosLat_ * std::sin(aside))
                                               : kHalfPi - std::abs(origin_.lat);
        return nearest <= reach_;
    }
    [[nodiscard]] Band band() const override {
        return {.south = origin_.lat - reach_, .north = origin_.lat + reach_};
    }
    [[nodiscard]] bool wants(GeoPoint position) override {
        distance_ = GreatCircleDistance(origin_.lat, origin_.lon, position.lat, position.lon);
        return distance_ <= reach_;
    }
    bool take(const Place& place) override {
        if (found_.size() == count_) {
            std::pop_heap(found_.begin(), found_.end(), nearer);
            found_.pop_back();
        }
        found_.push_back({.place = place, .distanceNm = distance_ * kNmPerRadian});
        std::push_heap(found_.begin(), found_.end(), nearer);
        if (found_.size() == count_)
            reach_ = std::min(reach_, found_.front().distanceNm / kNmPerRadian);
        return true;
    }

    [[nodiscard]] bool isComplete() const { return found_.size() == count_; }
    [[nodiscard]] std::vector<NearPlace> result() {
        std::sort_heap(found_.begin(), found_.end(), nearer);
        return std::move(found_);
    }

 private:
    static bool nearer(const NearPlace& a, const NearPlace& b) {
        return a.distanceNm < b.distanceNm;
    }

    GeoPoint origin_;
    double cosLat_;
    std::size_t count_;
    double reach_;           ///< radians
    double distance_ = 0.0;  ///< of the place asked about last
    std::vector<NearPlace> found_;
};

/// One location index of one file, searched cell by cell.
class IndexSearch {
 public:
    IndexSearch(const PlaceSources& sources, int fileNumber, std::string_view name, KindMask kinds,
                Search& search)
        : sources_(sources),
          file_(*sources.files[static_cast<std::size_t>(fileNumber)]),
          fileNumber_(fileNumber),
          name_(name),
          kinds_(kinds),
          mayBeOutdone_(mayBeOutdone(sources.files, fileNumber)),
          mustWait_(mayBeOutdone_ || search.filter()),
          search_(search) {}

    /// False when the search is over.
    bool run(std::span<const int> cells) {
        std::optional<Rows> rows(file_.rows());
        auto index = LocationIndex::open(file_, name_, **rows);
        if (!index)
            return true;
        const PlaceFields fields(*index->index().table);
        for (const int cell : cells) {
            if (search_.wantsCell(cell)) {
                visitCell(*index, cell, **rows, fields);
                takeWaiting(*index, rows, fields);
            }
            if (!goOn_)
                return false;
        }
        return true;
    }

 private:
    using Rows = Guarded<RowReader>::Handle<RowReader>;

    /// A place that is asked about before it is taken.
    struct Waiting {
        Place place;
        std::optional<std::int32_t> identWord;
    };

    void visitCell(LocationIndex& index, int cell, RowReader& rows, const PlaceFields& fields) {
        const Band band = search_.band();
        const std::int32_t south = storedDegrees(std::floor(band.south * kRadToDeg / kDegreesUnit));
        const std::int32_t north = storedDegrees(std::ceil(band.north * kRadToDeg / kDegreesUnit));
        index.visitCell(cell, south, north, [&](std::uint32_t row) {
            if ((kindOfRow(rows, fields) & kinds_) == 0 ||
                !search_.wants(positionOfRow(rows, fields)))
                return true;
            Place place = buildUnnamedPlace(
                rows, fields, file_, {.file = fileNumber_, .row = index.index().rowPosition(row)});
            if (mustWait_) {
                waiting_.push_back({.place = place, .identWord = rows.word(fields.ident)});
            } else {
                readIdent(rows, fields, place);
                take(place);
            }
            return goOn_;
        });
    }

    /// The caller's filter and other files are asked while this file's lock is let go: the filter
    /// may use the database itself.
    void takeWaiting(const LocationIndex& index, std::optional<Rows>& rows,
                     const PlaceFields& fields) {
        if (waiting_.empty())
            return;
        if (search_.filter()) {
            rows.reset();
            std::erase_if(waiting_,
                          [this](const Waiting& each) { return !search_.filter()(each.place); });
            rows.emplace(file_.rows());
        }
        for (Waiting& each : waiting_)
            readIdentOf(each, *index.index().table, **rows, fields);
        if (mayBeOutdone_) {
            rows.reset();
            std::erase_if(waiting_,
                          [this](const Waiting& each) { return isOutdone(sources_, each.place); });
            rows.emplace(file_.rows());
        }
        for (const Waiting& each : waiting_)
            if (goOn_ && search_.wants(each.place.position))
                take(each.place);
        waiting_.clear();
    }

    /// Without reading the row again where that can be helped.
    void readIdentOf(Waiting& each, const TableEntry& table, RowReader& rows,
                     const PlaceFields& fields) {
        if (each.identWord) {
            rows.textOf(*each.identWord, text_);
            each.place.ident.assign(text_);
        } else if (rows.load(table, each.place.match.row)) {
            readIdent(rows, fields, each.place);
        }
    }

    void take(const Place& place) { goOn_ = isExcluded(sources_, place) || search_.take(place); }

    const PlaceSources& sources_;
    const DatabaseFile& file_;
    int fileNumber_;
    std::string_view name_;
    KindMask kinds_;
    bool mayBeOutdone_;
    bool mustWait_;  ///< the places, until something is asked about them
    Search& search_;
    std::vector<Waiting> waiting_;  ///< of the present cell
    std::string text_;
    bool goOn_ = true;
};

bool searchFiles(const PlaceSources& sources, KindMask kinds, std::span<const int> cells,
                 Search& search) {
    for (std::size_t number = 0; number < sources.files.size(); ++number) {
        for (const auto& [name, indexKinds] : kLocationIndexes)
            if ((indexKinds & kinds) != 0 &&
                !IndexSearch(sources, static_cast<int>(number), name, kinds, search).run(cells))
                return false;
    }
    return true;
}

std::uint32_t flagsOf(const DatabaseRecord& record) {
    if (const auto* airport = dynamic_cast<const AirportRecord*>(&record))
        return airport->flags;
    if (const auto* navaid = dynamic_cast<const NavaidRecord*>(&record))
        return navaid->usage;
    const auto* fix = dynamic_cast<const FixRecord*>(&record);
    return fix != nullptr ? fix->usage : 0;
}

void searchUserRecords(const PlaceSources& sources, KindMask kinds, std::span<const int> cells,
                       Search& search) {
    for (const int cell : cells) {
        for (const DatabaseRecord* const record : sources.userRecords->bucket(cell)) {
            if ((record->GetKind() & kinds) == 0 || !search.wants(record->position))
                continue;
            const Place place = placeOfUser(*record);
            if ((!search.filter() || search.filter()(place)) && !search.take(place))
                return;
        }
    }
}

void runSearch(const PlaceSources& sources, KindMask kinds, std::span<const int> cells,
               Search& search) {
    if (searchFiles(sources, kinds, cells, search) && sources.userRecords != nullptr)
        searchUserRecords(sources, kinds, cells, search);
}

/// The cells from a longitude (degrees) on eastwards until `width` degrees further.
std::vector<int> cellsFrom(double west, double width) {
    const int first = westernCell(west);
    const int count = width >= kFullTurnDeg - 1
                          ? kCellCount
                          : static_cast<int>(std::floor(west + width) - std::floor(west)) + 1;
    std::vector<int> cells(static_cast<std::size_t>(std::clamp(count, 0, kCellCount)));
    for (int next = first; int& cell : cells)
        cell = next++ % kCellCount;
    return cells;
}

/// The cells that a circle touches, its centre's first and then outwards.
std::vector<int> cellsAround(GeoPoint centre, double radius) {
    double halfWidth = std::numbers::pi;
    if (std::abs(centre.lat) + radius < kHalfPi)
        halfWidth = std::asin(std::min(std::sin(radius) / std::cos(centre.lat), 1.0));
    const double west = (centre.lon - halfWidth) * kRadToDeg;
    std::vector<int> cells = cellsFrom(west, 2 * halfWidth * kRadToDeg);
    const int middle = cellOfRadians(centre.lon);
    const auto aside = [middle](int cell) {
        const int past = (cell - middle + kCellCount) % kCellCount;
        return std::min(past, kCellCount - past);
    };
    std::stable_sort(cells.begin(), cells.end(), [&](int a, int b) { return aside(a) < aside(b); });
    return cells;
}

}  // namespace

bool isExcluded(const PlaceSources& sources, const Place& place) {
    const auto byLatitude = [](const ExcludedPlace& excluded, double lat) {
        return excluded.position.lat < lat;
    };
    auto excluded = std::lower_bound(sources.exclusions.begin(), sources.exclusions.end(),
                                     place.position.lat, byLatitude);
    for (; excluded != sources.exclusions.end() && excluded->position.lat == place.position.lat;
         ++excluded)
        if (excluded->file == place.match.file && excluded->position.lon == place.position.lon &&
            excluded->ident == place.ident)
            return true;
    return false;
}

Place placeOfUser(const DatabaseRecord& record) {
    return {.position = record.position,
            .kind = record.GetKind(),
            .flags = flagsOf(record),
            .pastDate = record.pastDate,
            .ident = record.ident,
            .match = record.origin.match};
}

void findPlacesIn(const PlaceSources& sources, const GeoBox& box, KindMask kinds, std::size_t limit,
                  const PlaceFilter& accept, std::vector<Place>& places) {
    places.clear();
    BoxSearch search(box, limit, accept, places);
    runSearch(sources, kinds, cellsFrom(box.west, box.widthDeg()), search);
}

std::vector<NearPlace> findNearest(const PlaceSources& sources, GeoPoint position, KindMask kinds,
                                   std::size_t count, double withinNm) {
    if (count == 0 || !IsValid(position))
        return {};
    const double widest = std::min(withinNm, kHalfwayRoundNm);
    double radiusNm = kFirstRadiusNm;
    while (true) {
        const double radius = std::min(radiusNm, widest) / kNmPerRadian;
        NearestSearch search(position, count, radius);
        runSearch(sources, kinds, cellsAround(position, radius), search);
        if (search.isComplete() || radiusNm >= widest)
            return search.result();
        radiusNm *= kRadiusGrowth;
    }
}

}  // namespace korvel
