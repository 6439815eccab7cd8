#include "ground/airspace/AirspaceKind.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/Ascii.h"
#include "ground/airspace/Airspace.h"

namespace korvel {
namespace {

struct ClassRow {
    std::string_view name;
    AirspaceKind kind;
};
constexpr std::array kClasses{
    ClassRow{"A", AirspaceKind::A},       ClassRow{"B", AirspaceKind::B},
    ClassRow{"C", AirspaceKind::C},       ClassRow{"TMA", AirspaceKind::C},
    ClassRow{"D", AirspaceKind::D},       ClassRow{"CTR", AirspaceKind::D},
    ClassRow{"R", AirspaceKind::Special}, ClassRow{"P", AirspaceKind::Special},
    ClassRow{"Q", AirspaceKind::Special}, ClassRow{"W", AirspaceKind::Wave},
    ClassRow{"TMZ", AirspaceKind::Zone},  ClassRow{"RMZ", AirspaceKind::Zone},
    ClassRow{"ATZ", AirspaceKind::Zone},  ClassRow{"MATZ", AirspaceKind::Zone},
    ClassRow{"F", AirspaceKind::F}};

}  // namespace

AirspaceKind kindOf(const Airspace& airspace) {
    const auto* const found = std::ranges::find_if(kClasses, [&airspace](const ClassRow& row) {
        return equalsIgnoringCase(row.name, airspace.airspaceClass) ||
               (airspace.airspaceClass == "UNC" && equalsIgnoringCase(row.name, airspace.type));
    });
    return found == kClasses.end() ? AirspaceKind::Other : found->kind;
}

bool asksForClearance(AirspaceKind kind) {
    return kind != AirspaceKind::F && kind != AirspaceKind::Other && kind != AirspaceKind::Wave;
}

}  // namespace korvel
