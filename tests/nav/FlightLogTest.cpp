#include <gtest/gtest.h>

#include "TempFolder.h"
#include "config/Settings.h"
#include "nav/track/FlightLog.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

TEST(FlightTime, RoundsMinutesAndTenthsUp) {
    for (const auto& [seconds, text] : {std::pair{0, "0,0.0"}, {125, "3,0.1"}, {420, "7,0.2"}, {3601, "61,1.1"}})
        EXPECT_EQ(flightTimeText(seconds), text);
}

TEST(FlightLogOptions, ApproachSpeedServesWhereNothingIsSet) {
    Settings settings;
    settings.approachSpeedKt = 80;
    const std::tuple<int, int, int, int> cases[] = {{-1, -1, 80, 40}, {30, 0, 30, 0}, {30, 50, 30, 30}};
    for (const auto& [start, end, startKt, endKt] : cases) {
        settings.logStartKt = start;
        settings.logEndKt = end;
        const auto options = FlightLog::Options::from(settings);
        EXPECT_EQ(std::tuple(options.startKt, options.endKt), std::tuple(startKt, endKt));
    }
}

class FlightLogTest : public testing::Test {
 protected:
    /// Flies at that speed, half a second a tick.
    void fly(FlightLog& log, std::optional<double> speedKt, int seconds) {
        for (int i = 0; i < seconds * 2; ++i) {
            clock_.advanceMs(500);
            log.step(options_, speedKt);
        }
    }
    FlightLog open() {
        return {clock_, folder_ / "log.txt", [this] { return place_; }};
    }

    TempFolder folder_;
    VirtualClock clock_{{.year = 2026, .month = 5, .day = 1, .hour = 9, .minute = 59}};
    FlightLog::Options options_{.startKt = 60, .endKt = 30};
    std::string place_ = "EDVV";
};

TEST_F(FlightLogTest, WritesOneLineForEachFlight) {
    FlightLog log = open();
    fly(log, 59.9, 60);
    fly(log, 60, 300);
    fly(log, 20, 9);
    fly(log, std::nullopt, 60);
    place_ = "EDDH";
    fly(log, 45, 300);
    EXPECT_TRUE(log.inFlight()) << "slow for less than ten seconds, then unknown";
    fly(log, 29.9, 11);
    EXPECT_EQ(folder_.read("log.txt"), "20260501,10:00,EDVV,10:11,EDDH,12,0.2\r\n");
    EXPECT_FALSE(folder_.has("log.txt.flight"));

    options_.enabled = false;
    fly(log, 90, 30);
    options_.enabled = true;
    place_ = "";
    fly(log, 90, 60);
    log.close();
    EXPECT_EQ(folder_.read("log.txt"), "20260501,10:00,EDVV,10:11,EDDH,12,0.2\r\n20260501,,,10:12,,1,0.1\r\n");
}

TEST_F(FlightLogTest, AFlightThatIsClosedEndsNowOrWhenItBecameSlow) {
    for (const auto& [seconds, slowSeconds, on] : {std::tuple{60, 0, "10:00"}, {57, 8, "09:59"}}) {
        clock_.setLocalNow({.year = 2026, .month = 5, .day = 1, .hour = 9, .minute = 59});
        const std::string file = std::to_string(seconds);
        FlightLog log{clock_, folder_ / file, [] { return ""; }};
        fly(log, 0, 1);
        fly(log, 100, seconds);
        fly(log, 20, slowSeconds);
        log.close();
        EXPECT_EQ(folder_.read(file), std::string("20260501,09:59,,").append(on).append(",,1,0.1\r\n"));
    }
}

TEST_F(FlightLogTest, AKilledProgramLosesAtMostFiveSeconds) {
    {
        FlightLog log = open();
        fly(log, 0, 1);
        fly(log, 100, 604);
        EXPECT_FALSE(folder_.has("log.txt"));
    }
    const std::string journal = folder_.read("log.txt.flight");
    const std::string line = "20260501,09:59,EDVV,10:09,EDVV,10,0.2\r\n";
    const std::string before = "20260430,08:00,A,09:00,B,60,1.0\r\n2026043";
    for (const std::size_t torn : {0U, 7U}) {
        folder_.write("log.txt.flight", journal + journal.substr(0, torn));
        folder_.write("log.txt", before);
        open();
        EXPECT_EQ(folder_.read("log.txt"), std::string(before).append("\r\n").append(line)) << torn;
        EXPECT_FALSE(folder_.has("log.txt.flight"));
    }
    folder_.write("log.txt.flight", journal);
    open();
    EXPECT_EQ(folder_.read("log.txt"), before + "\r\n" + line) << "killed after the line was done";
}

}}  // namespace korvel
