#include <memory>
#include <string>

#include "cockpit/CockpitData.h"
#include "cockpit/GroundData.h"
#include "cockpit/PlanViewBuilder.h"
#include "config/Settings.h"
#include "map/profile/ProfileFeed.h"
#include "map/profile/ProfilePainter.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "tools/Arguments.h"
#include "tools/DrawVerb.h"
#include "tools/LoadedDatabase.h"
#include "tools/PlanInput.h"

namespace korvel {
namespace {

/// All of the plan, with the aircraft where it begins if its altitude is given.
CockpitData onPlan(const PlanView& plan, const std::string& altitude) {
    CockpitData data;
    auto shown = std::make_shared<PlanView>(plan);
    if (!altitude.empty()) {
        data.position = shown->rows.front().position;
        data.altitudeFt = toInt(altitude);
        data.fix3D = true;
        shown->active = 0;
        data.activeWaypoint = data.position;
    }
    data.plan = std::move(shown);
    return data;
}

}  // namespace

void ProfileOptions::declare(CLI::App& app) {
    picture.declare(app);
    app.add_option("--plan", plan, R"(The flight plan, ".fp" or ".TXT")")->required();
    app.add_option("--altitude", altitude, "Of the aircraft where the plan begins, feet");
}

int drawProfile(const Invocation& call, const ProfileOptions& options) {
    const double width = options.picture.pixels().first;
    LoadedDatabase loaded(call);
    const PlanInput input(loaded, options.plan);
    if (!input.error.empty())
        return call.fail(input.error);
    const PlanView plan = makePlanView(**input.plan.lock(), loaded.database);
    if (plan.rows.size() < 2)
        return call.fail("The plan leads nowhere: " + options.plan);
    const CockpitData data = onPlan(plan, options.altitude);
    GroundData ground;
    ground.open(call.dataFolders());
    ground.terrain().waitUntilSettled();
    ProfileFeed feed(ground.sources());
    do {
        feed.update({data, Settings(), std::nullopt, width});
        ground.terrain().waitUntilSettled();
    } while (feed.hasNews());
    ColorScheme scheme;
    scheme.load(options.picture.scheme, call.dataFiles());
    const MapColorCache colors(scheme);
    return options.picture.write(
        call, [&](Canvas& canvas) { paintProfile(canvas, feed.content(), colors); });
}

}  // namespace korvel
