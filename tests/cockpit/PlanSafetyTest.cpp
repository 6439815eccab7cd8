// What the pilot has planned and flies is not thrown away: not by a file that is none, not by a change that is taken
// back, not by a kill.

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/FlightFixture.h"
#include "cockpit/FlightMemory.h"
#include "config/ProfileFile.h"
#include "geo/Geodesy.h"
#include "platform/RegistryProfile.h"
#include "platform/VirtualClock.h"
#include "system/SpecialFiles.h"

namespace korvel { namespace {

GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

/// A flight north along 10 E over XA (47 N), XB (48 N), XC (49 N) and XD (50 N), and from a second program later.
class PlanSafetyTest : public testing::Test {
 protected:
    PlanSafetyTest() { load(program_); }

    void load(FlightByCharts& program) {
        std::string places;
        for (const char* place : {"XA 47", "XB 48", "XC 49", "XD 50"})
            places += "NAVAID_BEGIN\nID=" + std::string(place, 2) + "\nNAME=Fix " + std::string(place, 2) +
                      "\nTYPE=FIX\nPOSN.LAT=" + (place + 3) + "\nPOSN.LON=10\nNAVAID_END\n";
        folder_.write("x.UDB.TXT", places);
        program.charts.load(std::vector{folder_.path()});
    }
    void flyTo(double lat) {
        clock_.advanceMs(Flight::kTickMs);
        program_.tick({.position = at(lat, 10), .groundSpeedKt = 100, .trackMag = 0, .altitudeFt = 6000}, {}, {});
    }
    /// On the leg from XB to XC.
    void flyPlan() {
        flyTo(46.9);
        ASSERT_EQ(plan_.enterRoute(kLine), "");
        for (const double lat : {46.9, 47.0, 47.5, 48.0, 48.3}) flyTo(lat);
        ASSERT_EQ(flown(), "f.XC");
    }
    /// What is flown to and, behind it, whether directly.
    std::string flown() const { return navigation_.state().activeKey + (navigation_.directLeg() ? " direct" : ""); }
    std::string keys() const {
        std::string list;
        for (const PlanWaypoint& entry : plan_.entries()) list += entry.record->key.substr(2);
        return list;
    }

    static constexpr std::string_view kLine = "XA  XB XC XD";

