#pragma once

#include <array>
#include <cstdint>

#include "config/texts/GroundTexts.h"

namespace korvel {

struct Settings;

/// How much of what the pilot lets show the map shows for now.
enum class Declutter : std::uint8_t {
    Full,
    Medium,  ///< land, plan, airports, airspaces, towns
    Plain,   ///< land and plan
};

inline constexpr std::array kDeclutterTexts = {kGroundTexts.mapFull, kGroundTexts.mapMedium,
                                               kGroundTexts.mapPlain};

/// The step of a number in the profile; all shows for one that means nothing.
Declutter declutterOf(int number);
/// Once around.
Declutter nextDeclutter(Declutter step);

/// Takes away from the layers of the map what the step leaves out.
void declutter(Settings& settings, Declutter step);

}  // namespace korvel
