// A file of another program says anything: it is read as all that it may be, and what was read is
// written in every format.
#include <cmath>
#include <cstdint>
#include <string>

#include "exchange/Formats.h"
#include "exchange/PlanImport.h"
#include "exchange/UserWaypoints.h"
#include "nav/plan/FlightPlan.h"
#include "nav/plan/GeneratedFixes.h"
#include "navdb/NavDatabase.h"
#include "platform/VirtualClock.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    static const VirtualClock clock;
    static NavDatabase database(clock);
    const std::string bytes(data, data + size);
    GeneratedFixes fixes;
    const ImportedPlan plan = importPlan(bytes, 1, database, fixes);
    for (const PlanWaypoint& entry : plan.entries)
        if (!entry.record || !IsValid(entry.position()))
            __builtin_trap();
    const auto points = exportPoints(plan.entries);
    for (const std::string_view format : kPlanExports)
        (void)planAs(format, plan.name, points, 0);
    std::string_view name;
    const ForeignTrack track = readForeignTrack(bytes, name);
    for (const auto& point : track.points)
        if (point && !IsValid(point->position))
            __builtin_trap();
    for (const std::string_view format : kTrackExports)
        (void)trackAs(format, track.points);
    (void)userDatabaseText(userWaypoints(readForeignWaypoints(bytes, name).waypoints).waypoints);
    (void)readForeignFile(bytes);
    return 0;
}
