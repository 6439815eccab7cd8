#include "cockpit/PlaceDetails.h"

#include <algorithm>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "geo/Variation.h"
#include "nav/approach/LandingRunway.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/NavaidRecord.h"

namespace korvel {
namespace {

constexpr int kDegreesPerRunwayNumber = 10;

// Magnetic; from the heading when the database has one, else from the number painted on it.
std::optional<double> magneticDeg(const RunwayEnd& end) {
    if (end.magHeadingDeg)
        return *end.magHeadingDeg;
    const int number = ParseInt(end.id);
    return number >= 1 && number <= 36 ? std::optional<double>(number * kDegreesPerRunwayNumber)
                                       : std::nullopt;
}

std::optional<double> variationOf(const AirportRecord& airport) {
    const auto degrees = static_cast<double>(airport.magVariationDeg);
    return degrees == kNoAngle ? std::nullopt : std::optional(degrees);
}

MapRunway toMapRunway(const RunwayRecord& runway) {
    return {.ends = {runway.ends[0].position, runway.ends[1].position},
            .ids = {runway.ends[0].id, runway.ends[1].id},
            .widthFt = static_cast<double>(runway.widthFt.value_or(0)),
            .hard = isHardSurface(runway.surface)};
}

void takeFrom(const AirportRecord& airport, PlaceDetails& details) {
    details.variationDeg = variationOf(airport);
    for (const RunwayRecord& runway : airport.runways)
        if (hasBothEnds(runway))
            details.runways.push_back(toMapRunway(runway));
    if (const RunwayRecord* longest = longestRunway(airport)) {
        details.longestRunwayFt = *longest->lengthFt;
        details.runwayTrueDeg = runwayTrueDeg(*longest, airport);
    }
}

}  // namespace

std::shared_ptr<const PlaceDetails> readPlaceDetails(const NavDatabase& database,
                                                     const Place& place) {
    auto details = std::make_shared<PlaceDetails>();
    const std::unique_ptr<DatabaseRecord> record = database.recordOf(place);
    if (auto* airport = dynamic_cast<AirportRecord*>(record.get())) {
        database.loadDetails(*airport);
        takeFrom(*airport, *details);
    } else if (record) {
        details->frequency = record->GetInfoText();
    }
    return details;
}

const RunwayRecord* longestRunway(const AirportRecord& airport) {
    const auto longest =
        std::max_element(airport.runways.begin(), airport.runways.end(),
                         [](const RunwayRecord& a, const RunwayRecord& b) {
                             return a.lengthFt.value_or(0) < b.lengthFt.value_or(0);
                         });
    return longest != airport.runways.end() && longest->lengthFt ? &*longest : nullptr;
}

std::optional<double> runwayTrueDeg(const RunwayRecord& runway, const AirportRecord& airport) {
    if (hasBothEnds(runway))
        return TrueCourseDeg(runway.ends[0].position, runway.ends[1].position);
    if (runway.ends.empty())
        return std::nullopt;
    const std::optional<double> magnetic = magneticDeg(runway.ends.front());
    const std::optional<double> variation = variationOf(airport);
    if (!magnetic || !variation)
        return std::nullopt;
    return trueOf(*magnetic, *variation);
}

bool isHardSurface(std::string_view surface) {
    static constexpr std::array<std::string_view, 6> kHard{"ASP", "BIT", "CON",
                                                           "PAV", "PEM", "TAR"};
    return std::any_of(kHard.begin(), kHard.end(),
                       [surface](std::string_view hard) { return surface.starts_with(hard); });
}

}  // namespace korvel
