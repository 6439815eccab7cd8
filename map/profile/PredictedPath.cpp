#include "map/profile/PredictedPath.h"

#include <algorithm>

namespace korvel {

std::optional<PredictedPath> predictedPath(const ProfileContent& content) {
    if (!content.route.fromAircraft || !content.altitudeFt || !content.climbFtPerNm)
        return std::nullopt;
    PredictedPath path{.from = {0, *content.altitudeFt}, .to = {0, *content.altitudeFt}};
    for (std::size_t i = 1; i < content.ground.size(); ++i) {
        const double nm = std::min(content.line.nmOf(i), content.predictedNm);
        path.to = {nm, path.from.ft + nm * *content.climbFtPerNm};
        const auto& highestFt = content.ground[i].highestFt;
        path.meetsGround = highestFt && path.to.ft <= *highestFt;
        if (path.meetsGround || nm >= content.predictedNm)
            break;
    }
    return path;
}

}  // namespace korvel