    TempFolder folder_;
    VirtualClock clock_{{.year = 2026, .month = 5, .day = 1, .hour = 12}};
    FlightByCharts program_{clock_};
    ActivePlan& plan_ = program_.flight.plan();
    ActiveNavigation& navigation_ = program_.flight.navigation();
};

TEST_F(PlanSafetyTest, AFileThatFailsToOpenChangesNothing) {
    flyPlan();
    ASSERT_EQ(plan_.saveAs(folder_ / "mine.fp"), "");
    navigation_.DirectTo("XD", "90");
    const NavigationState before = navigation_.state();
    folder_.write("unknown.fp", "XA\r\nNOWHERE\r\n");
    folder_.write("list.TXT", "FPL 0\r\nFWP u i\r\n");
    folder_.write("other.doc", "XA\r\n");
    // Where there are no such pipes and devices, a folder stands for them.
    const bool hasPipes = makePipe(folder_ / "pipe.fp");
    if (!hasPipes) std::filesystem::create_directory(folder_ / "pipe.fp");
    std::filesystem::create_directory(folder_ / "folder.fp");
    const std::pair<std::filesystem::path, std::string> cases[] = {
        {folder_ / "unknown.fp", "NOWHERE navaid not found!"}, {folder_ / "list.TXT", "Invalid format!"},
        {folder_ / "other.doc", "Unsupported file-type!"}, {folder_ / "missing.fp", "File Open Error"},
        {folder_ / "pipe.fp", "This is a folder or a device, not a file."},
        {folder_ / "folder.fp", "This is a folder or a device, not a file."},
        {hasPipes ? "/dev/zero" : folder_ / "pipe.fp", "This is a folder or a device, not a file."}};
    for (const auto& [path, error] : cases) {
        EXPECT_EQ(plan_.open(path), error) << path;
        EXPECT_EQ(keys(), "XAXBXCXD");
        EXPECT_EQ(plan_.file(), folder_ / "mine.fp");
        EXPECT_FALSE(plan_.changed());
        EXPECT_EQ(flown(), "f.XD direct");
        EXPECT_EQ(navigation_.state().obsCourse, before.obsCourse);
        EXPECT_EQ(navigation_.state().legStart, before.legStart);
    }
    EXPECT_TRUE(plan_.canUndo()) << "nor is what can be taken back lost";
}

TEST_F(PlanSafetyTest, TakingAChangeBackFliesWhatWasFlown) {
    const auto without = [this](std::size_t row) { plan_.replace(withoutRow(plan_.entries(), row)); };
    const std::pair<const char*, std::function<void()>> changes[] = {{"reversed", [&] { plan_.reverse(); }},
        {"removed", [&] { plan_.clear(); }}, {"another", [&] { ASSERT_EQ(plan_.enterRoute("XD XA"), ""); }},
        {"without what is flown to", [&] { without(2); }}, {"without what was passed", [&] { without(1); }}};
    for (const auto& [name, change] : changes)
        for (const bool direct : {false, true}) {
            SCOPED_TRACE(std::string(name) + (direct ? " direct" : ""));
            flyPlan();
            if (direct) navigation_.DirectTo("XC", "270");
            flyTo(48.3);
            const NavigationState before = navigation_.state();
            const std::string was = flown();
            change();
            flyTo(48.31);
            ASSERT_TRUE(plan_.undo());
            EXPECT_EQ(flown(), was) << "at once";
            flyTo(48.31);
            EXPECT_EQ(keys(), "XAXBXCXD");
            EXPECT_EQ(flown(), was);
            EXPECT_EQ(navigation_.state().legStart, before.legStart);
            EXPECT_EQ(navigation_.state().obsCourse, before.obsCourse);
            navigation_.ClearNavigation();
            flyTo(48.31);
            EXPECT_EQ(flown(), "f.XC") << "the plan goes on where it was";
            plan_.clear();
        }
}

TEST_F(PlanSafetyTest, TakingAChangeBackNeverTurnsTheFlightBack) {
    flyPlan();
    plan_.replace(withoutRow(plan_.entries(), 0));
    for (const double lat : {48.6, 49.0, 49.3}) flyTo(lat);
    ASSERT_EQ(flown(), "f.XD");
    ASSERT_TRUE(plan_.undo());
    flyTo(49.3);
    EXPECT_EQ(flown(), "f.XD") << "XC was passed in the meantime";
    EXPECT_EQ(keys(), "XAXBXCXD");
    ASSERT_TRUE(plan_.redo());
    flyTo(49.3);
    EXPECT_EQ(keys() + flown(), "XBXCXDf.XD");

    navigation_.DirectTo("XA", "");
    plan_.reverse();
    navigation_.DirectTo("XD", "");
    ASSERT_TRUE(plan_.undo());
    EXPECT_EQ(flown(), "f.XD direct") << "the pilot's latest word";
    navigation_.ClearNavigation();
    flyTo(49.3);
    plan_.clear();
    flyTo(49.9);
    ASSERT_TRUE(plan_.undo());
    flyTo(49.9);
    EXPECT_EQ(flown(), "f.XD") << "36 NM on, what lies ahead";
}

TEST_F(PlanSafetyTest, APlanIsChangedWhileItsFileHoldsAnother) {
    ASSERT_EQ(plan_.enterRoute("XA XB"), "");
    EXPECT_TRUE(plan_.changed());
    ASSERT_EQ(plan_.saveAs(folder_ / "a.fp"), "");
    ASSERT_TRUE(plan_.reverse());
    EXPECT_TRUE(plan_.changed());
    ASSERT_TRUE(plan_.undo());
    EXPECT_FALSE(plan_.changed()) << "as it was saved";
    ASSERT_TRUE(plan_.reverse() && plan_.reverse());
    EXPECT_FALSE(plan_.changed());
    plan_.clear();
    EXPECT_FALSE(plan_.changed());
    EXPECT_EQ(plan_.file(), "");
    ASSERT_TRUE(plan_.undo());
    EXPECT_EQ(plan_.file(), folder_ / "a.fp");
    EXPECT_FALSE(plan_.changed());
    ASSERT_TRUE(plan_.redo());
    EXPECT_EQ(plan_.file(), "");
    ASSERT_TRUE(plan_.undo());
    ASSERT_EQ(plan_.enterRoute("XA XD"), "");
    ASSERT_EQ(plan_.saveAs(folder_ / "b.fp"), "");
    ASSERT_TRUE(plan_.undo());
    EXPECT_TRUE(plan_.changed());
    EXPECT_EQ(plan_.file(), folder_ / "b.fp") << "the file is chosen by saving alone";
}

/// A program with a profile, which is killed when it goes.
struct Remembering {
    Remembering(const TempFolder& folder, FlightByCharts& program)
        : profile(folder.path(), *registry), memory(profile, program.flight, program.charts.database()) {}

