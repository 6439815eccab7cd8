#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "TempFolder.h"
#include "config/FakeRegistry.h"
#include "config/ProfileFile.h"
#include "platform/FaultyFiles.h"
#include "platform/FileIo.h"

namespace korvel { namespace {

using namespace std::string_literals;

std::string bit7(std::string text) {
    for (char& c : text) c = static_cast<char>(static_cast<unsigned char>(c) | 0x80U);
    return text;
}

TEST(ProfileText, ReadsLines) {
    const std::tuple<std::string, ProfileEntries> cases[] = {
        {"", {}},
        {"Options:Port = 3 ; comment\r\n", {{"Options:Port", "3"}}},
        {bit7("Options:Port = 3 ; comment\r\n"), {{"Options:Port", "3"}}},
        {"a=1\rb=2\nc=3\r\n\r\nd=4", {{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}}},
        {"a=1\na=2", {{"a", "2"}}},
        {"a= x = y \n", {{"a", "x = y"}}},
        {" lonely line \n", {{"", "lonely line"}}},
        {"=of the empty key\n", {{"", "of the empty key"}}},
        {"; a=1\n \t \n;", {}},
        {"a =\n", {{"a", ""}}},
        {"\xFF\xFE\x61\0=\0\x31\0"s, {{"a", "1"}}},
        {"\xFF\xFE\x61\0=\0\x31\0\x32"s, {{"a", "1"}}},
        {"a\0=\0\x31\0"s, {{"a", "1"}}},
        // The high bytes count as 0 once bit 7 is off.
        {"a\x80=\x80\x31\x80"s, {{"a", "1"}}},
        {"a\0=\0\x31"s, {{"a\0"s, "\0\x31"s}}},
    };
    for (const auto& [bytes, entries] : cases) EXPECT_EQ(parseProfile(bytes), entries) << testing::PrintToString(bytes);
}

TEST(ProfileText, SetsBitSevenAndComesBack) {
    const ProfileEntries entries = {{"", "x"}, {"Options.Port", "COM3:4800,N,8,1"}, {"Options:Port", "-1"}};
    const std::string bytes = formatProfile(entries);
    EXPECT_EQ(bytes, bit7("=x\r\nOptions.Port=COM3:4800,N,8,1\r\nOptions:Port=-1\r\n"));
    EXPECT_EQ(parseProfile(bytes), entries);
}

class ProfileFileTest : public testing::Test {
 protected:
    ProfileEntries onDisk() const { return parseProfile(readWholeFile(file_).value_or("?")); }

