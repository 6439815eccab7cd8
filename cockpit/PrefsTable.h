#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "config/Settings.h"
#include "config/Text.h"
#include "config/texts/PreferenceTexts.h"

namespace korvel {

enum class PrefsPage : std::uint8_t {
    General,
    Map,
    MapLayers,
    Approach,
    Identifiers,
    Gps,
    Log,
    Pages,
};
inline constexpr int kPrefsPageCount = 8;

Text prefsPageName(PrefsPage page);

enum class PrefKind : std::uint8_t {
    Flag,
    Choice,  ///< one of `choices`, the first counts as 0
    Number,  ///< from `lowest` to `highest`
    Text,
};

/// What the preferences ask for: a setting, or a few bits of one.
struct PrefRow {
    PrefsPage page;
    std::string_view key;  ///< of the settings' table
    Text label;
    PrefKind kind;
    int lowest = 0;
    int highest = 0;
    std::span<const Text> choices{};
    /// Bits of the stored number that belong to the row; none for all of it.
    unsigned shift = 0;
    unsigned bits = 0;

    SettingValue valueIn(const Settings& settings) const;
    /// Leaves the bits of other rows alone.
    void store(const SettingValue& value, Settings& settings) const;

    /// The value that was typed for a number or a text. The message for the pilot, empty on
    /// success; `value` is as it was when there is one.
    [[nodiscard]] std::string read(std::string_view typed, SettingValue& value) const;
};

/// By the numbers of NavaidSet.
inline constexpr std::array kNavaidSetNames = {
    kPreferenceTexts.navaidsLow, kPreferenceTexts.navaidsHigh, kPreferenceTexts.navaidsTerm,
    kPreferenceTexts.navaidsVrp, kPreferenceTexts.navaidsOff};

/// All rows, those of a page together in the order in which they show. What has a place of its own
/// elsewhere is not among them: the port, the colour scheme, the simulator's start.
std::span<const PrefRow> prefRows();

}  // namespace korvel
