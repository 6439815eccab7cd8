#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "base/TextNumbers.h"
#include "exchange/ExportPoint.h"
#include "exchange/Formats.h"
#include "exchange/PlanImport.h"
#include "exchange/Source.h"
#include "exchange/UserWaypoints.h"
#include "nav/PlacesFixture.h"
#include "nav/plan/RouteWords.h"

namespace korvel { namespace {

class PlanExchange : public PlacesFixture {
 protected:
    PlanExchange() {
        place("a.KAAA", 47, -122);
        place("v.AAA", 47.1, -122);
        place("f.AAA", 47.9, -122);
        place("f.FIXES", 48, -122);
        place("a.KBBB", 49, -122);
    }
    /// "KEY[@ALTITUDE] " of each entry, or the error.
    std::string read(std::string bytes, int route = 1) {
        plan_ = importPlan(std::move(bytes), route, database_, fixes_);
        std::string all = plan_.error;
        for (const auto& entry : plan_.entries) all += entry.key + altitudeSuffix(entry.altitudeFt) + ' ';
        return all;
    }
    std::string notes() const {
        std::string all;
        for (const auto& note : plan_.notes) all += note + '\n';
        return all;
    }
    /// The plan in that format, read again without what this program knows of it.
    std::string readBack(std::string_view format) {
        const auto bytes = planAs(format, "My <plan> & more", exportPoints(plan_.entries), 1787390000);
        fixes_ = {};
        return bytes ? read(*bytes) : "no such format";
    }

