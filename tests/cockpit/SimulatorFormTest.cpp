#include <gtest/gtest.h>

#include "cockpit/SimulatorForm.h"
#include "geo/Geodesy.h"

namespace korvel { namespace {

constexpr GeoPoint kStart{47.53 * kDegToRad, -122.302 * kDegToRad};

TEST(SimulatorFormTest, ReadsBackWhatItOffers) {
    SimulatorStart read;
    const SimulatorStart offered{.position = kStart, .headingMag = 135, .speedKt = 95, .altitudeFt = -40};
    EXPECT_EQ(SimulatorForm::of(offered).read(read), "");
    EXPECT_NEAR(read.position.lat, offered.position.lat, 1e-7);
    EXPECT_NEAR(read.position.lon, offered.position.lon, 1e-7);
    EXPECT_EQ(read.headingMag, 135);
    EXPECT_EQ(read.speedKt, 95);
    EXPECT_EQ(read.altitudeFt, -40);
}

TEST(SimulatorFormTest, RefusesWhatWillNotDo) {
    struct Case {
        std::string SimulatorForm::*field;
        std::string value;
        std::string name;
    };
    for (const auto& [field, value, name] :
        {Case{&SimulatorForm::latitude, "90.01", "Latitude"}, Case{&SimulatorForm::latitude, "", "Latitude"},
            Case{&SimulatorForm::latitude, "47,53", "Latitude"}, Case{&SimulatorForm::longitude, "-181", "Longitude"},
            Case{&SimulatorForm::longitude, "180.01", "Longitude"}, Case{&SimulatorForm::longitude, "nan", "Longitude"},
            Case{&SimulatorForm::heading, "361", "Heading"}, Case{&SimulatorForm::speed, "1000", "Speed"},
            Case{&SimulatorForm::speed, "-1", "Speed"}, Case{&SimulatorForm::altitude, "FL250", "Altitude"},
            Case{&SimulatorForm::altitude, "inf", "Altitude"}}) {
        SimulatorForm form = SimulatorForm::of({.position = kStart});
        form.*field = value;
        SimulatorStart untouched{.position = kStart, .headingMag = 7};
        EXPECT_EQ(form.read(untouched).substr(0, name.size()), name) << value;
        EXPECT_EQ(untouched.headingMag, 7);
    }
}

}}  // namespace korvel
