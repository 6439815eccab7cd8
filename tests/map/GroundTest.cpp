#include <cmath>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "ground/MemoryFile.h"
#include "ground/SmallMap.h"
#include "ground/airspace/OpenAir.h"
#include "map/AirspaceHit.h"
#include "map/DayMap.h"
#include "map/feeds/MapFeeds.h"
#include "map/ground/GroundPicture.h"
#include "paint/Clip.h"
#include "paint/SvgCanvas.h"
#include "paint/ground/GroundColors.h"

namespace korvel { namespace {

/// Land: 0 to 90 N and 90 to 180 E, a square island from 10 to 80 N and E with a lake from 20 to 70 and an island from
/// 30 to 60 in it.
class GroundOnTheMap : public testing::Test {
 protected:
    void SetUp() override { ASSERT_EQ(map_.open(std::make_unique<MemoryFile>(smallMap()), "small.map"), ""); }

    MapView view(double lat, double lon, int rangeNm, int upDeg = 0) {
        day_.viewport.chooseRange(rangeNm);
        return {day_.viewport, {lat * kDegToRad, lon * kDegToRad}, upDeg, day_.canvas.area()};
    }
    /// The pixel under a place.
    std::uint32_t pixel(const MapView& view, double lat, double lon) {
        picture_.prepare(view, day_.colors, 1);
        const Bitmap bitmap = picture_.bitmap();
        const BitmapPlace place = picture_.place(view);
        const Point at = view.projection.project({lat * kDegToRad, lon * kDegToRad});
        const double sine = std::sin(-place.turnDeg * kDegToRad);
        const double cosine = std::cos(-place.turnDeg * kDegToRad);
        const Point off{at.x - place.at.x, at.y - place.at.y};
        const int x = static_cast<int>(place.pivot.x + off.x * cosine - off.y * sine);
        const int y = static_cast<int>(place.pivot.y + off.y * cosine + off.x * sine);
        if (x < 0 || y < 0 || x >= bitmap.width || y >= bitmap.height) return 0;
        return bitmap
            .pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width) + static_cast<std::size_t>(x)];
    }

    DayMap day_{PageId::Map, 400, 300, 65};
    BaseMap map_;
    GroundPicture picture_{map_};
    const std::uint32_t land_ = toPixel(Rgb(238, 232, 170));
    const std::uint32_t water_ = toPixel(Rgb(102, 153, 255));
    const std::uint32_t beyond_ = toPixel(Rgb(255, 255, 255));
};

TEST_F(GroundOnTheMap, LandAndWaterLieWhereTheyAre) {
    const struct {
        double lat, lon;
        std::uint32_t color;
    } places[] = {
        {15, 50, land_},
        {25, 50, water_},
        {45, 45, land_},
        {5, 50, water_},
        {50, 85, water_},
        {50, 95, land_},
        {50, 178, land_},
        {50, -178, water_},
        {-10, 100, water_},
        {85, 120, land_},
    };
    for (const auto& place : places)
        for (const int angle : {0, 33, 180, 271})
            EXPECT_EQ(pixel(view(place.lat + 1, place.lon - 2, 1000, angle), place.lat, place.lon), place.color)
                << place.lat << " " << place.lon << " " << angle;
    EXPECT_EQ(pixel(view(86, 100, 1000), 89.5, 100), land_);
    const MapView polar = view(85, 100, 1000);
    const Point beyond = polar.projection.project({kPi / 2, 100 * kDegToRad});
    picture_.prepare(polar, day_.colors, 1);
    const BitmapPlace place = picture_.place(polar);
    const auto y = static_cast<std::size_t>(place.pivot.y + beyond.y - 20 - place.at.y);
    EXPECT_EQ(picture_.bitmap().pixels[y * static_cast<std::size_t>(picture_.bitmap().width) + 200], beyond_);
    // At the pole all longitudes are one.
    EXPECT_EQ(pixel(view(89.9, 100, 100), 89.9, 100), beyond_);
}

