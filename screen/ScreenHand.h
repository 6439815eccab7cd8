#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "geo/GeoPoint.h"
#include "navdb/records/DatabaseRecord.h"
#include "pages/TapCardBox.h"
#include "pages/TouchBar.h"
#include "paint/Canvas.h"
#include "screen/Glide.h"
#include "screen/ZoomGesture.h"

namespace korvel {

class Screen;

/// The keys that the screen itself serves; those of commands go to the commands.
enum class ScreenKey : std::uint8_t { Left, Right, Up, Down, Open, Cancel, Next, Previous };

/// What fingers, mouse and keys do to the screen: taps, drags, the wheel, two fingers. Points are
/// device-independent pixels from the screen's corner.
class ScreenHand {
 public:
    /// The screen must outlive this.
    explicit ScreenHand(Screen& screen) : screen_(screen) {}

    /// A button of the touch bar that the screen does not serve itself.
    std::function<void(TouchCommand)> onTouch;
    /// A row of the flight-plan page was tapped or opened by key.
    std::function<void(std::size_t row)> onPlanRow;
    std::function<void()> onNearestFilter;  ///< which airports the list of the nearest ones holds
    std::function<void()> onEmergency;
    std::function<void()> onApproach;  ///< the approach's box
    /// More is wanted of a place, of traffic, or a point of the map is to be marked.
    std::function<void(const DatabaseRecord&)> onPlace;
    std::function<void()> onTraffic;
    std::function<void(GeoPoint)> onMark;
    /// A navigation field was tapped, counted as in Screen::field().
    std::function<void(std::size_t field)> onField;

    void press(Point at);
    void move(Point at);
    void release(Point at);
    /// To be called at every frame while wantsFrames(): fingers that rest are no events.
    void frame();
    bool wantsFrames() const;
    /// Turned by `eighths` of a degree at this point, away from the user positive.
    void wheel(int eighths, Point at);
    /// Two fingers with this point between them moved apart by `factor` since the last call;
    /// `begins`: it is their first.
    void pinch(double factor, bool begins, Point at);
    /// False for a key that means nothing here at present.
    bool key(ScreenKey key);

    /// The touch bar as it is to be painted.
    std::vector<TouchButton> buttons() const;

 private:
    /// What a finger holds, if it does not move the page itself.
    enum class Grip : std::uint8_t { None, Ruler, Plan, Row };

    /// A finger or the mouse between press and release.
    struct Finger {
        Point start;
        Point last;
        bool moving = false;
        Grip grip = Grip::None;
        std::optional<std::size_t> button{};  ///< of the touch bar
        bool card = false;                    ///< came down on the card
        std::optional<CardPart> part{};       ///< of the card
        bool held = false;                    ///< has rested, and done what that does
        bool stops = false;                   ///< came down to stop a map that glided
        std::int64_t sinceMs = 0;             ///< came down then
    };

    bool canRun(TouchCommand command) const;
    void run(TouchCommand command);
    void holdRuler(Point at);
    void scroll(Point to);
    void tap(Point at);
    bool tapAlarm(Point at);
    bool tapPage(Point at);
    bool tapApproach(Point at);
    bool tapNearestButton(Point at);
    bool tapRow(Point at);
    bool tapMap(Point at);
    bool canHold() const;
    void hold(Point at);
    bool isOnRow() const;
    void letGo(const Finger& finger);
    void dropPlan(const Finger& finger);
    void carryOn(Point at);
    bool cancelGrip();
    void pressCard(CardPart part);
    void openInfo();
    bool cardKey(ScreenKey key);
    bool openMiddle();
    void openRow(std::size_t row, Point at, bool byKey);
    bool openMarked();
    bool panByKey(ScreenKey key);

    Screen& screen_;
    std::optional<Finger> finger_;
    Glide glide_;
    std::int64_t carriedMs_ = 0;  ///< when a row was carried last
    ZoomGesture wheel_;
    ZoomGesture pinch_;
};

}  // namespace korvel
