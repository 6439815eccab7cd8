#include <filesystem>
#include <memory>
#include <sstream>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "compiler/BundledWorld.h"
#include "compiler/NavdbBuild.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseVerify.h"
#include "navdb/records/NavaidRecord.h"
#include "navdb/search/NameSearch.h"
#include "platform/FileIo.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

namespace fs = std::filesystem;

class NavdbBuild : public testing::Test {
 protected:
    NavdbBuild() { options_.output = folder_ / "out.ng2"; }

    fs::path put(const std::string& name, std::string_view text) { return folder_.write(name, text); }

    std::string build() { return buildNavdb(options_, log_); }

    /// Builds and opens the result with the program's own reader.
    DatabaseHeader headerOfBuild() {
        EXPECT_EQ(build(), "");
        DatabaseFile file;
        EXPECT_EQ(file.Open(options_.output, clock_), "");
        return file.header();
    }

    TempFolder folder_;
    NavdbBuildOptions options_;
    ImportLog log_;
    VirtualClock clock_;
};

/// A file of one fix, with this version line.
std::string oneFix(std::string_view version) {
    std::string text("I\n");
    text.append(version).append("\n 47.7 8.2 06TRA\n99\n");
    return text;
}

TEST_F(NavdbBuild, TakesTheExpiryOfTheOldestDataCycleUnlessItIsGiven) {
    options_.fix = put("fix.dat", oneFix("600 Version - data cycle 2013.10, build 1"));
    options_.nav = put("nav.dat", "I\n1200 Version - data cycle 2406, build 1\n99\n");
    auto header = headerOfBuild();
    EXPECT_EQ(header.expiry, 20131017U);
    EXPECT_EQ(header.dataCycle, 1310U);
    EXPECT_EQ(header.region, static_cast<std::uint32_t>(kWorldRegion));
    EXPECT_EQ(header.southernCoverageDeg, header.northernCoverageDeg);
    options_.expiryYmd = 20300101;
    options_.region = 'K';
    header = headerOfBuild();
    EXPECT_EQ(header.expiry, 20300101U);
    EXPECT_EQ(header.region, static_cast<std::uint32_t>('K'));
    options_.expiryYmd.reset();
    options_.nav.clear();
    options_.fix = put("fix.dat", oneFix("600 Version"));
    EXPECT_EQ(headerOfBuild().expiry, 0U);
}

TEST_F(NavdbBuild, LeavesAnExistingDatabaseAloneWhenItsSourcesAreRefused) {
    put("out.ng2", "as it was");
    EXPECT_EQ(build(), "No input files given.");
    options_.apt = folder_ / "gone.dat";
    EXPECT_EQ(build(), "File Open Error: " + options_.apt.string());
    options_.apt = put("apt.dat", "nothing of the kind\n");
    EXPECT_EQ(build(), "apt.dat: not an X-Plane data file");
    options_.source = NavdbSource::OurAirports;
    options_.folder = folder_.path();
    EXPECT_EQ(build(), "File Open Error: " + (folder_ / "airports.csv").string());
    EXPECT_EQ(readWholeFile(options_.output), "as it was");
    options_.source = NavdbSource::Xplane;
    options_.apt.clear();
    options_.fix = put("fix.dat", oneFix("600 Version"));
    options_.output = folder_ / "no folder/out.ng2";
    EXPECT_EQ(build(), "File Write Error: " + options_.output.string());
}

