#include <gtest/gtest.h>

#include "receiver/PortSettings.h"

namespace korvel { namespace {

TEST(PortSettings, KeepWhatTheTextSays) {
    struct Case {
        const char *text, *device, *speed, *label;
        int baud;
    };
    for (const Case& c : {Case{"COM3:,9600,N,8,1", "COM3:", "9600", "COM3 9600", 9600},
             Case{"COM1:,4800", "COM1:", "4800", "COM1 4800", 4800},
             Case{"COM6:,38400,", "COM6:", "38400", "COM6 38400", 38400}, Case{"COM1", "COM1", "", "COM1", 0},
             Case{"/dev/ttyACM0:,fast,N,8,1", "/dev/ttyACM0:", "fast", "/dev/ttyACM0 fast", 0},
             Case{"COM1:,-5", "COM1:", "-5", "COM1 -5", 0}, Case{":,9600", ":", "9600", " 9600", 9600}}) {
        const auto settings = PortSettings::parse(c.text);
        ASSERT_TRUE(settings) << c.text;
        EXPECT_EQ(settings->device, c.device);
        EXPECT_EQ(settings->speed, c.speed);
        EXPECT_EQ(settings->label(), c.label);
        EXPECT_EQ(settings->baud(), c.baud) << c.text;
        EXPECT_EQ(settings->format(), c.text);
    }
    EXPECT_FALSE(PortSettings::parse(""));
    for (const char* name : {"COM7", "COM7:"}) EXPECT_EQ(PortSettings::of(name, "57600").format(), "COM7:,57600,N,8,1");
}

}}  // namespace korvel
