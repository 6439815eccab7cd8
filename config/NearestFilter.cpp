#include "config/NearestFilter.h"

#include <algorithm>
#include <string_view>

#include "config/ProfileFile.h"

namespace korvel {
namespace {

constexpr std::string_view kRunway = "NearRunway";
constexpr std::string_view kHard = "NearHard";
constexpr int kMostFt = 20'000;

}  // namespace

NearestFilter loadNearestFilter(ProfileFile& profile) {
    return {.fromRunwayFt = std::clamp(profile.getInt(kOptionsSection, kRunway, 0), 0, kMostFt),
            .hardOnly = profile.getInt(kOptionsSection, kHard, 0) != 0};
}

void storeNearestFilter(ProfileFile& profile, const NearestFilter& filter) {
    profile.setInt(kOptionsSection, kRunway, filter.fromRunwayFt, true);
    profile.setInt(kOptionsSection, kHard, filter.hardOnly ? 1 : 0, true);
}

}  // namespace korvel