    CommaLocale comma_;  // must not reach the file
    TempFolder folder_;
    FakeRegistry registry_;
    std::filesystem::path file_ = folder_.path() / "korvel.ini";
};

TEST_F(ProfileFileTest, CreatesTheFileAndKeepsWhatWasRead) {
    registry_.ints["Options:Known"] = 7;
    registry_.strings["Options.Known"] = "seven";
    {
        ProfileFile profile(folder_.path(), registry_);
        EXPECT_EQ(profile.path(), file_);
        EXPECT_EQ(std::filesystem::file_size(file_), 0U);
        EXPECT_EQ(profile.getInt("Options", "Known", 1), 7);
        EXPECT_EQ(profile.getString("Options", "Known", "x"), "seven");
        EXPECT_EQ(profile.getInt("Options", "Unknown", -5), -5);
        registry_.ints.clear();
        EXPECT_EQ(profile.getInt("Options", "Known", 1), 7);
        EXPECT_TRUE(onDisk().empty()) << "a read does not save";
    }
    EXPECT_EQ(
        onDisk(), (ProfileEntries{{"Options:Known", "7"}, {"Options.Known", "seven"}, {"Options:Unknown", "-5"}}));
}

TEST_F(ProfileFileTest, ADamagedFileIsKeptBesideTheOneThatIsWrittenOverIt) {
    const std::string whole = formatProfile({{"", "x"}, {"Options.Port", "COM3:,4800,N,8,1"}});
    const std::tuple<std::string, bool> cases[] = {{"", false}, {whole, false}, {"; said = \r\n\r\n" + whole, false},
        {"\xFF\xFE\x61\0=\0\r\0\n\0"s, false}, {whole + bit7("Options.Sim"), true}, {std::string(64, '\0'), true},
        {whole + bit7("Options.Sim=4") + std::string(9, '\0'), true}};
    for (const auto& [bytes, damaged] : cases) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        ASSERT_TRUE(writeFileAtomically(file_, bytes));
        const std::filesystem::path copy = folder_.path() / "korvel.ini.damaged";
        std::filesystem::remove(copy);
        { EXPECT_EQ(ProfileFile(folder_.path(), registry_).damagedCopy(), damaged ? copy : std::filesystem::path()); }
        EXPECT_EQ(readWholeFile(copy).value_or("none"), damaged ? bytes : "none");
        EXPECT_EQ(ProfileFile(folder_.path(), registry_).damagedCopy(), "") << "once is enough";
    }
}

TEST_F(ProfileFileTest, IntegersAndStringsOfOneNameAreTwoEntries) {
    folder_.write("korvel.ini", "Options:Port=abc\r\nOptions.Port=\r\nOptions:Tail= +12 kt\r\n");
    ProfileFile profile(folder_.path(), registry_);
    EXPECT_EQ(profile.getInt("Options", "Port", 4), 4);
    EXPECT_EQ(profile.entries().at("Options:Port"), "4") << "a value that is no number is replaced";
    EXPECT_EQ(profile.getString("Options", "Port", "x"), "") << "an empty string is a value";
    EXPECT_EQ(profile.getInt("Options", "Tail", 0), 12);
    EXPECT_EQ(profile.entries().at("Options:Tail"), "+12 kt");
}

TEST_F(ProfileFileTest, SettersSaveAtOnceUnlessDeferred) {
    ProfileFile profile(folder_.path(), registry_);
    profile.setInt("S", "Deferred", 1, true);
    EXPECT_TRUE(onDisk().empty());
    profile.setString("S", "Now", "x");
    EXPECT_EQ(onDisk(), profile.entries());
    profile.setInt("S", "Now", 1234567);
    EXPECT_EQ(onDisk().at("S:Now"), "1234567");
}

TEST_F(ProfileFileTest, WhatIsSetIsOnDiskWithinTwoSecondsOfTicks) {
    FaultyFiles disk;
    ProfileFile profile(folder_.path(), registry_, "korvel.ini", disk);
    std::int64_t now = 0;
    const auto savedAfter = [&](const char* name) {
        const std::int64_t begin = now;
        do profile.keepSaved(now += 500);
        while (!onDisk().contains(name) && now - begin < 60000);
        return now - begin;
    };
    EXPECT_EQ(profile.getInt("S", "Read", 1), 1);
    EXPECT_EQ(savedAfter("S:Read"), 60000) << "reading is no change";
    profile.setInt("S", "A", 1, true);
    EXPECT_LE(savedAfter("S:A"), 2000);
    profile.setString("S", "B", "x", true);
    EXPECT_LE(savedAfter("S.B"), 2000);
    const std::string before = disk.done();
    profile.setString("S", "B", "x", true);
    savedAfter("none");
    EXPECT_EQ(disk.done(), before) << "nothing new";
    std::filesystem::remove(file_);
    std::filesystem::create_directory(file_);
    profile.setInt("S", "C", 1, true);
    savedAfter("none");
    EXPECT_EQ(profile.trouble(), "Settings not saved: korvel.ini cannot be written");
    EXPECT_FALSE(profile.takeTrouble().empty());
    std::filesystem::remove(file_);
    EXPECT_LE(savedAfter("S:C"), 12000) << "tried again";
    EXPECT_EQ(profile.trouble(), "");
}

TEST_F(ProfileFileTest, AFileThatAnotherProgramOwnsIsOnlyLookedAt) {
    folder_.write("korvel.ini", "S:A=1");
    {
        ProfileFile profile(folder_.path(), registry_, "korvel.ini", systemFileSystem(), ProfileFile::Access::Look);
        EXPECT_EQ(profile.getInt("S", "A", 0), 1);
        EXPECT_TRUE(profile.setInt("S", "A", 2));
        EXPECT_EQ(profile.getInt("S", "A", 0), 2);
        EXPECT_EQ(profile.trouble(), "");
    }
    EXPECT_EQ(folder_.read("korvel.ini"), "S:A=1");
}

TEST_F(ProfileFileTest, AFileTooLargeToBeOursIsSetAsideAndItsBeginningCounts) {
    std::string bytes = "S:First=1\r\n";
    while (bytes.size() <= ProfileFile::kLargestBytes) bytes += "S:N" + std::to_string(bytes.size()) + "=1\r\n";
    folder_.write("korvel.ini", bytes + "S:Last=1\r\n");
    ProfileFile profile(folder_.path(), registry_);
    EXPECT_EQ(profile.getInt("S", "First", 0), 1);
    EXPECT_EQ(profile.getInt("S", "Last", 0), 0);
    EXPECT_EQ(profile.damagedCopy(), folder_ / "korvel.ini.damaged");
    EXPECT_TRUE(folder_.read("korvel.ini.damaged").ends_with("S:Last=1\r\n"));
    EXPECT_EQ(onDisk().at("S:First"), "1") << "at once: the old file is gone";
    EXPECT_EQ(ProfileFile(folder_.path(), registry_).damagedCopy(), "") << "or what was set aside would be lost";
}

TEST_F(ProfileFileTest, WithoutAFileTheRegistryIsSavedTo) {
    std::filesystem::create_directory(file_);  // cannot be opened as a file
    {
        ProfileFile profile(folder_.path(), registry_);
        EXPECT_TRUE(profile.path().empty());
        profile.setInt("Options", "A", 5);
        profile.setInt("Options", "A.b", 6, true);
        profile.setString("Options", "C.d", "x", true);
        profile.setString("", "", "y", true);
        EXPECT_EQ(registry_.ints, (std::map<std::string, int>{{"Options:A", 5}}));
    }
    EXPECT_EQ(registry_.strings,
        (std::map<std::string, std::string>{{"Options:A.b", "6"}, {"Options.C.d", "x"}, {".", "y"}}));
}

TEST_F(ProfileFileTest, AtEveryFaultTheOldSettingsOrTheNewOnesStand) {
    atEveryFault([this](FaultyFiles& disk) {
        folder_.write("korvel.ini", "S:Old=1\r\n");
        registry_.ints.clear();
        ProfileFile profile(folder_.path(), registry_, "korvel.ini", disk);
        EXPECT_EQ(profile.entries().empty(), profile.path().empty()) << "all of the file or none";
        const bool saved = profile.setInt("S", "New", 2);
        const std::string trouble = profile.takeTrouble();
        EXPECT_EQ(trouble, saved ? "" : "Settings not saved: korvel.ini cannot be written");
        EXPECT_TRUE(saved || disk.hasFailed());
        const bool inFile = saved && !profile.path().empty();
        EXPECT_EQ(
            onDisk(), inFile ? (ProfileEntries{{"S:New", "2"}, {"S:Old", "1"}}) : (ProfileEntries{{"S:Old", "1"}}));
        EXPECT_EQ(registry_.ints.count("S:New"), profile.path().empty() ? 1U : 0U);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 1);
        profile.setInt("S", "New", 3);
        EXPECT_EQ(trouble.empty() ? "" : profile.takeTrouble(), "") << "told once while it lasts";
    });
}

}}  // namespace korvel
