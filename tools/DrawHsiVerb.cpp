#include <string>

#include "geo/Geodesy.h"
#include "map/MapViewport.h"
#include "pages/HsiPainter.h"
#include "paint/Canvas.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "tools/Arguments.h"
#include "tools/DrawVerb.h"

namespace korvel {
namespace {

constexpr int kLargestLabel = 500;

/// A direction for the card: in 0 to 360, or the value for none.
double toDirection(const std::string& text) {
    const double degrees = toNumber(text);
    const bool asGiven = degrees == kNoAngle || (degrees >= 0 && degrees <= 360);
    return asGiven ? degrees : PositiveMod(degrees, 360);
}

HsiState toState(const HsiOptions& options) {
    HsiState state;
    state.heading = RoundToInt(toDirection(options.heading));
    if (!options.course.empty())
        state.course = RoundToInt(toDirection(options.course));
    if (!options.bearing.empty())
        state.bearing = toDirection(options.bearing);
    if (!options.deviation.empty())
        state.deviation = toNumber(options.deviation);
    state.toFrom = options.toFrom;
    state.labelHeight = options.labelHeight;
    return state;
}

}  // namespace

void HsiOptions::declare(CLI::App& app) {
    picture.page = static_cast<int>(PageId::MapHsi);
    picture.declare(app);
    app.add_option("--heading", heading, "At the top of the card; 1000 for none")->required();
    app.add_option("--course", course, "The course that the needle shows");
    app.add_option("--bearing", bearing, "Bearing to the waypoint");
    app.add_option("--deviation", deviation, "Of the needle's bar; 1 is full scale to the right");
    app.add_option("--tofrom", toFrom, "1 to the waypoint, 0 no valid course, else from it");
    app.add_option("--label-height", labelHeight, "Pixels")->check(CLI::Range(1, kLargestLabel));
}

int drawHsi(const Invocation& call, const HsiOptions& options) {
    const auto [width, height] = options.picture.pixels();
    MapViewport viewport;
    viewport.layout(PageId{options.picture.page}, width, height);
    HsiState state = toState(options);
    state.place(viewport.aircraftX(), viewport.aircraftY());
    ColorScheme scheme;
    scheme.load(options.picture.scheme, call.dataFiles());
    const MapColorCache colors(scheme);

    return options.picture.write(call, [&](Canvas& canvas) {
        canvas.rect(canvas.area(), Brush{colors[ColorKey::MapBackground]}, std::nullopt);
        paintHsi(canvas, state, colors);
    });
}

}  // namespace korvel
