#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/CKorvelDoc.h"
#include "cockpit/Cockpit.h"
#include "config/ProfileFile.h"
#include "paint/B612Metrics.h"
#include "platform/RegistryProfile.h"
#include "platform/VirtualClock.h"
#include "screen/Screen.h"
#include "screen/ScreenHand.h"

namespace korvel {

/// The screen over a document without a receiver: the simulator flies. What hands ask of the window
/// is written down.
class ScreenTest : public testing::Test {
 protected:
    /// A strip of a mile, landed on to the north (36) at 47.1 north.
    static constexpr std::string_view kPlaces =
        "ARPT_BEGIN\nID=XFLD\nNAME=Field\nPOSN.LAT=47.11\nPOSN.LON=10\nELEV=1000\n"
        "RWY1.LEN=6076\nRWY1.LO.ID=18\nRWY1.LO.POSN.LAT=47.1166667\nRWY1.LO.POSN.LON=10\n"
        "RWY1.HI.ID=36\nRWY1.HI.POSN.LAT=47.1\nRWY1.HI.POSN.LON=10\nARPT_END\n"
        "NAVAID_BEGIN\nID=XSO\nNAME=South\nTYPE=VOR\nPOSN.LAT=46.6\nPOSN.LON=10\nFREQ=112.0\nNAVAID_END\n"
        "NAVAID_BEGIN\nID=XNO\nNAME=North\nTYPE=VOR\nPOSN.LAT=48.0\nPOSN.LON=10\nFREQ=113.0\nNAVAID_END\n";

    ScreenTest() {
        folder_.write("x.UDB.TXT", kPlaces);
        document_.loadDatabases(std::vector{folder_.path()});
        screen_.onChanged = [this] { ++paintings_; };
        screen_.onLive = [this](bool live) { live_ = live; };
        hand_.onTouch = [this](TouchCommand command) { asked_.emplace_back(touchWord(command)); };
        hand_.onPlanRow = [this](std::size_t row) { asked_.push_back("row " + std::to_string(row)); };
        hand_.onApproach = [this] { asked_.emplace_back("approach"); };
        hand_.onField = [this](std::size_t field) { asked_.push_back("field " + std::to_string(field)); };
        hand_.onPlace = [this](const DatabaseRecord& record) {
            asked_.push_back("place " + std::string(record.ident.view()));
        };
        hand_.onMark = [this](GeoPoint) { asked_.emplace_back("mark"); };
        hand_.onTraffic = [this] { asked_.emplace_back("traffic"); };
        screen_.resize(800, 480, 0);
    }

    /// Takes what was asked since the last time.
    std::vector<std::string> asked() { return std::exchange(asked_, {}); }
    using Asked = std::vector<std::string>;

    void ticks(int count) {
        for (int i = 0; i < count; ++i) {
            clock_.advanceMs(Screen::kTickMs);
            screen_.tick();
        }
    }
    /// Starts the simulator there, to the north.
    void fly(double latDeg, double lonDeg, double speedKt = 60) {
        document_.flight().startSimulator({.position = atDegrees(latDeg, lonDeg), .speedKt = speedKt});
        ticks(1);
    }
    void change(const std::function<void(Settings&)>& how) {
        Settings settings = document_.settings();
        how(settings);
        document_.applySettings(settings);
    }

    void tap(Point at) {
        hand_.press(at);
        hand_.release(at);
    }
    void tap(const Rect& area) { tap(area.center()); }
    void tapOfPage(Point at) { tap(Point{at.x + screen_.areas().page().x, at.y + screen_.areas().page().y}); }
    void drag(Point from, Point to) {
        hand_.press(from);
        hand_.move({(from.x + to.x) / 2, (from.y + to.y) / 2});
        hand_.move(to);
        hand_.release(to);
    }
    /// Comes down and rests.
    void hold(Point at, std::int64_t ms = 1000) {
        hand_.press(at);
        clock_.advanceMs(ms);
        hand_.frame();
    }
    /// A part of the open card, on the screen.
    Point ofCard(CardPart part) const {
        const TapCardLayout layout = screen_.card().layout();
        const Point at =
            (part == CardPart::Next ? layout.next : layout.buttons.at(static_cast<std::size_t>(part))).center();
        return {at.x + screen_.areas().page().x, at.y + screen_.areas().page().y};
    }
    /// What the open card says: its title, its lines, and its step; empty without one.
    std::string card() {
        const auto shown = screen_.scene(screen_.data(), {}).card;
        if (!shown) return {};
        std::string words = shown->view.ident;
        if (!shown->view.name.empty()) words += " " + shown->view.name;
        for (const std::string& line : shown->view.lines) words += "; " + line;
        return shown->view.step.empty() ? words : words + " " + shown->view.step;
    }
    Rect button(TouchCommand command) const {
        const auto* const at = std::ranges::find(kTouchBar, command);
        return screen_.areas().layout().buttons.at(static_cast<std::size_t>(at - kTouchBar.begin()));
    }
    /// Of the screen, when it is so far from the page's middle.
    Point onPage(double right, double down) const {
        const Point middle = screen_.areas().page().center();
        return {middle.x + right, middle.y + down};
    }
    /// Of the screen.
    Point whereIs(GeoPoint place) const {
        const Point at = screen_.camera().projection()->project(place);
        return {at.x + screen_.areas().page().x, at.y + screen_.areas().page().y};
    }
    bool isPanned() const { return screen_.camera().lookAt().has_value(); }
    int rangeNm() const { return screen_.camera().viewport().currentRangeNm(); }

    TempFolder folder_;
    VirtualClock clock_;
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_{folder_.path(), *registry_};
    CKorvelDoc document_{{profile_, clock_, [](std::string_view, SystemError& error) {
                              error = kErrorFileNotFound;
                              return std::unique_ptr<SerialDevice>();
                          }}};
    B612Metrics letters_;
    Screen screen_{document_, profile_, letters_};
    ScreenHand hand_{screen_};
    std::vector<std::string> asked_;
    int paintings_ = 0;
    bool live_ = false;
};

}  // namespace korvel
