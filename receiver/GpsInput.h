#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/PositionSource.h"
#include "platform/Clock.h"
#include "receiver/GpsFixStore.h"
#include "receiver/SentenceDecoder.h"
#include "receiver/SentenceQueue.h"
#include "receiver/SentenceReceiver.h"
#include "receiver/talkers/TalkerMerge.h"

namespace korvel {

/// No altimeter offset is set.
inline constexpr std::int32_t kNoAltitudeOffset = -12345678;

/// The road from a line of the receiver to the fix: receiver, queue, decoder and the questions
/// that the program asks about the result.
///
/// Lock order: queue lock, then fix lock. The tick holds the queue lock while it decodes; the
/// receiver never holds both.
class GpsInput {
 public:
    /// The clock outlives it.
    explicit GpsInput(const Clock& clock, LineOutlets outlets = {});

    /// A line and the tick at which it came; without one it came now. Port thread.
    void onSentence(std::string_view text, std::int64_t arrivedMs);
    void onSentence(std::string_view text) { onSentence(text, clock_.tickMs()); }

    /// Whether the sentences of all systems are understood; off at first. Any thread.
    void understandAllTalkers(bool on) { allTalkers_ = on; }
    bool understandsAllTalkers() const { return allTalkers_; }

    // Everything below: main thread.

    Guarded<SentenceQueue>& queue() { return queue_; }
    /// Decodes the sentences in order of arrival and empties the queue, which the caller holds.
    /// Nothing is decoded while the position is supplied by something else.
    void decode(SentenceQueue& held);
    SentenceDecoder& decoder() { return decoder_; }
    GpsFixStore& store() { return store_; }
    const GpsFixStore& store() const { return store_; }

    /// What may supply the position in the receiver's place, and must outlive the input; null for
    /// nothing.
    void setOtherSource(const PositionSource* source) { otherSource_ = source; }
    /// Whether it does so now: then the receiver does not count.
    bool isSupplanted() const { return otherSource_ != nullptr && otherSource_->isActive(); }

    /// See GpsFixStore::Shared.
    std::string otherTalker() const { return store_.otherTalker(); }

    /// Whether the position can be flown by: also true while something else supplies it. `need3D`
    /// asks for a fix in height as well, and for three satellites where the receiver counts them.
    bool hasFix(bool need3D);
    /// A receiver that does not tell how many satellites it uses; off at first.
    void countsNoSatellites(bool on) { countsNoSatellites_ = on; }

    /// Whether the fix holds in height as far as the receiver lets on: by its last GSA or, from one
    /// that sends none, by its satellites. Of a fix in two dimensions the altitude is a guess.
    bool is3D() const;
    /// Whether the receiver's altitude is fresh, belongs to a fix and holds.
    bool isAltitudeGood();

    /// The satellites in view; asking makes the receiver's satellite sentences wanted, and the
    /// first question after a pause empties the table.
    SatelliteWords satellitesForDisplay();
    /// The satellites of all systems in view, by system and number; none unless all talkers are
    /// understood and satellites are wanted.
    std::vector<SkySatellite> sky();
    /// Forgets the wish once 5 s have passed without a question. Called every tick.
    void expireSatellitesWanted();

    /// Of what supplies the position.
    std::int32_t altitudeFt() const;
    /// With the pilot's altimeter offset, unless that is kNoAltitudeOffset.
    std::int32_t correctedAltitudeFt() const;
    void setAltitudeOffsetFt(std::int32_t feet) { altitudeOffsetFt_ = feet; }

    /// The variations in force at the position, whoever supplies it.
    Variation variation() const;
    double magneticToTrue(double magneticDeg) const;

 private:
    bool isFresh(std::int64_t storedMs) const;

    const Clock& clock_;
    const PositionSource* otherSource_ = nullptr;
    GpsFixStore store_;
    Guarded<SentenceQueue> queue_;
    TalkerMerge merge_;  // in front of the receiver
    SentenceReceiver receiver_;
    SentenceDecoder decoder_;
    std::atomic<bool> allTalkers_ = false;
    std::optional<std::int64_t> satellitesAskedMs_;  // empty while they are not wanted
    bool countsNoSatellites_ = false;
    std::int32_t altitudeOffsetFt_ = kNoAltitudeOffset;
};

}  // namespace korvel
