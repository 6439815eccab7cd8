#pragma once

#include <optional>
#include <string>

#include "cockpit/CockpitData.h"
#include "cockpit/PageId.h"
#include "map/MapViewport.h"
#include "screen/AutoZoom.h"
#include "screen/MapAngle.h"

namespace korvel {

class ProfileFile;

/// What part of the earth the pages with a map show: around the aircraft or around what the pilot
/// has dragged to its place, and at which range. Automatic zoom and view rest while he looks
/// elsewhere, for 30 s after he has, and while the view is held.
class MapCamera {
 public:
    /// The range as the profile keeps it; it reaches the file with the next save.
    void loadRange(ProfileFile& profile) { viewport_.loadRange(profile); }
    void saveRange(ProfileFile& profile) const { viewport_.saveRange(profile); }

    /// For every change of the page and of its size, device-independent pixels.
    void layOut(PageId page, double width, double height);
    /// Takes over a new situation. Whoever starts the simulator wants to see it: panning ends.
    void update(const CockpitData& data);
    /// One half-second tick; what to tell the pilot, empty for nothing.
    std::string tick();

    bool showsMap() const;
    /// Whether the range means something on the page: on a map, and on the profile.
    bool hasRange() const { return showsMap() || page_ == PageId::Profile; }
    const MapViewport& viewport() const { return viewport_; }
    /// The true direction that points up, 0 to 359.
    int upDeg() const;
    /// What stands in the aircraft's place: the aircraft, live or as it was last known, or what was
    /// dragged there, or where the map opens. The same on pages without a map.
    std::optional<GeoPoint> center() const {
        return panned_ ? panned_ : aircraft_ ? aircraft_ : home_;
    }
    /// Where the map opens before any aircraft was seen.
    void openAt(GeoPoint place) { home_ = place; }
    /// That place while nothing else is looked at.
    std::optional<GeoPoint> opening() const { return panned_ || aircraft_ ? std::nullopt : home_; }
    /// What was dragged to the aircraft's place; none while the map follows it.
    std::optional<GeoPoint> lookAt() const { return panned_; }
    /// None on a page without a map and while there is nothing to look at.
    std::optional<MapProjection> projection() const;

    /// Steps in, or out when negative; nothing on a page without a range. What to tell the
    /// pilot, empty for nothing. `autoZoom`: automatic zoom is enabled, and pauses. The ground
    /// under `about` stays there, unless the map follows the aircraft, which it does not lose by
    /// that.
    std::string zoom(int steps, bool autoZoom, std::optional<Point> about = std::nullopt);
    bool canZoomIn() const;
    bool canZoomOut() const;
    /// False when it is not a step of the ladder.
    bool setRange(int rangeNm);
    /// Moves the map by hand, on a page that shows one. What to tell the pilot, empty for nothing.
    /// `automatic`: automatic zoom or view is enabled, and pauses.
    std::string pan(Point from, Point to, bool automatic);
    void lookAt(GeoPoint place) { panned_ = place; }
    /// The map follows the aircraft again, at the range that it has.
    void follow() { panned_.reset(); }
    /// The same for good: the view is held no longer.
    void backToAircraft();
    /// Whether something else than the aircraft is looked at.
    bool isAway() const;

    /// Automatic zoom and view rest until the pilot zooms, drags the map, lets go or goes back to
    /// the aircraft.
    void hold() { held_ = true; }
    void letGo() { held_ = false; }
    /// Whether automatic zoom and view leave the map alone.
    bool rests() const { return held_ || panned_ || viewport_.autoZoomPaused(); }
    /// One half-second tick of automatic zoom; true when it has changed the range.
    bool zoomByItself(const CockpitData& data);

 private:
    void bringTo(Point at, GeoPoint ground);

    MapViewport viewport_;
    MapAngle angle_;
    AutoZoom autoZoom_;
    PageId page_ = PageId::Map;
    std::optional<GeoPoint> aircraft_;  // where it is or was last
    std::optional<GeoPoint> home_;
    std::optional<GeoPoint> panned_;  // what the pilot dragged to the aircraft's place
    bool simulated_ = false;
    bool held_ = false;
};

}  // namespace korvel
