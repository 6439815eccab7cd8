#include "screen/MapCamera.h"

#include <algorithm>
#include <cmath>

#include "screen/PagePainter.h"

namespace korvel {

void MapCamera::layOut(PageId page, double width, double height) {
    page_ = page;
    viewport_.layout(page, static_cast<int>(width), static_cast<int>(height));
}

void MapCamera::update(const CockpitData& data) {
    if (data.simulated && !simulated_)
        panned_.reset();
    simulated_ = data.simulated;
    aircraft_ = data.position ? data.position : data.lastPosition;
    angle_.update(data);
}

std::string MapCamera::tick() {
    std::string message = viewport_.tick();
    return panned_ ? std::string() : message;
}

bool MapCamera::showsMap() const { return PagePainter::isMap(page_); }

int MapCamera::upDeg() const { return PagePainter::turns(page_) ? angle_.degrees() : 0; }

std::optional<MapProjection> MapCamera::projection() const {
    const auto middle = center();
    if (!showsMap() || !middle)
        return std::nullopt;
    return viewport_.projection(*middle, upDeg());
}

std::string MapCamera::zoom(int steps, bool autoZoom, std::optional<Point> about) {
    if (!hasRange())
        return {};
    held_ = false;
    const bool follows = aircraft_ && !panned_;
    const auto before = about && !follows ? projection() : std::nullopt;
    const int rangeBefore = viewport_.currentRangeNm();
    std::string message;
    for (int step = 0; step < std::abs(steps); ++step)
        if (std::string told = steps > 0 ? viewport_.zoomIn(autoZoom) : viewport_.zoomOut(autoZoom);
            !told.empty())
            message = std::move(told);
    // What the pilot has chosen for the page is the range to remember.
    viewport_.chooseRange(viewport_.currentRangeNm());
    if (before && viewport_.currentRangeNm() != rangeBefore)
        bringTo(*about, before->unproject(*about));
    return message;
}

bool MapCamera::canZoomIn() const {
    return hasRange() && viewport_.currentRangeNm() > kRangeStepsNm.front();
}

bool MapCamera::canZoomOut() const {
    return hasRange() && viewport_.currentRangeNm() < kRangeStepsNm.back();
}

bool MapCamera::setRange(int rangeNm) {
    if (std::ranges::find(kRangeStepsNm, rangeNm) == kRangeStepsNm.end())
        return false;
    viewport_.setRange(rangeNm);
    return true;
}

/// Moves the map so that this ground comes to stand there.
void MapCamera::bringTo(Point at, GeoPoint ground) {
    const auto now = projection();
    if (!now)
        return;
    const Point is = now->project(ground);
    const Point aircraft = now->aircraft();
    panned_ = now->unproject({aircraft.x + is.x - at.x, aircraft.y + is.y - at.y});
}

std::string MapCamera::pan(Point from, Point to, bool automatic) {
    const auto before = projection();
    if (!before)
        return {};
    held_ = false;
    const Point aircraft = before->aircraft();
    panned_ = before->unproject({aircraft.x - (to.x - from.x), aircraft.y - (to.y - from.y)});
    if (!automatic)
        return {};
    const bool alreadyTold = viewport_.autoZoomPaused();
    std::string message = viewport_.pauseAutomatic();
    return alreadyTold ? std::string() : message;
}

void MapCamera::backToAircraft() {
    panned_.reset();
    held_ = false;
}

bool MapCamera::isAway() const { return !showsMap() || panned_; }

bool MapCamera::zoomByItself(const CockpitData& data) {
    if (!showsMap())
        return false;
    std::optional<Point> waypoint;
    if (const auto target = data.flownTo(); target && data.position)
        waypoint = viewport_.projection(*data.position, upDeg()).project(*target);
    const auto rangeNm = autoZoom_.tick(waypoint, viewport_, data.approach.has_value());
    return rangeNm && viewport_.setRange(*rangeNm);
}

}  // namespace korvel
