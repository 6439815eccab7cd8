#include <cmath>
#include <optional>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "cockpit/DerivedAttitude.h"

namespace korvel { namespace {

// Flies one tick after the other; the receiver sends every `everyMs`.
class Flown {
 public:
    std::int64_t everyMs = 1000;
    std::int64_t tickMs = 500;
    double ratePerSec = 0;
    CockpitData data = flying();

    void fly(int ticks) {
        for (int i = 0; i < ticks; ++i) {
            nowMs_ += tickMs;
            if (nowMs_ % everyMs == 0) {
                const double turned = track_ + ratePerSec * static_cast<double>(everyMs) / 1000;
                track_ = std::fmod(turned + 360, 360);
            }
            data.trackMagDeg = track_;
            data.turnRateDegPerSec = data.bankDeg = data.pitchDeg = std::nullopt;
            attitude_.update(data, nowMs_);
        }
    }

 private:
    DerivedAttitude attitude_;
    std::int64_t nowMs_ = 0;
    double track_ = 350;
};

TEST(DerivedAttitude, BanksAsAStandardTurnNeedsIt) {
    const struct {
        double rate;
        double speedKt;
        double bank;  // atan of speed times rate over gravity
    } cases[] = {{3, 100, 15.36}, {-3, 100, -15.36}, {6, 60, 18.24}, {0, 150, 0},
        {30, 200, 60}};  // the last one is no aircraft's
    for (const auto& each : cases)
        for (const std::int64_t every : {500, 1000}) {
            Flown flight;
            flight.everyMs = every;
            flight.ratePerSec = each.rate;
            flight.data.groundSpeedKt = each.speedKt;
            flight.fly(20);  // across north
            ASSERT_TRUE(flight.data.bankDeg);
            EXPECT_NEAR(*flight.data.turnRateDegPerSec, each.rate, 0.01) << every;
            EXPECT_NEAR(*flight.data.bankDeg, each.bank, 0.05) << every;
            flight.ratePerSec = 0;
            flight.fly(8);
            EXPECT_NEAR(*flight.data.bankDeg, 0, 0.05) << "level again after four seconds";
        }
}

TEST(DerivedAttitude, FollowsTurnsWhenSimulatedTimePassesFaster) {
    for (const std::int64_t factor : {8, 60}) {
        Flown flight;
        flight.everyMs = flight.tickMs = 500 * factor;
        flight.data.groundSpeedKt = 100;
        flight.ratePerSec = 3;
        flight.fly(5);
        ASSERT_TRUE(flight.data.bankDeg) << factor;
        EXPECT_NEAR(*flight.data.bankDeg, 15.36, 0.05) << factor;
        flight.ratePerSec = 0;
        flight.fly(2);
        EXPECT_NEAR(*flight.data.bankDeg, 0, 0.05) << factor;
        flight.tickMs = flight.everyMs = 500;
        flight.fly(1);
        EXPECT_TRUE(flight.data.bankDeg) << "time passes as usual again";
        flight.fly(8);
        EXPECT_TRUE(flight.data.bankDeg);
        flight.tickMs = 120000;
        flight.fly(1);
        EXPECT_FALSE(flight.data.bankDeg) << "nothing is known of the last two minutes";
    }
}

TEST(DerivedAttitude, PitchIsTheAngleOfTheFlightPath) {
    Flown flight;
    flight.data.groundSpeedKt = 90;
    flight.data.verticalSpeedFpm = -478;  // three degrees down
    flight.fly(10);
    EXPECT_NEAR(*flight.data.pitchDeg, -3, 0.01);
    flight.data.verticalSpeedFpm.reset();
    flight.fly(1);
    EXPECT_FALSE(flight.data.pitchDeg);
}

TEST(DerivedAttitude, NothingIsMadeUp) {
    Flown flight;
    flight.ratePerSec = 3;
    flight.fly(3);
    EXPECT_FALSE(flight.data.bankDeg) << "too early";
    flight.fly(4);
    EXPECT_TRUE(flight.data.bankDeg);
    flight.data.groundSpeedKt = 20;
    flight.fly(1);
    EXPECT_FALSE(flight.data.bankDeg) << "too slow to fly";
    flight.data.groundSpeedKt = 90;
    flight.fly(1);
    EXPECT_FALSE(flight.data.bankDeg) << "begins anew";
}

}}  // namespace korvel
