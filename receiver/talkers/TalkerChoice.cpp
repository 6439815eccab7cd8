#include "receiver/talkers/TalkerChoice.h"

namespace korvel {
namespace {

bool isBetter(bool hasFix, std::size_t rank, bool otherHasFix, std::size_t otherRank) {
    return hasFix != otherHasFix ? hasFix : rank < otherRank;
}

}  // namespace

bool TalkerChoice::hears(Talker talker, bool hasFix, FixTime time) {
    const std::size_t rank = indexOf(talker);
    Newest& own = newest_.at(rank);
    bool heard = !own.outdone;
    for (std::size_t i = 0; i < kTalkers; ++i) {
        Newest& other = newest_.at(i);
        if (i == rank || !other.heard || other.time != time)
            continue;
        if (isBetter(other.fixInTime, i, hasFix, rank))
            heard = false;
        if (isBetter(hasFix, rank, other.hasFix, i))
            other.outdone = true;
    }
    const bool sameTime = own.heard && own.time == time;
    own = {.heard = true,
           .time = time,
           .hasFix = hasFix,
           .fixInTime = hasFix || (sameTime && own.fixInTime),
           .outdone = false};
    return heard;
}

}  // namespace korvel
