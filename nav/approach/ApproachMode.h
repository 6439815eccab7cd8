#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "nav/approach/LandingRunway.h"

namespace korvel {

/// Decides which runway is approached: the one that the pilot chooses, or by itself the one of the
/// destination that the aircraft is lined up with. One thread only.
class ApproachMode {
 public:
    /// Cross-track at the outermost mark of the indicator.
    static constexpr double kFullScaleNm = 1.25;

    /// What it is decided by. What is absent is unknown.
    struct Situation {
        GeoPoint position;  ///< valid
        std::optional<double> trackTrueDeg{};
        std::optional<double> groundSpeedKt{};
        std::string_view destinationKey{};  ///< RecordKey of where the flight ends; empty for none
        std::span<const LandingRunway> runways{};  ///< the destination's
        bool automatic = false;                    ///< the pilot wants it to enter by itself
    };

    /// Once per tick, while the position is known. By itself it enters after kEnterMs of being
    /// lined up within kEnterNm, and leaves after kLeaveMs of flying away, behind the runway, far
    /// beside it, or once the aircraft has stopped there. What the pilot has chosen stays. Both end
    /// when the flight gets another destination.
    void update(const Situation& now, std::int64_t nowMs);

    void choose(const LandingRunway& runway);
    /// The pilot wants none: nothing is entered by itself until the flight gets another destination
    /// or the aircraft has been far from this one.
    void leave();

    [[nodiscard]] const std::optional<LandingRunway>& runway() const { return runway_; }
    /// The aircraft has been on the scale since the runway was chosen: from then on it matters when
    /// it no longer is.
    [[nodiscard]] bool established() const { return established_; }

    static constexpr double kEnterNm = 8;
    static constexpr std::int64_t kEnterMs = 3000;
    static constexpr std::int64_t kLeaveMs = 10000;

 private:
    void end();
    void enterByItself(const Situation& now, std::int64_t nowMs);
    void leaveByItself(const Situation& now, const ApproachFigures& seen, std::int64_t nowMs);

    std::optional<LandingRunway> runway_;
    bool chosen_ = false;       ///< by the pilot
    bool established_ = false;  ///< see established()
    bool declined_ = false;     ///< by the pilot
    std::string destinationKey_;
    /// The runway that the aircraft is lined up with while none is approached.
    std::string candidate_;
    std::optional<std::int64_t> sinceMs_;  ///< when what leads in or out began
};

}  // namespace korvel