TEST_F(NavdbBuild, CompilesOurAirportsTables) {
    options_.source = NavdbSource::OurAirports;
    options_.folder = folder_.path();
    put("airports.csv",
        "ident,type,name,latitude_deg,longitude_deg,elevation_ft,municipality\n"
        "EDDL,large_airport,Düsseldorf Airport International,51.2895,6.7668,147,Düsseldorf\n"
        "XH,heliport,Pad,10,10,,Ötztal\n");
    put("runways.csv",
        "airport_ident,length_ft,width_ft,surface,le_ident,he_ident,le_heading_degT\n"
        "EDDL,9843,0,CON,05R,23L,53\nXH,50,50,,H1,,90\n");
    put("navaids.csv",
        "ident,name,type,frequency_khz,latitude_deg,longitude_deg,slaved_variation_deg\n"
        "DUS,Düsseldorf,VOR,115150,51.2,6.7,-1.5\n");
    EXPECT_EQ(headerOfBuild().expiry, 0U) << "no data cycle: out of date";
    NavDatabase database(clock_);
    ASSERT_EQ(database.openFile(options_.output), "");
    const auto* found = database.Find("a.EDDL");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->GetName(), "Dusseldorf Airport I");
    EXPECT_TRUE(found->expired);
    auto airport = dynamic_cast<const AirportRecord&>(*found);
    database.loadDetails(airport);
    EXPECT_EQ(airport.info, "Dusseldorf Airport International");
    EXPECT_NEAR(airport.magVariationDeg, 3.3, 0.5) << "the magnetic model's, not the old station's";
    ASSERT_EQ(airport.runways.size(), 1U);
    const RunwayRecord& runway = airport.runways[0];
    EXPECT_EQ(std::tuple(runway.lengthFt, runway.widthFt), std::tuple(9843, std::nullopt));
    EXPECT_EQ(runway.ends.at(0).magHeadingDeg, 50);  // 53 true
    EXPECT_FALSE(runway.ends.at(1).magHeadingDeg || IsValid(runway.ends[0].position));
    found = database.Find("a.XH");
    ASSERT_NE(found, nullptr);
    auto pad = dynamic_cast<const AirportRecord&>(*found);
    database.loadDetails(pad);
    ASSERT_EQ(pad.runways.size(), 1U);
    EXPECT_EQ(pad.runways[0].ends.size(), 1U);
    EXPECT_EQ(pad.runways[0].ends[0].magHeadingDeg, 89);  // 90 true
    EXPECT_EQ(pad.info, "Otztal");
    const auto named = database.placesByName("dussel", kAllKinds, std::nullopt, 9);
    ASSERT_EQ(named.size(), 2U) << "its name comes before its town's";
    EXPECT_EQ(named[0].town + named[1].town, "");
    const auto byTown = database.placesByName("OTZ", kAllKinds, std::nullopt, 9);
    ASSERT_EQ(byTown.size(), 1U);
    EXPECT_EQ(byTown[0].town, "Otztal");
    EXPECT_EQ(database.recordOf(byTown[0].place)->key, "a.XH");
    EXPECT_EQ(verifyDatabase(options_.output, clock_), "");
}

/// The bundled databases, compiled once from the data that the project carries.
class World : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        folder_ = std::make_unique<TempFolder>();
        double last = 0.0;
        ASSERT_EQ(buildBundledWorld(KORVEL_WORLD_DATA, folder_->path(), log_,
                      [&](double share, std::string_view) {
                          EXPECT_GE(share, last);
                          last = share;
                      }),
            "");
        EXPECT_EQ(last, 1.0);
    }
    static void TearDownTestSuite() { folder_.reset(); }

    void SetUp() override {
        for (const char* name : {"airways.ng2", "world.ng2"}) ASSERT_EQ(database_.openFile(*folder_ / name), "");
    }

    static GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

    static inline std::unique_ptr<TempFolder> folder_;
    static inline ImportLog log_{nullptr};
    VirtualClock clock_;
    NavDatabase database_{clock_};
};

