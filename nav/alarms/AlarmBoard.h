#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

/// The most urgent first.
enum class AlarmUrgency : std::uint8_t { Warning, Caution, Notice };

/// Something that may need the pilot's attention.
struct AlarmSource {
    AlarmUrgency urgency = AlarmUrgency::Caution;
    /// The condition must have held this long without a break before the pilot hears of it.
    std::int64_t delayMs = 0;
    /// How long it stays when nobody looks at it; 0 for an alarm that must be looked at.
    std::int64_t lastsMs = 0;
    /// The words for the pilot while the condition holds, nothing while it does not. `holds` tells
    /// whether it held at the last look, so that it can end later than it begins.
    std::function<std::optional<std::string>(bool holds)> condition{};
};

/// An alarm as the pilot sees it.
struct ShownAlarm {
    std::string words;
    AlarmUrgency urgency = AlarmUrgency::Caution;

    friend bool operator==(const ShownAlarm&, const ShownAlarm&) = default;
};

/// Watches the sources of alarms. An alarm is shown from when its condition has held for its delay
/// until the pilot acknowledges it, it has stood as long as it lasts, or the condition ends; once
/// that has ended, it may come again.
/// One thread only.
class AlarmBoard {
 public:
    /// Of sources that are equally urgent the one that was added first comes first.
    void add(AlarmSource source);

    /// Looks at all sources. Not to be called while it is unknown where the aircraft is: what is
    /// unknown neither begins an alarm nor ends one.
    void update(std::int64_t nowMs);

    /// Most urgent first.
    [[nodiscard]] std::vector<ShownAlarm> shown() const;
    /// Takes away the shown alarm at `place`; false when there is none.
    bool acknowledge(std::size_t place = 0);
    /// The flight goes on elsewhere: no condition holds and none was seen, until the next update.
    void forget();

 private:
    struct Watched {
        AlarmSource source;
        std::optional<std::int64_t> sinceMs{};   ///< when the condition began; nothing without it
        std::optional<std::int64_t> raisedMs{};  ///< since when the pilot hears of it
        std::string words{};
        bool acknowledged = false;

        [[nodiscard]] bool isShown() const { return raisedMs && !acknowledged; }
    };

    std::vector<Watched> watched_;  ///< by urgency
};

}  // namespace korvel
