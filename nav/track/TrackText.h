#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "platform/FileSystem.h"

namespace korvel {

struct TrackPoint {
    std::uint32_t offsetS = 0;  ///< seconds after the track's base time
    GeoPoint position;          ///< radians
    std::int32_t groundSpeedKt = 0;
    std::int32_t trackDeg = 0;
    std::int32_t altitudeFt = 0;

    friend bool operator==(const TrackPoint&, const TrackPoint&) = default;
};

// The text form of a track, the ".trk" file, has a line for each slot, ended by CR LF:
//   YYYYMMDD,HHMMSS,lat,lon,speed,track,altitude    local time; degrees, whole kt, °, ft
//   00000000,000000,0.0,0.0,0,0,0                   a break
// and lines of remarks that begin with ";". Everything here is safe from any thread.

/// What a text holds.
struct TrackLines {
    std::string error{};     ///< the message for the pilot, and then nothing else counts
    std::int64_t baseS = 0;  ///< base time, as localSeconds()
    /// In the order of recording; an empty slot is a break between two stretches.
    std::vector<std::optional<TrackPoint>> slots{};
    std::size_t leftOut = 0;  ///< malformed lines
};

enum class BadLines {
    Refuse,  ///< one malformed line makes the whole text refused
    LeaveOut
};

/// How much has been read, from 0 to 1. False breaks the reading off, and the error is
/// kTrackBrokenOff.
using TrackProgress = std::function<bool(double share)>;
inline constexpr std::string_view kTrackBrokenOff = "Aborting";

/// The line of a slot, with its end.
std::string trackLine(std::int64_t baseS, const std::optional<TrackPoint>& slot);

/// A malformed rest without a line end is what a killed writer left, and ends the reading.
TrackLines parseTrackText(std::string_view text, BadLines badLines,
                          const TrackProgress& progress = {});

/// Opens the file as a pilot's, in which nothing may be malformed.
TrackLines readTrackFile(const std::filesystem::path& path, const TrackProgress& progress = {},
                         FileSystem& disk = systemFileSystem());

}  // namespace korvel
