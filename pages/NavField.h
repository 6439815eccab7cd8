#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cockpit/CockpitData.h"
#include "config/Text.h"

namespace korvel {

enum class NavFieldId : std::uint8_t {
    GroundSpeed,
    Track,
    Bearing,
    Distance,
    TimeToGo,
    Altitude,
    VerticalSpeed,
    CrossTrack,
    DesiredTrack,
    Eta,
    Waypoint,
    TargetAltitude,
    RequiredVerticalSpeed,
    OffCourse,
    NearestAirport,
    PlanDistance,
    PlanTime,
    Variation,
    Position,
    Time,
    Utc,
    Sunrise,
    Sunset,
    FlightTime,
    Satellites,
    Fuel,
    Endurance,
};

/// What a field shows: a value and a unit beside it, or two lines without a unit.
struct NavFieldText {
    std::string value;
    std::string unit;        ///< empty for none
    std::string secondLine;  ///< empty for none

    friend bool operator==(const NavFieldText&, const NavFieldText&) = default;
};

/// One kind of navigation field. A new one is a row in the table in NavField.cpp.
struct NavField {
    NavFieldId id;
    Text header;  ///< its English word is its name in the profile
    /// The widest text that the field shows; its type is chosen by it and so does not jump.
    std::string_view widest;
    int lines;  ///< 1 or 2
    NavFieldText (*format)(const CockpitData& data);
};

/// Stands where a value is unknown or too old.
inline constexpr std::string_view kNoValue = "---";

/// "247°M 18 kt" where it blows from and how fast; "---" without a wind.
std::string windText(const CockpitData& data);

/// All fields that there are.
std::span<const NavField> navFields();
const NavField& navField(NavFieldId id);
/// The fields that the strip shows unless the user chose others, the most important first: where
/// there is little room only the first ones show.
std::span<const NavFieldId> defaultNavFields();

/// The text setting that keeps the chosen fields: their English headers separated by commas.
inline constexpr std::string_view kNavFieldsKey = "NavFields";
inline constexpr std::size_t kMostNavFields = 12;

/// Any text will do: unknown names and repetitions are skipped, letter case does not count, and a
/// text without any known name stands for the default set.
std::vector<NavFieldId> navFieldsFromText(std::string_view text);
std::string navFieldsToText(std::span<const NavFieldId> fields);

}  // namespace korvel