    std::unique_ptr<RegistryProfile> registry = openRegistryProfile();
    ProfileFile profile;
    FlightMemory memory;
};

TEST_F(PlanSafetyTest, AKilledProgramGoesOnWithPlanAndDirectTo) {
    const std::filesystem::path unsaved = folder_ / "unsaved-plan.fp";
    const auto next = [&](auto look, bool wanted = true) {
        FlightByCharts program{clock_};
        load(program);
        Remembering later(folder_, program);
        look(program.flight, later.memory.begin(unsaved, wanted));
        later.memory.keep();
    };
    Remembering first(folder_, program_);
    EXPECT_FALSE(first.memory.begin(unsaved, true).plan);
    flyPlan();
    ASSERT_EQ(plan_.saveAs(folder_ / "; trip.fp"), "");
    navigation_.DirectTo("XD", "270", 4500);
    const NavigationState was = navigation_.state();
    first.memory.keep();
    ASSERT_TRUE(first.profile.save());

    for (int start = 0; start < 2; ++start)
        next([&](Flight& flight, const FlightMemory::Resumed& resumed) {
            EXPECT_TRUE(resumed.plan && resumed.direct && !resumed.unsaved && resumed.error.empty()) << resumed.error;
            EXPECT_EQ(flight.plan().file(), folder_ / "; trip.fp");
            EXPECT_FALSE(flight.plan().changed());
            EXPECT_EQ(flight.plan().routeLine(), kLine) << "as it was typed";
            const NavigationState now = flight.navigation().state();
            EXPECT_EQ(now.activeKey, "f.XD");
            EXPECT_EQ(now.activeName, was.activeName);
            EXPECT_EQ(now.obsCourse, 270);
            EXPECT_EQ(now.pathTargetAltFt, 4500);
            EXPECT_LT(DistanceNm(now.legStart, was.legStart), 0.001);
            EXPECT_EQ(now.distanceNm, kNoDistanceNm) << "nothing is known before there is a position";
            ASSERT_TRUE(flight.navigation().directRecord());
        });

    // A change that no file holds comes back as one of that file.
    plan_.reverse();
    first.memory.keep();
    navigation_.GoToWithCourse(at(47, 11), 45, "a | b");
    first.memory.keep();
    ASSERT_TRUE(first.profile.save());
    folder_.write("unsaved-plan.fp", "f.XD\r\nf.XA\r\n");
    next([&](Flight& flight, const FlightMemory::Resumed& resumed) {
        EXPECT_TRUE(resumed.plan && resumed.unsaved && resumed.direct);
        EXPECT_EQ(flight.plan().typedLine(), "") << "nobody typed this plan";
        EXPECT_EQ(flight.plan().entries().size(), 2U);
        EXPECT_TRUE(flight.plan().changed());
        EXPECT_EQ(flight.plan().file(), folder_ / "; trip.fp");
        EXPECT_EQ(flight.navigation().state().activeName, "a | b");
        EXPECT_FALSE(flight.navigation().directRecord());
    });
    // What comes back from nowhere is set aside, and the plan of the file is opened.
    folder_.write("unsaved-plan.fp", "NOWHERE\r\n");
    next([&](Flight& flight, const FlightMemory::Resumed& resumed) {
        EXPECT_EQ(resumed.error, "NOWHERE navaid not found!");
        EXPECT_EQ(flight.plan().entries().size(), 4U);
    });
    EXPECT_EQ(folder_.read("last-unsaved-plan.fp"), "NOWHERE\r\n");
    // So is a plan that nobody wants to see, before another one is written over it.
    folder_.write("unsaved-plan.fp", "f.XA\r\n");
    next([](Flight& flight, const FlightMemory::Resumed&) { EXPECT_FALSE(flight.plan().hasPlan()); }, false);
    EXPECT_EQ(folder_.read("last-unsaved-plan.fp"), "f.XA\r\n");
    EXPECT_FALSE(folder_.has("unsaved-plan.fp"));

    program_.flight.startSimulator({.position = at(48, 10)});
    first.memory.keep();
    EXPECT_EQ(first.profile.getString(kOptionsSection, "DirectTo", "?"), "") << "what is simulated";
    plan_.forgetUnsaved();
    first.memory.forget();
    ASSERT_TRUE(first.profile.save());
    next([](Flight& flight, const FlightMemory::Resumed& resumed) {
        EXPECT_FALSE(resumed.plan || resumed.direct || flight.navigation().directLeg()) << "an orderly end";
    });
}

TEST_F(PlanSafetyTest, ADirectToThatTheProfileSpoiltIsNone) {
    for (const char* text : {"x", "f.XD|n", "f.XD|n|91|10|48|10|0|1000|0|0", "f.XD|n|nan|10|48|10|0|1000|0|0",
             "f.XD|n|50|10|48|10|0|400|0|0", "f.XD|n|50|10|48|10|0|1000|1e99|0"}) {
        Remembering later(folder_, program_);
        later.profile.setString(kOptionsSection, "DirectTo", text);
        EXPECT_FALSE(later.memory.begin({}, true).direct) << text;
    }
}

}}  // namespace korvel
