#include <filesystem>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "config/DataFileSearch.h"

namespace korvel { namespace {

TEST(DataFileSearch, TheFirstFolderWithANameWins) {
    const TempFolder folder;
    for (const char* name :
        {"user/b.SCM", "user/Sand.scm", "user/_hidden.scm", "user/note.txt", "own/SAND.SCM", "own/a.scm", "own/B.scm"})
        folder.write(name, "");
    const auto user = folder.path() / "user";
    const auto own = folder.path() / "own";
    const DataFileSearch search({user, {}, folder.path() / "missing", own});

    EXPECT_EQ(search.findNames("*.SCM"), (std::vector<std::string>{"Sand.scm", "b.SCM", "a.scm"}));
    using Paths = std::vector<std::filesystem::path>;
    EXPECT_EQ(search.find("sand.SCM"), (Paths{user / "Sand.scm"}));
    EXPECT_EQ(search.pathsOf("sand.SCM"), (Paths{user / "Sand.scm", own / "SAND.SCM"}));
    EXPECT_EQ(search.pathsOf("_hidden.scm"), Paths{});
    EXPECT_EQ(search.pathsOf("../user/b.SCM"), Paths{}) << "a name is no way out of the folder";
}

}}  // namespace korvel
