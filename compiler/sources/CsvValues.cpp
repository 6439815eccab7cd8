#include "compiler/sources/CsvValues.h"

#include <array>
#include <cmath>

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "compiler/sources/Fields.h"
#include "geo/Geodesy.h"

namespace korvel {

namespace {

struct SurfaceWord {
    std::string_view begins;
    std::string_view text;
    bool hard;
};

/// Contributors write surfaces in many ways; what is not here is kept as it stands.
constexpr std::array kSurfaces{
    SurfaceWord{"ASP", "ASPH", true},   SurfaceWord{"BIT", "ASPH", true},
    SurfaceWord{"TAR", "ASPH", true},   SurfaceWord{"PAVED", "PAVED", true},
    SurfaceWord{"CON", "CONC", true},   SurfaceWord{"PEM", "PEM", true},
    SurfaceWord{"GR", "TURF", false},   SurfaceWord{"TURF", "TURF", false},
    SurfaceWord{"SOD", "TURF", false},  SurfaceWord{"GVL", "GRVL", false},
    SurfaceWord{"DIRT", "DIRT", false}, SurfaceWord{"WAT", "WATER", false}};

}  // namespace

std::optional<int> wholeFeet(std::string_view text) {
    const auto value = wholeDouble(text);
    if (!value || std::abs(*value) > 100000.0)
        return std::nullopt;
    return RoundToInt(*value);
}

std::optional<GeoDegrees> positionOf(std::string_view latText, std::string_view lonText) {
    const auto lat = latitudeDeg(latText);
    const auto lon = longitudeDeg(lonText);
    if (!lat || !lon)
        return std::nullopt;
    return GeoDegrees{*lat, *lon};
}

std::optional<int> positiveFeet(std::string_view text) {
    const auto feet = wholeFeet(text);
    return feet && *feet > 0 ? feet : std::nullopt;
}

void setSurface(std::string_view text, SourceRunway& runway) {
    const std::string surface = inCapitals(toAsciiText(text));
    // Gravel begins like grass.
    if (surface.starts_with("GRAV") || surface.starts_with("GRV")) {
        runway.surface = "GRVL";
        return;
    }
    runway.surface = surface;
    for (const auto& word : kSurfaces)
        if (surface.starts_with(word.begins)) {
            runway.surface = word.text;
            runway.hard = word.hard;
            return;
        }
}

}  // namespace korvel
