#include <functional>

#include <gtest/gtest.h>

#include "TimeZone.h"
#include "cockpit/Cockpit.h"
#include "cockpit/CorrectedClock.h"
#include "cockpit/Modes.h"
#include "platform/SystemClock.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

std::string wordsOf(const std::vector<Mode>& modes, std::string Mode::*words = &Mode::words) {
    std::string all;
    for (const Mode& mode : modes) all += (all.empty() ? "" : " | ") + mode.*words;
    return all;
}

TEST(Modes, EachStateIsMarked) {
    const std::tuple<const char*, std::function<void(CockpitData&)>> cases[] = {
        {"", [](CockpitData&) {}},
        {"", [](CockpitData& data) { data.fix3D = false; }},  // the receiver never says
        {"2D", [](CockpitData& data) { data.fix2D = true; }},
        {"NO GPS", [](CockpitData& data) { data = lost(1), data.fix2D = true; }},
        {"SIM", [](CockpitData& data) { data.simulated = data.fix2D = true; }},
        {"SIM", [](CockpitData& data) { data.simulated = true, data.source = SourceKind::Demonstration; }},
        {"DEMO", [](CockpitData& data) { data.source = SourceKind::Demonstration; }},
        {"REPLAY", [](CockpitData& data) { data.source = SourceKind::Replay; }},
        {"REPLAY ENDED | NO GPS",
            [](CockpitData& data) { data = lost(9), data.source = SourceKind::Replay, data.sourceEnded = true; }},
        {"EMERGENCY | D→", [](CockpitData& data) { data.emergency = data.directLeg = true; }},
        {"SUSP", [](CockpitData& data) { data.suspended = true; }},
        {"D→ | OBS 090° | REC",
            [](CockpitData& data) { data.directLeg = data.recording = true, data.obsCourseMagDeg = 90; }},
        {"CHARTS EXPIRED 2013-05-02", [](CockpitData& data) { data.databaseNotice = "CHARTS EXPIRED 2013-05-02"; }},
    };
    for (const auto& [words, change] : cases) {
        CockpitData data = flying();
        change(data);
        EXPECT_EQ(wordsOf(modesOf(data)), words);
    }
}

TEST(Modes, TheChartsMarkIsCutWhereItMustBe) {
    for (const auto& [notice, words] : {std::pair{"CHARTS EXPIRED 2013-05-02", "CHARTS EXPIRED"},
             {"NO CHARTS: see Help, Load Report", "NO CHARTS"}, {"CHARTS WITHOUT A DATE", "CHARTS WITHOUT A DATE"}}) {
        CockpitData data = flying();
        data.databaseNotice = notice;
        EXPECT_EQ(wordsOf(modesOf(data), &Mode::shortWords), words);
    }
}

TEST(CorrectedClock, TellsTheTrueTimeInTheComputersZone) {
    const TimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    if (!zone.isInForce()) GTEST_SKIP() << "the zone is the whole system's";
    const SystemClock system;
    // A computer that came up without a battery, in winter, while it is summer.
    const VirtualClock wrong({.year = 2000, .month = 1, .day = 1, .hour = 1}, system);
    CorrectedClock clock(wrong);
    EXPECT_EQ(clock.localNow(), wrong.localNow());
    const std::int64_t now = localSeconds({.year = 2027, .month = 7, .day = 1, .hour = 12});
    clock.setNow(now);
    EXPECT_EQ(clock.unixSeconds(), now);
    EXPECT_EQ(clock.localNow(), (LocalTime{.year = 2027, .month = 7, .day = 1, .hour = 14}));
    EXPECT_EQ(clock.tickMs(), wrong.tickMs());
    clock.setNow(std::nullopt);
    EXPECT_EQ(clock.localNow(), wrong.localNow());
}

}}  // namespace korvel
