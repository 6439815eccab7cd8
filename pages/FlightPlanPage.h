#pragma once

#include <cstddef>
#include <optional>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Where the rows of the page stand on a canvas of a size. Rows are high enough for a thumb.
class FlightPlanRows {
 public:
    FlightPlanRows(double width, double height, std::size_t rowCount);

    /// Rows that are seen at once.
    [[nodiscard]] std::size_t visible() const { return visible_; }
    /// The highest row that the list can begin with.
    [[nodiscard]] std::size_t lastFirst() const;
    /// Where the list begins so that the row is seen with the one before it.
    [[nodiscard]] std::size_t firstFor(std::size_t row) const;

    [[nodiscard]] Rect header() const { return header_; }
    [[nodiscard]] Rect totals() const { return totals_; }
    /// The place of a row when the list begins with `first`; the row is one of the visible ones.
    [[nodiscard]] Rect row(std::size_t row, std::size_t first) const;
    /// The row under a point when the list begins with `first`.
    [[nodiscard]] std::optional<std::size_t> rowAt(Point point, std::size_t first) const;

    [[nodiscard]] double textPx() const { return textPx_; }

 private:
    std::size_t count_;
    double textPx_;
    double rowHeight_;
    Rect header_;
    Rect list_;
    Rect totals_;
    std::size_t visible_;
};

/// A row that a finger carries to another place of the plan.
struct LiftedRow {
    std::size_t row = 0;
    std::size_t to = 0;  ///< where it would stand
    double y = 0;        ///< its middle, on the page
};

/// What the pilot does with the list.
struct FlightPlanView {
    /// The row that it begins with; none: it follows the flight.
    std::optional<std::size_t> firstRow{};
    std::optional<std::size_t> selectedRow{};
    std::optional<LiftedRow> lifted{};
};

/// The row that the page begins with on a canvas of that size.
std::size_t firstShownRow(const CockpitData& data, const FlightPlanView& view,
                          const FlightPlanRows& rows);

/// The plan as a table: waypoint, altitude, magnetic track, distance, time and time of arrival,
/// with the whole distance where there is room, and the fuel left there where it is counted, amber
/// and with a word below the reserve. What is flown to is marked, what was passed is ticked off and
/// faded. Without a plan it says how to make one. Fills the whole canvas.
void paintFlightPlanPage(Canvas& canvas, const CockpitData& data, const FlightPlanView& view,
                         const MapColorCache& colors);

}  // namespace korvel
