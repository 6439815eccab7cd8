#include <cmath>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "navdb/TestDatabase.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/NavaidRecord.h"
#include "navdb/user/UserDatabaseReader.h"

namespace korvel { namespace {

class UserDatabaseReaderTest : public ::testing::Test {
 protected:
    /// Reads a file of these lines; returns what the report says between its first and last line.
    std::string read(std::string_view text) {
        const auto path = folder_.write("my.UDB.TXT", text);
        records_.clear();
        LoadReport report;
        UserDatabaseReader reader(
            report, [this](std::unique_ptr<DatabaseRecord> record) { records_.push_back(std::move(record)); });
        EXPECT_EQ(reader.LoadFile(path), "");
        const std::string logged = report.text();
        const std::string head = "Loading " + path.string() + "\r\n";
        const std::string tail = "  Done\r\n\r\n";
        EXPECT_TRUE(logged.starts_with(head)) << logged;
        if (!logged.ends_with(tail)) return "(no end) " + logged.substr(head.size());
        return logged.substr(head.size(), logged.size() - head.size() - tail.size());
    }
    template <class Record>
    const Record& only() {
        EXPECT_EQ(records_.size(), 1U);
        return dynamic_cast<const Record&>(*records_.at(0));
    }

    TempFolder folder_;
    std::vector<std::unique_ptr<DatabaseRecord>> records_;
};

constexpr std::string_view kVor =
    "NAVAID_BEGIN\nID=ABC\nNAME=Alpha\nTYPE=VOR\nPOSN.LAT=47:30\nPOSN.LON=-122.5\nFREQ=113.9\n";

TEST_F(UserDatabaseReaderTest, BuildsNavaidsAndFixes) {
    EXPECT_EQ(read("; mine\r\n\r\n\tNAVAID_BEGIN ; first\r\n  ID=ABC ; my field\r\nNAME=A long name "
                   "of a navaid\r\nTYPE=VOR\r\nPOSN.LAT=47:30.5\r\nPOSN.LON=-0:30\r\nUSAGE=BOTH\r\n"
                   "FREQ=110\r\nFREQ=113.90 MHz\r\nNAVAID_END\r\n"),
        "");
    const auto& vor = only<VorRecord>();
    EXPECT_EQ(vor.key, "v.ABC");
    EXPECT_EQ(vor.ident.view(), "ABC");
    EXPECT_EQ(vor.GetName(), "A long name of a nav");
    EXPECT_NEAR(vor.position.lat * kRadToDeg, 47.508333333, 1e-8);
    EXPECT_NEAR(vor.position.lon * kRadToDeg, -0.5, 1e-9);
    EXPECT_EQ(vor.usage, kUsageBoth);
    EXPECT_EQ(vor.GetInfoText(), "113.9");
    EXPECT_FALSE(vor.expired);
    EXPECT_EQ(*vor.origin.fileName, "my.UDB.TXT");

    EXPECT_EQ(read("NAVAID_BEGIN\nID=ELEVENCHARS\nNAME=N\nTYPE=NDB\nPOSN.LAT=0\nPOSN.LON=0\n"
                   "FREQ=375\nNAVAID_END"),
        "");
    EXPECT_EQ(only<NdbRecord>().key, "n.ELEVENCHARS");
    EXPECT_EQ(only<NdbRecord>().usage, kUsageLow);
    EXPECT_EQ(read("NAVAID_BEGIN\nID=F\nNAME=A fix keeps a name of any length\nTYPE=FIX\n"
                   "POSN.LAT=0\nPOSN.LON=10\nUSAGE=VRP\nNAVAID_END\n"),
        "");
    EXPECT_EQ(only<FixRecord>().key, "f.F");
    EXPECT_EQ(only<FixRecord>().GetName(), "A fix keeps a name of any length");
    EXPECT_EQ(only<FixRecord>().usage, kUsageVisual);
    EXPECT_EQ(only<FixRecord>().position.lat, 0.0);
}

TEST_F(UserDatabaseReaderTest, BuildsAirports) {
    EXPECT_EQ(read("ARPT_BEGIN\nID=KXYZ\nNAME=Field\nPOSN.LAT=47.5\nPOSN.LON=-122\nINFO=Call first\n"
                   "MAG_VAR=15.5\nELEV=100\nELEV.UNITS=m\n"
                   "RWY1.LEN=1000\nRWY1.WIDTH=30\nRWY1.UNITS=M\nRWY1.SURFACE=GRASS\n"
                   "RWY1.LO.ID=09\nRWY1.LO.MAG_HDG=88\nRWY1.LO.POSN.LAT=47:30\n"
                   "RWY1.LO.POSN.LON=-122:1\nRWY1.LO.ELEV=50\nRWY1.LO.ELEV.UNITS=M\n"
                   "RWY1.LO.PATTERN=r\nRWY1.HI.ID=27\nRWY1.HI.PATTERN=L\nRWY3.LEN=500\n"
                   "COM1.TYPE=CTAF\nCOM1.FREQ=122.8\nCOM2.TYPE=GND\nCOM3.TYPE=TWR\nCOM3.FREQ=118\n"
                   "ARPT_END\n"),
        "");
    const auto& airport = only<AirportRecord>();
    EXPECT_EQ(std::tuple(airport.key, airport.magVariationDeg, airport.elevationFt, airport.info, airport.region),
        std::tuple("a.KXYZ", 15.5F, 328, "Call first", 0));
    ASSERT_EQ(airport.runways.size(), 1U);
    const RunwayRecord& runway = airport.runways[0];
    EXPECT_EQ(std::tuple(runway.lengthFt, runway.widthFt, runway.surface), std::tuple(3281, 98, "GRASS"));
    const RunwayEnd& low = runway.ends.at(0);
    const RunwayEnd& high = runway.ends.at(1);
    EXPECT_EQ(std::tuple(low.id, low.magHeadingDeg, low.elevationFt, low.pattern), std::tuple("09", 88, 164, 'R'));
    EXPECT_NEAR(low.position.lon * kRadToDeg, -122.0 - 1.0 / 60, 1e-9);
    EXPECT_EQ(
        std::tuple(high.pattern, high.magHeadingDeg, IsValid(high.position)), std::tuple('L', std::nullopt, false));
    ASSERT_EQ(airport.comms.size(), 1U);
    EXPECT_EQ(std::tuple(airport.comms[0].type, airport.comms[0].freqMhz), std::tuple("CTAF", 122.8));
}

TEST_F(UserDatabaseReaderTest, ReportsWhatIsWrongWithItsLine) {
    const std::string vor(kVor);
    const std::string airport = "ARPT_BEGIN\nID=A\nNAME=N\nPOSN.LAT=1\nPOSN.LON=1\n";
    const auto error = [](int line, const std::string& text) {
        return "  Line " + std::to_string(line) + ": ERROR " + text + "\r\n";
    };
    const auto warning = [](int line, const std::string& text) {
        return "  Line " + std::to_string(line) + ": WARNING " + text + "\r\n";
    };
    const std::vector<std::tuple<std::string, std::string, std::size_t>> cases{
        {";\n\n nonsense\n=x\n=\nA=\nA=B\n",
            error(3, "'=' not found") + error(4, "No key value found.") + error(5, "No key value found."), 0},
        {"NAVAID_BEGIN\nID = ABC\nNAVAID_END\n", error(3, "ID field not found."), 0},
        {"NAVAID_BEGIN\nID=TWELVELETTER\nNAVAID_END\n", error(3, "ID field too long."), 0},
        {"NAVAID_BEGIN\nID=A\nNAME=\nTYPE=VOR\nNAVAID_END\n", error(5, "NAME field not found."), 0},
        {"NAVAID_BEGIN\nID=A\nNAME=B\nNAVAID_END\n", error(4, "TYPE field not found."), 0},
        {"NAVAID_BEGIN\nID=A\nNAME=B\nTYPE=vor\nNAVAID_END\n", error(5, "Invalid TYPE field."), 0},
        {"NAVAID_BEGIN\nID=A\nNAME=B\nTYPE=FIX\nPOSN.LON=1\nNAVAID_END\n", error(6, "POSN.LAT field not found."), 0},
        {"NAVAID_BEGIN\nID=A\nNAME=B\nTYPE=FIX\nPOSN.LAT=1\nNAVAID_END\n", error(6, "POSN.LON field not found."), 0},
        {"NAVAID_BEGIN\nID=A\nNAME=B\nTYPE=VOR\nPOSN.LAT=1\nPOSN.LON=1\nNAVAID_END\n",
            error(7, "FREQ field not found."), 0},
        {vor + "FREQ=high\nNAVAID_END\n", error(9, "Invalid FREQ field."), 0},
        {vor + "FREQ=1e99\nNAVAID_END\n", error(9, "Invalid FREQ field."), 0},
        {vor + "USAGE=low\nNAVAID_END\n", warning(9, "Invalid USAGE field."), 1},
        {airport + vor + "NAVAID_END\n", error(6, "Airport end-line not found"), 2},
        {vor + airport + "ARPT_END\n", error(8, "Navaid end-line not found"), 2},
        {vor, error(8, "File ended before record-end."), 0},
        {airport + "ELEV=1", error(6, "File ended before record-end."), 0},
        {"ARPT_END\n", error(1, "ID field not found."), 0},
        {"ARPT_BEGIN\nID=A\nARPT_END\n", error(3, "NAME field not found."), 0},
        {"ARPT_BEGIN\nID=A\nNAME=A\nPOSN.LON=1\nARPT_END\n", error(5, "POSN.LAT field not found."), 0},
        {airport + "MAG_VAR=east\nELEV=high\nRWY1.LEN=-1\nRWY1.WIDTH=x\nRWY1.LO.PATTERN=LR\n"
                   "ARPT_END\n",
            warning(11, "Invalid MAG-VAR.") + warning(11, "Invalid ELEV.") + error(11, "Invalid RWY.LEN.") +
                error(11, "Invalid RWY.WIDTH.") + warning(11, "Invalid PATTERN field."),
            1},
        {vor + "POSN.LAT=47,5\nFREQ=110\nNAVAID_END\n", warning(8, "Invalid POSN.LAT: 47,5"), 0},
        {vor + "POSN.LON=475.5\nFREQ=110\nNAVAID_END\n", warning(8, "Invalid POSN.LON: 475.5"), 0},
        {"NAVAID_BEGIN\nID=A\nNAME=B\nTYPE=FIX\nPOSN.LAT=abc\nPOSN.LON=47:30:15\nNAVAID_END\n",
            warning(5, "Invalid POSN.LAT: abc") + warning(6, "Invalid POSN.LON: 47:30:15"), 0},
        {airport + "POSN.LAT=90.1\nELEV=x\nARPT_END\n", warning(6, "Invalid POSN.LAT: 90.1"), 0},
        {airport + "ELEV=100001\nRWY1.LEN=1\nRWY1.LO.ELEV=-2001\nRWY1.LO.POSN.LAT=1\nRWY1.LO.POSN.LON=181\nARPT_END\n",
            warning(11, "Invalid ELEV.") + warning(10, "Invalid RWY1.LO.POSN.LON: 181") + warning(11, "Invalid ELEV."),
            1}};
    for (const auto& [text, logged, records] : cases) {
        EXPECT_EQ(read(text), logged) << text;
        EXPECT_EQ(records_.size(), records) << text;
    }
}

TEST_F(UserDatabaseReaderTest, AnnouncesAnEmptyFileOnlyAndRefusesAMissingOne) {
    EXPECT_EQ(read(""), "(no end) ");
    LoadReport report;
    UserDatabaseReader reader(report, [](auto) {});
    EXPECT_EQ(reader.LoadFile(folder_.path() / "missing.UDB.TXT"), "File open error.");
    EXPECT_EQ(report.text(), "");
}

TEST_F(UserDatabaseReaderTest, CutsLinesAcrossBlocks) {
    const std::string comment(3000, ';');
    EXPECT_EQ(read(comment + "\n" + std::string(kVor) + "NAME=" + std::string(70000, 'x') + "\nNAVAID_END\n"), "");
    EXPECT_EQ(only<VorRecord>().GetName(), std::string(20, 'x'));
}

TEST(UserCoordinateTest, ReadsDegreesAndMinutes) {
    const std::vector<std::pair<std::string, double>> cases{{"", 0.0}, {"47.5", 47.5}, {"47:30.5", 47.0 + 30.5 / 60},
        {"-0:30", -0.5}, {"-5:30", -5.5}, {" -5:30", -5.5}, {"+5:30", 5.5}, {"-122.25", -122.25}, {"47:60", 48.0}};
    for (const auto& [text, degrees] : cases)
        EXPECT_NEAR(parseUserCoordinate(text).value_or(NAN), degrees, 1e-12) << text;
    for (const std::string_view text : {"abc", "47,5", "47 30", "122.25W", "47:30:15", "47:305", "5:", "5:x", "5:-1",
             "nan", "inf", "1:inf", "47:30.5'"})
        EXPECT_FALSE(parseUserCoordinate(text)) << text;
}

}}  // namespace korvel
