#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/FlightFixture.h"
#include "cockpit/UserFixes.h"
#include "config/ProfileFile.h"
#include "geo/Geodesy.h"
#include "navdb/TestDatabase.h"
#include "navdb/records/FixRecord.h"
#include "platform/FileIo.h"
#include "platform/RegistryProfile.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

class UserFixesTest : public testing::Test {
 protected:
    static GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }
    std::string names() const {
        std::string list;
        for (const UserFix& fix : fixes_.all()) list += fix.name + ' ';
        return list;
    }

    TempFolder folder_;
    VirtualClock clock_;
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_{folder_.path(), *registry_};
    FlightByCharts program_{clock_};
    Flight& flight_ = program_.flight;
    UserFixes fixes_{profile_, program_.charts, flight_.plan()};
};

TEST_F(UserFixesTest, AMarkIsAPlaceAtOnceAndAfterEveryStart) {
    const GeoPoint here = at(-33.123456, 179.999999);
    EXPECT_EQ(fixes_.proposedName(), "USR001");
    ASSERT_EQ(fixes_.add("USR001", here), "");
    EXPECT_EQ(fixes_.proposedName(), "USR002");
    // Loading databases does not take it away, and a second program reads it from the file.
    program_.charts.load({});
    ProfileFile again{folder_.path(), *registry_};
    FlightByCharts later{clock_};
    const UserFixes reread(again, later.charts, later.flight.plan());
    for (FlightByCharts* program : {&program_, &later})
        for (const char* key : {"USR001", "f.USR001"}) {
            const DatabaseRecord* found = program->charts.database().Find(key);
            ASSERT_NE(found, nullptr) << key;
            EXPECT_LT(DistanceNm(found->position, here), 0.001);
        }
}

TEST_F(UserFixesTest, NamesAreUnmistakable) {
    ASSERT_EQ(fixes_.add("HOME", at(1, 2)), "");
    for (const char* name : {"", "home", "MY HOME", "A@5", "A.B", "TWELVELETTER"})
        EXPECT_EQ(fixes_.add(name, at(1, 2)), "A name has 1 to 11 letters and digits.") << name;
    TestDatabase airways;
    airways.addAirway("V23", "OLM BTG");
    airways.write(folder_.path(), "airways.ng2");
    program_.charts.load(std::vector{folder_.path()});
    for (const std::string name : {"HOME", "V23"})
        EXPECT_EQ(fixes_.add(name, at(3, 4)), name + " is the name of another place.");
    EXPECT_EQ(names(), "HOME ");
}

