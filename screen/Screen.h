#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cockpit/Declutter.h"
#include "config/Text.h"
#include "map/MeasureTool.h"
#include "map/feeds/MapFeeds.h"
#include "map/profile/ProfileFeed.h"
#include "screen/Announcements.h"
#include "screen/AutoView.h"
#include "screen/FieldChoice.h"
#include "screen/Hints.h"
#include "screen/HomePlace.h"
#include "screen/MapCamera.h"
#include "screen/PageLists.h"
#include "screen/PagePainter.h"
#include "screen/PassingMessage.h"
#include "screen/PlanDrag.h"
#include "screen/ScreenAreas.h"
#include "screen/TapCard.h"

namespace korvel {

class CKorvelDoc;
class ProfileFile;

/// What the window shows and how that changes, without a window: the current page with the
/// navigation fields above and the touch bar below. Drives the document. What hands do to it
/// arrives through ScreenHand, what menus and sheets do through the commands here. Main thread
/// only.
class Screen {
 public:
    /// Between two ticks.
    static constexpr int kTickMs = 500;

    /// All outlive the screen; `letters` measures texts.
    Screen(CKorvelDoc& document, ProfileFile& profile, const TextMeasure& letters);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() = default;

    /// Something has changed that is to be painted.
    std::function<void()> onChanged;
    /// Called at each tick: whether the position shown is live.
    std::function<void(bool live)> onLive;

    /// For what hands do: milliseconds that only go on.
    std::int64_t nowMs() const;
    /// One step of the program.
    void tick();
    /// Shows what a command has changed without waiting for the next tick.
    void refresh();
    /// Device-independent pixels, and how many are a millimetre of glass; 0 when that is not known.
    void resize(double width, double height, double pxPerMm);
    /// Has everything painted anew.
    void changed() const;
    /// Keeps page, range and fields in the profile.
    void storeState();

    // Pages

    PageId page() const { return page_; }
    void showPage(PageId page);
    /// Shows a page that the pilot has chosen among all: automatic view pauses.
    void choosePage(PageId page);
    void goToNextPage();
    /// Automatic zoom and view rest until the pilot zooms, chooses a page or goes back to the
    /// aircraft.
    void holdView() { camera_.hold(); }

    // The map

    const MapCamera& camera() const { return camera_; }
    /// Steps in, or out when negative; nothing on pages without a map. A map that was moved by hand
    /// keeps the ground under the page's point `about`.
    void zoom(int steps, std::optional<Point> about = std::nullopt);
    /// Shows this range until another is chosen; false when it is not a step of the ladder.
    bool setRange(int rangeNm);
    /// Moves the map by hand; nothing on pages without a map.
    void pan(Point from, Point to);
    /// The map follows the aircraft again, on the same page and at the same range.
    void backToAircraft();
    /// The same; from other pages it goes to the map.
    void showAircraft();
    /// Moves the map there, on a page that shows one.
    void lookAt(GeoPoint place);
    /// Shows less on the map, step by step, then all again, and says what.
    void declutterMap();
    /// Shows the profile under the map, on a page with a map, or hides it.
    void showProfile(bool shown);
    /// Whether pages with a map have the profile under them.
    bool hasProfile() const;
    /// Shows the next set of navaids on the map, and says which.
    void rotateNavaids();
    /// What a mark stands for: the map's middle while it is moved by hand, else the aircraft; none
    /// while its position is not known.
    std::optional<GeoPoint> placeToMark() const;
    /// What lies under a point of the page, the best first; nothing without a map.
    std::vector<TapThing> thingsUnder(Point at) const;

    /// Call before and after the databases are loaded anew.
    void databasesChanged();

    // The ruler

    /// Puts the map into measuring, on a page that shows one, or ends it.
    void setMeasuring(bool on);
    bool isMeasuring() const { return ruler_.isOn(); }
    /// A finger on the map while it measures; points count from the page's corner.
    void pressRuler(Point finger);
    void dragRuler(Point finger);
    void releaseRuler() { ruler_.release(); }

    // The card that tells of what was tapped

    const TapCard& card() const { return card_; }
    /// Shows it beside a point of the page; `byKey` puts the keys on it.
    void openCard(std::vector<TapThing> things, Point at, bool byKey = false);
    /// The same of an airport in a list.
    void openCard(const NearAirport& airport, Point at, bool byKey);
    void closeCard();
    /// A finger is on this part at present, or on none.
    void pressCard(std::optional<CardPart> part);
    void stepCard(int by);
    void moveCardFocus(int by);
    /// Flies direct to what the card tells of, or puts it into the plan, and says so; the card
    /// goes.
    void flyToCard();
    void insertCard();
    /// Flies direct to what lies under a point of the map: a place, or the bare ground.
    void flyDirect(const TapThing& thing);

