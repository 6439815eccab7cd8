#include "tools/DrawVerb.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Ascii.h"
#include "cockpit/GroundData.h"
#include "cockpit/PlanViewBuilder.h"
#include "config/Settings.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "map/MapPainter.h"
#include "map/feeds/MapFeeds.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/SvgCanvas.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "screen/PagePainter.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/LoadedDatabase.h"
#include "tools/PlanInput.h"
#include "tools/PngPicture.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

constexpr int kLargestSide = 10000;
constexpr double kFullCircle = 360;

struct MapOptions {
    PictureOptions picture;
    std::string at;
    std::string range;
    std::string angle = "0";
    std::string plan;
    std::string track;

    void declare(CLI::App& app) {
        picture.declare(app);
        app.add_option("--at", at, "Position of the aircraft, LAT,LON")->required();
        app.add_option("--range", range, "Miles from the aircraft to the top")->required();
        app.add_option("--plan", plan, R"(A flight plan to draw, ".fp" or ".TXT")");
        app.add_option("--track", track, "A \".trk\" track to draw");
        app.add_option("--angle", angle, "True track; points up unless the page is North-Up");
    }
};

int toWholeAngle(const std::string& text) {
    return RoundToInt(PositiveMod(toNumber(text), kFullCircle)) % 360;
}

MapViewport toViewport(const MapOptions& options) {
    const auto [width, height] = options.picture.pixels();
    MapViewport viewport;
    viewport.layout(PageId{options.picture.page}, width, height);
    const double range = toNumber(options.range);
    if (range < 1 || range > kRangeStepsNm.back())
        usageError("The range is not 1 to 1000 nautical miles: " + options.range);
    viewport.setRange(range);
    return viewport;
}

/// Flies the plan from the aircraft's position, as the program does when a plan is opened. Returns
/// the message, empty on success.
std::string addPlan(LoadedDatabase& loaded, const std::string& file, CockpitData& data) {
    if (file.empty())
        return {};
    const PlanInput input(loaded, file);
    if (!input.error.empty())
        return input.error;
    const Variation variation{.databaseDeg = loaded.database.variationAt(*data.position)};
    FlightPlan plan = **input.plan.lock();
    if (const auto leg = plan.ChooseActiveLeg(
            {.position = *data.position,
             .trackMag = variation.TrueToMagnetic(data.trackTrueDeg.value_or(kNoAngle)),
             .variation = variation})) {
        data.activeWaypoint = leg->waypoint->position();
        data.legStart = leg->start.value_or(*data.position);
        data.activeName = leg->waypoint->record->GetName();
        data.activeKey = leg->waypoint->record->key;
    }
    data.plan = std::make_shared<PlanView>(makePlanView(plan, loaded.database));
    return {};
}

std::string addTrack(const Clock& clock, const std::string& file, CockpitData& data) {
    if (file.empty())
        return {};
    auto track = std::make_shared<Track>(clock);
    std::string error = readTrackFile(file, *track);
    data.track = std::move(track);
    return error;
}

/// Waits for all that comes a little at a time, and for what is read elsewhere.
void bringAll(MapFeeds& feeds, TerrainStore& terrain, const FeedRequest& request) {
    do {
        feeds.update(request);
        terrain.waitUntilSettled();
    } while (!feeds.isComplete() || feeds.hasNews());
}

int drawMap(const Invocation& call, const MapOptions& options) {
    CockpitData data;
    data.position = toPosition(options.at);
    const MapViewport viewport = toViewport(options);
    const int angle = toWholeAngle(options.angle);
    data.trackTrueDeg = angle;
    LoadedDatabase loaded(call);
    for (const std::string& error :
         {addPlan(loaded, options.plan, data), addTrack(loaded.clock, options.track, data)})
        if (!error.empty())
            return call.fail(error);
    ColorScheme scheme;
    scheme.load(options.picture.scheme, call.dataFiles());

    if (loaded.database.files().empty())
        data.databaseNotice = text(kStatusTexts.noDatabase);
    const PageId page{options.picture.page};
    const MapColorCache colors(scheme);
    const auto [width, height] = options.picture.pixels();
    const Rect area{0, 0, static_cast<double>(width), static_cast<double>(height)};
    MapContent content{
        .data = data,
        .colors = colors,
        .view = {viewport, *data.position, PagePainter::turns(page) ? angle : 0, area},
        .turns = PagePainter::turns(page)};
    GroundData ground;
    ground.open(call.dataFolders());
    MapFeeds feeds(loaded.database, ground.sources());
    bringAll(feeds, ground.terrain(), {content.view, data, Settings()});
    feeds.addTo(content);
    return options.picture.write(call, [&](Canvas& canvas) { paintMap(canvas, content); });
}

}  // namespace

void PictureOptions::declare(CLI::App& app) {
    app.add_option("--size", size, "Pixels, WIDTHxHEIGHT")->required();
    app.add_option("--page", page, "Number of the display page")
        ->check(CLI::Range(0, kPageCount - 1));
    app.add_option("--scheme", scheme, "Colour scheme, built-in or a file's name");
    app.add_option("-o,--output", output, "The file to write: SVG, or PNG by its name")->required();
}

std::pair<int, int> PictureOptions::pixels() const {
    const std::size_t cross = size.find('x');
    if (cross == std::string::npos)
        usageError("Not a size WIDTHxHEIGHT: " + size);
    const std::pair sides{toInt(size.substr(0, cross)), toInt(size.substr(cross + 1))};
    for (const int side : {sides.first, sides.second})
        if (side < 1 || side > kLargestSide)
            usageError("A side of the picture is not 1 to 10000 pixels: " + size);
    return sides;
}

int PictureOptions::write(const Invocation& call, const std::function<void(Canvas&)>& paint) const {
    const auto [width, height] = pixels();
    std::string document;
    if (endsWithIgnoringCase(output, ".png")) {
        if (const std::string error = makePng(width, height, paint, document); !error.empty())
            return call.fail(error);
    } else {
        SvgCanvas canvas(width, height);
        paint(canvas);
        document = canvas.document();
    }
    if (!writeFileAtomically(pathOf(output), document))
        return call.fail("The file cannot be written: " + output);
    return call.done({{"file", output}}, "");
}

int runDraw(Invocation& call) {
    HsiOptions hsiOptions;
    CLI::App* hsi = call.options().add_subcommand("hsi", "The horizontal situation indicator");
    hsi->fallthrough();
    hsiOptions.declare(*hsi);
    MapOptions mapOptions;
    CLI::App* map = call.options().add_subcommand("map", "The moving map");
    map->fallthrough();
    mapOptions.declare(*map);
    ProfileOptions profileOptions;
    CLI::App* profile = call.options().add_subcommand(
        "profile", "Ground and airspaces along a plan, from the side");
    profile->fallthrough();
    profileOptions.declare(*profile);
    call.options().require_subcommand(1);
    call.parse();
    if (profile->parsed())
        return drawProfile(call, profileOptions);
    return hsi->parsed() ? drawHsi(call, hsiOptions) : drawMap(call, mapOptions);
}

}  // namespace korvel
