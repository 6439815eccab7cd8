#include "display/NavField.h"

#include <algorithm>
#include <array>

#include "display/GeoText.h"
#include "nav/Geodesy.h"
#include "nav/TextNumbers.h"
#include "nav/Units.h"

namespace korvel {
namespace {

constexpr int kPositionDecimals = 2;  // of a minute: 19 m

NavFieldText absent() { return {std::string(kNoValue), "", ""}; }

NavFieldText groundSpeed(const CockpitData& data) {
    if (!data.groundSpeedKt)
        return absent();
    UnitLabels labels;
    const double speed = ConvertDistance(*data.groundSpeedKt, &labels);
    return {formatFixed(speed, 0), std::string(labels.speed), ""};
}

NavFieldText track(const CockpitData& data) {
    if (!data.trackMagDeg)
        return absent();
    return {courseText(*data.trackMagDeg), "°M", ""};
}

NavFieldText altitude(const CockpitData& data) {
    if (!data.altitudeFt)
        return absent();
    if (data.altUnit == 1)
        return {formatInt(RoundToInt(*data.altitudeFt * kMetresPerFoot)), "m", ""};
    return {formatInt(*data.altitudeFt), "ft", ""};
}

NavFieldText position(const CockpitData& data) {
    if (!data.position)
        return absent();
    return {latitudeText(data.position->lat * kRadToDeg, kPositionDecimals), "",
            longitudeText(data.position->lon * kRadToDeg, kPositionDecimals)};
}

NavFieldText timeOfDay(const CockpitData& data) {
    return {zeroPadded(data.now.hour, 2) + ":" + zeroPadded(data.now.minute, 2),
            zeroPadded(data.now.second, 2), ""};
}

constexpr std::array kFields{
    NavField{NavFieldId::GroundSpeed, "GS", "888", 1, groundSpeed},
    NavField{NavFieldId::Track, "TRK", "888", 1, track},
    NavField{NavFieldId::Altitude, "ALT", "88888", 1, altitude},
    NavField{NavFieldId::Position, "POS", "W188°88.88'", 2, position},
    NavField{NavFieldId::Time, "TIME", "88:88", 1, timeOfDay},
};

constexpr std::array kDefaultFields{NavFieldId::GroundSpeed, NavFieldId::Track,
                                    NavFieldId::Altitude, NavFieldId::Position, NavFieldId::Time};

}  // namespace

std::span<const NavField> navFields() { return kFields; }

const NavField& navField(NavFieldId id) {
    return *std::find_if(kFields.begin(), kFields.end(),
                         [id](const NavField& field) { return field.id == id; });
}

std::span<const NavFieldId> defaultNavFields() { return kDefaultFields; }

}  // namespace korvel
