#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "map/DayMap.h"
#include "map/layers/MapFurniture.h"
#include "paint/B612Metrics.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;
using Kind = RecordingCanvas::Kind;

/// A map that is painted.
struct Painted : DayMap {
    Painted(PageId page, const CockpitData& data, int rangeNm = 65, int upTrueDeg = 0)
        : DayMap(page, 800, 370, rangeNm) {
        paint(data, upTrueDeg);
    }
    ColorValue color(std::string_view key) const { return scheme.Color(key); }
    std::vector<Element> all(const std::function<bool(const Element&)>& isWanted) const {
        std::vector<Element> found;
        std::ranges::copy_if(canvas.elements(), std::back_inserter(found), isWanted);
        return found;
    }
    /// The aircraft's symbol: the polygon around its point that is filled with that colour.
    std::optional<Element> symbol(std::string_view key) const {
        const std::vector<Element> found = all([&](const Element& each) {
            return each.kind == Kind::Polygon && each.fill && each.fill->color == color(key) &&
                   each.area.contains(viewport.aircraft());
        });
        return found.empty() ? std::nullopt : std::optional(found.front());
    }
    /// From the aircraft's point to the tip of its symbol.
    Point nose() const {
        const Point tip = symbol("hsi.airplane").value().points.front();
        return {tip.x - viewport.aircraft().x, tip.y - viewport.aircraft().y};
    }
};

TEST(MapPainter, TheBackgroundComesFirstAndEverythingStaysInTheView) {
    for (const int range : kRangeStepsNm)
        for (const double lat : {0.0, 60.0, 88.7, -89.8}) {
            CockpitData data = flying();
            data.position = atDegrees(lat, 179.9);
            data.message = "Auto-zoom/view disabled for 30 secs.";
            const Painted page(PageId::Map, data, range, 33);
            const Element& first = page.canvas.elements().front();
            EXPECT_EQ(first.fill->color, page.color("map.background"));
            EXPECT_EQ(first.area, (Rect{0, 0, 800, 370}));
            for (const Element& element : page.canvas.elements())
                EXPECT_TRUE(element.kind == Kind::Circle ||  // the rings reach out to the sides
                            (element.area.x >= -1 && element.area.right() <= 801 && element.area.y >= -1 &&
                                element.area.bottom() <= 371))
                    << element.text;
        }
}

TEST(MapPainter, RingsCarryTheirDistance) {
    const Painted page(PageId::Map, flying(), 25);
    const Point aircraft = page.viewport.aircraft();
    for (const auto& [label, radius] : {std::pair{"25 nm", 215.0}, {"12.5 nm", 107.5}}) {
        const auto rings = page.all([&, radius = radius](const Element& each) {
            return each.kind == Kind::Circle && each.points.front() == aircraft &&
                   std::abs(each.radius - radius) < 1e-9;
        });
        EXPECT_FALSE(rings.empty()) << label;
        const auto labels = page.all([label = label](const Element& each) { return each.text == label; });
        EXPECT_TRUE(std::ranges::any_of(labels, [&, radius = radius](const Element& each) {
            const Point at = each.points.front();
            return std::abs(std::hypot(at.x - aircraft.x, at.y - aircraft.y) - radius) < 1e-6;
        })) << label;
    }
}

TEST(MapPainter, TheAircraftPointsUpOnTurningPagesAndAlongItsTrackOtherwise) {
    const Point up = Painted(PageId::Map, flying(), 65, 86).nose();
    EXPECT_NEAR(up.x, 0, 1e-9);
    EXPECT_LT(up.y, -15);
    CockpitData east = flying();
    east.trackTrueDeg = 90;
    const Point right = Painted(PageId::NorthUp, east, 65, 86).nose();
    EXPECT_GT(right.x, 15);
    EXPECT_NEAR(right.y, 0, 1e-9);
    east.trackTrueDeg.reset();  // no direction: no symbol that has one
    for (const PageId id : {PageId::NorthUp, PageId::Map}) EXPECT_FALSE(Painted(id, east).symbol("hsi.airplane"));
}

TEST(MapPainter, ALostPositionNeverLooksAlive) {
    for (const PageId id : {PageId::Map, PageId::NorthUp}) {
        const Painted page(id, lost(12), 65, 86);
        EXPECT_FALSE(page.symbol("hsi.airplane"));
        EXPECT_EQ(page.symbol("map.background").value().pen->color, page.color("hsi.airplane"));
        const auto cross = page.all([&](const Element& each) {
            return each.kind == Kind::Line && each.pen->color == page.color("map.obs.danger") &&
                   each.area.center() == page.viewport.aircraft();
        });
        EXPECT_EQ(cross.size(), 2U);
        const Element* alarm = page.canvas.findText("POSITION LOST 12 s");
        ASSERT_NE(alarm, nullptr);
        EXPECT_EQ(alarm->style.color, page.color("map.obs.danger"));
        EXPECT_NE(page.canvas.findText("No gps signal!"), nullptr);
    }
    CockpitData searching = lost(125);
    searching.status = "COM5 4800\nLocating Satellites";
    const Painted page(PageId::Map, searching);
    EXPECT_NE(page.canvas.findText("POSITION LOST 2 min 05 s"), nullptr);
    EXPECT_NE(page.canvas.findText("Locating Satellites"), nullptr);
    EXPECT_EQ(Painted(PageId::Map, flying()).canvas.texts().find("LOST"), std::string::npos);
}

TEST(MapFurniture, TheScaleBarIsARoundLengthInTheUnitInForce) {
    const std::tuple<int, double, double> cases[] = {{0, 31.4, 20}, {0, 50, 50}, {0, 9.9, 5}, {0, 0.21, 0.2},
        {0, 199.99, 100}, {1, 31.4, 20}, {2, 31.4, 50}, {2, 0.4, 0.5}};
    for (const auto& [unit, longestNm, shown] : cases) {
        const DistanceUnit shownIn = distanceUnitOf(unit);
        EXPECT_NEAR(ConvertDistance(roundLengthNm(longestNm, shownIn), shownIn), shown, 1e-9) << longestNm;
    }
    const DayMap map(PageId::Map, 800, 370, 65);
    const MapProjection projection = map.content(flying()).view.projection;
    const ScaleBar scale = layOutFurniture(B612Metrics(), map.canvas.area(), flying(), projection, 65, 14).scale;
    EXPECT_EQ(scale.text, "20 nm");
    EXPECT_NEAR(scale.bar.to.x - scale.bar.from.x, 20 * projection.pixelsPerNm(), 1e-9);
}

TEST(MapFurniture, TheNorthArrowPointsNorth) {
    const Painted page(PageId::Map, flying(), 65, 90);  // east is up, north is to the left
    const auto arrows = page.all([&](const Element& each) {
        return each.kind == Kind::Polygon && each.fill && each.fill->color == page.color("map.info.text") &&
               each.area.right() < 60;
    });
    ASSERT_FALSE(arrows.empty());
    EXPECT_NEAR(arrows[0].points.front().y, arrows[0].area.center().y, 1e-6);
    EXPECT_NEAR(arrows[0].points.front().x, arrows[0].area.x, 1e-6);
}

}}  // namespace korvel
