#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QBasicTimer>
#include <QWidget>

#include "config/Text.h"
#include "map/MapViewport.h"
#include "map/MeasureTool.h"
#include "map/feeds/MapFeeds.h"
#include "pages/AlarmBoxes.h"
#include "pages/FieldStrip.h"
#include "pages/FlightPlanPage.h"
#include "pages/ScreenLayout.h"
#include "pages/TouchBar.h"
#include "paint/MapColorCache.h"
#include "screen/AutoView.h"
#include "screen/AutoZoom.h"
#include "screen/MapAngle.h"
#include "screen/PagePainter.h"
#include "screen/ZoomGesture.h"
#include "window/AttitudePicture.h"
#include "window/LabelCache.h"

namespace korvel {

class CKorvelDoc;
class ColorScheme;
class ProfileFile;

/// Shows the current page with the navigation fields above and the touch bar below, and drives the
/// document: timer 1 runs 500 ms from the end of one tick to the next, so ticks never overlap. It
/// paints only when something changed.
class CKorvelView final : public QWidget {
 public:
    static constexpr int kTickMs = 500;

    /// All outlive the view.
    CKorvelView(CKorvelDoc& document, ProfileFile& profile, const ColorScheme& scheme,
                LabelCache& labels);

    /// Both do nothing on pages without a map.
    void zoomIn();
    void zoomOut();
    void goToNextPage();
    void showPage(PageId page);
    /// Shows a page that the pilot has chosen among all: automatic view pauses.
    void choosePage(PageId page);
    /// Automatic zoom and view rest until the pilot zooms, chooses a page or goes back to the
    /// aircraft.
    void holdView() { held_ = true; }
    /// Shows this range until another is chosen; false when it is not a step of the ladder.
    bool setRange(int rangeNm);
    /// Ends panning and goes back to the configured range; from other pages it goes to the map.
    void backToAircraft();
    /// Moves the map there, on a page that shows one.
    void lookAt(GeoPoint place);
    /// Call before and after the databases are loaded anew.
    void databasesChanged();
    /// What the map pages show in the aircraft's place: the aircraft, or what was dragged there.
    std::optional<GeoPoint> mapCenter() const;
    /// Puts the map into measuring, on a page that shows one, or ends it.
    void setMeasuring(bool on);
    bool isMeasuring() const { return ruler_.isOn(); }
    /// In full screen the touch bar may be tapped away.
    void setBarMayHide(bool mayHide);
    /// Call after the colour scheme was reloaded.
    void schemeChanged();
    /// Keeps page and range in the profile.
    void storeState();

    /// A navigation field by its place among the chosen ones.
    NavFieldId field(std::size_t place) const { return fields_.at(place); }
    /// Shows this field there; when it already shows elsewhere the two change places.
    void setField(std::size_t place, NavFieldId field);

    PageId page() const { return page_; }
    const MapViewport& viewport() const { return viewport_; }
    bool isPanned() const { return panned_.has_value(); }
    /// What the map says for five seconds; empty for nothing.
    const std::string& message() const { return message_; }

    /// One step of the program; the timer calls it.
    void tick();
    /// Lets the attitude module's sentences through while its page is shown, and paints it often.
    void followAttitude();
    AttitudeView attitudeView();
    /// Shows what a command has changed without waiting for the next tick.
    void refresh();
    /// What the map says for five seconds.
    void say(const std::string& message);
    /// The same for a hint: once for every profile, and only while hints are wanted.
    void hint(Text hint);
    /// The pilot has seen the alarm that is shown at this place, 0 being the most urgent one; false
    /// when there is none.
    bool acknowledgeAlarm(std::size_t place = 0);

    /// A button of the touch bar that the view does not serve itself.
    std::function<void(TouchCommand)> onTouch;
    /// A row of the flight-plan page was tapped.
    std::function<void(std::size_t row)> onPlanRow;
    /// An airport of the nearest page was tapped.
    std::function<void(const NearAirport&)> onAirport;
    std::function<void()> onApproach;  ///< the approach's box
    /// Places of the map were tapped, the best first.
    std::function<void(const std::vector<MapPlace>&)> onPlaces;

    /// A navigation field was tapped, counted as in field().
    std::function<void(std::size_t field)> onField;

    /// Called at each tick: whether the position shown is live.
    std::function<void(bool live)> onLive;

    /// Called once, after the first painting.
    std::function<void()> onFirstPaint;
    /// Called when a tap in full screen hides the touch bar or brings it back.
    std::function<void(bool)> onBarShown;

 protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    /// A finger or the mouse between press and release.
    struct Drag {
        Point start;
        Point last;
        bool moving = false;
        bool ruler = false;                 ///< moves an end of the ruler
        std::optional<std::size_t> button;  ///< of the touch bar
    };

    void layOut();
    void layOutAlarms();
    Rect pageWithAlarms() const;
    void zoom(int steps);
    void pauseAutomatic();
    void actByItself();
    bool canRun(TouchCommand command) const;
    void run(TouchCommand command);
    void pan(Point from, Point to);
    void scroll(Point from, Point to);
    void tap(Point at);
    bool tapPage(Point at);
    bool tapAlarm(Point at);
    bool tapApproach(Point at);
    void tapFields(Point at);
    bool tapMap(Point at);
    bool isOnMap(Point at) const;
    MeasureEnd measureEndAt(Point at);
    void holdRuler(Point at);
    void hideBar(bool hide);
    void takeNews();
    void announceWaypoint();
    void announceApproach();
    bool moveSelection(int rows);
    bool openSelection();
    bool panByKey(int key);
    void updateFeeds();
    FlightPlanRows planRows() const;
    bool isMapPage() const;
    int upDeg() const;
    std::span<const NavFieldId> shownFields() const;
    std::vector<TouchButton> touchButtons() const;
    CockpitData dataToShow() const;

    CKorvelDoc& document_;
    ProfileFile& profile_;
    const ColorScheme& scheme_;
    LabelCache& labels_;
    MapColorCache colors_;
    FieldStrip fieldStrip_{colors_};
    std::vector<NavFieldId> fields_;  // as chosen, the most important first
    TouchBar touchBar_{colors_};
    PagePainter pagePainter_;

    MapViewport viewport_;
    ScreenLayout layout_;  // the page without the strip of alarms
    AlarmBoxes alarms_;    // from the page's corner
    std::vector<std::string> laidOutAlarms_;
    PageId page_ = PageId::Map;
    MapAngle angle_;
    MapFeeds feeds_;
    FlightPlanView planView_;
    NearestView nearestView_;
    MeasureTool ruler_;
    AutoZoom autoZoom_;
    AutoView autoView_;
    bool held_ = false;
    std::optional<GeoPoint> panned_;  // what the pilot dragged to the aircraft's place
    CockpitData data_;
    std::uint64_t shownRevision_ = 0;

    std::string announced_;                         // the waypoint that was told last
    std::optional<LandingRunway> announcedRunway_;  // likewise
    std::string message_;
    int messageTicks_ = 0;  // until the message goes
    QBasicTimer timer_;
    AttitudePicture attitude_;
    QBasicTimer attitudeTimer_;
    ZoomGesture wheel_;
    ZoomGesture pinch_;
    std::optional<Drag> drag_;
    bool barMayHide_ = false;
    bool barHidden_ = false;
    bool painted_ = false;
};

}  // namespace korvel
