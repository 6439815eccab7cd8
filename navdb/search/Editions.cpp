#include "navdb/search/Editions.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "geo/Geodesy.h"
#include "navdb/search/PlaceRows.h"

namespace korvel {
namespace {

std::optional<RowMatch> rowOfSameIn(const PlaceSources& sources, std::size_t number,
                                    std::string_view name, const Place& place) {
    const DatabaseFile& file = *sources.files[number];
    const IndexEntry* const index = file.index(name);
    const FieldEntry* const order = index != nullptr ? orderingField(*index) : nullptr;
    if (order == nullptr)
        return std::nullopt;
    const PlaceFields fields(*index->table);
    const std::string_view ident = place.ident.view();
    const auto rows = file.rows();
    std::uint32_t row = rows->firstNotBelow(*index, *order, ident);
    for (; rows->equals(*index, row, *order, ident) && rows->load(*index, row); ++row) {
        const GeoPoint position = positionOfRow(*rows, fields);
        if (kindOfRow(*rows, fields) != place.kind || !IsValid(position) ||
            DistanceNm(position, place.position) > kSamePlaceNm)
            continue;
        const RowMatch match{.file = static_cast<int>(number), .row = index->rowPosition(row)};
        if (!isExcluded(sources, {.position = position, .ident = place.ident, .match = match}))
            return match;
    }
    return std::nullopt;
}

/// In ascending order, each once.
std::vector<std::string_view> identsOf(std::string_view route) {
    constexpr std::string_view kBlank = " \t\r\n";
    std::vector<std::string_view> idents;
    for (std::size_t at = route.find_first_not_of(kBlank); at != std::string_view::npos;) {
        const std::size_t end = std::min(route.find_first_of(kBlank, at), route.size());
        idents.push_back(route.substr(at, end - at));
        at = route.find_first_not_of(kBlank, end);
    }
    std::ranges::sort(idents);
    idents.erase(std::unique(idents.begin(), idents.end()), idents.end());
    return idents;
}

/// Two airways may meet in one place; what shares two runs along the same way.
bool runAlike(std::string_view a, std::string_view b) {
    std::vector<std::string_view> common;
    std::ranges::set_intersection(identsOf(a), identsOf(b), std::back_inserter(common));
    return common.size() > 1;
}

/// A piece of an airway, as one file describes it.
struct AirwayPiece {
    std::size_t file = 0;
    std::string_view route{};  ///< identifiers between spaces or line breaks
};

bool outdoes(DatabaseFiles files, const AirwayPiece& a, const AirwayPiece& b) {
    if (a.file == b.file || !goesBefore(files, a.file, b.file))
        return false;
    const bool isLater = files[a.file]->header().expiry > files[b.file]->header().expiry;
    return a.route == b.route || (isLater && runAlike(a.route, b.route));
}

}  // namespace

bool goesBefore(DatabaseFiles files, std::size_t a, std::size_t b) {
    const std::uint32_t dateA = files[a]->header().expiry;
    const std::uint32_t dateB = files[b]->header().expiry;
    return dateA != dateB ? dateA > dateB : a < b;
}

bool mayBeOutdone(DatabaseFiles files, int file) {
    for (std::size_t other = 0; other < files.size(); ++other)
        if (goesBefore(files, other, static_cast<std::size_t>(file)))
            return true;
    return false;
}

bool isOutdone(const PlaceSources& sources, const Place& place) {
    if (place.match.file < 0 || !IsValid(place.position))
        return false;
    for (std::size_t other = 0; other < sources.files.size(); ++other) {
        if (!goesBefore(sources.files, other, static_cast<std::size_t>(place.match.file)))
            continue;
        if (rowOfSame(sources, other, place))
            return true;
    }
    return false;
}

std::optional<RowMatch> rowOfSame(const PlaceSources& sources, std::size_t file,
                                  const Place& place) {
    for (const auto& [name, kinds] : kIdentifierIndexes)
        if ((kinds & place.kind) != 0)
            if (const auto row = rowOfSameIn(sources, file, name, place))
                return row;
    return std::nullopt;
}

void dropOutdone(DatabaseFiles files, std::span<const std::size_t> filesOf,
                 std::vector<std::string>& routes) {
    std::vector<AirwayPiece> pieces;
    for (std::size_t i = 0; i < routes.size(); ++i)
        pieces.push_back({.file = filesOf[i], .route = routes[i]});
    std::vector<std::string> kept;
    for (const AirwayPiece& piece : pieces)
        if (std::ranges::none_of(
                pieces, [&](const AirwayPiece& other) { return outdoes(files, other, piece); }))
            kept.emplace_back(piece.route);
    routes = std::move(kept);
}

}  // namespace korvel