    // The plan in a hand

    /// Takes hold of the leg or the waypoint of the plan under a point of the page; false for none.
    bool takePlan(Point finger);
    void pullPlan(Point finger);
    /// What it has pulled comes into the plan, which can be undone, or goes back.
    void dropPlan();
    void letPlanGo();
    bool holdsPlan() const { return drag_.band() != nullptr; }

    // Lists

    /// The list that the page shows, if any.
    ListPage listPage() const { return {page_, areas_.page().width, areas_.page().height, data_}; }
    const PageLists& lists() const { return lists_; }
    void scrollList(int rows);
    /// False when the page has no list.
    bool moveMark(int rows);

    /// Takes the plan's row under a point of the page in hand, carries it over the list, and puts
    /// it down: the plan changes in one step that can be undone. False for no row there.
    bool liftRow(Point at);
    void carryRow(Point at);
    void putRowDown();
    void letRowGo();

    // Fields, alarms and touch bar

    const ScreenAreas& areas() const { return areas_; }
    /// A navigation field by its place among the chosen ones.
    NavFieldId field(std::size_t place) const { return fields_.fields()[place]; }
    /// Shows this field there; when it already shows elsewhere the two change places.
    void setField(std::size_t place, NavFieldId field);
    /// The fields that there is room for and that the page does not show itself.
    std::vector<NavFieldId> shownFields() const;
    /// The field under a point of their strip, by its place among the chosen ones.
    std::optional<std::size_t> fieldAt(Point at) const;
    /// The pilot has seen the alarm that is shown at this place, 0 being the most urgent one; false
    /// when there is none.
    bool acknowledgeAlarm(std::size_t place = 0);
    /// In full screen the touch bar may be tapped away.
    void setBarMayHide(bool mayHide);
    bool barMayHide() const { return barMayHide_; }
    bool isBarShown() const { return barShown_; }
    void showBar(bool shown);

    // Words

    /// What the map says for five seconds.
    void say(const std::string& message);
    /// The same for a hint: once for every profile, and only while hints are wanted.
    void hint(Text hint);
    /// Empty for nothing.
    const std::string& message() const { return message_.text(); }

    // Painting

    /// What the pages show, as of the last tick or refresh.
    const CockpitData& data() const { return data_; }
    /// The same with the passing message.
    CockpitData dataToShow() const;
    /// Brings what lies around the map's view up to date for the painting that has begun.
    void updateFeeds();
    /// `data` must outlive the scene, and so must the screen.
    PageScene scene(const CockpitData& data, const AttitudeView& attitude);
    /// The attitude plug-in's picture is shown, and has to be painted often.
    bool followsAttitude() const { return followsAttitude_; }

 private:
    void layOut();
    TapCardRoom cardRoom(Point finger) const;
    TapCard::Sizes cardSizes() const;
    void fitCard();
    std::optional<ShownCard> shownCard(const CockpitData& data) const;
    void takeNews();
    void actByItself();
    void followAttitude();
    void openMap();
    std::optional<MapView> mapView() const;
    void updateProfile(const Settings& shown);
    bool wantsStrip() const;
    MeasureTool::Snap rulerSnap(const MapProjection& projection) const;

    CKorvelDoc& document_;
    ProfileFile& profile_;
    const TextMeasure& letters_;

    CockpitData data_;
    std::uint64_t shownRevision_ = 0;
    PageId page_;
    MapCamera camera_;
    HomePlace home_;
    Declutter declutter_ = Declutter::Full;
    MapFeeds feeds_;
    ProfileFeed profileFeed_;
    MeasureTool ruler_;
    std::vector<LabelTarget> labels_;  // of the frame on the glass
    TapCard card_;
    Point cardFinger_;
    PlanDrag drag_;
    PageLists lists_;
    AutoView autoView_;

    ScreenRequest size_;  // without the numbers of fields and buttons
    ScreenAreas areas_;
    bool laidOutStrip_ = false;  // the profile's, if there is room for it
    FieldChoice fields_;
    bool barMayHide_ = false;
    bool barShown_ = true;

    PassingMessage message_;
    Announcements announcements_;
    Hints hints_;
    bool followsAttitude_ = false;
};

}  // namespace korvel
