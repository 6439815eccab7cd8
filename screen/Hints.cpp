#include "screen/Hints.h"

#include <algorithm>
#include <array>

#include "config/ProfileFile.h"
#include "config/texts/MessageTexts.h"

namespace korvel {
namespace {

constexpr std::string_view kHintsKey = "HintsShown";

/// A bit of the setting each, from the lowest.
constexpr std::array kHints = {kMessageTexts.hintFields, kMessageTexts.hintFullScreen,
                               kMessageTexts.measureHint, kMessageTexts.noReceiverVariation};

}  // namespace

bool Hints::take(Text hint) {
    const auto* const found = std::ranges::find(kHints, hint);
    if (found == kHints.end())
        return false;
    const int shown = profile_.getInt(kOptionsSection, kHintsKey, 0);
    const int own = 1 << (found - kHints.begin());
    if ((shown & own) != 0)
        return false;
    profile_.setInt(kOptionsSection, kHintsKey, shown | own, true);
    return true;
}

}  // namespace korvel
