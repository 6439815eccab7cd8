#include "config/ReceiverChoice.h"

#include "config/ProfileFile.h"

namespace korvel {
namespace {

constexpr std::string_view kTalkers = "Talkers";
constexpr std::string_view kSource = "GpsSource";

bool hasServed(const ProfileFile& profile) { return profile.entries().contains("Options.Port"); }

}  // namespace

ReceiverChoice loadReceiverChoice(ProfileFile& profile) {
    const int talkers = profile.getInt(kOptionsSection, kTalkers, hasServed(profile) ? 0 : 1);
    return {.allTalkers = talkers != 0, .source = profile.getString(kOptionsSection, kSource, "")};
}

void storeReceiverChoice(ProfileFile& profile, const ReceiverChoice& choice) {
    profile.setInt(kOptionsSection, kTalkers, choice.allTalkers ? 1 : 0, true);
    profile.setString(kOptionsSection, kSource, choice.source, true);
}

}  // namespace korvel
