#include <gtest/gtest.h>

#include "screen/MapAngle.h"
#include "screen/ZoomGesture.h"
#include "window/sheets/CGPSDialog.h"

namespace korvel { namespace {

CockpitData flying(double trackTrueDeg, double groundSpeedKt) {
    CockpitData data;
    data.position = GeoPoint{0.8, 0.1};
    data.trackTrueDeg = trackTrueDeg;
    data.groundSpeedKt = groundSpeedKt;
    return data;
}

TEST(MapAngle, FollowsOnlyATrackThatCanBeTrusted) {
    MapAngle angle;
    EXPECT_EQ(angle.update(CockpitData{}), 0);
    EXPECT_EQ(angle.update(flying(90, 2.9)), 0);
    EXPECT_EQ(angle.update(flying(123.6, 3)), 124);
    EXPECT_EQ(angle.update(flying(200, 1)), 124);
    CockpitData stale = flying(200, 100);
    stale.position.reset();
    EXPECT_EQ(angle.update(stale), 124);
    CockpitData trackless = flying(200, 100);
    trackless.trackTrueDeg.reset();
    EXPECT_EQ(angle.update(trackless), 124);
    EXPECT_EQ(angle.update(flying(359.7, 100)), 0);
    EXPECT_EQ(angle.update(flying(-10, 100)), 350);
}

TEST(ZoomGesture, AddsUpFineMovementsAndTurnsAtOnce) {
    ZoomGesture zoom;
    EXPECT_EQ(zoom.wheel(120), 1);
    EXPECT_EQ(zoom.wheel(-240), -2);
    int steps = 0;
    for (int i = 0; i < 16; ++i) steps += zoom.wheel(15);
    EXPECT_EQ(steps, 2);
    EXPECT_EQ(zoom.wheel(90), 0);
    EXPECT_EQ(zoom.wheel(-90), 0);  // would be one step in, were the 90 not forgotten
    EXPECT_EQ(zoom.wheel(-30), -1);

    zoom.reset();
    steps = 0;
    for (int i = 0; i < 40; ++i) steps += zoom.pinch(1.0242);  // 40 times: a factor of 2.6, two steps
    EXPECT_EQ(steps, 2);
    zoom.reset();
    EXPECT_EQ(zoom.pinch(0.5), -1);
    EXPECT_EQ(zoom.pinch(0), 0);
}

TEST(CGPSDialog, GivesBackWhatItWasGivenUnlessThePilotChanges) {
    for (const std::string settings : {"", "COM1:,4800,N,8,1", "COM77:,38400,N,8,1", "/dev/ttyACM0:,14400,N,8,1"})
        EXPECT_EQ(CGPSDialog(nullptr, settings).settings(), settings);
    // What cannot be read is no port: search.
    for (const std::string settings : {"COM1", ":,9600,N,8,1", "COM1:,fast,N,8,1", "COM1:,0"})
        EXPECT_EQ(CGPSDialog(nullptr, settings).settings(), "");
}

}}  // namespace korvel
