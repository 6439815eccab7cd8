#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "platform/VirtualClock.h"
#include "receiver/GpsInput.h"
#include "receiver/SentenceSource.h"
#include "tools/Invocation.h"

namespace korvel {

/// The receiver's road from a line to the fix, with what came of it.
class NmeaDecoding final : public SentenceListener {
 public:
    struct Options {
        bool allTalkers = false;
        bool satellites = false;
        bool trace = false;
        std::string port{};  ///< the settings text of the port, empty for none
        bool ignoreVariation = false;
        double databaseVariationDeg = kNoAngle;  ///< east positive
    };

    explicit NmeaDecoding(const Options& options);

    /// A line, at a clock that stands still.
    void takeLine(std::string_view line);
    /// From a source's thread, while it runs.
    void onLine(std::string_view line, std::int64_t arrivedMs) override {
        input_.onSentence(line, arrivedMs);
    }
    /// False when nothing waited.
    bool decode();

    /// What nmea prints.
    Json json();
    std::string plain();

 private:
    void collectTrace();

    VirtualClock clock_;
    std::vector<std::string> sent_;  // to the receiver, if there were one
    GpsInput input_{clock_,
                    {.answer = [this](std::string_view bytes) { sent_.emplace_back(bytes); }}};
    bool trace_;
    bool showsSky_;
    std::vector<std::string> traceLines_;
};

}  // namespace korvel
