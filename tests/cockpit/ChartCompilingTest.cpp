#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/ChartCompiling.h"
#include "cockpit/ChartText.h"
#include "cockpit/Charts.h"
#include "navdb/file/DatabaseFile.h"
#include "platform/FileIo.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeader = "ident,type,name,latitude_deg,longitude_deg\n";

class ChartCompilingTest : public testing::Test {
 protected:
    ChartCompilingTest() {
        folder_.write("tables/airports.csv", std::string(kHeader) + "EDDL,large_airport,Town,51.3,6.8\n");
        folder_.write("own/world.ng2", "as it was");
    }
    /// Compiles what lies in that place, to its end.
    std::unique_ptr<ChartCompiling> compiled(const char* place, const char* into = "own") {
        auto compiling = std::make_unique<ChartCompiling>(folder_ / place, *into == 0 ? fs::path() : folder_ / into);
        while (!compiling->isFinished()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return compiling;
    }
    std::string world() { return readWholeFile(folder_ / "own/world.ng2").value_or(""); }

    TempFolder folder_;
    VirtualClock clock_{{.year = 2026, .month = 9, .day = 1}};
};

TEST_F(ChartCompilingTest, MakesADatabaseThatIsInUseOnlyWhenItIsLoaded) {
    // Two files of one download: the older one says how old all of it is.
    folder_.write("tables/runways.csv", "airport_ident,length_ft,width_ft,le_ident\n");
    const auto day = [](int back) { return fs::file_time_type::clock::now() - std::chrono::hours(24 * back); };
    fs::last_write_time(folder_ / "tables/airports.csv", day(5));
    fs::last_write_time(folder_ / "tables/runways.csv", day(2));
    Charts charts(clock_, {});
    const auto compiling = compiled("tables");
    ASSERT_EQ(compiling->result().error, "");
    EXPECT_EQ(charts.database().Find("a.EDDL"), nullptr);
    charts.load(std::vector{folder_ / "own"});
    ASSERT_NE(charts.database().Find("a.EDDL"), nullptr);
    const std::chrono::year_month_day until{
        std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now() - std::chrono::hours(24 * 5)) +
        std::chrono::days(28)};
    EXPECT_EQ(charts.database().files()[0]->header().expiry,
        static_cast<std::uint32_t>(static_cast<int>(until.year()) * 10000) +
            static_cast<unsigned>(until.month()) * 100 + static_cast<unsigned>(until.day()));
    const std::string summary = compiledText(*compiling);
    for (const char* part : {"no official date", "OurAirports: public domain", "Taken:\n  1 airports"})
        EXPECT_NE(summary.find(part), std::string::npos) << part << " in " << summary;
    EXPECT_NE(chartsText(charts, 20990101).find("expired"), std::string::npos);
    EXPECT_NE(chartsText(charts, 20200101).find("world.ng2\n  valid until"), std::string::npos);
    EXPECT_NE(chartsText(charts, 20200101).find("1 airports, 0 navaids, 0 fixes, 0 airways"), std::string::npos);
}

TEST_F(ChartCompilingTest, LeavesEverythingAsItIsWhenTheDownloadIsNone) {
    folder_.write("page.zip", "<html>");
    folder_.write("half/airports.csv", "ident,type,na");
    folder_.write("empty/readme.txt", "x");
    for (const char* place : {"page.zip", "half", "empty", "not there"}) {
        const auto compiling = compiled(place);
        EXPECT_NE(compiling->result().error, "") << place;
        EXPECT_EQ(compiledText(*compiling).find("Nothing is changed"), 0U) << place;
    }
    EXPECT_NE(compiled("tables", "")->result().error, "") << "no folder to put it in";
    EXPECT_EQ(world(), "as it was");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "own"), {}), 1);
}

TEST_F(ChartCompilingTest, StopsWhenItIsToldToAndChangesNothing) {
    std::string rows(kHeader);
    for (int i = 0; i < 200000; ++i) rows += "A" + std::to_string(i) + ",small_airport,Town,51.3,6.8\n";
    folder_.write("tables/airports.csv", rows);
    ChartCompiling compiling(folder_ / "tables", folder_ / "own");
    compiling.breakOff();
    while (!compiling.isFinished()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(compiledText(compiling), "Stopped. Nothing is changed.\n");
    { const ChartCompiling left(folder_ / "tables", folder_ / "own"); }
    EXPECT_EQ(world(), "as it was");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "own"), {}), 1);
}

}}  // namespace korvel
