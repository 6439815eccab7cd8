#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "navdb/DatabaseLoader.h"
#include "navdb/TestDatabase.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/records/AirportRecord.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

std::string navaid(std::string_view ident, std::string_view type, std::string_view lon = "1") {
    std::string text("NAVAID_BEGIN\nID=");
    text.append(ident).append("\nNAME=user\nTYPE=").append(type);
    text.append("\nPOSN.LAT=1\nPOSN.LON=").append(lon);
    return text + "\nFREQ=110\nNAVAID_END\n";
}

std::string airport(std::string_view ident) {
    return std::string("ARPT_BEGIN\nID=").append(ident) + "\nNAME=user\nPOSN.LAT=1\nPOSN.LON=1\nARPT_END\n";
}

class DatabaseLoaderTest : public ::testing::Test {
 protected:
    /// Loads the folder; returns the report without the folder's path.
    std::string load() {
        loader_.load(folder_.path(), [this](std::string_view text, int) {
            progress_ += std::string(text) + "\n";
            return true;
        });
        std::string text = report_.text();
        const std::string folder = (folder_.path() / "").string();
        for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder))
            text.erase(at, folder.size());
        return text;
    }

    TempFolder folder_;
    VirtualClock clock_{{.year = 2024}};
    NavDatabase database_{clock_};
    LoadReport report_{folder_.path() / kLoadReportName};
    DatabaseLoader loader_{database_, report_};
    std::string progress_;
};

TEST_F(DatabaseLoaderTest, MergesAndReports) {
    TestDatabase content;
    content.addAirport("KXYZ", 10, 10, "database");
    content.addAirport("XYZ", 11, 11, "database", "_AP2");
    content.addAirport("KEEP", 10, 10, "database");
    content.addNavaid("OLD", 10, 10, 0x20, 110.0);
    content.addAirport("WAY", 10, 10, "database");
    content.write(folder_.path(), "b.NG2");
    folder_.write("a.ng2", "not a database, although it is as long as the header of one: 64 bytes");
    folder_.write("one.UDB.TXT", navaid("ABC", "VOR") + airport("KXYZ") + navaid("OLD", "VOR", "-1"));
    folder_.write(
        "two.udb.txt", navaid("ABC", "VOR") + navaid("ABC", "NDB") + airport("KOWN") + navaid("BACK", "FIX", "179:30"));
    folder_.write("zero.UDB.TXT", "");
    folder_.write(
        "x.NDB.TXT", airport("OWN") + airport("KWAY") + navaid("ABC", "NDB") + airport("KEEP") + airport("NEW"));
    EXPECT_EQ(load(),
        "Current Korvel Load Status\r\n\r\n"
        "Loading a.ng2\r\n  Incorrect Format\r\n\r\n"
        "Loading one.UDB.TXT\r\n  Done\r\n\r\n"
        "Loading two.udb.txt\r\n"
        "Nav v.ABC not used. Already exists in a .UDB.TXT file.\r\n"
        "  Done\r\n\r\n"
        "Loading zero.UDB.TXT\r\n"
        "Loading x.NDB.TXT\r\n"
        "Nav a.OWN not used. Already exists in a .NDB or .UDB.TXT file.\r\n"
        "Nav n.ABC not used. Already exists in a .NDB or .UDB.TXT file.\r\n"
        "  Done\r\n\r\n"
        "Airport KXYZ in .NG2 file replaced w/ entry in .UDB.TXT file.\r\n"
        "Nav v.OLD not used. Already exists in a .NG2 file.\r\n"
        "Nav a.KWAY not used. Already exists in a .NG2 file.\r\n"
        "Nav a.KEEP not used. Already exists in a .NG2 file.\r\n");
    EXPECT_EQ(loader_.userRecords().keys(),
        (std::vector<std::string>{"a.KOWN", "a.KXYZ", "a.NEW", "f.BACK", "n.ABC", "v.ABC"}));
    EXPECT_EQ(loader_.userRecords().bucket(359).size(), 1U);
    EXPECT_EQ(loader_.userRecords().bucket(179).size(), 0U);
    ASSERT_EQ(loader_.openedFiles().size(), 2U);
    EXPECT_EQ(loader_.openedFiles()[0].name, "a.ng2");
    EXPECT_EQ(loader_.openedFiles()[0].error, "Incorrect Format");
    EXPECT_EQ(loader_.openedFiles()[1].error, "");
    EXPECT_TRUE(progress_.starts_with("Loading b.NG2\n")) << progress_;
    EXPECT_TRUE(progress_.ends_with("Loading x.NDB.TXT\n")) << progress_;

    // Both spellings of the replaced airport are out of the way.
    EXPECT_EQ(database_.exclusions().size(), 2U);
    ASSERT_NE(database_.Find("a.KXYZ"), nullptr);
    EXPECT_EQ(database_.Find("a.KXYZ")->GetName(), "user");
    EXPECT_EQ(database_.Find("a.XYZ"), nullptr);
    EXPECT_EQ(database_.Find("a.KEEP")->GetName(), "database");
    EXPECT_EQ(database_.nearest({.lat = 10 * kDegToRad, .lon = 10 * kDegToRad}, kAirportKind, 9, 99).size(), 2U);
}

