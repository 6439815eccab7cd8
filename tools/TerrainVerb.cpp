#include <algorithm>
#include <string>
#include <vector>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "ground/basemap/MapSea.h"
#include "ground/terrain/TileFolder.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

constexpr int kMostPoints = 100000;

/// Heights of the data folder: its tiles, and the sea of its base map.
class Terrain {
 public:
    explicit Terrain(const Invocation& call) : folders_(call.dataFolders()), tiles_(folders_) {
        if (const auto maps = call.dataFiles().find("*.map"); !maps.empty())
            (void)map_.open(maps.front());  // without it no sea is known
    }

    Json at(GeoPoint point) {
        if (const auto height = tiles_.heightAt(point))
            return {{"heightFt", height->metres * kFeetPerMetre}, {"source", height->file}};
        if (!tiles_.hasTile(point) && MapSea(&map_).isAt(point))
            return {{"heightFt", 0}, {"source", "sea"}};
        return {{"heightFt", nullptr}, {"source", nullptr}};
    }
    std::vector<std::string> takeProblems() { return tiles_.takeProblems(); }

 private:
    std::vector<std::filesystem::path> folders_;
    TileFolder tiles_;
    BaseMap map_;
};

std::string plainHeight(const Json& height) {
    return height["heightFt"].is_null()
               ? "unknown\n"
               : formatFixed(height["heightFt"].get<double>(), 0) + " ft\n";
}

/// A tile that cannot be read is told beside the answer.
int finishHeights(const Invocation& call, Terrain& terrain, const Json& document,
                  const std::string& plain) {
    std::string text = plain;
    for (const std::string& problem : terrain.takeProblems())
        text += problem + "\n";
    return call.done(document, text);
}

int printAlong(const Invocation& call, GeoPoint from, GeoPoint to, int count) {
    if (count < 2 || count > kMostPoints)
        usageError("The number of points is not 2 to 100000");
    Terrain terrain(call);
    const double distance = GreatCircleDistance(from.lat, from.lon, to.lat, to.lon);
    const double course = TrueCourse(from.lat, from.lon, to.lat, to.lon);
    Json points = Json::array();
    std::string plain;
    for (int i = 0; i < count; ++i) {
        GeoPoint point = from;
        if (i == count - 1)
            point = to;
        else if (i > 0)
            PointAtRadialDistance(from.lat, from.lon, distance * i / (count - 1), course, point.lat,
                                  point.lon);
        const Json height = terrain.at(point);
        points.push_back({{"lat", point.lat * kRadToDeg},
                          {"lon", point.lon * kRadToDeg},
                          {"heightFt", height["heightFt"]}});
        plain += plainHeight(height);
    }
    return finishHeights(call, terrain, {{"points", points}}, plain);
}

}  // namespace

int runTerrain(Invocation& call) {
    std::vector<std::string> words;
    int points = 11;
    call.options().add_option("words", words, "LAT LON, or along LAT,LON LAT,LON")->required();
    call.options().add_option("--points", points,
                              "How many points along the way, its ends included");
    call.parse();
    if (words.size() == 3 && words[0] == "along")
        return printAlong(call, toPosition(words[1]), toPosition(words[2]), points);
    if (words.size() != 2)
        usageError("terrain takes LAT LON or along LAT,LON LAT,LON");
    Terrain terrain(call);
    const Json height = terrain.at(toPosition(toNumber(words[0]), toNumber(words[1])));
    return finishHeights(call, terrain, height, plainHeight(height));
}

}  // namespace korvel
