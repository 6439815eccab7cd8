#include "pages/NavField.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "cockpit/RestOfFlight.h"
#include "config/texts/InstrumentTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "navdb/records/RecordKey.h"

namespace korvel {
namespace {

constexpr int kPositionDecimals = 2;  // of a minute: 19 m
constexpr int kSecondsPerHour = 3600;
constexpr int kSecondsPerDay = 24 * kSecondsPerHour;
constexpr char kCorrected = '*';  // behind the unit: by what the altimeter read
constexpr double kMetresPerSecondPerFpm = kMetresPerFoot / 60;

NavFieldText absent() { return {std::string(kNoValue), "", ""}; }

// "12.3", from a hundred on "123"; never "100.0".
std::string oneDecimal(double value) { return formatFixed(value, std::abs(value) < 99.95 ? 1 : 0); }

NavFieldText distanceIn(const CockpitData& data, std::optional<double> nm) {
    if (!nm)
        return absent();
    UnitLabels labels;
    const double shown = ConvertDistance(*nm, data.distanceUnit, &labels);
    return {oneDecimal(shown), std::string(labels.distance), ""};
}

NavFieldText courseIn(const CockpitData& data, std::optional<double> degrees) {
    return degrees ? NavFieldText{courseText(*degrees), data.variationDeg ? "°M" : "°T", ""}
                   : absent();
}

NavFieldText altitudeIn(const CockpitData& data, std::optional<int> feet) {
    if (!feet)
        return absent();
    if (data.altUnit == 1)
        return {formatInt(RoundToInt(*feet * kMetresPerFoot)), "m", ""};
    return {formatInt(*feet), "ft", ""};
}

// "42:10" in minutes or "1:42" in hours; the unit tells which.
NavFieldText durationIn(std::optional<double> seconds) {
    constexpr double kTooLong = 100.0 * kSecondsPerHour;
    if (!seconds || !(*seconds >= 0) || *seconds >= kTooLong)
        return absent();
    const int whole = RoundToInt(*seconds);
    if (whole < kSecondsPerHour)
        return {formatInt(whole / 60) + ":" + zeroPadded(whole % 60, 2), "min", ""};
    return {formatInt(whole / kSecondsPerHour) + ":" + zeroPadded(whole / 60 % 60, 2), "h", ""};
}

NavFieldText clockTime(int secondOfDay) {
    const int second = (secondOfDay % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
    return {timeOfDayText(second), zeroPadded(second % 60, 2), ""};
}

std::optional<double> secondsFor(const CockpitData& data, std::optional<double> nm) {
    if (!nm || !data.groundSpeedKt || *data.groundSpeedKt < kSlowestToTellTimeKt)
        return std::nullopt;
    return *nm / *data.groundSpeedKt * kSecondsPerHour;
}

NavFieldText groundSpeed(const CockpitData& data) {
    if (!data.groundSpeedKt)
        return absent();
    UnitLabels labels;
    const double speed = ConvertDistance(*data.groundSpeedKt, data.distanceUnit, &labels);
    return {formatFixed(speed, 0), std::string(labels.speed), ""};
}

NavFieldText track(const CockpitData& data) { return courseIn(data, data.trackMagDeg); }
NavFieldText bearing(const CockpitData& data) { return courseIn(data, data.bearingMagDeg); }
NavFieldText distance(const CockpitData& data) { return distanceIn(data, data.distanceNm); }

NavFieldText timeToGo(const CockpitData& data) {
    return durationIn(secondsFor(data, data.distanceNm));
}

NavFieldText altitude(const CockpitData& data) {
    NavFieldText text = altitudeIn(data, data.altitudeFt);
    if (data.altitudeFt && data.altimeterOffsetFt)
        text.unit += kCorrected;
    return text;
}

NavFieldText verticalSpeedIn(const CockpitData& data, std::optional<int> fpm) {
    if (!fpm)
        return absent();
    const bool metric = data.altUnit == 1;
    std::string number = metric ? formatFixed(*fpm * kMetresPerSecondPerFpm, 1)
                                : formatInt(RoundToInt(*fpm / 10.0) * 10LL);
    if (number == "-0.0")
        number = "0.0";
    if (*fpm > 0 && number != "0" && number != "0.0")
        number.insert(0, "+");
    return {number, metric ? "m/s" : "fpm", ""};
}

NavFieldText verticalSpeed(const CockpitData& data) {
    return verticalSpeedIn(data, data.verticalSpeedFpm);
}

NavFieldText requiredVerticalSpeed(const CockpitData& data) {
    return verticalSpeedIn(data, data.requiredVerticalSpeedFpm);
}

// The letter says on which side of the course the aircraft is.
NavFieldText crossTrack(const CockpitData& data) {
    if (!data.crossTrackNm)
        return absent();
    NavFieldText text = distanceIn(data, std::abs(*data.crossTrackNm));
    if (text.value != "0.0")
        text.value.insert(0, *data.crossTrackNm > 0 ? "L" : "R");
    return text;
}

NavFieldText desiredTrack(const CockpitData& data) {
    return courseIn(data, data.obsCourseMagDeg ? data.obsCourseMagDeg : data.desiredTrackMagDeg);
}

NavFieldText eta(const CockpitData& data) {
    const std::optional<double> seconds = secondsFor(data, data.distanceNm);
    if (!seconds || *seconds >= kSecondsPerDay)
        return absent();
    return {timeOfDayText(data.secondOfDay() + RoundToInt(*seconds)),
            std::string(text(kInstrumentTexts.localTime)), ""};
}

NavFieldText waypoint(const CockpitData& data) {
    if (data.approach)
        return {"RW" + data.approach->runway.id, "", ""};
    std::string name;
    if (!data.directLeg && data.plan && data.plan->active &&
        *data.plan->active < data.plan->rows.size())
        name = data.plan->rows[*data.plan->active].ident;
    if (name.empty() && hasKindPrefix(data.activeKey))
        name = identOfKey(data.activeKey);
    if (name.empty())
        name = data.activeName;
    return name.empty() ? absent() : NavFieldText{name, "", ""};
}

NavFieldText targetAltitude(const CockpitData& data) {
    return altitudeIn(data, data.targetAltitudeFt);
}

NavFieldText offCourse(const CockpitData& data) {
    if (!data.offCourseDeg || !std::isfinite(*data.offCourseDeg))
        return absent();
    const int degrees = RoundToInt(*data.offCourseDeg);
    std::string side;
    if (degrees != 0)
        side = degrees > 0 ? "L" : "R";
    return {side + formatInt(std::abs(degrees)), "°", ""};
}

NavFieldText nearestAirport(const CockpitData& data) {
    if (!data.nearAirports || data.nearAirports->empty())
        return absent();
    const NearAirport& airport = data.nearAirports->front();
    const NavFieldText distance = distanceIn(data, airport.distanceNm);
    return {airport.ident, "",
            courseText(airport.bearingMagDeg) + "° " + distance.value + " " + distance.unit};
}

NavFieldText planDistance(const CockpitData& data) { return distanceIn(data, planRestNm(data)); }
NavFieldText planTime(const CockpitData& data) {
    return durationIn(secondsFor(data, planRestNm(data)));
}

NavFieldText variation(const CockpitData& data) {
    if (!data.variationDeg)
        return absent();
    const std::string number = formatFixed(std::abs(*data.variationDeg), 1);
    return {number, *data.variationDeg < 0 ? "°W" : "°E", ""};
}

NavFieldText position(const CockpitData& data) {
    if (!data.position)
        return absent();
    return {latitudeText(data.position->lat * kRadToDeg, kPositionDecimals), "",
            longitudeText(data.position->lon * kRadToDeg, kPositionDecimals)};
}

NavFieldText timeOfDay(const CockpitData& data) {
    NavFieldText time = clockTime(data.secondOfDay());
    time.unit.append(" ").append(text(kInstrumentTexts.localTime));
    return time;
}

NavFieldText utc(const CockpitData& data) {
    return data.utcSecondOfDay ? clockTime(*data.utcSecondOfDay) : absent();
}

NavFieldText sunTime(const std::optional<int>& secondOfDay) {
    if (!secondOfDay)
        return absent();
    return {timeOfDayText(*secondOfDay), std::string(text(kInstrumentTexts.localTime)), ""};
}
NavFieldText sunrise(const CockpitData& data) { return sunTime(data.sunriseSecondOfDay); }
NavFieldText sunset(const CockpitData& data) { return sunTime(data.sunsetSecondOfDay); }

NavFieldText flightTime(const CockpitData& data) {
    if (!data.flightTimeSec)
        return absent();
    return durationIn(static_cast<double>(*data.flightTimeSec));
}

NavFieldText satellites(const CockpitData& data) {
    if (!data.position)
        return absent();
    return {formatInt(data.satsInUse), data.fix3D ? "3D" : data.fix2D ? "2D" : "", ""};
}

NavFieldText fuel(const CockpitData& data) {
    if (!data.aircraft || !data.fuelLeft)
        return absent();
    return {formatFixed(*data.fuelLeft, 0), std::string(fuelUnitText(data.aircraft->fuelUnit)), ""};
}

// To empty tanks, the reserve included.
NavFieldText endurance(const CockpitData& data) {
    if (!data.aircraft || !data.fuelLeft)
        return absent();
    return durationIn(*data.fuelLeft / data.aircraft->burnPerHour * kSecondsPerHour);
}

constexpr std::array kFields{
    NavField{NavFieldId::GroundSpeed, kInstrumentTexts.groundSpeed, "888", 1, groundSpeed},
    NavField{NavFieldId::Track, kInstrumentTexts.track, "888", 1, track},
    NavField{NavFieldId::Bearing, kInstrumentTexts.bearing, "888", 1, bearing},
    NavField{NavFieldId::Distance, kInstrumentTexts.distance, "88.8", 1, distance},
    NavField{NavFieldId::TimeToGo, kInstrumentTexts.timeToGo, "88:88", 1, timeToGo},
    NavField{NavFieldId::Altitude, kInstrumentTexts.altitude, "88888", 1, altitude},
    NavField{NavFieldId::VerticalSpeed, kInstrumentTexts.verticalSpeed, "+8888", 1, verticalSpeed},
    NavField{NavFieldId::CrossTrack, kInstrumentTexts.crossTrack, "R88.8", 1, crossTrack},
    NavField{NavFieldId::DesiredTrack, kInstrumentTexts.desiredTrack, "888", 1, desiredTrack},
    NavField{NavFieldId::Eta, kInstrumentTexts.eta, "88:88", 1, eta},
    NavField{NavFieldId::Waypoint, kInstrumentTexts.waypoint, "WWWWW", 1, waypoint},
    NavField{NavFieldId::TargetAltitude, kInstrumentTexts.targetAltitude, "88888", 1,
             targetAltitude},
    NavField{NavFieldId::RequiredVerticalSpeed, kInstrumentTexts.requiredVerticalSpeed, "+8888", 1,
             requiredVerticalSpeed},
    NavField{NavFieldId::OffCourse, kInstrumentTexts.offCourse, "R88", 1, offCourse},
    NavField{NavFieldId::NearestAirport, kInstrumentTexts.nearestAirport, "888° 88.8 nm", 2,
             nearestAirport},
    NavField{NavFieldId::PlanDistance, kInstrumentTexts.planDistance, "8888", 1, planDistance},
    NavField{NavFieldId::PlanTime, kInstrumentTexts.planTime, "88:88", 1, planTime},
    NavField{NavFieldId::Variation, kInstrumentTexts.variation, "88.8", 1, variation},
    NavField{NavFieldId::Position, kInstrumentTexts.position, "W188°88.88'", 2, position},
    NavField{NavFieldId::Time, kInstrumentTexts.time, "88:88", 1, timeOfDay},
    NavField{NavFieldId::Utc, kInstrumentTexts.utc, "88:88", 1, utc},
    NavField{NavFieldId::Sunrise, kInstrumentTexts.sunrise, "88:88", 1, sunrise},
    NavField{NavFieldId::Sunset, kInstrumentTexts.sunset, "88:88", 1, sunset},
    NavField{NavFieldId::FlightTime, kInstrumentTexts.flightTime, "88:88", 1, flightTime},
    NavField{NavFieldId::Satellites, kInstrumentTexts.satellites, "88", 1, satellites},
    NavField{NavFieldId::Fuel, kInstrumentTexts.fuel, "888", 1, fuel},
    NavField{NavFieldId::Endurance, kInstrumentTexts.endurance, "88:88", 1, endurance},
};

constexpr std::array kDefaultFields{NavFieldId::GroundSpeed,  NavFieldId::Track,
                                    NavFieldId::Bearing,      NavFieldId::Distance,
                                    NavFieldId::TimeToGo,     NavFieldId::Altitude,
                                    NavFieldId::CrossTrack,   NavFieldId::VerticalSpeed,
                                    NavFieldId::DesiredTrack, NavFieldId::Eta};

}  // namespace

std::string windText(const CockpitData& data) {
    if (!data.wind)
        return std::string(kNoValue);
    UnitLabels labels;
    const double speed = ConvertDistance(data.wind->wind.speedKt, data.distanceUnit, &labels);
    return courseText(data.wind->wind.fromTrueDeg, data.variationDeg) + " " +
           formatFixed(speed, 0) + " " + std::string(labels.speed);
}

std::span<const NavField> navFields() { return kFields; }

const NavField& navField(NavFieldId id) {
    return *std::find_if(
        kFields.begin(), kFields.end(), [id](const NavField& field) { return field.id == id; });
}

std::span<const NavFieldId> defaultNavFields() { return kDefaultFields; }

std::vector<NavFieldId> navFieldsFromText(std::string_view text) {
    std::vector<NavFieldId> chosen;
    while (!text.empty() && chosen.size() < kMostNavFields) {
        const std::size_t end = std::min(text.find(','), text.size());
        const std::string_view name = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto* field = std::ranges::find_if(kFields, [name](const NavField& each) {
            return equalsIgnoringCase(each.header.english, name);
        });
        if (field != kFields.end() && std::ranges::find(chosen, field->id) == chosen.end())
            chosen.push_back(field->id);
    }
    if (chosen.empty())
        chosen.assign(kDefaultFields.begin(), kDefaultFields.end());
    return chosen;
}

std::string navFieldsToText(std::span<const NavFieldId> fields) {
    std::string text;
    for (const NavFieldId id : fields)
        text.append(text.empty() ? "" : ",").append(navField(id).header.english);
    return text;
}

}  // namespace korvel
