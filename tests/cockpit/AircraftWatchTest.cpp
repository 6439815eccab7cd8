#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/AircraftForm.h"
#include "cockpit/AircraftWatch.h"
#include "cockpit/CockpitData.h"
#include "config/ProfileFile.h"
#include "geo/Geodesy.h"
#include "nav/alarms/AlarmBoard.h"
#include "platform/RegistryProfile.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

class AircraftWatchTest : public testing::Test {
 protected:
    /// A program that starts, with what the profile says.
    void start() {
        board_ = std::make_unique<AlarmBoard>();
        watch_ = std::make_unique<AircraftWatch>(profile_, clock_, *board_);
    }
    /// Minutes at a speed in one tick.
    void fly(int minutes, double knots) {
        clock_.advanceMs(minutes * 60'000LL);
        now_.flightMs = clock_.tickMs();
        now_.groundSpeedKt = knots;
        watch_->update(now_);
        board_->update(now_.flightMs);
    }
    std::optional<double> left() const {
        CockpitData data;
        watch_->fill(data);
        return data.fuelLeft;
    }
    std::string alarms() const {
        std::string words;
        for (const ShownAlarm& alarm : board_->shown()) words += alarm.words + ";";
        return words;
    }

    TempFolder folder_;
    VirtualClock clock_;
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_{folder_.path(), *registry_};
    std::unique_ptr<AlarmBoard> board_;
    std::unique_ptr<AircraftWatch> watch_;
    AircraftWatch::Situation now_{.flyingFromKt = 75, .flyingToKt = 37.5};
};

TEST_F(AircraftWatchTest, FuelCountsDownInFlightAndOutlivesAKill) {
    start();
    watch_->enterFuel(80);
    EXPECT_FALSE(left()) << "of no aircraft";
    AircraftProfile aircraft;  // 25 an hour, reserve 12.5
    aircraft.name = "D-EABC";
    aircraft.glideRatio = 8.5;
    watch_->choose(aircraft);
    watch_->enterFuel(80);
    fly(0, 10);
    fly(12, 74);
    EXPECT_EQ(left(), 80) << "taxying";
    fly(12, 75);
    EXPECT_EQ(left(), 75);
    fly(12, 38);
    EXPECT_EQ(left(), 70) << "slow in the circuit";
    now_.simulated = true;
    fly(60, 120);
    EXPECT_EQ(left(), 70) << "another aircraft";
    fly(60, 120);
    EXPECT_EQ(left(), 45);
    now_.simulated = false;
    fly(1, 10);
    EXPECT_EQ(left(), 70) << "nothing was burnt";
    fly(0, 80);
    start();
    EXPECT_EQ(watch_->aircraft(), aircraft);
    clock_.advanceMs(24 * 60'000);
    start();
    EXPECT_EQ(left(), 60) << "it flew on";
    fly(0, 80);
    fly(113, 80);
    EXPECT_EQ(alarms(), "");
    fly(2, 80);
    EXPECT_EQ(alarms(), "FUEL RESERVE;");
    fly(1, 30);
    EXPECT_EQ(alarms(), "");
    clock_.advanceMs(12 * 3'600'000LL);
    start();
    EXPECT_FALSE(left()) << "another day";
    for (const auto& [key, value] :
        {std::pair{"FuelEntered", "1e300"}, {"FuelLeft", "1e300"}, {"FuelKept", "-1e300"}}) {
        watch_->enterFuel(50);
        profile_.setString("Aircraft", key, value, true);
        start();
        EXPECT_FALSE(left()) << key;
    }
    aircraft.fuelUnit = FuelUnit::Gallons;
    watch_->enterFuel(50);
    watch_->choose(aircraft);
    EXPECT_FALSE(left()) << "fifty of something else";
    watch_->choose(std::nullopt);
    start();
    EXPECT_FALSE(watch_->aircraft());
}

TEST_F(AircraftWatchTest, TheOtherTankIsRemindedOfWhileItFlies) {
    start();
    AircraftProfile aircraft;
    aircraft.tankMinutes = 30;
    watch_->choose(aircraft);
    fly(40, 20);
    fly(0, 80);
    fly(29, 80);
    EXPECT_EQ(alarms(), "") << "taxying is no flight";
    fly(1, 80);
    EXPECT_EQ(alarms(), "SWITCH TANK;");
    board_->acknowledge();
    fly(3, 80);
    EXPECT_EQ(alarms(), "");
    fly(26, 80);
    fly(1, 80);
    EXPECT_EQ(alarms(), "SWITCH TANK;") << "and again";
    fly(5, 80);
    EXPECT_EQ(alarms(), "") << "nobody listens";
    fly(1, 20);
    fly(0, 80);
    fly(25, 80);
    EXPECT_EQ(alarms(), "") << "another flight";
}

TEST_F(AircraftWatchTest, TheTopOfDescentIsToldOnceTwoMinutesAhead) {
    start();
    watch_->choose(AircraftProfile{});
    now_.altitudeFt = 5500;
    now_.pathTargetFt = 2500;  // six minutes at 500 ft a minute
    now_.pathEnd = {0.8, 0.2};
    const auto noticeAt = [&](double minutesOut) {
        now_.pathNm = minutesOut * 2;
        fly(0, 120);
        return alarms();
    };
    EXPECT_EQ(noticeAt(8.1), "");
    EXPECT_EQ(noticeAt(8), "Top of descent in 2 min;");
    EXPECT_EQ(noticeAt(9.5), "");
    EXPECT_EQ(noticeAt(7.9), "") << "told already";
    now_.pathEnd = {0.9, 0.2};
    now_.altitudeFt = 2750;
    EXPECT_EQ(noticeAt(1), "") << "hardly a descent";
    now_.altitudeFt = 5500;
    EXPECT_EQ(noticeAt(5.9), "") << "it lies behind";
    EXPECT_EQ(noticeAt(6.5), "Top of descent in 1 min;");
    now_.pathTargetFt.reset();
    EXPECT_EQ(noticeAt(6.5), "");
}

TEST_F(AircraftWatchTest, TheEnteredWindGoesBeforeTheEstimatedOne) {
    start();
    const auto wind = [&] {
        CockpitData data;
        watch_->fill(data);
        return windStateText(data);
    };
    EXPECT_EQ(wind().find("No wind known"), 0U);
    for (int heading = 0; heading < 360; heading += 10) {
        now_.trackTrueDeg = heading;
        fly(0, 100);
        clock_.advanceMs(2000);
    }
    EXPECT_EQ(wind().find("WIND ESTIMATED: "), 0U) << wind();
    watch_->enterWind(Wind{250, 18});
    fly(3, 100);
    EXPECT_EQ(wind(), "WIND ENTERED: 250°T 18 kt, 3 min ago");
    watch_->enterWind(std::nullopt);
    EXPECT_EQ(wind().find("WIND ESTIMATED: "), 0U);
    watch_->forgetMotion();
    EXPECT_EQ(wind().find("No wind known"), 0U);
}

TEST(AircraftForms, TakeWhatWillDoAndNameWhatWillNot) {
    AircraftForm form = AircraftForm::of({});
    AircraftProfile aircraft;
    form.numbers[0] = "140";
    form.numbers[8] = "8.5";
    EXPECT_EQ(form.read(aircraft), "");
    EXPECT_EQ(aircraft.cruiseKt, 140);
    EXPECT_EQ(aircraft.glideRatio, 8.5);
    for (const char* wrong : {"", "29", "501", "100x", "nan"}) {
        form.numbers[0] = wrong;
        EXPECT_EQ(form.read(aircraft).find("Cruise speed"), 0U) << wrong;
    }
    EXPECT_EQ(aircraft.cruiseKt, 140);

    FuelForm::Entry entry;
    EXPECT_EQ((FuelForm{"100", "250", "18"}.read(aircraft, entry)), "");
    EXPECT_EQ(entry.fuel, 100);
    EXPECT_EQ(entry.wind, (Wind{250, 18}));
    EXPECT_NE((FuelForm{"101", "", ""}.read(aircraft, entry)), "") << "more than it holds";
    EXPECT_NE((FuelForm{"", "250", ""}.read(aircraft, entry)), "");
    EXPECT_NE((FuelForm{"", "361", "18"}.read(aircraft, entry)), "");
    EXPECT_EQ(entry.fuel, 100);
    EXPECT_EQ((FuelForm{"", "", ""}.read(aircraft, entry)), "");
    EXPECT_FALSE(entry.fuel || entry.wind);
}

}}  // namespace korvel
