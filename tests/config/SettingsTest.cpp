#include <array>
#include <variant>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "config/FakeRegistry.h"
#include "config/ProfileFile.h"
#include "config/ReceiverChoice.h"
#include "config/Settings.h"

namespace korvel { namespace {

class SettingsTest : public testing::Test {
 protected:
    TempFolder folder_;
    FakeRegistry registry_;
    ProfileFile profile_{folder_.path(), registry_};
};

TEST_F(SettingsTest, AnEmptyProfileTakesAllDefaultsInOrder) {
    const std::string expected =
        "Port= ShowHints2=1 Icon=0 Autozoom=1 ViewMask=11 RotateMask=263168 RotateNavaids=1 "
        "HighNavaids=0 VRPNavaids=0 ApprMode=1 GearWarning=0 IcaoPrefix= SchemeFile= Autoview=1 "
        "Approach=75 AutoSequence=0 Tracking=0 MapMask2=134088702 MapPref=0 IntelliBdryAlt=0 "
        "GyroConn=1 ViaGyro=0 AltUnit=0 DisplayPages=128 DisplayPrivAirports=0 AltMode=0 SimLat= "
        "SimLon= PortGyro= BaudGyro= AutoApprMode=1 IgnoreMagVar=0 MinObsHt=5 GsUnit=0 LogEnable=1 "
        "LogStartVal=-1 LogEndVal=-1 ";
    const Settings settings = loadSettings(profile_);
    std::string values;
    for (const SettingInfo& setting : settingsTable()) {
        const SettingValue value = setting.valueIn(settings);
        const bool isText = std::holds_alternative<std::string>(value);
        const std::string text = isText ? std::get<std::string>(value) : std::to_string(std::get<int>(value));
        values += std::string(setting.key) + "=" + text + " ";
        const std::string stored = "Options" + std::string(isText ? "." : ":") + setting.key.data();
        ASSERT_EQ(profile_.entries().count(stored), 1U) << stored;
        EXPECT_EQ(profile_.entries().at(stored), text);
    }
    EXPECT_EQ(values, expected);
    EXPECT_EQ(settings, Settings{});
    EXPECT_EQ(profile_.entries().size(), 37U);
}

TEST_F(SettingsTest, AllTalkersAreOnInANewProfileAlone) {
    EXPECT_TRUE(loadReceiverChoice(profile_).allTalkers);
    loadSettings(profile_);
    EXPECT_TRUE(loadReceiverChoice(profile_).allTalkers) << "it has been entered";
    storeReceiverChoice(profile_, {.allTalkers = false});
    EXPECT_FALSE(loadReceiverChoice(profile_).allTalkers);
    EXPECT_EQ(profile_.entries().at("Options:Talkers"), "0");
    ProfileFile old(folder_.path(), registry_, "old.ini");
    loadSettings(old);
    EXPECT_FALSE(loadReceiverChoice(old).allTalkers) << "as it has served so far";
}

TEST_F(SettingsTest, FlagsAndRotationModesAreReducedOnlyInMemory) {
    struct Case {
        int mask;
        std::array<int, 3> modes;
    };
    for (const Case& one :
        {Case{263168, {0, 4, 4}}, Case{0x070707, {2, 2, 2}}, Case{0x030201, {1, 2, 3}}, Case{-1, {0, 0, 0}}}) {
        profile_.setInt("Options", "RotateMask", one.mask, true);
        EXPECT_EQ(loadSettings(profile_).rotateModes, one.modes) << one.mask;
    }
    profile_.setInt("Options", "ShowHints2", 5, true);
    profile_.setInt("Options", "Icon", -1, true);
    const Settings settings = loadSettings(profile_);
    EXPECT_TRUE(settings.showHints && settings.icons);
    EXPECT_EQ(profile_.entries().at("Options:ShowHints2"), "5");
}

TEST_F(SettingsTest, StoresOnlyWhatChanged) {
    Settings before;
    Settings after;
    after.port = "COM3:4800,N,8,1";
    after.rotateModes = {1, 2, 3};
    after.autozoom = false;
    after.logEndKt = 35;
    storeChangedSettings(profile_, before, after);
    EXPECT_EQ(profile_.entries(), (ProfileEntries{{"Options.Port", "COM3:4800,N,8,1"}, {"Options:RotateMask", "197121"},
                                      {"Options:Autozoom", "0"}, {"Options:LogEndVal", "35"}}));
    EXPECT_EQ(std::filesystem::file_size(profile_.path()), 0U) << "saved later";
    EXPECT_EQ(loadSettings(profile_), after);
}

}}  // namespace korvel
