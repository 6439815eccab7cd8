#include <string>
#include <vector>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "ground/obstacles/ObstacleSet.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

constexpr double kWithinNm = 10.0;

Json obstacleJson(const ObstacleSet::Near& near) {
    const Obstacle& obstacle = *near.obstacle;
    return {{"lat", obstacle.position.lat * kRadToDeg},
            {"lon", obstacle.position.lon * kRadToDeg},
            {"heightAglFt", obstacle.aglFt},
            {"elevationFt", obstacle.elevationFt ? Json(*obstacle.elevationFt) : Json()},
            {"topFt", obstacle.topFt},
            {"name", obstacle.name},
            {"source", near.file}};
}

std::string obstacleLine(const ObstacleSet::Near& near) {
    const Obstacle& obstacle = *near.obstacle;
    return formatFixed(near.distanceNm, 1) + " nm  " + formatInt(obstacle.topFt) + " ft, " +
           formatInt(obstacle.aglFt) + " ft above ground  " + obstacle.name +
           (obstacle.isVerified ? "" : "  (not verified)") + "\n";
}

}  // namespace

int runObstacles(Invocation& call) {
    std::vector<std::string> words;
    double within = kWithinNm;
    call.options().add_option("words", words, "near LAT LON")->required();
    call.options()
        .add_option("--within", within, "Nautical miles, 10")
        ->check(CLI::Range(0.0, kHalfwayRoundNm));
    call.parse();
    if (words.size() != 3 || words[0] != "near")
        usageError("obstacles takes near LAT LON");
    ObstacleSet obstacles;
    obstacles.load(call.dataFolders());
    Json all = Json::array();
    std::string plain;
    for (const auto& near :
         obstacles.near(toPosition(toNumber(words[1]), toNumber(words[2])), within)) {
        all.push_back(obstacleJson(near));
        plain += obstacleLine(near);
    }
    return call.done({{"obstacles", all}}, plain);
}

}  // namespace korvel
