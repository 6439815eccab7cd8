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
    /// The words for the pilot while the condition holds, nothing while it does not. `holds` tells
    /// whether it held at the last look, so that it can end later than it begins.
    std::function<std::optional<std::string>(bool holds)> condition{};
};

/// Watches the sources of alarms. An alarm is shown from when its condition has held for its delay
/// until the pilot acknowledges it or the condition ends; once that has ended, it may come again.
/// One thread only.
class AlarmBoard {
 public:
    /// Of sources that are equally urgent the one that was added first comes first.
    void add(AlarmSource source);

    /// Looks at all sources. Not to be called while it is unknown where the aircraft is: what is
    /// unknown neither begins an alarm nor ends one.
    void update(std::int64_t nowMs);

    /// The words to show, most urgent first.
    [[nodiscard]] std::vector<std::string> shown() const;
    /// Takes away the shown alarm at `place`; false when there is none.
    bool acknowledge(std::size_t place = 0);

 private:
    struct Watched {
        AlarmSource source;
        std::optional<std::int64_t> sinceMs{};  ///< when the condition began; nothing without it
        std::string words{};
        bool raised = false;
        bool acknowledged = false;

        [[nodiscard]] bool isShown() const { return raised && !acknowledged; }
    };

    std::vector<Watched> watched_;  ///< by urgency
};

}  // namespace korvel
