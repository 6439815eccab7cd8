#include <gtest/gtest.h>

#include "base/TextNumbers.h"
#include "receiver/DemoFlight.h"
#include "receiver/ReplayScript.h"

namespace korvel { namespace {

std::vector<std::int64_t> offsets(const std::vector<ReplayStep>& script) {
    std::vector<std::int64_t> result;
    for (const ReplayStep& step : script) result.push_back(step.offsetMs);
    return result;
}

TEST(ReplayScript, FollowsTheTimesInTheSentences) {
    const std::tuple<const char*, const char*, std::vector<std::int64_t>> cases[] = {
        {"one burst a second, sentences of one time together",
            "$GPGGA,100000,1\n$GPGSA,A\n$GPRMC,100000,A\n$GPGGA,100001,1\n$GPRMC,100001,A\n", {0, 1000}},
        {"ten a second", "$GPRMC,100000.00,A\n$GPRMC,100000.10,A\n$GPRMC,100000.2,A\n", {0, 100, 200}},
        {"midnight", "$GNRMC,235959.50,A\n$GNRMC,000000.50,A\n", {0, 1000}},
        {"an interrupted log and one that runs backwards", "$GPRMC,100000,A\n$GPRMC,113000,A\n$GPRMC,112959,A\n",
            {0, 1000, 2000}},
        {"no fix and so no time", "$GPGGA,,,\n$GPGSV,2,1\n$GPGSV,2,2\n$GPRMC,,V\n$GPGGA,,,\n$GPRMC,,V\n", {0, 1000}},
        {"time lost and found", "$GPRMC,100000,A\n$GPRMC,,V\n$GPRMC,,V\n$GPRMC,100007,A\n", {0, 1000, 2000, 3000}},
        {"time in GLL's fifth field", "$GPGLL,1,N,2,E,100000,A\n$GPGLL,1,N,2,E,100001,A\n", {0, 1000}},
        {"nothing", "", {}},
        {"notes only", "# a\n# b\n", {}},
    };
    for (const auto& [what, log, expected] : cases) EXPECT_EQ(offsets(makeReplayScript(log)), expected) << what;
}

TEST(ReplayScript, KeepsEveryByteButTheNotes) {
    const std::string binary("\xA0\xA2\x00\x12\r\n", 6);
    const std::string log = "# note\n" + binary + "$GPRMC,100000,A\r\n# note\r\n$GPRMC,100001,A";
    std::string played;
    for (const ReplayStep& step : makeReplayScript(log)) played += step.bytes;
    EXPECT_EQ(played, binary + "$GPRMC,100000,A\r\n$GPRMC,100001,A");
}

TEST(ReplayScript, EndsSentencesAsTheReceiverDid) {
    EXPECT_EQ(makeReplayScript("$GPRMC,1\n\xA0\n$GPGGA,1\r\n\n").front().bytes, "$GPRMC,1\r\n\xA0\n$GPGGA,1\r\n\n");
}

TEST(DemoFlight, IsARoundTripAtOneBurstASecond) {
    const std::string log = makeDemoFlightLog();
    const std::vector<ReplayStep> script = makeReplayScript(log);
    ASSERT_GT(script.size(), 3000U);
    EXPECT_EQ(script.back().offsetMs, static_cast<std::int64_t>(script.size() - 1) * 1000);
    const std::string rmc = "$GPRMC,090000.00,A,4725.9080,N,12218.4800,W,60.0,";
    EXPECT_EQ(script.front().bytes.substr(0, rmc.size()), rmc);
    const std::string& last = script.back().bytes;
    constexpr double kMinutes = 1.0;
    EXPECT_NEAR(ParseDouble(last.substr(last.find(",A,") + 3)), 4725.908, kMinutes) << last;
    EXPECT_NEAR(ParseDouble(last.substr(last.find(",N,") + 3)), 12218.48, kMinutes) << last;
}

}}  // namespace korvel
