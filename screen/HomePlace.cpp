#include "screen/HomePlace.h"

#include <cmath>
#include <string>

#include "base/TextNumbers.h"
#include "cockpit/CockpitData.h"
#include "config/ProfileFile.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr const char* kLatKey = "MapLat";
constexpr const char* kLonKey = "MapLon";

/// Degrees; nothing where the profile has no number in the range.
std::optional<double> degreesOf(ProfileFile& profile, const char* key, double most) {
    const std::string text = profile.getString(kOptionsSection, key, "");
    const double degrees = ParseDouble(text);
    if (text.empty() || !(std::abs(degrees) <= most))
        return std::nullopt;
    return degrees;
}

}  // namespace

void HomePlace::load(ProfileFile& profile) {
    const auto lat = degreesOf(profile, kLatKey, 90);
    const auto lon = degreesOf(profile, kLonKey, 180);
    if (lat && lon)
        place_ = GeoPoint{*lat * kDegToRad, *lon * kDegToRad};
}

void HomePlace::save(ProfileFile& profile) const {
    if (!place_)
        return;
    profile.setString(kOptionsSection, kLatKey, formatFixed(place_->lat * kRadToDeg, 1), true);
    profile.setString(kOptionsSection, kLonKey, formatFixed(place_->lon * kRadToDeg, 1), true);
}

void HomePlace::update(const CockpitData& data) {
    if (data.position && !data.simulated && data.source == SourceKind::Receiver)
        place_ = data.position;
}

}  // namespace korvel