TEST_F(GroundOnTheMap, ThePictureServesUntilTheViewLeavesIt) {
    (void)pixel(view(45.2, 60, 250), 45.2, 60);
    ASSERT_EQ(picture_.drawn(), 1);
    // A turn and a way of some pixels; what lies under a place does not change.
    EXPECT_EQ(pixel(view(45.25, 60.1, 250, 8), 45.2, 61), water_);
    EXPECT_EQ(pixel(view(45.25, 60.1, 250, 8), 45.2, 59), land_);
    EXPECT_EQ(picture_.drawn(), 1);
    (void)pixel(view(45.25, 60.1, 250, 40), 45.2, 60);
    EXPECT_EQ(picture_.drawn(), 2) << "turned out of it";
    (void)pixel(view(45.25, 65, 250, 40), 45.2, 65);
    EXPECT_EQ(picture_.drawn(), 3) << "flown out of it";
    (void)pixel(view(45.25, 65, 100, 40), 45.2, 65);
    EXPECT_EQ(picture_.drawn(), 4) << "another range";
    (void)pixel(view(45.51, 65, 100, 40), 45.2, 65);
    EXPECT_EQ(picture_.drawn(), 5) << "miles per degree of longitude are others";
    picture_.forget();
    (void)pixel(view(45.51, 65, 100, 40), 45.2, 65);
    EXPECT_EQ(picture_.drawn(), 6);
}

TEST_F(GroundOnTheMap, IsUnderAllElseAsAPictureOrAsShapes) {
    CockpitData data;
    data.position = GeoPoint{50 * kDegToRad, 90 * kDegToRad};
    day_.viewport.chooseRange(500);
    GroundFeed feed({&map_, nullptr, nullptr});
    MapContent content = day_.content(data);
    feed.addTo(content);
    const auto& elements = day_.paint(content).elements();
    ASSERT_GE(elements.size(), 2U);
    EXPECT_EQ(elements[0].kind, RecordingCanvas::Kind::Rect);
    EXPECT_EQ(elements[1].kind, RecordingCanvas::Kind::Bitmap);
    for (const Point corner : {Point{0, 0}, {400, 0}, {0, 300}})
        EXPECT_TRUE(grown(elements[1].area, 1).contains(corner));
    SvgCanvas svg(400, 300);
    paintMap(svg, content);
    EXPECT_NE(svg.document().find("fill=\"#eee8aa\""), std::string::npos);
    EXPECT_LT(svg.document().size(), 100000U);
    // Airspaces: their outlines lie in the picture, their words on the map.
    AirspaceSet airspaces;
    airspaces.assign(
        readOpenAir("AC R\nAN NORTH\nAL GND\nAH FL 95\nDP 50:30N 89E\nDP 50:30N 91E\nDP 50:10N 91E\nDP 50:10N 89E\n"
                    "AC E\nAN EVERYWHERE\nAL GND\nAH 2500\nDP 40N 80E\nDP 40N 95E\nDP 49:30N 90E\n")
            .airspaces);
    day_.viewport.chooseRange(65);
    GroundFeed withAirspaces({&map_, &airspaces, nullptr});
    MapContent near = day_.content(data);
    withAirspaces.addTo(near);
    EXPECT_NE(day_.paint(near).findText("GND / FL95"), nullptr);
    EXPECT_EQ(day_.paint(near).findText("GND / 25"), nullptr) << "class E only from 40 nm in";
    near.ground->prepare(near.view, day_.colors, 1);
    const Point edge = near.view.projection.project({50.5 * kDegToRad, 90.5 * kDegToRad});
    const BitmapPlace place = near.ground->place(near.view);
    const Bitmap bitmap = near.ground->bitmap();
    const auto row = static_cast<std::size_t>(place.pivot.y + edge.y - place.at.y);
    const auto column = static_cast<std::size_t>(place.pivot.x + edge.x - place.at.x);
    const std::uint32_t ink = bitmap.pixels[row * static_cast<std::size_t>(bitmap.width) + column];
    EXPECT_GT(ink >> 16U & 0xFFU, 150U);
    EXPECT_LT(ink & 0xFFU, 120U) << "red";
    // Without a map there is the plain background.
    BaseMap none;
    GroundFeed empty({&none, nullptr, nullptr});
    MapContent plain = day_.content(data);
    empty.addTo(plain);
    EXPECT_EQ(plain.ground, nullptr);
}

