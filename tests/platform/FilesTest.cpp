#include <chrono>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/FaultyFiles.h"
#include "platform/FileIo.h"
#include "platform/FolderLock.h"
#include "platform/Folders.h"
#include "system/SpecialFiles.h"

namespace korvel { namespace {

namespace fs = std::filesystem;

std::vector<std::string> namesOf(const std::vector<fs::path>& paths) {
    std::vector<std::string> names;
    for (const fs::path& path : paths) names.push_back(textOf(path.filename()));
    return names;
}

TEST(FileIo, WritesAndReadsBytesAsTheyAre) {
    const TempFolder folder;
    const fs::path file = folder.path() / "profile";
    EXPECT_FALSE(readWholeFile(file));
    const std::string bytes = std::string("\0\r\n\xff", 4) + std::string(200'000, 'x');
    EXPECT_TRUE(writeFileAtomically(file, bytes));
    EXPECT_EQ(readWholeFile(file), bytes);
    EXPECT_EQ(readWholeFile(file, 3), bytes.substr(0, 3));
    EXPECT_TRUE(writeFileAtomically(file, ""));
    EXPECT_EQ(readWholeFile(file), "");
    EXPECT_FALSE(readWholeFile(folder.path()));
}

TEST(FileIo, NamesMayBeOfAnyAlphabetAndLong) {
    const TempFolder root;
    std::string folder = "Größe Ω \xF0\x9F\x9B\xA9";
    for (int i = 0; i < 8; ++i) folder += "/" + std::string(40, static_cast<char>('a' + i));
    for (const std::string& name : {std::string("Plan"), std::string("Ελλάδα.fp"), folder + "/λ.fp"}) {
        const fs::path file = root / name;
        EXPECT_EQ(pathOf(textOf(file)), file) << name;
        fs::create_directories(file.parent_path());
        EXPECT_TRUE(writeFileAtomically(file, "old"));
        EXPECT_TRUE(writeFileAtomically(file, name));
        EXPECT_EQ(readWholeFile(file), name);
        EXPECT_EQ(FolderLock(file.parent_path()).holder(), FolderLock::Holder::Us) << name;
    }
    EXPECT_EQ(namesOf(findFiles(root.path(), "*.FP")), std::vector<std::string>{"Ελλάδα.fp"});
}

TEST(FileIo, WhoLooksIntoAFileForAMomentKeepsNobodyFromReplacingIt) {
    const TempFolder folder;
    std::ifstream scanner(folder.write("file", "old"));
    std::thread moment([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        scanner.close();
    });
    EXPECT_TRUE(writeFileAtomically(folder / "file", "new"));
    moment.join();
    EXPECT_EQ(folder.read("file"), "new");
}

TEST(FileIo, WhatIsNoFileIsRefusedAtOnceAndNeverReplaced) {
    const TempFolder folder;
    const fs::path pipe = folder / "pipe";
    const bool hasPipes = makePipe(pipe) && makeLink(pipe, folder / "link");
    fs::create_directory(folder / "folder");
    std::vector<fs::path> noFiles = {folder / "folder"};
    if (hasPipes) noFiles.insert(noFiles.end(), {pipe, folder / "link", "/dev/zero"});
    for (const fs::path& path : noFiles) {
        EXPECT_TRUE(isNoFile(path)) << path;
        EXPECT_FALSE(readWholeFile(path)) << path;
        EXPECT_FALSE(systemFileSystem().openForAppending(path)) << path;
        // Not over the system's own: a faulty program run as root would put a file in its place.
        EXPECT_FALSE(path != "/dev/zero" && writeFileAtomically(path, "x")) << path;
        EXPECT_TRUE(isNoFile(path)) << path << " is still what it was";
    }
    EXPECT_FALSE(isNoFile(folder / "missing"));
    EXPECT_FALSE(isNoFile(folder.write("file", "")));
}

TEST(FileIo, WhatKilledProgramsHaveLeftIsCleared) {
    const TempFolder folder;
    fs::path name;
    ASSERT_TRUE(systemFileSystem().createBeside(folder / std::string(250, 'x'), name)) << "names may be long";
    const fs::path old = folder.write(".korvel-7-0.tmp", "half");
    const fs::path others = folder.write("korvel-7-0.tmp", "");
    for (const fs::path& file : {old, others})
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::minutes(2));
    clearTemporaries(folder.path());
    EXPECT_FALSE(fs::exists(old));
    EXPECT_TRUE(fs::exists(name)) << "somebody is at it";
    EXPECT_TRUE(fs::exists(others)) << "the pilot's";
    clearTemporaries(folder / "missing");
}

TEST(FolderLock, AFolderIsOnePrograms) {
    using Holder = FolderLock::Holder;
    const TempFolder folder;
    {
        const FolderLock first(folder.path());
        EXPECT_EQ(first.holder(), Holder::Us);
        EXPECT_EQ(FolderLock(folder.path()).holder(), Holder::Other);
    }
    EXPECT_EQ(FolderLock(folder.path()).holder(), Holder::Us) << "given free";
    EXPECT_EQ(FolderLock(folder / "missing").holder(), Holder::Unknown);
}

TEST(FileIo, AtEveryFaultTheOldFileOrTheNewOneStands) {
    atEveryFault([](FaultyFiles& disk) {
        const TempFolder folder;
        folder.write("file", "old");
        const bool written = writeFileAtomically(folder / "file", "new and longer", disk);
        EXPECT_EQ(written, !disk.hasFailed());
        EXPECT_EQ(folder.read("file"), written ? "new and longer" : "old");
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1) << "no temporary file is left";
        // On the device before the old one gives way to it, and then its name.
        if (written) { EXPECT_EQ(disk.done(), "create write flush close rename folder "); }
    });
    atEveryFault([](FaultyFiles& disk) {
        const TempFolder folder;
        const std::string bytes(100'000, 'x');
        folder.write("file", bytes);
        const auto read = readWholeFile(folder / "file", kWholeFile, disk);
        EXPECT_TRUE(disk.hasFailed() ? !read : read == bytes) << "never a part of it";
    });
}

TEST(FileSystem, AppendedFilesAreCutButNeverGrowByIt) {
    const TempFolder folder;
    const auto file = systemFileSystem().openForAppending(folder / "log");
    ASSERT_TRUE(file && file->write("abc") && file->write("def"));
    EXPECT_EQ(file->size(), 6U);
    EXPECT_TRUE(file->cutTo(9));
    EXPECT_TRUE(file->cutTo(4) && file->write("x") && file->close());
    EXPECT_EQ(folder.read("log"), "abcdx");
    EXPECT_TRUE(systemFileSystem().remove(folder / "log"));
    EXPECT_TRUE(systemFileSystem().remove(folder / "log")) << "it is not there";
    EXPECT_FALSE(systemFileSystem().remove(folder.path()));
}

TEST(FileIo, ReplacingKeepsLinkAndPermissions) {
    const TempFolder folder;
    const fs::path file = folder.path() / "file";
    const fs::path link = folder.path() / "link";
    ASSERT_TRUE(writeFileAtomically(file, "old"));
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    if (!makeLink("file", link)) GTEST_SKIP() << "no links, and no permissions of a file's own";
    EXPECT_TRUE(writeFileAtomically(link, "new"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(readWholeFile(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(Folders, FindsFilesByPatternInByteOrder) {
    const TempFolder folder;
    for (const char* name :
        {"b.UDB.TXT", "a.udb.txt", "C.UDB.TXT", "\xc3\xa4.udb.txt", "UDB.TXT", "a.udb.txt.bak", ".udb.txt"})
        folder.write(name, name);
    fs::create_directory(folder.path() / "folder.udb.txt");
    using Names = std::vector<std::string>;
    EXPECT_EQ(namesOf(findFiles(folder.path(), "*.UDB.TXT")),
        (Names{".udb.txt", "C.UDB.TXT", "a.udb.txt", "b.UDB.TXT", "\xc3\xa4.udb.txt"}));
    EXPECT_EQ(namesOf(findFiles(folder.path(), "*db*.b*k")), Names{"a.udb.txt.bak"});
    EXPECT_EQ(namesOf(findFiles(folder.path(), "udb.txt")), Names{"UDB.TXT"});
    EXPECT_EQ(findFiles(folder.path(), "*").size(), 7U);
    EXPECT_TRUE(findFiles(folder.path() / "missing", "*").empty());
}

TEST(Folders, APortableProgramKeepsEverythingBesideItself) {
    const TempFolder folder;
    const fs::path own = folder.path();
    EXPECT_EQ(programFolder(own), own) << "it can be written";
    EXPECT_EQ(documentsFolder(own), documentsFolder());
    fs::create_directory(own / "portable");
    EXPECT_FALSE(isPortable(own)) << "a folder is no mark";
    fs::remove(own / "portable");
    folder.write("portable", "");
    folder.write("uninstall.exe", "");
    EXPECT_TRUE(isPortable(own));
    EXPECT_EQ(programFolder(own), own);
    EXPECT_EQ(documentsFolder(own), own / "Documents");
    EXPECT_TRUE(fs::is_directory(own / "Documents"));
}

}}  // namespace korvel
