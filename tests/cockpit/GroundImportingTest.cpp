#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/GroundData.h"
#include "cockpit/GroundImporting.h"
#include "ground/DataFiles.h"
#include "ground/SmallMap.h"
#include "platform/PathText.h"

namespace korvel { namespace {

std::string tileOfHeights() { return std::string(std::size_t{2} * 1201 * 1201, '\0'); }

TEST(GroundImporting, TakesWhatItKnowsAndTellsOfAllElse) {
    const TempFolder stick;
    const TempFolder documents;
    const std::string air = "AC D\nAN LOW\nAL GND\nAH 2000 MSL\nV X=45:00N 010:00E\nDC 10\nAC C\nAN BAD\nDC x\n";
    documents.write("masts.csv", "old");
    const std::vector<std::filesystem::path> files{stick.write("small.map", smallMap()),
        stick.write("N47E008.hgt", tileOfHeights()), stick.write("S01W180.hgt.zip", "no zip"),
        stick.write("air.oa", air), stick.write("masts.csv", "name,lat,lon,agl,amsl\nMast,45,45.1,120,1500\n"),
        stick.write("letter.txt", "Dear pilot"),
        stick.write("large.txt", air + std::string(kLargestAirspaceFile, '\n')), stick.path(), stick / "gone.hgt"};
    GroundImporting importing(files, documents.path());
    while (!importing.isFinished()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const struct {
        std::string name;
        bool isTaken;
        std::size_t count;
        bool replaced;
    } expected[] = {{"small.map", true, 0, false}, {"N47E008.hgt", true, 1201, false},
        {"S01W180.hgt.zip", false, 0, false}, {"air.oa.txt", true, 1, false}, {"masts.csv", true, 1, true},
        {"letter.txt", false, 0, false}, {"large.txt", false, 0, false},
        {textOf(stick.path().filename()), false, 0, false}, {"gone.hgt", false, 0, false}};
    ASSERT_EQ(importing.taken().size(), std::size(expected));
    const std::string words = groundImportText(importing);
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const GroundImporting::Taken& taken = importing.taken()[i];
        EXPECT_EQ(taken.name, expected[i].name);
        EXPECT_EQ(taken.error.empty(), expected[i].isTaken) << taken.name << taken.error;
        EXPECT_EQ(taken.found.count, expected[i].count) << taken.name;
        EXPECT_EQ(taken.replaced, expected[i].replaced) << taken.name;
        EXPECT_EQ(documents.has(taken.name), expected[i].isTaken) << taken.name;
        EXPECT_NE(words.find(taken.name), std::string::npos);
    }
    for (const char* word : {"data of 2026-01-02", "N47°00' E008°00' to N48°00' E009°00'", "1 airspaces",
             "faulty, left out: 1", "takes the place", "letter.txt\n  NOT TAKEN: no kind"})
        EXPECT_NE(words.find(word), std::string::npos) << words;
    GroundData ground;
    ground.open({documents.path()});
    EXPECT_TRUE(ground.baseMap().isOpen());
    EXPECT_EQ(ground.airspaces().all().size(), 1U);
    EXPECT_EQ(ground.obstacles().size(), 1U);
}

TEST(GroundImporting, WhatIsBrokenOffKeepsWhatWasTaken) {
    const TempFolder stick;
    const TempFolder documents;
    GroundImporting importing(std::vector(200, stick.write("N47E008.hgt", tileOfHeights())), documents.path());
    importing.breakOff();
    while (!importing.isFinished()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_LT(importing.taken().size(), 200U);
    EXPECT_NE(groundImportText(importing).find("Stopped: "), std::string::npos);
}

}}  // namespace korvel
