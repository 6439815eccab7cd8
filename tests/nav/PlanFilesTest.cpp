#include "TempFolder.h"
#include "nav/PlacesFixture.h"
#include "nav/plan/PlanFiles.h"

namespace korvel { namespace {

class PlanFilesTest : public PlacesFixture {
 protected:
    PlanFilesTest() {
        place("a.KAA", 10, 20);
        place("v.VOR", 11, 20);
        place("f.OWN", 12, -20.5);
    }
    /// Loads the text and returns the message or what saving gives.
    std::string reload(std::string_view text) {
        const std::string error = files_.LoadPlanText(text);
        return error.empty() ? files_.SavePlan() : error;
    }

    GuardedPlan plan_;
    PlanFiles files_{database_, fixes_, &places_, plan_};
};

TEST_F(PlanFilesTest, ReadsAndWritesEntries) {
    constexpr std::tuple<std::string_view, std::string_view> kCases[] = {{"", ""},
        {"; remark\r\n\r\n  KAA\t\r\n  ;KBB\nVOR", "KAA\r\nVOR\r\n"},
        {"a.KAA@45\r\nv.VOR@45.5\r\nKAA", "a.KAA@45\r\nv.VOR@45.5\r\nKAA\r\n"},
        {"KAA@1.23\nKAA@0.29\nKAA@-2\n", "KAA@1.2\r\nKAA@0.3\r\nKAA@-2\r\n"}, {"KAA 1 2\n", "KAA\r\n"},
        {"f.OWN@10 1 2\nOWN", "f.OWN@10 12.000000 -20.500000\r\nOWN\r\n"},
        {"f.F-1@20 -33.5 151.25\nf.F-1",
            "f.F-1@20 -33.500000 151.250000\r\n"
            "f.F-1 -33.500000 151.250000\r\n"},
        {"NEW 5 6\n", "f.NEW 5.000000 6.000000\r\n"}, {"f.OTHER 5.00001 6\n", "f.NEW 5.000000 6.000000\r\n"},
        {"KAA\nv.NOPE\n", "NOPE navaid not found!"}, {"f.NOPE 91 0", "NOPE navaid not found!"},
        {"f.NOPE 9", "NOPE navaid not found!"}, {"f.NOPE nan 0", "NOPE navaid not found!"},
        {"KAA@x", "Invalid altitude. Format is feet in hundreds (e.g. 1.2 = 120 ft)."},
        {"KAA@99999", "Invalid altitude. Format is feet in hundreds (e.g. 1.2 = 120 ft)."}};
    for (const auto& [text, saved] : kCases) EXPECT_EQ(reload(text), saved) << text;
    EXPECT_EQ(files_.SavePlan(), "f.NEW 5.000000 6.000000\r\n") << "what fails changes nothing";
    EXPECT_EQ(reload("KAA@0.29"), "KAA@0.3\r\n");
    const PlanWaypoint& entry = (*plan_.lock())->entries().front();
    EXPECT_EQ(entry.altitudeFt, 28);
    EXPECT_EQ(entry.text, "KAA@0.3");
    EXPECT_EQ(entry.record->key, "a.KAA");
}

TEST_F(PlanFilesTest, LooksIdentifiersUpNearTheAircraft) {
    place("v.TWIN", 0, 0);
    place("a.TWIN", 0, 90);
    for (const auto& [lon, key] : {std::pair{1.0, "v.TWIN"}, std::pair{89.0, "a.TWIN"}}) {
        files_.setPresent(degrees(0, lon));
        ASSERT_EQ(files_.LoadPlanText("TWIN"), "");
        EXPECT_EQ((*plan_.lock())->entries().front().record->key, key);
    }
}

TEST_F(PlanFilesTest, OpensByName) {
    const TempFolder folder;
    EXPECT_EQ(files_.OpenPlanFile("x.Fp", "KAA"), "");
    EXPECT_EQ(files_.savePlanAs(folder / "x.fp"), "");
    EXPECT_EQ(folder.read("x.fp"), "KAA\r\n");
    EXPECT_EQ(files_.savePlanAs(folder / "no/x.fp"), "File Open Error");
    for (const char* const name : {"x.fpl", "fp", "x", ""})
        EXPECT_EQ(files_.OpenPlanFile(name, "KAA"), "Unsupported file-type!") << name;
    EXPECT_EQ(files_.SavePlan(), "KAA\r\n") << "the plan in force stays";
}

TEST_F(PlanFilesTest, ConvertsWaypointLists) {
    const TempFolder folder;
    const std::string list =
        "# remark\r\nnoise\r\n\r\n"
        "FPL 0\r\n"
        "FWP p a KAA N 10 5.0 E 20 0 4500\r\n"
        "FWP pv VOR N 11 9.9 E 20 0.0 0\r\n"
        "FWP p v VOR N 11 12 E 20 0 -5\r\n"
        "FWP p x KAA N 10 0 E 20 0 150\r\n"
        "FWP p i GONE S 1 30 W 2 15 0\r\n"
        "FWP q ? SKIP N 1 0 E 1 0 0\r\n"
        "FPL 1\r\n"
        "FWP u ? LAKE N 52 28.5 W 009 20.25 1230\r\n"
        "FPL 0\n"  // the plan before it is lost
        "FWP u i LAST N 1 0 E 1 0 0\n"
        "FPL 3\n";
    const auto path = folder / "my.trip.Txt";
    EXPECT_EQ(files_.OpenPlanFile(path, list), "");
    EXPECT_EQ(folder.read("my.trip.fp"), "f.F-LAST 1.000000 1.000000\r\n");
    EXPECT_EQ(files_.SavePlan(), "f.F-LAST 1.000000 1.000000\r\n");
    EXPECT_FALSE(folder.has("my.trip_1.fp"));
    EXPECT_EQ(folder.read("my.trip_3.fp"), "");

    const std::string two = list.substr(0, list.find("FPL 0\n"));
    EXPECT_EQ(files_.OpenPlanFile(path, two), "");
    EXPECT_EQ(folder.read("my.trip.fp"),
        "a.KAA@45.0\r\nv.VOR\r\nf.F-VOR 11.200000 20.000000\r\nKAA@1.5\r\n"
        "f.F-GONE -1.500000 -2.250000\r\n");
    EXPECT_EQ(folder.read("my.trip_1.fp"), "f.F-LAKE@12.3 52.475000 -9.337500\r\n");
    EXPECT_EQ((*plan_.lock())->entries().size(), 5U);
}

TEST_F(PlanFilesTest, RefusesListsThatCannotBeRead) {
    const TempFolder folder;
    constexpr std::string_view kLists[] = {"FPL x\n",
        "FPL 1\nFWP u i A N 1 0 E 1 0 0\n",  // there is no plan 0 to open
        "FPL 0\nFWP u i A N 1 0 E 1 0\n", "FPL 0\nFWP u i A N 1 0 E x 0 0\n", "FPL 0\nFWP u i A N 90 0.1 E 1 0 0\n",
        "FPL 0\nFWP u i A N 1 0 E 180 1 0\n", "FPL 0\nFWP u i A N 1 nan E 1 0 0\n", "FPL 0\nFWP u i A N 1 61 E 1 0 0\n",
        "FPL 0\nFWP u i A N -1 0 E 1 0 0\n", "FPL 0\nFWP u i A N 1 0 E 1 0 2000000\n", "FPL 0\nFWP \n"};
    for (const std::string_view list : kLists)
        EXPECT_EQ(files_.OpenPlanFile(folder / "a.TXT", list), "Invalid format!") << list;
    EXPECT_TRUE(folder.has("a_1.fp"));
    EXPECT_FALSE(folder.has("a.fp"));
}

}}  // namespace korvel
