#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "compiler/sources/AviationData.h"

namespace korvel {

/// The magnetic variation around navaids that know theirs.
class VariationField {
 public:
    /// Farther from any navaid the variation counts as unknown.
    static constexpr double kReachNm = 250.0;

    /// A variation of exactly 0 is taken for none: sources write it where they know nothing, and
    /// stations in the far north are aligned to true north.
    explicit VariationField(std::span<const SourceNavaid> navaids);

    /// Degrees, east positive, of the nearest navaid that has one.
    [[nodiscard]] std::optional<double> at(const GeoDegrees& position) const;

 private:
    struct Station {
        std::array<double, 3> direction{};  ///< unit vector from the earth's centre
        double variation = 0.0;
    };
    std::vector<Station> stations_;
};

}  // namespace korvel
