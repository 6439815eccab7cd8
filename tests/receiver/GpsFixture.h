#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/VirtualClock.h"
#include "receiver/GpsInput.h"

namespace korvel {

/// A sentence with its checksum: "GPRMC,…" becomes "$GPRMC,…*hh".
inline std::string sentence(std::string_view body) {
    unsigned sum = 0;
    for (const char c : body) { sum ^= static_cast<unsigned char>(c); }
    char tail[8];
    std::snprintf(tail, sizeof tail, "*%02X", sum);
    return std::string("$").append(body).append(tail);
}

/// What the program around the receiver does, noted down.
struct FakeSurroundings final : GpsSurroundings {
    bool simulator = false;
    bool ignoreVariation = false;
    double databaseVariation = kNoAngle;
    std::string port;
    std::vector<std::string> sent;
    std::vector<std::string> attitude;

    bool simulatorActive() const override { return simulator; }
    std::int32_t simulatedAltitudeFt() const override { return 4500; }
    bool ignoreReceiverVariation() const override { return ignoreVariation; }
    double databaseVariationDeg() const override { return databaseVariation; }
    std::string portSettings() const override { return port; }
    void writeToPort(std::string_view bytes) override { sent.emplace_back(bytes); }
    void passToAttitudePlugin(std::string_view text) override { attitude.emplace_back(text); }
};

/// The road from a line to the fix, on a clock that stands still.
class GpsTest : public testing::Test {
 protected:
    void decodeQueue() { input_.decode(*input_.queue().lock()); }
    void feed(std::string_view body) {
        input_.onSentence(sentence(body));
        decodeQueue();
    }
    std::size_t waiting() { return input_.queue().lock()->sentences().size(); }
    GpsFix fix() { return input_.store().copy(); }
    std::vector<std::string> trace() { return input_.store().takeTrace(); }

    VirtualClock clock_;
    FakeSurroundings surroundings_;
    GpsInput input_{clock_, surroundings_};
};

}  // namespace korvel