TEST_F(GroundOnTheMap, AirspacesAreThoseNearTheAltitude) {
    CockpitData data = flying();
    data.altitudeFt = 2600;
    data.altimeterOffsetFt = 100;
    data.fix3D = false;
    EXPECT_EQ(altitudeWindow(data, 1000, {}), std::nullopt) << "no fix in three dimensions: all show";
    data.fix3D = true;
    EXPECT_EQ(altitudeWindow(data, 0, {}), std::nullopt);
    const auto near = altitudeWindow(data, 1000, {});
    EXPECT_EQ(near, (AltitudeWindow{1400, 3600})) << "by the receiver's own altitude";
    for (const auto& [altitudeFt, lowFt] : {std::pair{2700, 1400}, {2701, 1501}, {2500, 1400}, {2499, 1299}}) {
        data.altitudeFt = altitudeFt;
        EXPECT_EQ(altitudeWindow(data, 1000, near)->lowFt, lowFt) << "a hundred feet up or down change nothing";
    }
    EXPECT_EQ(altitudeWindow(data, 500, near)->lowFt, 1799) << "another setting";
    AirspaceSet airspaces;
    airspaces.assign(
        readOpenAir("AC C\nAN A\nAL 3700\nAH FL95\nV X=50:00N 90:00E\nDC 10\n"
                    "AC C\nAN B\nAL 3600\nAH FL95\nV X=50:00N 90:00E\nDC 10\n"
                    "AC D\nAN C\nAL GND\nAH 1300\nV X=50:00N 90:00E\nDC 10\n"
                    "AC D\nAN D\nAL GND\nAH 1400\nV X=50:00N 90:00E\nDC 10\n"
                    "AC R\nAN E\nAL GND\nAH 1000 AGL\nV X=50:00N 90:00E\nDC 10\n")
            .airspaces);
    const GroundGrid grid(view(50, 90, 65).projection, {0, 0}, 1);
    const auto shown = [&](const std::optional<AltitudeWindow>& window) {
        std::string names;
        forAirspaces(airspaces, grid, grid.box(400, 300), 65, window,
            [&](const Airspace& each, const AirspaceLook& look, std::span<const Point>) {
                names += each.name + (look.dashed ? "- " : " ");
            });
        return names;
    };
    EXPECT_EQ(shown(std::nullopt), "A B C- D- E ");
    EXPECT_EQ(shown(near), "B D- E ") << "above unknown ground it may reach up here";
    std::string dashes;
    forDashes({{0, 0}, {0, 60}}, 2, [&](Segment dash) {
        dashes += std::to_string(std::lround(dash.from.y)) + "-" + std::to_string(std::lround(dash.to.y)) + " ";
    });
    EXPECT_EQ(dashes, "0-18 28-46 56-60 ");
}

TEST_F(GroundOnTheMap, AFingerOnAnOutlineTellsAllAirspacesThere) {
    AirspaceSet airspaces;
    airspaces.assign(
        readOpenAir("AC C\nAN HIGH\nAL 3700\nAH FL95\nV X=50:00N 90:00E\nDC 40\n"
                    "AC D\nAN LOW\nAL GND\nAH 1300\nAF 118.1\nV X=50:00N 90:00E\nDC 10\n")
            .airspaces);
    picture_.showAirspaces(&airspaces);
    const MapView seen = view(50, 90, 65);
    const Point middle = seen.projection.project({50 * kDegToRad, 90 * kDegToRad});
    const double mile = seen.projection.pixelsPerNm();
    const auto told = [&](double nm) {
        const AirspaceHits hits = airspacesAt(picture_, seen, {middle.x, middle.y - nm * mile}, 6);
        std::string lines = hits.onOutline ? "line: " : "";
        for (const Airspace* airspace : hits.airspaces) lines += airspaceLine(*airspace) + "; ";
        return lines;
    };
    EXPECT_EQ(told(10), "line: D LOW  GND / 13  118.1; C HIGH  37 / FL95; ");
    EXPECT_EQ(told(11.5), told(10)) << "beside the line, of which both are told";
    EXPECT_EQ(told(25), "C HIGH  37 / FL95; ") << "in the midst of one";
    EXPECT_EQ(told(5), "D LOW  GND / 13  118.1; C HIGH  37 / FL95; ");
    EXPECT_EQ(told(40), "line: C HIGH  37 / FL95; ");
    EXPECT_EQ(told(50), "");
    picture_.showAltitudes(AltitudeWindow{2000, 2500});
    EXPECT_EQ(told(10), "D LOW  GND / 13  118.1; C HIGH  37 / FL95; ") << "the line that does not show is not touched";
    picture_.showParts({.airspaces = false});
    EXPECT_EQ(told(5), "");
}

}}  // namespace korvel
