#include "cockpit/Modes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "base/TextNumbers.h"
#include "cockpit/CockpitData.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/ModeTexts.h"
#include "geo/GeoText.h"

namespace korvel {
namespace {

/// The words while the mode is in force.
using Words = std::optional<std::string>;

struct Row {
    std::optional<AlarmUrgency> urgency;
    Words (*words)(const CockpitData& data);
    Words (*shortWords)(const CockpitData& data) = nullptr;  ///< null: the same
};

Words wordsIf(bool holds, Text words) {
    return holds ? Words(std::string(text(words))) : std::nullopt;
}

Words simulator(const CockpitData& data) { return wordsIf(data.simulated, kModeTexts.simulator); }

Words demonstration(const CockpitData& data) {
    return wordsIf(!data.simulated && data.source == SourceKind::Demonstration,
                   kModeTexts.demonstration);
}

Words replay(const CockpitData& data) {
    return wordsIf(!data.simulated && data.source == SourceKind::Replay,
                   data.sourceEnded ? kModeTexts.replayEnded : kModeTexts.replay);
}

Words noFix(const CockpitData& data) { return wordsIf(!data.position, kModeTexts.noGps); }

/// Only where the receiver says so: many never tell of how many dimensions their fix is.
Words flatFix(const CockpitData& data) {
    return wordsIf(data.position && !data.simulated && data.fix2D, kModeTexts.fix2D);
}

Words charts(const CockpitData& data) {
    return data.databaseNotice.empty() ? std::nullopt : Words(data.databaseNotice);
}

/// Without the date.
Words chartsInShort(const CockpitData& data) {
    constexpr std::string_view kDigits = "0123456789";
    const std::string& notice = data.databaseNotice;
    const std::size_t date = std::min(notice.find_first_of(kDigits), notice.find_first_of(":\n"));
    std::string words = notice.substr(0, date);
    while (words.ends_with(' '))
        words.pop_back();
    return words;
}

Words emergency(const CockpitData& data) {
    return wordsIf(data.emergency, kAircraftTexts.emergency);
}

Words suspended(const CockpitData& data) { return wordsIf(data.suspended, kModeTexts.suspended); }

Words direct(const CockpitData& data) { return wordsIf(data.directLeg, kModeTexts.direct); }

Words course(const CockpitData& data) {
    if (!data.obsCourseMagDeg)
        return std::nullopt;
    const std::string degrees = courseText(*data.obsCourseMagDeg);
    return formatText(kModeTexts.obs, {std::string_view(degrees)});
}

Words recording(const CockpitData& data) { return wordsIf(data.recording, kModeTexts.recording); }

// Where the position comes from and what is wrong first, then how the flight is flown.
constexpr std::array kRows{
    Row{AlarmUrgency::Caution, simulator},
    Row{AlarmUrgency::Caution, demonstration},
    Row{AlarmUrgency::Caution, replay},
    Row{AlarmUrgency::Warning, noFix},
    Row{AlarmUrgency::Caution, flatFix},
    Row{AlarmUrgency::Warning, emergency},
    Row{AlarmUrgency::Caution, suspended},
    Row{std::nullopt, direct},
    Row{std::nullopt, course},
    Row{std::nullopt, recording},
    Row{AlarmUrgency::Caution, charts, chartsInShort},
};

}  // namespace

std::vector<Mode> modesOf(const CockpitData& data) {
    std::vector<Mode> modes;
    for (const Row& row : kRows) {
        Words words = row.words(data);
        if (!words)
            continue;
        std::string shortWords = row.shortWords != nullptr ? *row.shortWords(data) : *words;
        modes.push_back({std::move(*words), std::move(shortWords), row.urgency});
    }
    return modes;
}

}  // namespace korvel
