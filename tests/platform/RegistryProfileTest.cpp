#include <windows.h>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/Folders.h"
#include "platform/RegistryProfile.h"

namespace korvel { namespace {

constexpr const wchar_t* kKey = LR"(Software\Tarnwick\Korvel Pro\Test of the profile)";
constexpr const char* kSection = "Test of the profile";

class RegistryProfileTest : public testing::Test {
 protected:
    void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }
};

TEST_F(RegistryProfileTest, KeepsWholeNumbersAndTextsOfAnyAlphabet) {
    const std::string text = "Größe Ω \xF0\x9F\x9B\xA9";
    {
        const auto profile = openRegistryProfile();
        EXPECT_TRUE(profile->lasts());
        EXPECT_EQ(profile->getInt(kSection, "Number", -7), -7);
        EXPECT_EQ(profile->getString(kSection, "Text", "none"), "none");
        profile->setInt(kSection, "Number", -123456);
        profile->setString(kSection, "Text", text);
        profile->setString(kSection, "Empty", "");
        profile->setString(kSection, text, "named so");
    }
    const auto profile = openRegistryProfile();
    EXPECT_EQ(profile->getInt(kSection, "Number", 0), -123456);
    EXPECT_EQ(profile->getString(kSection, "Text", ""), text);
    EXPECT_EQ(profile->getString(kSection, "Empty", "none"), "");
    EXPECT_EQ(profile->getString(kSection, text, ""), "named so");
    EXPECT_EQ(profile->getInt(kSection, "Text", 5), 5) << "of the other kind";
    EXPECT_EQ(profile->getString(kSection, "Number", "none"), "none");
}

TEST_F(RegistryProfileTest, StandsWhereOtherProgramsLookForIt) {
    openRegistryProfile()->setString(kSection, "Text", "Ω");
    wchar_t text[8];
    DWORD size = sizeof text;
    ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, kKey, L"Text", RRF_RT_REG_SZ, nullptr, text, &size), ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(text), L"Ω");
    const wchar_t without[] = {L'a', L'b'};  // a text that ends without a zero, as some write it
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"Cut", REG_SZ, without, sizeof without);
    EXPECT_EQ(openRegistryProfile()->getString(kSection, "Cut", ""), "ab");
}

TEST(InstalledProgram, KeepsItsSettingsWithTheUsersOwn) {
    const TempFolder folder;
    folder.write("uninstall.exe", "");
    const std::filesystem::path settings = programFolder(folder.path());
    EXPECT_NE(settings, folder.path());
    EXPECT_TRUE(std::filesystem::is_directory(settings));
}

}}  // namespace korvel
