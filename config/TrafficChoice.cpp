#include "config/TrafficChoice.h"

#include <algorithm>
#include <string_view>

#include "config/ProfileFile.h"

namespace korvel {
namespace {

constexpr std::string_view kShown = "Traffic";
constexpr std::string_view kWithin = "TrafficWithin";
constexpr int kMostFt = 100'000;

}  // namespace

TrafficChoice loadTrafficChoice(ProfileFile& profile) {
    const TrafficChoice usual;
    return {.shown = profile.getInt(kOptionsSection, kShown, usual.shown ? 1 : 0) != 0,
            .withinFt =
                std::clamp(profile.getInt(kOptionsSection, kWithin, usual.withinFt), 0, kMostFt)};
}

void storeTrafficChoice(ProfileFile& profile, const TrafficChoice& choice) {
    profile.setInt(kOptionsSection, kShown, choice.shown ? 1 : 0, true);
    profile.setInt(kOptionsSection, kWithin, choice.withinFt, true);
}

}  // namespace korvel