TEST_F(DatabaseLoaderTest, ADatabaseReplacesThoseOfItsNameInLaterFolders) {
    const std::vector<std::filesystem::path> folders{folder_ / "own", folder_ / "bundled"};
    for (const auto& folder : folders) std::filesystem::create_directory(folder);
    const auto write = [&](std::size_t folder, std::string_view name, std::string_view fix) {
        TestDatabase content;
        content.addFix(fix, 1, 1);
        content.write(folders.at(folder), name);
    };
    write(0, "World.NG2", "OWN");
    write(1, "world.ng2", "BUNDLED");
    write(1, "more.ng2", "MORE");
    const auto opened = [this] {
        std::string names;
        for (const auto& file : loader_.openedFiles()) names += file.name + (file.error.empty() ? " " : "! ");
        return names;
    };
    EXPECT_TRUE(loader_.load(folders));
    EXPECT_EQ(opened(), "World.NG2 more.ng2 ");
    EXPECT_NE(database_.Find("OWN"), nullptr);
    EXPECT_EQ(database_.Find("BUNDLED"), nullptr);
    EXPECT_NE(database_.Find("MORE"), nullptr);
    folder_.write("own/World.NG2", "torn");
    EXPECT_TRUE(loader_.load(folders));
    EXPECT_EQ(opened(), "World.NG2! world.ng2 more.ng2 ");
    EXPECT_NE(database_.Find("BUNDLED"), nullptr) << "an old chart is better than none";
    if (folder_.has("own/WORLD.NG2")) return;  // letters of either case name the same file here
    write(0, "extra.ng2", "EXTRA");
    write(0, "world.ng2", "SAME FOLDER");
    EXPECT_TRUE(loader_.load(folders));
    EXPECT_EQ(opened(), "World.NG2! world.ng2 extra.ng2 world.ng2 more.ng2 ");
}

TEST_F(DatabaseLoaderTest, LoadsUserFilesWithoutADatabaseAndStartsAnew) {
    folder_.write("my.UDB.TXT", airport("KXYZ") + airport("XYZ"));
    const std::string first = load();
    EXPECT_EQ(load(), first);
    EXPECT_EQ(loader_.userRecords().keys(), (std::vector<std::string>{"a.KXYZ", "a.XYZ"}));
    EXPECT_NE(database_.Find("XYZ"), nullptr);
    std::filesystem::remove(folder_.path() / "my.UDB.TXT");
    EXPECT_EQ(load(), "Current Korvel Load Status\r\n\r\n");
    EXPECT_EQ(database_.Find("XYZ"), nullptr);
}

TEST_F(DatabaseLoaderTest, ALongUserFileTellsHowFarItIsAndCanBeBrokenOff) {
    std::string lines;
    for (int i = 0; i < 100'000; ++i) lines += "bad\r\n";
    folder_.write("a.UDB.TXT", lines);
    folder_.write("b.UDB.TXT", airport("XYZ"));
    std::vector<int> told;
    EXPECT_TRUE(loader_.load(folder_.path(), [&](std::string_view, int percent) {
        told.push_back(percent);
        return true;
    }));
    EXPECT_GE(told.size(), 5U);
    EXPECT_TRUE(std::ranges::is_sorted(told));
    const std::string report = report_.text();
    EXPECT_NE(report.find("  Line 100000: ERROR '=' not found\r\n"), std::string::npos);
    EXPECT_EQ(report, *readWholeFile(report_.path()));
    EXPECT_NE(database_.Find("XYZ"), nullptr);
    int asked = 0;
    EXPECT_FALSE(loader_.load(folder_.path(), [&](std::string_view, int) { return ++asked < 4; }));
    EXPECT_EQ(asked, 4) << "within the first file";
    EXPECT_EQ(database_.Find("XYZ"), nullptr);
}

TEST_F(DatabaseLoaderTest, ReportLinesOfSeveralThreadsDoNotInterleave) {
    std::string line(300, 'x');
    line += "\r\n";
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            LoadReport same(report_.path());
            for (int i = 0; i < 20; ++i) same.AppendLoadReport(line);
        });
    }
    for (auto& thread : threads) thread.join();
    std::string expected;
    for (int i = 0; i < 80; ++i) expected += line;
    EXPECT_EQ(report_.text(), expected);
    LoadReport(folder_.path() / "no such folder" / "x").AppendLoadReport("lost");
}

}}  // namespace korvel
