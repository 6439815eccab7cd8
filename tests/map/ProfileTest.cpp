#include <algorithm>
#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "cockpit/PlaceClass.h"
#include "config/Settings.h"
#include "ground/airspace/AirspaceSet.h"
#include "map/profile/PlannedAltitudes.h"
#include "map/profile/ProfileFeed.h"
#include "map/profile/ProfilePainter.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;
using Kind = RecordingCanvas::Kind;

std::string stopsOf(const CockpitData& data) {
    const ProfileRoute route = profileRoute(data);
    std::string words = route.fromAircraft ? "* " : "";
    for (const ProfileStop& stop : route.stops) {
        words += stop.ident + "@" + std::to_string(RoundToInt(stop.nm));
        if (stop.altitudeFt) words += "=" + std::to_string(*stop.altitudeFt);
        words += " ";
    }
    return words;
}

TEST(ProfileRoute, LeadsWhereTheAircraftFlies) {
    CockpitData data = flying();
    EXPECT_EQ(stopsOf(data), "* @0 @300 ");
    EXPECT_TRUE(profileRoute(data).alongTrack);
    EXPECT_NEAR(TrueCourseDeg(*data.position, profileRoute(data).stops[1].position), 86, 1e-6);
    data.activeWaypoint = atDegrees(48.8537, 11.7861);
    data.activeKey = "v.OAK";
    data.targetAltitudeFt = 3000;
    EXPECT_EQ(stopsOf(data), "* @0 OAK@30 ") << "the altitude is that of a later place";
    data.directLeg = true;
    EXPECT_EQ(stopsOf(data), "* @0 OAK@30=3000 ");
    EXPECT_FALSE(profileRoute(data).alongTrack);

    auto plan = planOf(4, 2);
    plan->rows[3].altitudeFt = 2500;
    data.plan = plan;
    data.activeWaypoint = plan->rows[2].position;
    EXPECT_EQ(stopsOf(data), "* @0 W2@60 W3@90=2500 ") << "not what lies behind";
    data.position.reset();
    EXPECT_EQ(stopsOf(data), "W0@0 W1@30 W2@60 W3@90=2500 ");
    plan->rows[2].altitudeFt = 6000;
    plan->rows[3].altitudeFt.reset();
    plan->rows[3].elevationFt = 1200;
    EXPECT_EQ(stopsOf(data), "W0@0 W1@30 W2@60=6000 W3@90=2200 ") << "down to its circuit";
    plan->rows[3].elevationFt = 5500;
    EXPECT_EQ(stopsOf(data), "W0@0 W1@30 W2@60=6000 W3@90 ") << "no climb that nobody planned";
    EXPECT_EQ(stopsOf(approaching()), "* @0 05@4=1550 ");
    CockpitData beyond = approaching();
    beyond.approach->toGoNm = -0.1;
    EXPECT_NE(stopsOf(beyond).find("EDMA"), std::string::npos) << "not back to the runway";
    EXPECT_EQ(stopsOf(lost(9)), "");
}

TEST(PlannedAltitudes, ADescentBeginsAsLateAsItIsGentle) {
    constexpr double kFtPerNm = 318.4;  // of three degrees
    const auto stop = [](double nm, std::optional<int> ft) {
        ProfileStop made;
        made.nm = nm;
        made.altitudeFt = ft;
        return made;
    };
    const struct {
        std::vector<ProfileStop> stops;
        std::optional<double> startFt;
        std::vector<ProfilePoint> line, descents;
    } cases[] = {
        {{stop(0, {}), stop(40, 3000)}, 6184, {{0, 6184}, {30, 6184}, {40, 3000}}, {{30, 6184}}},
        {{stop(0, {}), stop(40, {}), stop(60, {})}, 6000, {}, {}},
        {{stop(0, {}), stop(20, 4000), stop(50, {})}, {}, {{0, 4000}, {20, 4000}, {50, 4000}}, {}},
        {{stop(0, 1000), stop(20, 4000), stop(50, 2408)}, {},
            {{0, 1000}, {0, 1000}, {20, 4000}, {45, 4000}, {50, 2408}}, {{45, 4000}}},
        {{stop(0, {}), stop(5, 3000)}, 9000, {{0, 9000}, {5, 3000}}, {{0, 9000}}},
        {{stop(0, {}), stop(10, 9000), stop(12, 3000)}, {}, {{0, 9000}, {10, 9000}, {12, 3000}}, {{10, 9000}}},
        {{stop(0, {}), stop(5, 3000), stop(10, {})}, 3050, {{0, 3050}, {5, 3000}, {10, 3000}}, {}},
    };
    for (const auto& one : cases) {
        ProfileRoute route;
        route.stops = one.stops;
        const PlannedAltitudes planned = plannedAltitudes(route, one.startFt);
        const auto same = [&](const std::vector<ProfilePoint>& a, const std::vector<ProfilePoint>& b) {
            ASSERT_EQ(a.size(), b.size());
            for (std::size_t i = 0; i < a.size(); ++i) {
                EXPECT_NEAR(a[i].nm, b[i].nm, 5 / kFtPerNm);
                EXPECT_NEAR(a[i].ft, b[i].ft, 1e-9);
            }
        };
        same(planned.line, one.line);
        same(planned.descents, one.descents);
    }
}

