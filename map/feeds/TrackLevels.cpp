#include "map/feeds/TrackLevels.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kFinestNm = 0.00333;  // 20 ft

double shortWay(double lonRad) {
    return std::abs(lonRad) <= kPi ? lonRad : std::remainder(lonRad, kTwoPi);
}

/// Near enough on a flat earth: these points lie close together.
bool areApart(GeoPoint a, GeoPoint b, double spacingNm) {
    const double dLat = b.lat - a.lat;
    const double dLon = shortWay(b.lon - a.lon) * std::cos(a.lat);
    const double spacing = spacingNm / kNmPerRadian;
    return dLat * dLat + dLon * dLon >= spacing * spacing;
}

/// The least room that holds both.
void include(TrackLevels::Chunk& chunk, GeoPoint point) {
    if (!IsValid(chunk.middle)) {
        chunk.middle = point;
        return;
    }
    const auto widen = [](double& half, double off) {
        // Grows on the side where the point lies.
        const double beyond = std::max(0.0, std::abs(off) - half) / 2;
        half += beyond;
        return std::copysign(beyond, off);
    };
    chunk.middle.lat += widen(chunk.halfLatRad, point.lat - chunk.middle.lat);
    chunk.middle.lon += widen(chunk.halfLonRad, shortWay(point.lon - chunk.middle.lon));
}

void append(TrackLevels::Level& level, GeoPoint point) {
    if (level.points.size() % TrackLevels::kChunkPoints == 0) {
        level.chunks.emplace_back();
        if (!level.points.empty() && IsValid(level.points.back()))
            include(level.chunks.back(), level.points.back());
    }
    if (IsValid(point))
        include(level.chunks.back(), point);
    level.points.push_back(point);
}

double spacingOf(std::size_t level) { return std::ldexp(kFinestNm, static_cast<int>(level)); }

}  // namespace

bool TrackLevels::update(const std::shared_ptr<const Track>& track) {
    std::size_t slots = 0;
    if (track)
        slots = track->read()->slots.size();
    const bool startsAnew = track != track_ || slots < taken_;
    if (startsAnew)
        *this = {};
    track_ = track;
    if (slots == taken_)
        return startsAnew;
    const auto recording = track->read();
    for (; taken_ < recording->slots.size(); ++taken_) {
        const auto& slot = recording->slots[taken_];
        if (slot && IsValid(slot->position))
            add(slot->position);
        else
            addBreak();
    }
    return true;
}

void TrackLevels::add(GeoPoint point) {
    end_ = point;
    for (std::size_t i = 0; i < kLevelCount; ++i) {
        Level& level = levels_.at(i);
        const bool joins = !level.points.empty() && IsValid(level.points.back());
        if (joins && !areApart(level.points.back(), point, spacingOf(i)))
            return;  // nor do the coarser ones take it
        append(level, point);
    }
}

void TrackLevels::addBreak() {
    if (!IsValid(end_))
        return;
    for (Level& level : levels_) {
        if (level.points.back() != end_)
            append(level, end_);
        append(level, {});
    }
    end_ = {};
}

const TrackLevels::Level& TrackLevels::levelFor(double spacingNm) const {
    std::size_t chosen = 0;
    while (chosen + 1 < kLevelCount && spacingOf(chosen + 1) <= spacingNm)
        ++chosen;
    return levels_.at(chosen);
}

}  // namespace korvel
