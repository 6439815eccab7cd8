#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/AttitudeModule.h"

namespace korvel { namespace {

constexpr std::int32_t kSide = 64;
constexpr std::size_t kPixels = std::size_t{kSide} * kSide;
constexpr std::uint32_t kSky = 0xFF0000FF, kGround = 0xFF806000, kInk = 0xFFFFFFFF;

/// The example that is built with the program.
class HorizonPlugin : public testing::Test {
 protected:
    bool draw(std::int64_t nowMs) {
        return module_.draw({.size = 0,
                                .width = kSide,
                                .height = kSide,
                                .background = 0xFF000000,
                                .ink = kInk,
                                .sky = kSky,
                                .ground = kGround,
                                .pixels = pixels_.data()},
            nowMs);
    }
    std::uint32_t at(std::size_t x, std::size_t y) const { return pixels_.at(y * kSide + x); }
    auto share(std::uint32_t color) const { return std::ranges::count(pixels_, color); }

    AttitudeModule module_{KORVEL_PLUGIN_FOLDER};
    std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(kPixels, 0x12345678);
};

TEST_F(HorizonPlugin, DrawsWhatTheModuleSaysWhileItIsFresh) {
    ASSERT_TRUE(module_.isLoaded()) << module_.error();
    module_.processMessage("$RPY,45,0,90");
    EXPECT_FALSE(draw(1000)) << "nobody looks at its page";
    module_.setListening(true);
    module_.processMessage("$RPY,45,0,90");
    ASSERT_TRUE(draw(2000));
    EXPECT_EQ(at(2, 32), kSky) << "in a right bank the left side sees the sky";
    EXPECT_EQ(at(61, 32), kGround);
    EXPECT_EQ(share(0x12345678), 0) << "every pixel is drawn";
    module_.processMessage("$RPY,0,15,90");
    ASSERT_TRUE(draw(2500));
    EXPECT_GT(share(kSky), share(kGround) * 3) << "with the nose up the horizon sinks";
    for (const char* nonsense : {"$RPY", "$RPY,", "$RPY,1", "$RPY,x,y,z", "$RPY,1,91,0", "$RPY,nan,0,0", "$GPRMC,1,2"})
        module_.processMessage(nonsense);
    EXPECT_TRUE(draw(3500));
    EXPECT_FALSE(draw(3501)) << "a second old";
}

TEST(AttitudeModule, SaysWhyThereIsNone) {
    EXPECT_EQ(AttitudeModule(std::filesystem::path()).error(), "");
    const TempFolder folder;
    EXPECT_EQ(AttitudeModule(folder.path()).error(), "") << "an empty folder is no failure";
    std::ofstream(folder.path() / ("broken" + std::string(SharedLibrary::suffix()))) << "no library";
    AttitudeModule broken(folder.path());
    EXPECT_NE(broken.error(), "");
    EXPECT_FALSE(broken.isLoaded());
    broken.setListening(true);
    broken.processMessage("$RPY,1,2,3");
}

}}  // namespace korvel