TEST_F(World, KnowsSeattlesAirport) {
    const auto* found = database_.Find("a.KSEA");
    ASSERT_NE(found, nullptr);
    EXPECT_FALSE(found->expired) << "its airways are to stay usable";
    auto sea = dynamic_cast<const AirportRecord&>(*found);
    database_.loadDetails(sea);
    EXPECT_EQ(std::tuple(sea.GetName(), sea.elevationFt), std::tuple("Seattle-Tacoma Inter", 433));
    EXPECT_EQ(sea.GetInfoText().find("rivate"), std::string::npos);
    const std::pair<const char*, int> runways[] = {{"16C34C", 9426}, {"16L34R", 11901}, {"16R34L", 8500}};
    ASSERT_EQ(sea.runways.size(), std::size(runways));
    for (std::size_t i = 0; i < std::size(runways); ++i) {
        const auto& ends = sea.runways[i].ends;
        ASSERT_EQ(ends.size(), 2U);
        EXPECT_EQ(ends[0].id + ends[1].id, runways[i].first);
        EXPECT_NEAR(*sea.runways[i].lengthFt, runways[i].second, 15);  // as published
        EXPECT_NEAR(*ends[0].magHeadingDeg, 164, 4);
        EXPECT_NEAR(*ends[1].magHeadingDeg, 344, 4);
    }
    std::vector<double> frequencies;
    for (const auto& comm : sea.comms) frequencies.push_back(comm.freqMhz);
    const std::vector<double> expected{119.2, 128.0, 118.5, 118.0, 121.7, 119.9, 122.95};
    ASSERT_EQ(frequencies.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(frequencies[i], expected[i], 1e-6);
    EXPECT_EQ(database_.Find("a.WEDDF"), nullptr) << "no letter of a region before it";
}

TEST_F(World, KnowsAirportsByTheirIcaoCodes) {
    const std::tuple<const char*, double, double> airports[] = {{"HKTW", 1.9, 35.39}, {"EGSY", 51.41, -3.43},
        {"FBPM", -21.16, 27.47}, {"LEAG", 36.13, -5.44}, {"SD50", 44.53, -99.75}};
    for (const auto& [ident, lat, lon] : airports) {
        const auto* found = database_.Find(std::string("a.") + ident);
        ASSERT_NE(found, nullptr) << ident;
        EXPECT_LT(DistanceNm(found->position, at(lat, lon)), 1.0) << ident;
    }
    EXPECT_EQ(log_.taken("airports under the table's number"), 23U);
    EXPECT_EQ(log_.omitted("airports whose identifier is taken"), 0U);
}

TEST_F(World, IsSearchedByNamesAndTowns) {
    EXPECT_GT(log_.taken("towns"), 60000U);
    const auto found = [this](std::string_view typed, std::optional<GeoPoint> near, std::size_t limit) {
        std::string places;
        for (const NamedPlace& each : database_.placesByName(typed, kAllKinds, near, limit))
            places += std::string(each.place.ident.view()) + (each.town.empty() ? " " : "(" + each.town + ") ");
        return places;
    };
    const GeoPoint seattle = at(47.5, -122.3);
    EXPECT_NE(found("portl", seattle, 12).find("KPDX "), std::string::npos);
    EXPECT_EQ(found("seatt taco", seattle, 9), "KSEA ");
    EXPECT_EQ(found("kastrup", at(54, 10), 9), "KAS EKCH ");
    ASSERT_EQ(database_.openTowns(*folder_ / "world.twn"), "");
    EXPECT_NE(found("portl", seattle, 12).find("KPDX "), std::string::npos);
    EXPECT_NE(found("copenh", at(54, 10), 9).find("EKRK "), std::string::npos) << "near it, with another name";
    EXPECT_NE(found("munich", std::nullopt, 9).find("EDDM"), std::string::npos);
}

TEST_F(World, KnowsNavaidsFixesAndAirways) {
    const auto* vor = dynamic_cast<const VorRecord*>(database_.Find("v.SEA"));
    ASSERT_NE(vor, nullptr);
    EXPECT_EQ(vor->GetInfoText(), "116.8");
    EXPECT_EQ(vor->usage, kUsageBoth);
    EXPECT_LT(DistanceNm(vor->position, at(47.43536111, -122.30961111)), 0.02);
    std::vector<std::string> routes;
    database_.GetAirwayRoutes("V23", routes);
    ASSERT_EQ(routes.size(), 4U);
    EXPECT_NE(routes[1].find(" PAE SEA MCKEN "), std::string::npos);
    // Every point of an airway is a place, somewhere near the one before it.
    std::istringstream words(routes[1]);
    auto here = at(49.05, -124.0);
    for (std::string word; words >> word;) {
        const auto* place = database_.Find(word, here);
        ASSERT_NE(place, nullptr) << word;
        EXPECT_LT(DistanceNm(here, place->position), 150.0) << word;
        here = place->position;
    }
}

TEST_F(World, FindsWhatIsNearAcrossTheDateLine) {
    const auto near = database_.nearest(at(-17.0, 179.999), kAirportKind, 5, 200.0);
    ASSERT_EQ(near.size(), 5U);
    bool east = false;
    bool west = false;
    for (const auto& place : near) (place.place.position.lon > 0 ? east : west) = true;
    EXPECT_TRUE(east && west) << "Fiji lies on both sides";
}

}}  // namespace korvel