TEST_F(UserFixesTest, ACountThatTheProfileSpoiltIsNoCount) {
    for (const int count : {2'000'000'000, -1}) {
        profile_.setInt(kOptionsSection, "UserFixCount", count, true);
        ASSERT_EQ(fixes_.add(count < 0 ? "AAA" : "BBB", at(1, 2)), "");  // 2,000,000,000 entries would take minutes
    }
    EXPECT_LT(profile_.entries().size(), 1100U);
    EXPECT_EQ(profile_.getInt(kOptionsSection, "UserFixCount", 0), 2);
}

TEST_F(UserFixesTest, AMarkThatCannotBeSavedIsGoodForThisRunAndTold) {
    std::filesystem::remove(profile_.path());
    std::filesystem::create_directory(profile_.path());  // nothing can be put in its place
    EXPECT_EQ(fixes_.add("LAKE", at(1, 2)), "");
    EXPECT_FALSE(fixes_.isSaved());
    EXPECT_NE(program_.charts.database().Find("LAKE"), nullptr);
    EXPECT_EQ(profile_.takeTrouble(), "Settings not saved: korvel.ini cannot be written");
    std::filesystem::remove(profile_.path());
    EXPECT_EQ(fixes_.add("POND", at(1, 3)), "");
    EXPECT_TRUE(fixes_.isSaved());
    EXPECT_EQ(profile_.takeTrouble(), "");
    ProfileFile again{folder_.path(), *registry_};
    FlightByCharts later{clock_};
    EXPECT_EQ(UserFixes(again, later.charts, later.flight.plan()).all().size(), 2U)
        << "the next save that succeeds takes all";
}

TEST_F(UserFixesTest, APlanIsNamedByItsEndsInAnyScript) {
    constexpr std::tuple<const char*, const char*, const char*> kCases[] = {{"f.Müllheim", "a.ÉTÉ", "Müllheim-ÉTÉ.fp"},
        {"f.M\xFCll", "2 NM/W of LAKE", "Müll-2NMWofLAKE.fp"}, {"f.湖", "f.-", "湖-.fp"}, {"f.--", "..", "plan.fp"}};
    for (const auto& [from, to, name] : kCases) {
        PlanEntries entries;
        for (const char* key : {from, to}) {
            const auto record = std::make_shared<FixRecord>();
            record->key = key;
            entries.push_back({.text = key, .key = key, .record = record});
        }
        flight_.plan().replace(entries);
        EXPECT_EQ(flight_.plan().proposedFileName(), name);
    }
}

TEST_F(UserFixesTest, AListWhoseConversionCannotBeWrittenIsAPlanThatNoFileHolds) {
    ActivePlan& plan = flight_.plan();
    const auto list = folder_.write("trip.TXT", "FPL 0\nFWP u i LAKE N 52 28.5 E 009 20.25 0\n");
    EXPECT_EQ(plan.open(list), "");
    EXPECT_EQ(plan.file(), folder_ / "trip.fp");
    EXPECT_FALSE(plan.changed());
    std::filesystem::remove(folder_ / "trip.fp");
    std::filesystem::create_directory(folder_ / "trip.fp");
    EXPECT_EQ(plan.open(list), "");
    EXPECT_EQ(plan.file(), "");
    EXPECT_TRUE(plan.changed());
}

TEST_F(UserFixesTest, APlanKeepsItsMarksAndItsFileThePosition) {
    for (const char* name : {"AAA", "BBB", "CCC"}) ASSERT_EQ(fixes_.add(name, at(10, 20)), "");
    ASSERT_EQ(flight_.plan().enterRoute("AAA CCC"), "");
    EXPECT_EQ(fixes_.remove(0), "AAA is in the flight plan.");
    EXPECT_EQ(flight_.plan().proposedFileName(), "AAA-CCC.fp");
    ASSERT_EQ(flight_.plan().saveAs(folder_ / "a.fp"), "");
    EXPECT_EQ(readWholeFile(folder_ / "a.fp"), "AAA 10.000000 20.000000\r\nCCC 10.000000 20.000000\r\n");
    EXPECT_EQ(flight_.plan().proposedFileName(), "a.fp");
    EXPECT_EQ(fixes_.remove(1), "");
    EXPECT_EQ(program_.charts.database().Find("BBB"), nullptr);
    EXPECT_EQ(names(), "AAA CCC ");
    flight_.plan().clear();
    EXPECT_EQ(flight_.plan().proposedFileName(), "");
    EXPECT_EQ(fixes_.remove(1), "");
    EXPECT_EQ(fixes_.remove(0), "");
    // Elsewhere, where nobody marked them, the file is enough.
    EXPECT_EQ(flight_.plan().open(folder_ / "a.fp"), "");
    FlightByCharts later{clock_};
    EXPECT_EQ(UserFixes(profile_, later.charts, later.flight.plan()).all().size(), 0U);
}

TEST_F(UserFixesTest, APlanThatWasNotSavedOutlivesAKill) {
    const auto file = folder_ / "unsaved.fp";
    const auto ofNextRun = [&] {
        FlightByCharts next{clock_};
        ActivePlan& recovered = next.flight.plan();
        const UserFixes fixes(profile_, next.charts, recovered);
        recovered.keepUnsavedIn(file);
        const auto error = recovered.recover({});
        EXPECT_EQ(recovered.changed(), error == "");
        std::string plan = error ? *error : "none";
        for (const PlanWaypoint& entry : recovered.entries()) plan += entry.text + ' ';
        return plan;
    };
    for (const char* name : {"AAA", "BBB", "CCC"}) ASSERT_EQ(fixes_.add(name, at(10, 20)), "");
    ActivePlan& plan = flight_.plan();
    plan.keepUnsavedIn(file);
    EXPECT_EQ(ofNextRun(), "none");
    ASSERT_EQ(plan.enterRoute("AAA CCC@45"), "");
    plan.reverse();
    EXPECT_EQ(ofNextRun(), "CCC@45.0 AAA ");
    EXPECT_EQ(ofNextRun(), "CCC@45.0 AAA ");  // nobody has saved it yet
    ASSERT_EQ(plan.saveAs(folder_ / "a.fp"), "");
    EXPECT_EQ(ofNextRun(), "none");
    plan.reverse();
    plan.forgetUnsaved();
    EXPECT_EQ(ofNextRun(), "none");
    ASSERT_TRUE(writeFileAtomically(file, "NOWHERE\r\n"));
    EXPECT_NE(ofNextRun(), "none");
    EXPECT_EQ(readWholeFile(folder_ / "last-unsaved.fp"), "NOWHERE\r\n") << "a plan of this run takes its place";
    ASSERT_EQ(plan.enterRoute("AAA BBB"), "");
    EXPECT_EQ(ofNextRun(), "AAA BBB ");
    plan.clear();
    EXPECT_EQ(ofNextRun(), "none");
    EXPECT_FALSE(plan.reverse() || plan.activate()) << "without a plan";
    plan.clear();  // of nothing: no change to take back
    EXPECT_TRUE(plan.undo());
    EXPECT_EQ(ofNextRun(), "AAA BBB ");
    EXPECT_TRUE(plan.redo());
    EXPECT_FALSE(plan.redo());
    ASSERT_EQ(plan.enterRoute("AAA"), "");
    plan.replace({});  // its last waypoint was removed
    EXPECT_FALSE(plan.changed()) << "nothing to save";
    EXPECT_EQ(ofNextRun(), "none");
    ASSERT_EQ(plan.enterRoute("AAA BBB"), "");
    ASSERT_TRUE(writeFileAtomically(folder_ / "bad.fp", "NOWHERE\r\n"));
    EXPECT_NE(plan.open(folder_ / "bad.fp"), "");
    EXPECT_EQ(plan.entries().size(), 2U);
}

}}  // namespace korvel
