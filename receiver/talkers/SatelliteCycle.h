#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "receiver/talkers/SkyTable.h"

namespace korvel {

/// Puts the GSV sentences of one talker together, 1 to the number of them that each one names.
class SatelliteCycle {
 public:
    /// Fields by number, 0 being the name: 1 messages in the cycle, 2 this one, then four fields a
    /// satellite: number, elevation, azimuth, signal in dB. Behind them may stand which signal that
    /// was.
    using Fields = std::span<const std::string_view>;

    /// Whether they are as many as a GSV sentence of this talker has.
    static bool areFields(Talker talker, Fields fields);
    /// Whether they say which signal they are about.
    static bool nameSignal(Fields fields);

    /// True when the cycle is whole with this sentence. A gap drops what came before it.
    bool add(Talker talker, Fields fields);

    // Of the cycle that has just become whole.
    SignalSet signals() const { return signals_; }
    bool namesSignals() const { return namesSignals_; }
    std::span<const SatelliteSignal> satellites() const {
        return std::span(entries_).first(count_);
    }

 private:
    void begin(int total);
    void addSatellite(Talker talker, Fields group, std::uint8_t signal);

    std::array<SatelliteSignal, SkyTable::kMostOfTalker> entries_{};
    std::size_t count_ = 0;
    SignalSet signals_ = 0;
    bool namesSignals_ = false;
    int total_ = 0;  ///< 0 while no first sentence has come
    int next_ = 1;
};

}  // namespace korvel
