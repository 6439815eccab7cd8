#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/RecentFiles.h"
#include "config/ProfileFile.h"
#include "platform/RegistryProfile.h"

namespace korvel { namespace {

TEST(RecentFiles, AreKeptWhateverTheirNames) {
    const TempFolder folder;
    const auto registry = openRegistryProfile();
    const std::deque<std::filesystem::path> files = {
        "/a/M\xC3\xBCll; 50%41.fp", "/\xE6\xB9\x96", "/C:\\plain.fp", "/%"};
    {
        ProfileFile profile(folder.path(), *registry);
        RecentFiles recent(profile);
        for (const char* const older : {"/5", "/6"}) recent.add(older);
        for (auto file = files.rbegin(); file != files.rend(); ++file) recent.add(*file);
        EXPECT_EQ(recent.files(), files);
    }
    ProfileFile profile(folder.path(), *registry);
    EXPECT_EQ(RecentFiles(profile).files(), files);
    // As they stood there before names were escaped.
    profile.setString("Recent File List", "File1", "/50% of.fp");
    EXPECT_EQ(RecentFiles(profile).files().front(), "/50% of.fp");
}

}}  // namespace korvel
