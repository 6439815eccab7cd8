#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "geo/Variation.h"
#include "receiver/GpsFixStore.h"
#include "receiver/GpsSurroundings.h"

namespace korvel {

/// Writes the values of accepted sentences into the fix. Main thread, under the queue lock; takes
/// the fix lock inside it.
class SentenceDecoder {
 public:
    /// Both outlive the decoder.
    SentenceDecoder(GpsFixStore& store, GpsSurroundings& surroundings)
        : store_(store), surroundings_(surroundings) {}

    /// One sentence without its CR. Does nothing while the simulator is active. `nowMs` becomes
    /// the age mark of what is stored.
    void decodeSentence(std::string_view text, std::int64_t nowMs);

    /// The variations in force for this fix, the receiver's sign turned to east positive.
    Variation variation() const;

 private:
    using Fields = std::span<const std::string_view>;

    // Fields by number, 0 being the name:
    //  1 time, 2 status, 3-4 latitude, 5-6 longitude, 7 knots, 8 true course, 9 date, 10-11
    //  variation
    void decodeRmc(Fields fields);
    //  1 true course, 5 knots, 7 km/h
    void decodeVtg(Fields fields);
    //  1 time, 2-3 latitude, 4-5 longitude, 6 quality, 7 satellites in use, 9 altitude in metres
    void decodeGga(Fields fields);
    //  1 messages in the cycle, 2 this one, then four satellites of number, elevation, azimuth and
    //  signal
    void decodeGsv(Fields fields);
    //  2 kind of fix, 3-14 satellites used
    void decodeGsa(Fields fields);

    void storePosition(Fields fields, std::size_t latitude, std::size_t longitude);
    void storeGroundSpeed(double knots);
    void storeTrack(std::string_view trueCourse);
    void storeVariation(std::string_view degrees, std::string_view side);
    void storeQuality(std::string_view quality);
    std::uint32_t satelliteWord(Fields group) const;
    void startSbas();
    void raise(std::uint32_t flag);
    void trace(std::string_view tag) { store_.trace(text_, tag); }

    GpsFixStore& store_;
    GpsSurroundings& surroundings_;
    std::string_view text_;   // the sentence that is being decoded
    std::int64_t nowMs_ = 0;  // and when
    bool sbasDone_ = false;   // the start-up commands are decided once in a run of the program
    std::array<std::int32_t, kSatelliteSlots> used_{};  // numbers from the last GSA, 0 for none
    SatelliteWords assembly_{};                         // of the GSV cycle in progress
};

}  // namespace korvel
