#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string_view>

#include "receiver/GpsFixStore.h"
#include "receiver/GpsSurroundings.h"
#include "receiver/SentenceDecoder.h"
#include "receiver/SentenceQueue.h"
#include "receiver/SentenceReceiver.h"

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
    /// Both outlive it.
    GpsInput(const Clock& clock, GpsSurroundings& surroundings);

    /// Port thread.
    void onSentence(std::string_view text) { receiver_.onSentence(text); }

    // Everything below: main thread.

    Guarded<SentenceQueue>& queue() { return queue_; }
    /// Decodes the sentences in order of arrival and empties the queue, which the caller holds.
    void decode(SentenceQueue& held);
    SentenceDecoder& decoder() { return decoder_; }
    GpsFixStore& store() { return store_; }
    const GpsFixStore& store() const { return store_; }

    /// Whether the position can be flown by: also true while the simulator or the attitude module
    /// supplies it. `need3D` asks for three satellites and a fix in height as well.
    bool hasFix(bool need3D);

    /// The satellites in view; asking makes the receiver's satellite sentences wanted, and the
    /// first question after a pause empties the table.
    SatelliteWords satellitesForDisplay();
    /// Forgets the wish once 5 s have passed without a question. Called every tick.
    void expireSatellitesWanted();

    /// The simulator's while it is active, else the receiver's.
    std::int32_t altitudeFt() const;
    /// With the pilot's altimeter offset, unless that is kNoAltitudeOffset.
    std::int32_t correctedAltitudeFt() const;
    void setAltitudeOffsetFt(std::int32_t feet) { altitudeOffsetFt_ = feet; }

    double magneticToTrue(double magneticDeg) const;

 private:
    const Clock& clock_;
    GpsSurroundings& surroundings_;
    GpsFixStore store_;
    Guarded<SentenceQueue> queue_;
    SentenceReceiver receiver_;
    SentenceDecoder decoder_;
    std::optional<std::int64_t> satellitesAskedMs_;  // empty while they are not wanted
    std::int32_t altitudeOffsetFt_ = kNoAltitudeOffset;
};

}  // namespace korvel
