#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "cockpit/NearAirport.h"
#include "config/NearestFilter.h"
#include "geo/GeoPoint.h"

namespace korvel {

class NavDatabase;
struct Settings;
struct Variation;

/// The airports around the aircraft for as long as somebody looks at them, looked up anew when the
/// aircraft has moved by what a pilot would see. Main thread only.
class NearAirportList {
 public:
    /// To be called at each tick while they are looked at.
    void want() { wanted_ = true; }
    /// The tick. `here` is where the aircraft was last seen, live or not.
    void update(const NavDatabase& database, std::optional<GeoPoint> here, const Settings& settings,
                const Variation& variation);
    [[nodiscard]] const NearestFilter& filter() const { return filter_; }
    /// In force from the next tick on.
    void setFilter(const NearestFilter& filter) {
        filter_ = filter;
        shown_.reset();
    }
    /// To be called when other databases have come into use.
    void forget() { shown_.reset(); }

    /// Nearest first; null until they are wanted or when there is no position at all.
    [[nodiscard]] const std::shared_ptr<const std::vector<NearAirport>>& shown() const {
        return shown_;
    }

 private:
    std::shared_ptr<const std::vector<NearAirport>> shown_;
    GeoPoint lookedUpAt_;
    NearestFilter filter_;
    bool wanted_ = false;
};

}  // namespace korvel
