#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Guarded.h"
#include "receiver/talkers/SatelliteCycle.h"
#include "receiver/talkers/SkyTable.h"
#include "receiver/talkers/TalkerChoice.h"
#include "receiver/talkers/UsedRun.h"

namespace korvel {

/// Makes one receiver for GPS of one that hears several systems: whatever stands behind it sees
/// sentences of GP alone. One line in, none or more out. Of a moment's positions the best one is
/// heard; a list of used satellites, cut into one sentence a system, becomes one again; GNS becomes
/// GGA where there is no other; the satellites of all systems go to the sky table. A receiver that
/// speaks as GP alone passes byte for byte, and so does what is no sentence at all.
///
/// One thread at a time. Nothing is allocated once the buffers have grown, and no clock is asked.
/// Takes the sky's lock by itself and holds no other meanwhile.
class TalkerMerge {
 public:
    /// The sky must outlive it.
    explicit TalkerMerge(Guarded<SkyTable>& sky) : sky_(sky) {}

    /// What is to be handed on in the line's place, in order; good until the next call.
    std::span<const std::string_view> take(std::string_view text);

 private:
    enum class Kind { Rmc, Gga, Vtg, Gns, Gsa, Gsv };
    static constexpr std::size_t kMostFields = 32;
    using Fields = std::span<const std::string_view>;

    /// A line that is a sentence of a known talker and kind.
    struct Sentence {
        std::string_view text;  ///< as it came
        std::string_view line;  ///< without what follows its CR
        Talker talker;
        Kind kind;
        unsigned char sum;  ///< its checksum
        Fields fields;      ///< 0 is the name; cut off behind kMostFields
    };

    static std::optional<Kind> kindOf(std::string_view letters);
    std::optional<Sentence> read(std::string_view text);
    Fields split(std::string_view body);

    void take(const Sentence& sentence);
    void takePosition(const Sentence& sentence, TalkerChoice& choice, bool hasFix);
    void takeGns(const Sentence& sentence);
    void takeUsed(const Sentence& sentence);
    void takeInView(const Sentence& sentence);
    void noteTime(std::string_view field);

    void handOn(std::string_view line) { out_.push_back(line); }
    void handOnAsGp(const Sentence& sentence);
    void handOnInView(const SatelliteCycle& cycle);
    /// Closes what has been written since `start` with its checksum.
    void endLine(std::size_t start);

    Guarded<SkyTable>& sky_;
    std::array<std::string_view, kMostFields> fields_;
    std::vector<std::string_view> out_;
    std::string made_;  ///< the lines that were made here, one behind the other

    FixTime time_ = kNoFixTime;  ///< the newest that a sentence named
    TalkerChoice rmc_;
    TalkerChoice gga_;
    TalkerChoice vtg_;
    bool ggaSinceGns_ = false;
    UsedRun used_;
    std::array<SatelliteCycle, kTalkers> inView_{};
};

}  // namespace korvel
