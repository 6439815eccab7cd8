#include <gtest/gtest.h>

#include "cockpit/SimulatorForm.h"
#include "geo/Geodesy.h"

namespace korvel { namespace {

constexpr GeoPoint kStart{47.53 * kDegToRad, -122.302 * kDegToRad};

TEST(SimulatorFormTest, ReadsBackWhatItOffers) {
    SimulatorStart read;
    const SimulatorStart offered{.position = kStart,
        .headingMag = 135,
        .speedKt = 95,
        .altitudeFt = -40,
        .wind = {.fromTrueDeg = 270, .speedKt = 15}};
    EXPECT_EQ(SimulatorForm::of(offered).read(read), "");
    EXPECT_NEAR(read.position.lat, offered.position.lat, 1e-7);
    EXPECT_NEAR(read.position.lon, offered.position.lon, 1e-7);
    EXPECT_EQ(std::tuple(read.headingMag, read.speedKt, read.altitudeFt), std::tuple(135, 95, -40));
    EXPECT_EQ(read.wind, offered.wind);
}

TEST(SimulatorFormTest, RefusesWhatWillNotDo) {
    using Form = SimulatorForm;
    const std::tuple<std::string Form::*, const char*, std::vector<const char*>> cases[] = {
        {&Form::latitude, "Latitude", {"90.01", "", "47,53"}},
        {&Form::longitude, "Longitude", {"-181", "180.01", "nan"}}, {&Form::heading, "Heading", {"361"}},
        {&Form::speed, "Speed", {"1000", "-1"}}, {&Form::altitude, "Altitude", {"FL250", "inf"}},
        {&Form::windSpeed, "Wind", {"201", "-1"}}};
    for (const auto& [field, name, values] : cases)
        for (const char* value : values) {
            Form form = Form::of({.position = kStart});
            form.*field = value;
            SimulatorStart untouched{.position = kStart, .headingMag = 7};
            EXPECT_TRUE(form.read(untouched).starts_with(name)) << value;
            EXPECT_EQ(untouched.headingMag, 7);
        }
}

}}  // namespace korvel
