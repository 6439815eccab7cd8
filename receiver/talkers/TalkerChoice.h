#pragma once

#include <array>
#include <cstdint>

#include "receiver/talkers/Talker.h"

namespace korvel {

/// When a position was taken, as its sentence says; comparable, without a date.
using FixTime = std::int64_t;
inline constexpr FixTime kNoFixTime = -1;

/// Of one moment one talker is heard: the one whose sentence carries a fix, and of two such the
/// higher in rank. A receiver repeats its talkers in the same order every time, so the lower ones
/// give way for good once they have been outdone; but a talker that falls silent is followed by the
/// next one at once. One of these decides about one kind of sentence.
class TalkerChoice {
 public:
    /// Whether this sentence is to be heard, the newest one of its kind.
    bool hears(Talker talker, bool hasFix, FixTime time);

 private:
    struct Newest {
        bool heard = false;  ///< there has been one
        FixTime time = kNoFixTime;
        bool hasFix = false;
        bool fixInTime = false;  ///< this one or an earlier one of the same time has a fix
        bool outdone = false;    ///< a better one of its time came behind it
    };

    std::array<Newest, kTalkers> newest_{};
};

}  // namespace korvel
