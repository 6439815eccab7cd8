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
    for (const char c : body) sum ^= static_cast<unsigned char>(c);
    char tail[8];
    std::snprintf(tail, sizeof tail, "*%02X", sum);
    return std::string("$").append(body).append(tail);
}

/// What takes the receiver's place when it is told to.
struct FakeSource final : PositionSource {
    bool active = false;

    bool isActive() const override { return active; }
    Aircraft aircraft() const override { return {.altitudeFt = 4500}; }
};

/// The road from a line to the fix, on a clock that stands still.
class GpsTest : public testing::Test {
 protected:
    void SetUp() override { input_.setOtherSource(&otherSource_); }
    void decodeQueue() { input_.decode(*input_.queue().lock()); }
    void feed(std::string_view body) {
        input_.onSentence(sentence(body));
        decodeQueue();
    }
    std::size_t waiting() { return input_.queue().lock()->sentences().size(); }
    GpsFix fix() { return input_.store().copy(); }
    std::vector<std::string> trace() { return input_.store().takeTrace(); }

    VirtualClock clock_;
    FakeSource otherSource_;
    std::vector<std::string> answers_;
    std::vector<std::string> attitude_;
    GpsInput input_{clock_, {.answer = [this](std::string_view bytes) { answers_.emplace_back(bytes); },
                                .attitude = [this](std::string_view line) { attitude_.emplace_back(line); }}};
};

}  // namespace korvel
