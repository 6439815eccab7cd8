#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "TempFolder.h"
#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "ground/obstacles/ObstacleFile.h"
#include "ground/obstacles/ObstacleSet.h"

namespace korvel { namespace {

constexpr std::string_view kFixedHead =
    "  CURRENCY DATE = 12/21/25\r\n"
    "                                   LATITUDE     LONGITUDE     OBSTACLE             AGL   AMSL LT ACC MAR FAA\r\n"
    "OAS#      V CO ST CITY             DEG MIN SEC  DEG MIN SEC   TYPE                 HT    HT     H V IND STUDY\r\n"
    "------------------------------------------------------------------------------------------------------------\r\n";
constexpr std::string_view kRig =
    "01-001307 O US AL DAUPHIN ISLAND   30 10 45.00N 088 04 39.00W RIG                1 00236 00236 R 5 D M "
    "1990ASO01\r\n";

std::string replaced(std::string_view text, std::string_view what, std::string_view by) {
    std::string result(text);
    return result.replace(result.find(what), what.size(), by);
}

/// "lat lon agl ground top name lit verified; " of each obstacle, then "line: problem; ".
std::string read(std::string_view bytes) {
    const ObstacleFile file = readObstacles(bytes);
    std::string all;
    for (const Obstacle& each : file.obstacles) {
        all += formatFixed(each.position.lat * kRadToDeg, 4) + ' ' + formatFixed(each.position.lon * kRadToDeg, 4) +
               ' ' + formatInt(each.aglFt) + ' ' + (each.elevationFt ? formatInt(*each.elevationFt) : "-") + ' ' +
               formatInt(each.topFt) + ' ' + each.name + (each.isLit ? " lit" : "") +
               (each.isVerified ? "; " : " unverified; ");
    }
    for (const ObstacleProblem& problem : file.problems)
        all += std::to_string(problem.line) + ": " + problem.text + "; ";
    return all;
}

TEST(Obstacles, RowsOfBothKindsAndWhatIsWrongWithThem) {
    const std::string head(kFixedHead);
    const std::string rig(kRig);
    const std::string csv = "OAS,VERIFIED STATUS,COUNTRY,CITY,LATDEC,LONDEC,TYPE,QUANTITY,AGL,AMSL,LIGHTING\n";
    const std::pair<std::string, const char*> cases[] = {
        {head + rig, "30.1792 -88.0775 236 0 236 RIG, DAUPHIN ISLAND lit; "},
        {head + replaced(replaced(rig, "45.00N", "60.00S"), "39.00W", "39.00E"),
            "-30.1833 88.0775 236 0 236 RIG, DAUPHIN ISLAND lit; "},
        {head + replaced(replaced(rig, " O US", " U US"), " R 5", " N 5"),
            "30.1792 -88.0775 236 0 236 RIG, DAUPHIN ISLAND unverified; "},
        {head + replaced(rig, "00236 00236", "00120 01250"),
            "30.1792 -88.0775 120 1130 1250 RIG, DAUPHIN ISLAND lit; "},
        {head + replaced(rig, "30 10", "3x 10"), "5: no latitude or longitude; "},
        {head + replaced(rig, "30 10", "30 61"), "5: no latitude or longitude; "},
        {head + replaced(rig, "00236 00236", "      00236"), "5: no height above the ground; "},
        {head + replaced(rig, "00236 00236", "00236 abcde"), "5: no height above sea; "},
        {head + rig.substr(0, 60), "5: no latitude or longitude; "},
        {csv + "1,O,US,\"SEATTLE, WA\",47.6,-122.3,TOWER,1,605,1004,R\r\n2,U,US,,47,-122,POLE,1,40,,N",
            "47.6000 -122.3000 605 399 1004 TOWER, SEATTLE, WA lit; 47.0000 -122.0000 40 - 40 POLE unverified; "},
        {csv + "1,O,US,X,91,0,TOWER,1,605,1004,R\n\n2,O,US,X,9,0,TOWER,1,0,4,R\n3,O,US,X,9,0,TOWER,1,60000,4,R\n",
            "2: no latitude or longitude; 4: no height above the ground; 5: no height above the ground; "},
        {"\xEF\xBB\xBFname,lat,lon,agl\nMast,47.5,8.5,120\n", "47.5000 8.5000 120 - 120 Mast; "},
        {"name,lat,lon\nMast,47.5,8.5\n", ""},
        {"", ""},
    };
    const CommaLocale comma;
    for (const auto& [bytes, expected] : cases) {
        EXPECT_EQ(read(bytes), expected) << bytes;
        EXPECT_EQ(looksLikeObstacles(bytes), expected[0] != 0) << bytes;
    }
}

TEST(Obstacles, AreFoundNearAPointNearestFirst) {
    const TempFolder folder;
    std::string text = "name,lat,lon,agl\n";
    const std::tuple<const char*, double, double> places[] = {{"west", 10, 179.95}, {"east", 10, -179.97},
        {"south", 9.4, 179.99}, {"far", 12, 179.99}, {"pole", 89.9, 90}, {"over the pole", 89.9, -90},
        {"cell", 0.499, 0.499}};
    for (const auto& [name, lat, lon] : places)
        text += std::string(name) + ',' + std::to_string(lat) + ',' + std::to_string(lon) + ",100\n";
    folder.write("obstacles.CSV", text + "bad,1,1,x\n");
    folder.write("notes.txt", "nothing of the kind");
    ObstacleSet set;
    set.load(std::vector{folder / "missing", folder.path()});
    EXPECT_EQ(set.size(), 7U);
    ASSERT_EQ(set.problems().size(), 1U);
    EXPECT_EQ(set.problems()[0], "obstacles.CSV line 9: no height above the ground");
    const auto near = [&](double lat, double lon, double nm) {
        std::string names;
        for (const auto& each : set.near({lat * kDegToRad, lon * kDegToRad}, nm)) names += each.obstacle->name + ' ';
        return names;
    };
    EXPECT_EQ(near(10, 180, 40), "east west south ");
    EXPECT_EQ(near(10, 180, 36), "east west ");
    EXPECT_EQ(near(89.95, 90, 13), "pole over the pole ");
    EXPECT_EQ(near(0.501, 0.501, 1), "cell ") << "over two edges of cells";
    EXPECT_EQ(near(10, 180, 10800), "east west south far pole over the pole cell ");
}

}}  // namespace korvel
