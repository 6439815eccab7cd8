#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "compiler/sources/AviationData.h"
#include "compiler/sources/ImportLog.h"

namespace korvel {

enum class NavdbSource : std::uint8_t { Xplane, OurAirports, Nasr };

/// The region letter of a database that covers no one region. Airport look-ups that fail put the
/// letter before the identifier, and take it off a longer one, to bridge the two spellings within a
/// region (SEA and KSEA). Any capital letter would make "SSS" find Singapore's WSSS in a 'W'
/// database; identifiers are in capitals, so this small one ("world") never makes two different
/// airports meet.
inline constexpr char kWorldRegion = 'w';

struct NavdbBuildOptions {
    NavdbSource source = NavdbSource::Xplane;
    /// X-Plane's files, plain or .gz; an empty path leaves that kind of place out.
    std::filesystem::path apt{};
    std::filesystem::path nav{};
    std::filesystem::path fix{};
    std::filesystem::path awy{};
    /// Folder or zip file of OurAirports' or NASR's tables (see SourceFiles.h); the table of the
    /// airports must be there, the others may.
    std::filesystem::path folder{};
    std::filesystem::path output{};
    /// Without one it is that of the source: K of NASR, which is of the United States alone, else
    /// kWorldRegion.
    std::optional<char> region{};
    /// YYYYMMDD; without one the expiry of the data cycle that the sources name, else none, and
    /// the database counts as out of date.
    std::optional<int> expiryYmd{};
    /// Asked again and again: false breaks the work off, and then nothing is written.
    std::function<bool()> goesOn{};
    [[nodiscard]] bool isBrokenOff() const { return goesOn && !goesOn(); }
};

/// What a build that was broken off says.
inline constexpr std::string_view kBuildBrokenOff = "Broken off";

/// Share of the work done, 0 to 1, and what is being done.
using BuildProgress = std::function<void(double share, std::string_view what)>;

/// Of the whole work, reading takes the greater part.
inline constexpr double kReadingShare = 0.8;

/// The source of what lies in a folder or a zip file; nothing when it is none of them.
[[nodiscard]] std::optional<NavdbSource> sourceAt(const std::filesystem::path& place);

/// What a database of that source is called in the pilot's folder. Those of the whole world take
/// the bundled one's place; that of one country stands beside it.
[[nodiscard]] std::string_view databaseNameOf(NavdbSource source);

/// Reads the files that the options name into `data`, as they are; empty, or why one is refused.
[[nodiscard]] std::string readSources(const NavdbBuildOptions& options, AviationData& data,
                                      ImportLog& log, const BuildProgress& progress = {});

/// Lays out consolidated data and writes it to the options' output; empty, or why there is none.
[[nodiscard]] std::string writeDatabase(const AviationData& data, const NavdbBuildOptions& options,
                                        ImportLog& log, const BuildProgress& progress = {});

/// Compiles a database. The result is empty, or why there is none; then an existing output file is
/// untouched. `log` tells what was taken and left out.
[[nodiscard]] std::string buildNavdb(const NavdbBuildOptions& options, ImportLog& log,
                                     const BuildProgress& progress = {});

}  // namespace korvel
