#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "cockpit/CockpitData.h"
#include "pages/NavField.h"
#include "pages/ScreenLayout.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// The navigation fields: a header band over a value as large as fits, its unit smaller beside it.
class FieldStrip {
 public:
    /// The colours must outlive the strip.
    explicit FieldStrip(const MapColorCache& colors) : colors_(colors) {}

    /// Fills the whole canvas.
    void paint(Canvas& canvas, FieldArrangement arrangement, std::span<const NavFieldId> fields,
               const CockpitData& data) const;

    /// The chosen fields in their order, as many as a strip of that size shows large enough to
    /// read: five or more. The last ones go first, but what a pilot flies by (altitude, ground
    /// speed, track, distance) stays.
    static std::vector<NavFieldId> fitting(std::span<const NavFieldId> chosen,
                                           FieldArrangement arrangement, double width,
                                           double height);

    /// The cells of so many fields in their order, counted from the corner of `strip`, of which the
    /// size counts; all of one width, each with the gap to the next.
    static std::vector<Rect> cells(const Rect& strip, FieldArrangement arrangement,
                                   std::size_t count);

    /// Which of the fields lies under a point, counted like the cells.
    static std::optional<std::size_t> fieldAt(const Rect& strip, FieldArrangement arrangement,
                                              std::size_t count, Point point);

 private:
    const MapColorCache& colors_;
};

}  // namespace korvel