    ImportedPlan plan_;
    const CommaLocale comma_;
};

std::string gpx(std::string_view points) {
    return R"(<?xml version="1.0"?><g:gpx xmlns:g="http://www.topografix.com/GPX/1/1"><g:rte><g:name>R</g:name>)" +
           std::string(points) + "</g:rte></g:gpx>";
}
std::string rtept(std::string_view lat, std::string_view lon, std::string_view name) {
    return "<g:rtept lat=\"" + std::string(lat) + "\" lon=\"" + std::string(lon) + "\"><g:name>" + std::string(name) +
           "</g:name><g:ele>99</g:ele></g:rtept>";
}

TEST_F(PlanExchange, PointsOfAFileThatDoesNotSayWhatTheyAre) {
    const struct {
        std::string points;
        const char* entries;
        const char* notes;
    } cases[] = {
        {rtept("47.001", "-122", "KAAA") + rtept("49", "-122", "KBBB"), "a.KAAA a.KBBB ", ""},
        {rtept("47.101", "-122", "AAA") + rtept("47.899", "-122", "AAA"), "v.AAA f.AAA ", ""},
        {rtept("47.5", "-122", "AAA"), "f.F-AAA ",
            "AAA lies 24.0 NM away in the databases: the file's position is used\n"},
        {rtept("1", "2", "NOSUCH"), "f.F-NOSUCH ", "NOSUCH is not in the databases: the file's position is used\n"},
        {rtept("1", "2", "Lac d'Annecy") + rtept("1.001", "2", "Lac d'Annecy") + rtept("3", "2", "") +
                rtept("1.1", "2", "Lac d'Annecy"),
            "f.F-Lac-d-Annecy f.F-WPT3 f.F-Lac-d-Annecy-2 ",
            "Lac d'Annecy is called Lac-d-Annecy here\nLac d'Annecy is called Lac-d-Annecy-2 here\n"},
        {rtept("5", "6", "Z\xC3\xBCrich &#x1F53A;"), "f.F-Zurich ",
            "Z\xC3\xBCrich \xF0\x9F\x94\xBA is called Zurich here\n"},
        {rtept("90.001", "2", "X"), "A position in the file is no latitude and longitude.", ""},
        {rtept("1", "nan", "X"), "A position in the file is no latitude and longitude.", ""},
        {rtept("1,5", "2", "X"), "A position in the file is no latitude and longitude.", ""},
        {"", "The file has no route.", ""},
    };
    for (const auto& one : cases) {
        fixes_ = {};
        EXPECT_EQ(read(gpx(one.points)), one.entries) << one.points;
        EXPECT_EQ(notes(), one.notes) << one.points;
    }
    EXPECT_EQ(read(gpx(rtept("47", "-122", "KAAA")), 2), "The file has no route with this number.");
    EXPECT_EQ(plan_.routes.at(0).name, "R");
}

TEST_F(PlanExchange, ReadsEachFormat) {
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"garmin-fpl",
            "\xEF\xBB\xBF<flight-plan xmlns=\"http://www8.garmin.com/xmlschemas/FlightPlan/v1\"><waypoint-table>"
            "<waypoint><identifier>AAA</identifier><type>INT</type><country-code>K1</country-code><lat>47.9</"
            "lat><lon>-122</lon></waypoint>"
            "<waypoint><identifier>AAA</identifier><type>VOR</type><lat>47.1</lat><lon>-122</lon><altitude-ft>4504</"
            "altitude-ft></waypoint>"
            "<waypoint><identifier>KAAA</identifier><type>USER "
            "WAYPOINT</type><lat>47</lat><lon>-122</lon></waypoint></waypoint-table>"
            "<route><route-name>N</route-name>"
            "<route-point><waypoint-identifier>KAAA</waypoint-identifier><waypoint-type>USER "
            "WAYPOINT</waypoint-type></route-point>"
            "<route-point><waypoint-identifier>AAA</waypoint-identifier><waypoint-type>VOR</waypoint-type></"
            "route-point>"
            "<route-point><waypoint-identifier>AAA</waypoint-identifier><waypoint-type>INT</waypoint-type></"
            "route-point>"
            "</route></flight-plan>",
            "f.F-KAAA v.AAA@45 f.AAA "},
        {"xplane-fms",
            "I\r\n1100 Version\r\nCYCLE 1802\r\nNUMENR 4\r\n1 KAAA ADEP 433.0 47.0 -122.0\r\n3 AAA DRCT 5500 47.1 "
            "-122\r\n"
            "28 RW27+3 DRCT 1114.06 47.3 -122\r\n1 KBBB ADES 0 49 -122",
            "a.KAAA v.AAA@55 f.F-RW27+3@11.1 a.KBBB "},
        {"xplane-fms", "A\n3 version\n1\n2\n1 KAAA 0.0 47.0 -122.0\n11 FIXES 12000 48 -122\n0 ---- 0 0.0 0.0\n",
            "a.KAAA f.FIXES@120 "},
        {"lnmpln",
            "<LittleNavmap><Flightplan><Waypoints>"
            "<Waypoint><Name>Alpha</Name><Ident>KAAA</Ident><Type>AIRPORT</Type><Pos Lon=\"-122\" Lat=\"47\" "
            "Alt=\"433\"/></Waypoint>"
            "<Waypoint><Ident>Lake</Ident><Type>USER</Type><Pos Lon=\"-122\" Lat=\"47.5\" Alt=\"2872.9\"/></Waypoint>"
            "</Waypoints></Flightplan></LittleNavmap>",
            "a.KAAA f.F-Lake@28.7 "},
        {"fgfp",
            "<PropertyList><route><wp "
            "n=\"0\"><type>runway</type><ident>27</ident><icao>KAAA</icao><lon>-122</lon><lat>47</lat></wp>"
            "<wp><type>navaid</type><altitude-ft>1720</altitude-ft><ident>AAA</ident><lon>-122</lon><lat>47.1</lat></"
            "wp>"
            "<wp><type>basic</type><ident>KBBB</ident><lon>-122</lon><lat>49</lat></wp></route></PropertyList>",
            "a.KAAA v.AAA@17.2 f.F-KBBB "},
        {"skydemon",
            "<DivelementsFlightPlanner><PrimaryRoute Start=\"N470000.00 W1220000.00\" Level=\"2000\">"
            "<RhumbLineRoute To=\"N473045.00 W1220000.00\" Level=\"4000\"/><RhumbLineRoute To=\"S490000.00 "
            "E0022960.00\"/>"
            "</PrimaryRoute><WaypointNameHints><Hint Location=\"N470000.00 W1220000.00\" Name=\"KAAA\"/>"
            "</WaypointNameHints></DivelementsFlightPlanner>",
            "a.KAAA f.F-WPT2 f.F-WPT3 "},
        {"cup",
            "name,code,country,lat,lon,elev,style,rwdir,rwlen,rwwidth,freq,desc\n"
            "\"Alpha\" ,KAAA,US, 4700.000N ,12200.000W,  488.0m,5,,,,\"123.65\" , \"a 20\" ditch, south\"\n"
            "\"Far, away\",,,4730.000S,00630.000E,15ft,1\n-----Related Tasks-----\n"
            "\"T 1\",\"???\",\"Alpha\",\"Far, "
            "away\",\"Alpha\",\"???\"\nOptions,Short=false\nObsZone=0,Style=2\n,Alpha\n",
            "a.KAAA f.F-Far-away a.KAAA "},
    };
    for (const auto& [format, bytes, entries] : cases) {
        fixes_ = {};
        EXPECT_EQ(read(bytes), entries) << bytes;
        EXPECT_EQ(plan_.format, format);
        for (std::size_t cut = bytes.find('<') == std::string::npos ? bytes.size() : 0; cut < bytes.size(); cut += 37)
            EXPECT_TRUE(importPlan(bytes.substr(0, cut), 1, database_, fixes_).entries.empty()) << "torn at " << cut;
    }
    EXPECT_EQ(plan_.routes.size(), 2U) << "a task without a name is one";
}

