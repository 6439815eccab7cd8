#include <array>
#include <filesystem>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/Checklists.h"

namespace korvel { namespace {

TEST(Checklists, AreCheckedRowByRowAndStaySoWhenTheyAreReadAgain) {
    const TempFolder own, program;
    for (const auto* folder : {&own, &program}) std::filesystem::create_directory(*folder / "checklists");
    program.write("checklists/example.txt", "Example\n");
    const std::array folders{std::filesystem::path(), own.path(), program.path()};
    Checklists lists;
    lists.load(folders);
    ASSERT_EQ(lists.count(), 1U);
    EXPECT_EQ(lists.list(0).title, "example");
    own.write("checklists/b.txt",
        "# remark\n[Start]\nSeats : locked \r\nDoors\n[Cruise]\nMixture: lean: as needed\n\xFF\x01\n");
    own.write("checklists/a.TXT", "");
    lists.load(folders);
    ASSERT_EQ(lists.count(), 2U) << "the example makes way";
    const auto& rows = lists.list(1).rows;
    ASSERT_EQ(rows.size(), 6U);
    EXPECT_TRUE(rows[0].heading);
    EXPECT_EQ(rows[1].words + "|" + rows[1].response, "Seats|locked");
    EXPECT_EQ(rows[4].response, "lean: as needed");
    EXPECT_EQ(rows[5].words, "?") << "no letters, no control characters";
    EXPECT_FALSE(lists.nextOpen(0, 0)) << "an empty list";
    lists.setChecked(1, 0, true);
    EXPECT_EQ(lists.open(1), 4U) << "a heading is no item";
    lists.setChecked(1, 1, true);
    lists.setChecked(1, 4, true);
    EXPECT_EQ(lists.nextOpen(1, 1), 2U);
    EXPECT_EQ(lists.nextOpen(1, 3), 5U) << "over the heading and what is checked";
    lists.load(folders);
    EXPECT_TRUE(lists.isChecked(1, 4));
    lists.setChecked(1, 5, true);
    EXPECT_EQ(lists.nextOpen(1, 5), 2U) << "round to what was left out";
    own.write("checklists/b.txt", "Other\n");
    lists.load(folders);
    EXPECT_EQ(lists.open(1), 1U);
}

}}  // namespace korvel
