#include "compiler/BundledWorld.h"

#include "compiler/Consolidation.h"
#include "compiler/TownsCompiler.h"

namespace korvel {

namespace {

/// The tables of OurAirports know no cycle: four weeks after they were fetched (22 August 2026)
/// they count as old.
constexpr int kAirportsExpiryYmd = 20260919;

/// The part of the whole that stands between two shares.
BuildProgress partOf(const BuildProgress& whole, double from, double to) {
    if (!whole)
        return {};
    return [&whole, from, to](double share, std::string_view what) {
        whole(from + share * (to - from), what);
    };
}

}  // namespace

std::string buildBundledWorld(const std::filesystem::path& sources,
                              const std::filesystem::path& folder, ImportLog& log,
                              const BuildProgress& progress) {
    const NavdbBuildOptions airports{.source = NavdbSource::OurAirports,
                                     .folder = sources / "ourairports",
                                     .output = folder / "world.ng2",
                                     .expiryYmd = kAirportsExpiryYmd};
    AviationData today;
    const BuildProgress first = partOf(progress, 0.0, 0.7);
    if (auto refused = readSources(airports, today, log, first); !refused.empty())
        return refused;
    consolidate(today, log);
    if (auto refused = writeDatabase(today, airports, log, first); !refused.empty())
        return refused;

    const NavdbBuildOptions airways{.nav = sources / "nav.dat.gz",
                                    .fix = sources / "fix.dat.gz",
                                    .awy = sources / "awy.dat.gz",
                                    .output = folder / "airways.ng2"};
    AviationData past;
    const BuildProgress second = partOf(progress, 0.7, 1.0);
    if (auto refused = readSources(airways, past, log, second); !refused.empty())
        return refused;
    consolidate(past, log);
    keepAirways(past, today, log);
    if (auto refused = writeDatabase(past, airways, log, second); !refused.empty())
        return refused;
    return buildTowns(sources / "places.dat.gz", folder / "world.twn", log);
}

}  // namespace korvel
