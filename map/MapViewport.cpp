#include "map/MapViewport.h"

#include <algorithm>
#include <cmath>

#include "config/ProfileFile.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "geo/WholeDegreeTrig.h"

namespace korvel {
namespace {

constexpr std::string_view kRangeKey = "Range";
constexpr double kNmPerDegree = 60;
constexpr int kPauseTicks = 60;
constexpr int kTicksPerSecond = 2;
constexpr double kEfisAircraftHeight = 0.8;
constexpr int kPixelsBelowCenter = 30;
/// Below this the cosine is that of a pole, where all longitudes are one.
constexpr double kPoleCosine = 1e-9;

bool isStep(int rangeNm) {
    return std::ranges::find(kRangeStepsNm, rangeNm) != kRangeStepsNm.end();
}

int evenUp(int pixels) { return static_cast<int>((static_cast<unsigned>(pixels) + 1U) & ~1U); }

/// -pi up to but not including pi.
double wrapLongitude(double lon) {
    return lon >= -kPi && lon < kPi ? lon : PositiveMod(lon + kPi, kTwoPi) - kPi;
}

/// (x, y) turned by whole degrees; to the right when y grows downwards.
Point turned(Point point, int deg) {
    const double sine = SinDeg(deg);
    const double cosine = CosDeg(deg);
    return {point.x * cosine - point.y * sine, point.y * cosine + point.x * sine};
}

int aircraftHeight(PageId page, int height) {
    switch (page) {
        case PageId::Efis:
            return static_cast<int>(kEfisAircraftHeight * height);
        case PageId::NorthUp:
            return height / 2;
        default:
            return height / 2 + kPixelsBelowCenter;
    }
}

}  // namespace

MapProjection::MapProjection(GeoPoint center, Point aircraft, double pixelsPerNm, int angleDeg)
    : center_(center),
      aircraft_(aircraft),
      pixelsPerNm_(pixelsPerNm),
      angleDeg_(angleDeg),
      lonScale_(CosDeg(RoundToInt(center.lat * kRadToDeg))),
      sine_(SinDeg(-angleDeg)),
      cosine_(CosDeg(-angleDeg)) {}

Point MapProjection::offsetOf(GeoPoint point) const {
    const double pixelsPerRadian = kRadToDeg * kNmPerDegree * pixelsPerNm_;
    const Point northUp{wrapLongitude(point.lon - center_.lon) * pixelsPerRadian * lonScale_,
                        (center_.lat - point.lat) * pixelsPerRadian};
    return {northUp.x * cosine_ - northUp.y * sine_, northUp.y * cosine_ + northUp.x * sine_};
}

Point MapProjection::project(GeoPoint point) const {
    const Point offset = offsetOf(point);
    return {aircraft_.x + offset.x, aircraft_.y + offset.y};
}

std::pair<int, int> MapProjection::projectPixel(GeoPoint point) const {
    const Point offset = offsetOf(point);
    return {RoundToInt(aircraft_.x) + RoundToInt(offset.x),
            RoundToInt(aircraft_.y) + RoundToInt(offset.y)};
}

GeoPoint MapProjection::unproject(Point pixel) const {
    if (pixelsPerNm_ <= 0)
        return center_;  // not laid out yet
    const double radiansPerPixel = kDegToRad / (kNmPerDegree * pixelsPerNm_);
    const Point northUp = turned({pixel.x - aircraft_.x, pixel.y - aircraft_.y}, angleDeg_);
    const double lat = std::clamp(center_.lat - northUp.y * radiansPerPixel, -kPi / 2, kPi / 2);
    if (std::abs(lonScale_) < kPoleCosine)
        return {lat, center_.lon};
    return {lat, wrapLongitude(center_.lon + northUp.x * radiansPerPixel / lonScale_)};
}

Point MapProjection::eastPerDegree() const {
    const double pixels = kNmPerDegree * pixelsPerNm_ * lonScale_;
    return {pixels * cosine_, pixels * sine_};
}

Point MapProjection::northPerDegree() const {
    const double pixels = kNmPerDegree * pixelsPerNm_;
    return {pixels * sine_, -pixels * cosine_};
}

void MapViewport::loadRange(ProfileFile& profile) {
    const int saved = profile.getInt(kOptionsSection, kRangeKey, kDefaultRangeNm);
    chooseRange(isStep(saved) ? saved : kDefaultRangeNm);
}

void MapViewport::saveRange(ProfileFile& profile) const {
    profile.setInt(kOptionsSection, kRangeKey, configuredRangeNm_, true);
}

void MapViewport::layout(PageId page, int clientWidth, int clientHeight) {
    width_ = evenUp(clientWidth);
    height_ = evenUp(clientHeight);
    aircraftX_ = width_ / 2;
    aircraftY_ = aircraftHeight(page, height_);
}

std::string MapViewport::zoomIn(bool autoZoom) {
    const auto* step = std::ranges::lower_bound(kRangeStepsNm, currentRangeNm_);
    return zoomTo(step == kRangeStepsNm.begin() ? std::nullopt : std::optional(*(step - 1)),
                  autoZoom);
}

std::string MapViewport::zoomOut(bool autoZoom) {
    const auto* step = std::ranges::upper_bound(kRangeStepsNm, currentRangeNm_);
    return zoomTo(step == kRangeStepsNm.end() ? std::nullopt : std::optional(*step), autoZoom);
}

std::string MapViewport::zoomTo(std::optional<int> rangeNm, bool autoZoom) {
    if (!rangeNm)
        return {};
    currentRangeNm_ = *rangeNm;
    return autoZoom ? pauseAutomatic() : std::string();
}

std::string MapViewport::pauseAutomatic() {
    pauseTicks_ = kPauseTicks;
    return formatText(kStatusTexts.autoZoomDisabled, {kPauseTicks / kTicksPerSecond});
}

bool MapViewport::setRange(double rangeNm) {
    // A range beyond the ladder's end would leave nothing to see; it also keeps the conversion
    // safe.
    if (!(rangeNm >= 1))
        return false;
    const int range = static_cast<int>(std::min<double>(rangeNm, kRangeStepsNm.back()));
    return range != std::exchange(currentRangeNm_, range);
}

void MapViewport::chooseRange(int rangeNm) {
    configuredRangeNm_ = rangeNm;
    currentRangeNm_ = rangeNm;
}

void MapViewport::returnToConfigured() {
    currentRangeNm_ = configuredRangeNm_;
    pauseTicks_ = 0;
}

std::string MapViewport::tick() {
    if (pauseTicks_ == 0 || --pauseTicks_ > 0)
        return {};
    return std::string(text(kStatusTexts.autoZoomEnabled));
}

double MapViewport::pixelsPerNm() const {
    return static_cast<double>(aircraftY_) / currentRangeNm_;
}

MapProjection MapViewport::projection(GeoPoint center, int angleDeg) const {
    return {center, aircraft(), pixelsPerNm(), angleDeg};
}

}  // namespace korvel
