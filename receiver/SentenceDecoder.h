#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "geo/Variation.h"
#include "receiver/GpsFixStore.h"

namespace korvel {

/// Writes the values of accepted sentences into the fix. Main thread, under the queue lock; takes
/// the fix lock inside it.
class SentenceDecoder {
 public:
    /// The store outlives the decoder.
    explicit SentenceDecoder(GpsFixStore& store) : store_(store) {}

    /// The database's variation at a place, degrees, east positive; kNoAngle when unknown. It is
    /// asked at the newest position, which the sentence that is being decoded may just have
    /// brought, and so under the queue lock.
    using VariationLookup = std::function<double(GeoPoint)>;
    void setVariationLookup(VariationLookup lookup) { variationAt_ = std::move(lookup); }
    /// The receiver's own variation is left aside.
    void ignoreReceiverVariation(bool on) { ignoreReceiverVariation_ = on; }
    /// The settings text of the port that the sentences come through, empty when it is none.
    void setPort(std::string portText) { portText_ = std::move(portText); }

    /// One sentence without its CR. `arrivedMs` becomes the age mark of what is stored. A field
    /// that is empty or no finite number leaves its value as it was.
    void decodeSentence(std::string_view text, std::int64_t arrivedMs);

    /// The variations in force at a place, the receiver's sign turned to east positive.
    Variation variation(GeoPoint here) const;

    /// Hands over what is to be sent to the receiver, in order, once no lock is held any more: a
    /// port may keep whoever writes waiting.
    std::vector<std::string> takeCommands() { return std::exchange(commands_, {}); }

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

    /// False when there is none in these fields.
    bool storePosition(Fields fields, std::size_t latitude, std::size_t longitude);
    void storeGroundSpeed(double knots);
    void storeTrack(std::string_view trueCourse);
    void storeAltitude(std::string_view metres);
    void storeTime(std::string_view time, std::string_view date);
    void storeVariation(std::string_view degrees, std::string_view side);
    void storeQuality(std::string_view quality);
    std::uint32_t satelliteWord(Fields group) const;
    void startSbas();
    void raise(std::uint32_t flag);
    void trace(std::string_view tag) { store_.trace(text_, tag); }

    GpsFixStore& store_;
    VariationLookup variationAt_;
    bool ignoreReceiverVariation_ = false;
    std::string portText_;
    std::vector<std::string> commands_;
    std::string_view text_;       // the sentence that is being decoded
    std::int64_t arrivedMs_ = 0;  // and when it came
    bool sbasDone_ = false;       // the start-up commands are decided once in a run of the program
    std::array<std::int32_t, kSatelliteSlots> used_{};  // numbers from the last GSA, 0 for none
    SatelliteWords assembly_{};                         // of the GSV cycle in progress
};

}  // namespace korvel
