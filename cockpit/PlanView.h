#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

struct CockpitData;

/// One entry of the plan as the pages show it. Distances and courses are those of the leg that
/// ends here; the first entry has none.
struct PlanRow {
    std::string text;   ///< as in the route line, with its altitude
    std::string key;    ///< of the record, or the words of a generated fix
    std::string ident;  ///< what the map writes beside it
    std::string name;
    GeoPoint position;
    bool expired = false;  ///< from a database whose date has passed
    std::optional<std::int32_t> altitudeFt;
    std::optional<std::int32_t> elevationFt;  ///< of an airport, where it is known
    std::optional<double> courseMagDeg;
    std::optional<double> legNm;
    bool flown = false;  ///< the aircraft has come to it

    friend bool operator==(const PlanRow&, const PlanRow&) = default;
};

/// The active plan, copied out of its lock when it changed.
struct PlanView {
    std::vector<PlanRow> rows;
    /// Flown to at present; none before the first choice and while the position is not known.
    std::optional<std::size_t> active;
    double totalNm = 0.0;
    std::string fileName;  ///< bare; empty for a plan that was never saved
    bool changed = false;  ///< there is something to save

    friend bool operator==(const PlanView&, const PlanView&) = default;
};

/// A row of the plan as seen from the aircraft. What lies before the active one was either flown
/// to or left out.
enum class PlanPart : std::uint8_t { Passed, Skipped, Active, Ahead };

inline bool isBehind(PlanPart part) {
    return part == PlanPart::Passed || part == PlanPart::Skipped;
}

PlanPart planPart(const PlanView& plan, std::size_t row);

/// The row that is flown to at this moment; none while something else is, or nothing.
std::optional<std::size_t> flownRow(const CockpitData& data);

}  // namespace korvel
