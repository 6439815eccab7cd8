#include "navdb/search/NameSearch.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "geo/Geodesy.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/search/Editions.h"
#include "navdb/search/NameWords.h"
#include "navdb/search/PlaceRows.h"

namespace korvel {
namespace {

constexpr std::size_t kMostRows = 20000;  // of one word in one file

/// A row of an index of names. Its texts are read when it is near enough to be shown.
struct Hit {
    GeoPoint position;
    KindMask kind = 0;
    std::int32_t placeWord = 0;
    std::int32_t townWord = 0;
    double distanceNm = 0.0;

    /// What tells places of one file apart.
    [[nodiscard]] auto where() const { return std::tuple(position.lat, position.lon, kind); }
};

bool isBefore(const Hit& a, const Hit& b) { return a.where() < b.where(); }

/// One file's names.
class FileNames {
 public:
    FileNames(const DatabaseFile& file, const IndexEntry& index)
        : file_(file),
          index_(index),
          order_(orderingField(index)),
          place_(index.table->field(packName("PLACE"))),
          town_(index.table->field(packName("TOWN"))),
          kind_(index.table->field(packName("KIND"))),
          fields_(*index.table) {}

    /// Those that have every word; the names' own rows before the towns'.
    std::vector<Hit> find(std::span<const std::string> words, KindMask kinds) {
        std::vector<Hit> hits;
        for (const std::string& word : words) {
            std::vector<Hit> found = beginning(word, kinds);
            if (&word != &words.front()) {
                std::ranges::sort(found, isBefore);
                std::erase_if(hits, [&found](const Hit& hit) {
                    return !std::ranges::binary_search(found, hit, isBefore);
                });
            } else {
                hits = std::move(found);
            }
        }
        return hits;
    }

    /// The hit as a place that has no row yet, with its town.
    NamedPlace named(const Hit& hit, int number) {
        const auto rows = file_.rows();
        NamedPlace found{.place = {.position = hit.position,
                                   .kind = hit.kind,
                                   .pastDate = file_.isPastDate(),
                                   .match = {.file = number}},
                         .town = {},
                         .distanceNm = hit.distanceNm};
        rows->textOf(hit.townWord, found.town);
        std::string ident;
        rows->textOf(hit.placeWord, ident);
        found.place.ident.assign(ident);
        return found;
    }

 private:
    std::vector<Hit> beginning(std::string_view word, KindMask kinds) {
        std::vector<Hit> hits;
        const auto rows = file_.rows();
        std::string text;
        const std::uint32_t first = rows->firstNotBelow(index_, *order_, word);
        for (std::uint32_t row = first; row - first < kMostRows && row < index_.rowCount(); ++row) {
            if (!rows->load(index_, row))
                break;
            rows->text(order_, text);
            if (!text.starts_with(word))
                break;
            const Hit hit{.position = positionOfRow(*rows, fields_),
                          .kind = static_cast<KindMask>(rows->word(kind_).value_or(0)),
                          .placeWord = rows->word(place_).value_or(0),
                          .townWord = rows->word(town_).value_or(0)};
            if ((hit.kind & kinds) != 0 && IsValid(hit.position))
                hits.push_back(hit);
        }
        return hits;
    }

    const DatabaseFile& file_;
    const IndexEntry& index_;
    const FieldEntry* order_;
    const FieldEntry* place_;
    const FieldEntry* town_;
    const FieldEntry* kind_;
    PlaceFields fields_;
};

/// Each place once: by its own name, if that has the words as well as its town's.
void dropRepeats(std::vector<Hit>& hits) {
    std::ranges::stable_sort(
        hits,
        [](const Hit& a, const Hit& b) {
            return std::tuple(a.where(), a.townWord != 0) < std::tuple(b.where(), b.townWord != 0);
        });
    hits.erase(std::unique(hits.begin(), hits.end(),
                           [](const Hit& a, const Hit& b) { return a.where() == b.where(); }),
               hits.end());
}

void addFromFile(const PlaceSources& sources, int number, std::span<const std::string> words,
                 KindMask kinds, std::optional<GeoPoint> near, std::size_t limit,
                 std::vector<NamedPlace>& places) {
    const DatabaseFile& file = *sources.files[static_cast<std::size_t>(number)];
    const IndexEntry* const index = file.index("NamKey");
    if (index == nullptr || orderingField(*index) == nullptr)
        return;
    FileNames names(file, *index);
    std::vector<Hit> hits = names.find(words, kinds);
    dropRepeats(hits);
    if (near)
        for (Hit& hit : hits)
            hit.distanceNm = DistanceNm(*near, hit.position);
    std::ranges::stable_sort(hits, {}, &Hit::distanceNm);
    const std::size_t enough = places.size() + limit;
    for (const Hit& hit : hits) {
        if (places.size() == enough)
            return;
        NamedPlace found = names.named(hit, number);
        const auto row = rowOfSame(sources, static_cast<std::size_t>(number), found.place);
        if (!row)
            continue;  // excluded
        found.place.match = *row;
        if (!isOutdone(sources, found.place))
            places.push_back(std::move(found));
    }
}

void addUserRecords(const UserRecordStore& records, std::span<const std::string> words,
                    KindMask kinds, std::optional<GeoPoint> near, std::vector<NamedPlace>& places) {
    for (const std::string& key : records.keys()) {
        const DatabaseRecord* const record = records.find(key);
        if ((record->GetKind() & kinds) != 0 && hasWords(record->GetName(), words))
            places.push_back({.place = placeOfUser(*record),
                              .town = {},
                              .distanceNm = near ? DistanceNm(*near, record->position) : 0.0});
    }
}

}  // namespace

std::vector<NamedPlace> findPlacesByName(const PlaceSources& sources,
                                         std::span<const std::string> words, KindMask kinds,
                                         std::optional<GeoPoint> near, std::size_t limit) {
    std::vector<NamedPlace> places;
    if (words.empty())
        return places;
    for (std::size_t number = 0; number < sources.files.size(); ++number)
        addFromFile(sources, static_cast<int>(number), words, kinds, near, limit, places);
    if (sources.userRecords != nullptr)
        addUserRecords(*sources.userRecords, words, kinds, near, places);
    std::ranges::stable_sort(places, {}, &NamedPlace::distanceNm);
    places.resize(std::min(places.size(), limit));
    return places;
}

}  // namespace korvel