/// Eastwards at 5500 ft along a profile of 20 miles in steps of one: low land, a hill of 5450 ft from 8 to 9, one of
/// 4600 ft at 12, unknown from 15 to 17, then the sea.
class ProfilePicture : public testing::Test {
 protected:
    ProfilePicture() {
        content_.route.stops.resize(2);
        content_.route.stops[1].ident = "WPT";
        content_.route.stops[1].nm = 18;
        content_.route.fromAircraft = true;
        content_.lengthNm = 20;
        content_.line.stepNm = 1;
        content_.line.points.resize(21);
        for (int i = 0; i <= 20; ++i) {
            GroundSample sample{.highestFt = 500, .isKnown = true};
            if (i == 8 || i == 9) sample.highestFt = 5450;
            if (i == 12) sample.highestFt = 4600;
            if (i >= 15 && i <= 17) sample = {};
            if (i > 17) sample = {.highestFt = 0, .isKnown = true, .isSea = true};
            content_.ground.push_back(sample);
        }
        content_.altitudeFt = 5500;
    }
    const RecordingCanvas& paint() {
        canvas_.clear();
        paintProfile(canvas_, content_, colors_);
        return canvas_;
    }
    /// The colour that the last one filled at a place, miles and a height as a share of the picture's; background for
    /// none.
    ColorValue filledAt(double nm, double share) {
        const Point at{x(nm), canvas_.height() * (1 - share)};
        ColorValue color = colors_[ColorKey::MapBackground];
        for (const Element& element : canvas_.elements())
            if ((element.kind == Kind::Polygon || element.kind == Kind::Rect) && element.fill &&
                element.fill->opacity == 1 && contains(element, at))
                color = element.fill->color;
        return color;
    }
    static bool contains(const Element& element, Point at) {
        if (element.kind == Kind::Rect) return element.area.contains(at);
        bool inside = false;
        for (std::size_t i = 0; i < element.points.size(); ++i) {
            const Point a = element.points[i];
            const Point b = element.points[(i + 1) % element.points.size()];
            if ((a.y > at.y) != (b.y > at.y) && at.x < a.x + (at.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
        }
        return inside;
    }
    /// By where the figures of the axis stand.
    double x(double nm) {
        const double five = canvas_.findText("5")->points[0].x;
        return five + (nm - 5) / 10 * (canvas_.findText("15")->points[0].x - five);
    }
    std::size_t hatches() {
        std::size_t count = 0;
        for (const Element& element : canvas_.elements())
            if (element.kind == Kind::Line && element.points.size() == 2 &&
                element.points[0].x != element.points[1].x && element.points[0].y != element.points[1].y &&
                element.points[0].x > x(14) && element.points[1].x < x(18))
                ++count;
        return count;
    }
    void addAirspace(double fromNm, double toNm, AltitudeLimit floor, AltitudeLimit ceiling) {
        AirspaceSlice slice;
        slice.airspace.name = "FIELD";
        slice.airspace.airspaceClass = "C";
        slice.airspace.floor = std::move(floor);
        slice.airspace.ceiling = std::move(ceiling);
        slice.fromNm = fromNm;
        slice.toNm = toNm;
        content_.airspaces.push_back(slice);
    }
    static AltitudeLimit limit(int ft, LimitReference reference = LimitReference::Msl) {
        return {.text = {}, .ft = ft, .reference = reference};
    }

    ColorScheme scheme_;
    MapColorCache colors_{scheme_};
    ProfileContent content_;
    RecordingCanvas canvas_{500, 200};
};

TEST_F(ProfilePicture, ColoursGroundByHowNearItComesAndHatchesWhatIsUnknown) {
    paint();
    const ColorValue danger = colors_[ColorKey::GeoDanger];
    const ColorValue warning = colors_[ColorKey::GeoWarning];
    const ColorValue none = colors_[ColorKey::MapBackground];
    constexpr double kLow = 0.14;  // just above the axis
    const ColorValue land = filledAt(4, kLow);
    EXPECT_NE(land, none);
    EXPECT_EQ(filledAt(8.5, kLow), danger);
    EXPECT_EQ(filledAt(8.5, 0.6), danger);
    EXPECT_EQ(filledAt(12, kLow), warning);
    EXPECT_EQ(filledAt(4, 0.4), none) << "above the land";
    EXPECT_EQ(filledAt(16, kLow), none) << "unknown ground is not low land";
    EXPECT_GT(hatches(), 5U);
    const double level = canvas_.findText("0")->points[0].y;
    EXPECT_EQ(filledAt(19, 1 - (level - 1) / canvas_.height()), colors_[ColorKey::GeoWater]);
    EXPECT_NE(canvas_.findText("TERRAIN DATA MISSING"), nullptr);

    content_.altitudeFt.reset();
    paint();
    for (const double nm : {4.0, 8.5, 12.0}) EXPECT_EQ(filledAt(nm, kLow), land) << "no altitude, no bands";
    EXPECT_NE(canvas_.findText("height unknown"), nullptr);
    for (GroundSample& sample : content_.ground)
        if (!sample.isKnown) sample = {.highestFt = 500, .isKnown = true};
    paint();
    EXPECT_EQ(canvas_.findText("TERRAIN DATA MISSING"), nullptr);
    EXPECT_EQ(hatches(), 0U);
}

TEST_F(ProfilePicture, FiguresAreInThePilotsUnits) {
    paint();
    EXPECT_NE(canvas_.findText("6000 ft"), nullptr) << canvas_.texts();
    EXPECT_NE(canvas_.findText("nm"), nullptr);
    EXPECT_NE(canvas_.findText("WPT"), nullptr);
    const double feet = canvas_.findText("4000")->points[0].y;
    EXPECT_GT(canvas_.findText("2000")->points[0].y, feet);
    content_.altUnit = 1;
    content_.distanceUnit = DistanceUnit::Kilometres;
    paint();
    EXPECT_NE(canvas_.findText("1750 m"), nullptr) << canvas_.texts();
    EXPECT_NE(canvas_.findText("km"), nullptr);
    EXPECT_NE(canvas_.findText("30"), nullptr) << "20 miles are 37 km";
}

TEST_F(ProfilePicture, AirspacesStandBetweenTheirLimits) {
    addAirspace(1, 7.4, limit(2000), limit(4000));
    addAirspace(10, 14, limit(1000, LimitReference::Agl), limit(2000, LimitReference::Agl));
    addAirspace(0, 0.4, limit(2000), limit(4000));
    paint();
    const auto isFilm = [](const Element& element) {
        return element.kind == Kind::Polygon && element.fill && element.fill->opacity < 1;
    };
    std::vector<Element> films;
    std::ranges::copy_if(canvas_.elements(), std::back_inserter(films), isFilm);
    ASSERT_EQ(films.size(), 3U);
    EXPECT_NEAR(films[0].area.x, x(1), 0.6);
    EXPECT_NEAR(films[0].area.right(), x(7.4), 0.6);
    const double y2000 = canvas_.findText("2000")->points[0].y;
    const double y4000 = canvas_.findText("4000")->points[0].y;
    EXPECT_NEAR(films[0].area.y, y4000, 0.6);
    EXPECT_NEAR(films[0].area.bottom(), y2000, 0.6);
    const double ftPerPx = 2000 / (y2000 - y4000);
    EXPECT_NEAR(films[1].area.bottom(), y2000 + 500 / ftPerPx, 1) << "1000 ft above the land";
    EXPECT_LT(films[1].area.y, y4000 - 500 / ftPerPx) << "2000 ft above the hill is higher";
    const Element* const name = canvas_.findText("C FIELD  20 / 40");
    ASSERT_NE(name, nullptr) << canvas_.texts();
    EXPECT_TRUE(films[0].area.contains(name->area.center()));
    EXPECT_EQ(std::ranges::count(canvas_.elements(), "C", &Element::text), 0) << "no room in a sliver";
}

TEST_F(ProfilePicture, TheFlightIsDrawnUntilItMeetsTheGround) {
    const auto crosses = [&] {
        return std::ranges::count_if(canvas_.elements(), [&](const Element& element) {
            return element.kind == Kind::Line && element.pen && element.pen->color == colors_[ColorKey::GeoDanger];
        });
    };
    const auto path = [&] {
        return std::ranges::find_if(canvas_.elements(), [](const Element& element) {
            return element.kind == Kind::Line && element.pen && element.pen->style == PenStyle::Dash &&
                   element.pen->width > 2;
        });
    };
    paint();
    EXPECT_EQ(path(), canvas_.elements().end()) << "the climb is unknown";
    content_.predictedNm = 10;
    content_.climbFtPerNm = 40;
    paint();
    ASSERT_NE(path(), canvas_.elements().end());
    EXPECT_NEAR(path()->points[1].x, x(10), 0.6);
    EXPECT_LT(path()->points[1].y, path()->points[0].y);
    EXPECT_EQ(crosses(), 0);
    content_.climbFtPerNm = -50;
    paint();
    EXPECT_NEAR(path()->points[1].x, x(8), 0.6) << "the hill stands there";
    EXPECT_EQ(crosses(), 2);

    content_.planned.line = {{0, 5500}, {12, 5500}, {18, 3600}};
    content_.planned.descents = {{12, 5500}};
    paint();
    EXPECT_NE(canvas_.findText("Descent 12.0 nm"), nullptr) << canvas_.texts();
    content_.planned.descents = {{0, 5500}};
    EXPECT_NE(paint().findText("Descend now"), nullptr) << canvas_.texts();
    content_.line.points.clear();
    content_.ground.clear();
    EXPECT_EQ(paint().texts(), "No track and no plan: no way to show the ground along\n");
}

TEST(ProfileFeed, CutsAnewWhenTheWayOrTheAirspacesChange) {
    AirspaceSet airspaces;
    Airspace wide;
    wide.name = "WIDE";
    wide.rings = {{atDegrees(40, 0), atDegrees(40, 30), atDegrees(60, 30), atDegrees(60, 0)}};
    ProfileFeed feed({.airspaces = &airspaces});
    Settings settings;
    CockpitData data = flying();
    const auto update = [&] { feed.update({data, settings, profileLengthNm(15), 800}); };
    update();
    EXPECT_EQ(feed.content().lengthNm, 30);
    EXPECT_TRUE(feed.content().airspaces.empty());
    EXPECT_EQ(feed.content().ground.size(), 267U);
    EXPECT_FALSE(feed.content().ground[0].isKnown) << "without tiles nothing is";
    EXPECT_FALSE(feed.hasNews());
    airspaces.assign({wide});
    EXPECT_TRUE(feed.hasNews());
    update();
    EXPECT_EQ(feed.content().airspaces.size(), 1U);
    EXPECT_FALSE(feed.hasNews());
    settings.mapMask &= ~(1 << static_cast<int>(PlaceLayerBit::Airspaces));
    update();
    EXPECT_TRUE(feed.content().airspaces.empty());
    EXPECT_EQ(feed.content().climbFtPerNm, std::nullopt);
    data.groundSpeedKt = 120;
    data.verticalSpeedFpm = -400;
    update();
    EXPECT_NEAR(feed.content().climbFtPerNm.value(), -200, 1e-9);
    EXPECT_NEAR(feed.content().predictedNm, 10, 1e-9);
    data.fix3D = false;
    update();
    EXPECT_EQ(feed.content().altitudeFt, std::nullopt);
    feed.rest();
    EXPECT_FALSE(feed.hasNews());
    EXPECT_TRUE(feed.content().line.points.empty());
}

}}  // namespace korvel
