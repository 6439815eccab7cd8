#include <gtest/gtest.h>

#include "compiler/ImportHarness.h"
#include "compiler/sources/OurAirportsImport.h"

namespace korvel { namespace {

constexpr std::string_view kAirports =
    "\"id\",\"ident\",\"type\",\"name\",\"latitude_deg\",\"longitude_deg\",\"elevation_ft\","
    "\"iso_country\",\"municipality\",\"gps_code\",\"local_code\"\n"
    "1,\"EDDL\",\"large_airport\",\"Düsseldorf Airport\",51.2895,6.7668,147,\"DE\","
    "\"Düsseldorf\",\"EDDL\",\n"
    "2,\"US-0571\",\"heliport\",\"Mercy Hospital, \"\"North\"\" Pad\",40.1,-83.1,,\"US\","
    "\"Columbus\",\"6OH7\",\"6OH7\"\n"
    "3,\"US-0001\",\"closed\",\"Old Field\",40.2,-83.2,900,\"US\",\"Columbus\",,\n"
    "4,\"W55\",\"seaplane_base\",\"Lake Union\",47.6,-122.3,14,\"US\",\"Seattle\",\"W55\",\n"
    "5,\"XX99\",\"small_airport\",\"Nowhere\",,,,\"FR\",\"\",,\n"
    "6,\"B1\",\"balloonport\",\"Balloons\",40.2,-83.2,900,\"US\",\"Columbus\",,\n";

constexpr std::string_view kRunways =
    "\"id\",\"airport_ref\",\"airport_ident\",\"length_ft\",\"width_ft\",\"surface\",\"lighted\","
    "\"closed\",\"le_ident\",\"le_latitude_deg\",\"le_longitude_deg\",\"le_elevation_ft\","
    "\"le_heading_degT\",\"le_displaced_threshold_ft\",\"he_ident\",\"he_latitude_deg\","
    "\"he_longitude_deg\",\"he_elevation_ft\",\"he_heading_degT\",\"he_displaced_threshold_ft\"\n"
    "1,1,\"EDDL\",9843,148,\"concrete\",1,0,\"23L\",51.2962,6.7852,147,233,,\"05R\",51.2784,6.7511,"
    "118,53,984\n"
    "2,1,\"EDDL\",,66,\"Gravel/grass\",0,0,\"15\",,,,,,\"33\",,,,,\n"
    "3,1,\"EDDL\",5000,66,\"ASP\",0,1,\"10\",,,,,,\"28\",,,,,\n"
    "4,2,\"US-0571\",50,50,\"ROOF\",1,0,\"H1\",,,,,,,,,,,\n"
    "5,3,\"US-0001\",500,50,\"TURF\",0,0,\"01\",,,,,,\"19\",,,,,\n"
    "6,1,\"EDDL\",50,50,\"CON\",0,0,\"H1\",,,,,,,,,,,\n"
    "7,1,\"EDDL\",50,50,\"CON\",0,0,,,,,,,,,,,,\n";

constexpr std::string_view kFrequencies =
    "\"id\",\"airport_ref\",\"airport_ident\",\"type\",\"description\",\"frequency_mhz\"\n"
    "1,1,\"EDDL\",\"TWR\",\"DÜSSELDORF TOWER\",118.3\n"
    "2,1,\"EDDL\",\"ATIS\",,115.155\n"
    "3,1,\"EDDL\",\"GND\",\"GND\",high\n"
    "4,9,\"EDZZ\",\"TWR\",\"TWR\",118.3\n";

constexpr std::string_view kNavaids =
    "\"id\",\"filename\",\"ident\",\"name\",\"type\",\"frequency_khz\",\"latitude_deg\","
    "\"longitude_deg\",\"elevation_ft\",\"iso_country\",\"dme_frequency_khz\",\"dme_channel\","
    "\"dme_latitude_deg\",\"dme_longitude_deg\",\"dme_elevation_ft\",\"slaved_variation_deg\","
    "\"magnetic_variation_deg\",\"usageType\",\"power\",\"associated_airport\",\n"
    "1,\"L\",\"LAX\",\"Los Angeles\",\"VORTAC\",113600,33.93,-118.43,182,\"US\",113600,\"083X\","
    ",,,15.001,13.076,\"BOTH\",\"HIGH\",\"KLAX\",\n"
    "2,\"G\",\"GL\",\"Ålborg\",\"NDB\",398,57.08,9.68,,\"DK\",,,,,,,2.1,\"LO\",\"MEDIUM\",\n"
    "3,\"D\",\"DUS\",\"Düsseldorf\",\"DME\",108700,51.2,6.7,,\"DE\",,,,,,,,\"\",\"HIGH\",\n"
    "4,\"X\",\"XX\",\"No such type\",\"RSBN\",398,57.08,9.68,,\"DK\",,,,,,,2.1,\"LO\",\"LOW\",\n"
    "5,\"Y\",\"YY\",\"Off the band\",\"VOR\",39800,57.08,9.68,,\"DK\",,,,,,,2.1,\"LO\",\"LOW\",\n";

class OurAirports : public testing::Test {
 protected:
    CsvTable table(const char* name, std::string_view text) { return {name, openText(text), context_}; }
    test::Imported in_;
    ImportContext context_{in_.log, {}};
    OurAirportsImport import_{in_.log, in_.data};
};

TEST_F(OurAirports, AttachesRunwaysAndFrequenciesToTheirAirports) {
    ASSERT_EQ(import_.importAirports(table("airports.csv", kAirports)), "");
    ASSERT_EQ(import_.importRunways(table("runways.csv", kRunways)), "");
    ASSERT_EQ(import_.importFrequencies(table("airport-frequencies.csv", kFrequencies)), "");
    EXPECT_EQ(in_.reported, (std::vector<std::string>{"airports.csv:6: airport without position or usable identifier",
                                "runways.csv:8: runway without designator",
                                "airport-frequencies.csv:4: frequency missing or out of range"}));
    ASSERT_EQ(in_.data.airports.size(), 3U);
    const auto& dus = in_.data.airports[0];
    EXPECT_EQ(std::tuple(dus.name, dus.info, dus.elevationFt), std::tuple("Dusseldorf Airport", "", 147));
    ASSERT_EQ(dus.runways.size(), 2U);
    const auto& main = dus.runways[0];
    EXPECT_EQ(std::tuple(main.ends[0].id, main.ends[0].elevationFt, main.surface, main.hard, main.lighted),
        std::tuple("05R", 118, "CONC", true, true));
    EXPECT_EQ(main.info, "Displaced thr 05R 984 ft");
    EXPECT_EQ(dus.runways[1].surface, "GRVL");
    EXPECT_FALSE(dus.runways[1].hard || dus.runways[1].ends[0].position);
    ASSERT_EQ(dus.comms.size(), 2U);
    EXPECT_EQ(dus.comms[0].type + dus.comms[1].type, "DUSSELDORF TOWERATIS");
    EXPECT_EQ(dus.comms[1].freqMhz, 115.155);

    const auto& hospital = in_.data.airports[1];
    EXPECT_EQ(hospital.ident, "6OH7") << "the code that pilots know, not the table's number";
    EXPECT_EQ(std::tuple(hospital.kind, hospital.isPrivate, hospital.elevationFt, hospital.info),
        std::tuple(AirportKind::Heliport, true, std::nullopt, "Mercy Hospital, \"North\" Pad, Columbus"));
    ASSERT_EQ(hospital.runways.size(), 1U);
    EXPECT_EQ(in_.data.airports[2].kind, AirportKind::Seaplane);
    for (const auto& [what, count] : {std::pair{"closed airports", 1U}, {"closed runways", 1U}, {"balloon ports", 1U},
             {"helipads of airports with runways", 1U}, {"runways and frequencies of airports left out", 2U}})
        EXPECT_EQ(in_.log.omitted(what), count) << what;
}

TEST_F(OurAirports, NamesAirportsByTheirBestCodeThatIsFree) {
    const std::string text =
        "id,ident,type,name,latitude_deg,longitude_deg,icao_code,gps_code,local_code\n"
        "1,HKTW,small_airport,Lodge,1,35,,HKTW,\n"  // an ICAO code of another one: the next row's
        "2,KE-0001,small_airport,Turkwel,2,35,HKTW,,\n"
        "3,XX-1,small_airport,Local,3,35,,,LF2433\n"  // its country's own
        "4,YY-2,small_airport,None,4,35,,,\n"         // as it stands
        "5,AB1,small_airport,First,5,35,,,\n"
        "6,ZZ-3,heliport,Late,6,35,,AB1,\n"  // taken by its owner: as it stands
        "7,ZZ-3,heliport,Twice,7,35,,,\n";   // nothing left
    ASSERT_EQ(import_.importAirports(table("airports.csv", text)), "");
    std::string idents;
    for (const auto& airport : in_.data.airports) idents += airport.ident + ' ';
    EXPECT_EQ(idents, "OA1 HKTW LF2433 YY-2 AB1 OA6 ZZ-3 ");
    EXPECT_EQ(in_.log.taken("airports under the table's number"), 2U);
}

TEST_F(OurAirports, LeavesTheAirportsOfOtherSourcesAsTheyAre) {
    in_.data.airports.resize(2);
    in_.data.airports[1].ident = "PRIV";
    ASSERT_EQ(import_.importAirports(table("airports.csv", kAirports)), "");
    ASSERT_EQ(in_.data.airports.size(), 5U);
    EXPECT_EQ(in_.data.airports[0].ident + in_.data.airports[1].ident, "PRIV");
    EXPECT_EQ(in_.data.airports[3].ident, "6OH7");
}

TEST_F(OurAirports, ReadsNavaidsWithTheirUsage) {
    ASSERT_EQ(import_.importNavaids(table("navaids.csv", kNavaids)), "");
    ASSERT_EQ(in_.data.navaids.size(), 3U);
    const auto& lax = in_.data.navaids[0];
    EXPECT_EQ(std::tuple(lax.kind, lax.frequency, lax.usage, lax.variation),
        std::tuple(NavaidKind::Vortac, 113.6, kUsageBoth, 15.001));
    const auto& aalborg = in_.data.navaids[1];
    EXPECT_EQ(std::tuple(aalborg.name, aalborg.frequency, aalborg.usage, aalborg.variation),
        std::tuple("Alborg", 398.0, kUsageLow, 2.1));
    EXPECT_EQ(in_.data.navaids[2].kind, NavaidKind::DmeOnly);
    EXPECT_EQ(
        in_.reported, (std::vector<std::string>{"navaids.csv:5: navaid without type, position, frequency or identifier",
                          "navaids.csv:6: frequency out of range"}));
}

TEST_F(OurAirports, RefusesATableWithoutItsColumns) {
    EXPECT_EQ(import_.importRunways(table("runways.csv", kFrequencies)), "runways.csv: column length_ft is missing");
    EXPECT_EQ(import_.importAirports(table("airports.csv", "")), "airports.csv: the file is empty");
}

}}  // namespace korvel
