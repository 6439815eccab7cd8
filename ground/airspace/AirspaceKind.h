#pragma once

#include <cstdint>

namespace korvel {

struct Airspace;

/// What the letters of an airspace's class mean, whatever dialect they are written in.
enum class AirspaceKind : std::uint8_t {
    A,
    B,
    C,        ///< and terminal areas
    D,        ///< and control zones
    Special,  ///< restricted, prohibited, danger
    Wave,     ///< for gliders in waves
    Zone,     ///< where a radio, a transponder or an aerodrome's consent is wanted
    F,
    Other,  ///< E, G, sectors of gliders and what is not known
};

AirspaceKind kindOf(const Airspace& airspace);

/// Whether one may not fly into it without having done something first.
bool asksForClearance(AirspaceKind kind);

}  // namespace korvel