TEST_F(PlanExchange, WhatIsWrittenReadsBackTheSame) {
    const std::string points = rtept("47", "-122", "KAAA") + rtept("47.1", "-122", "AAA") +
                               rtept("47.9", "-122", "AAA") + rtept("-1.5", "179.9999", "LAKE") +
                               rtept("47", "-122", "KAAA");
    const std::string keys = "a.KAAA v.AAA f.AAA f.F-LAKE a.KAAA ";
    for (const std::string_view format : {"gpx", "fpl", "fms"}) {
        fixes_ = {};
        ASSERT_EQ(read(gpx(points)), keys);
        const GeoPoint lake = plan_.entries[3].position();
        EXPECT_EQ(readBack(format), keys) << format;
        EXPECT_TRUE(SamePoint(plan_.entries[3].position(), lake)) << format;
    }
    fixes_ = {};
    read(gpx(points));
    const auto kml = planAs("kml", "a&b", exportPoints(plan_.entries), 0);
    ASSERT_TRUE(kml);
    EXPECT_NE(kml->find("<name>a&amp;b</name>"), std::string::npos);
    EXPECT_NE(kml->find("179.9999000,-1.5000000,0.0"), std::string::npos);
    EXPECT_FALSE(planAs("doc", "", {}, 0));
    // Own waypoints that become equal in the schema's letters are told apart.
    fixes_ = {};
    read(gpx(rtept("1", "1", "a+b") + rtept("2", "2", "a.b") + rtept("3", "3", "A-B") + rtept("1", "1", "a+b")));
    EXPECT_EQ(readBack("fpl"), "f.F-AB f.F-AB2 f.F-AB3 f.F-AB ");
}

TEST_F(PlanExchange, WhatIsNoPlanIsSaidSo) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "This is no plan, track or list of waypoints that is known here."},
        {"a.KAAA\r\n", "This is no plan, track or list of waypoints that is known here."},
        {"<html><body/></html>", "This is no plan, track or list of waypoints that is known here."},
        {"<gpx><rte>", "The file is torn: it does not end as it should."},
        {"<gpx/>", "The file has no route."},
        {"AXXX\r\nHFDTE160701\r\nB1602405407121N00249342WA0028000421\r\n", "The file has no route."},
        {R"(<!DOCTYPE g [<!ENTITY a "x"><!ENTITY b "&a;&a;">]><gpx><rte><rtept lat="&b;" lon="1"/></rte></gpx>)",
            "A position in the file is no latitude and longitude."},
        {std::string(kLargestForeignFile + 1, '<'), "The file is too large."},
    };
    for (const auto& [bytes, error] : cases) EXPECT_EQ(read(bytes), error) << bytes.substr(0, 80);
    // UTF-16 is XML as well.
    std::string wide = "\xFF\xFE";
    for (const char c : gpx(rtept("47", "-122", "KAAA"))) wide += {c, '\0'};
    EXPECT_EQ(read(wide), "a.KAAA ");
}

TEST(UserWaypoints, GetIdentifiersThatAUserDatabaseCanHold) {
    std::string_view format;
    const ForeignWaypoints read = readForeignWaypoints(
        "<gpx><wpt lat=\"47.5\" lon=\"-122\"><name>Rabbit; Holes</name><ele>100</ele></wpt><wpt lat=\"1\" lon=\"2\"/>"
        "<wpt lat=\"3\" lon=\"4\"><name>rabbit holes</name></wpt></gpx>",
        format);
    const UserWaypoints own = userWaypoints(read.waypoints);
    std::string idents;
    for (const auto& each : own.waypoints) idents += each.ident + ' ';
    EXPECT_EQ(idents, "RABBIT-HOLE WPT2 RABBIT-HO-2 ");
    EXPECT_EQ(RoundToInt(*own.waypoints[0].elevationFt), 328);
    const std::string text = userDatabaseText(own.waypoints);
    EXPECT_TRUE(
        text.starts_with("NAVAID_BEGIN\r\nID=RABBIT-HOLE\r\nNAME=Rabbit, Holes\r\nTYPE=FIX\r\nUSAGE=VRP\r\n"
                         "POSN.LAT=47.5000000\r\nPOSN.LON=-122.0000000\r\nNAVAID_END\r\n"))
        << text;
}

}}  // namespace korvel
