#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// What a receiver sent in one burst, and when.
struct ReplayStep {
    std::int64_t offsetMs = 0;  ///< since the start of the replay at normal speed
    std::string bytes;          ///< as the receiver sent them, line ends included
};

/// Cuts a receiver's log into the bursts in which it was sent. Lines that begin with "#" are notes
/// and are left out and sentences that lost the CR of their line end in keeping get it back; any
/// other bytes are kept as they are.
///
/// A burst ends where the time in the sentences (RMC, GGA and GLL of any talker) changes, and the
/// next one follows after that difference. A receiver without a fix sends no time: then a burst
/// begins with each return of its first sentence, a second after the one before. Differences that
/// no receiver keeps (backwards, or more than 2 s: the log was interrupted) count as one second.
std::vector<ReplayStep> makeReplayScript(std::string_view log);

}  // namespace korvel
