#pragma once

#include <optional>
#include <span>
#include <vector>

#include "cockpit/CockpitData.h"
#include "cockpit/PageId.h"
#include "map/MapContent.h"
#include "map/MapViewport.h"
#include "pages/AlarmBoxes.h"
#include "pages/AttitudePage.h"
#include "pages/FlightPlanPage.h"
#include "pages/NearestPage.h"
#include "pages/TapCardBox.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;
class MapFeeds;
class MeasureTool;
struct PlanBand;
struct ProfileContent;

/// What to draw a page from. Pages take what they show of it.
struct PageScene {
    const CockpitData& data;
    const MapViewport& viewport;  ///< laid out for the page and the canvas's size
    /// The true direction that points up on pages that turn with the aircraft, 0 to 359; the
    /// caller keeps the last one while no track is known.
    int upTrueDeg = 0;
    /// What stands in the aircraft's place while the pilot looks around on the map.
    std::optional<GeoPoint> lookAt = std::nullopt;
    /// Where the map opens while no aircraft was seen yet.
    std::optional<GeoPoint> openAt = std::nullopt;
    const Text* sparseNote = nullptr;            ///< that the map leaves out; null for nothing
    const MapFeeds* feeds = nullptr;             ///< what is around the view; null for none
    const MeasureTool* measure = nullptr;        ///< the map's ruler; null for none
    const ProfileContent* profile = nullptr;     ///< for the page and the strip; null for none
    const PlanBand* band = nullptr;              ///< what is pulled of the plan; null for nothing
    RowListView nearest{};                       ///< where the pilot is in the list of airports
    RowListView airspaces{};                     ///< where the pilot is in that list
    FlightPlanView plan{};                       ///< where the pilot is in the list of the plan
    AttitudeView attitude{};                     ///< for the page "Attitude"
    std::span<const Rect> alarms{};              ///< that will lie over a map
    std::optional<ShownCard> card{};             ///< of what was tapped; none for none
    std::vector<LabelTarget>* labels = nullptr;  ///< takes where names stand on a map
    bool trustMarks = true;                      ///< the page bears them: there is no status line
};

/// Paints the display pages. To add one, write its painter and name it in PagePainter.cpp.
class PagePainter {
 public:
    /// The colours must outlive the painter.
    explicit PagePainter(const MapColorCache& colors) : colors_(colors) {}

    /// Fills the whole canvas with the page. Pages that need a position show the connection's
    /// status while there is none. Alarms are painted apart: see AlarmBoxes.
    void paint(Canvas& canvas, PageId page, const PageScene& scene) const;

    /// Fills the canvas of the strip under the map with the profile.
    void paintStrip(Canvas& canvas, const PageScene& scene) const;

    /// The page turns with the aircraft; otherwise north is up.
    static bool turns(PageId page);
    /// Where the alarms of the page stand.
    static AlarmBoxes::Place alarmPlace(PageId page);
    /// Whether the page is a map, which can be moved by hand.
    static bool isMap(PageId page);
    /// Whether the approach's box stands on the page: not where one looks around.
    static bool showsApproach(PageId page, const CockpitData& data, bool looksAround);

 private:
    /// True where the passing message stands on what was painted.
    bool paintPage(Canvas& canvas, PageId page, const PageScene& scene) const;
    void paintMapPage(Canvas& canvas, PageId page, const PageScene& scene, GeoPoint center) const;

    const MapColorCache& colors_;
};

}  // namespace korvel
