#pragma once

namespace korvel {

struct Settings;

/// What of the ground is drawn, by the setting "MapMask2".
struct GroundParts {
    bool land = true;  ///< and water; without it there is the plain background
    bool rivers = true;
    bool borders = true;
    bool relief = true;  ///< heights in colours and slopes
    bool airspaces = true;
    bool airspaceWords = true;

    static GroundParts from(const Settings& settings);

    friend bool operator==(const GroundParts&, const GroundParts&) = default;
};

}  // namespace korvel
