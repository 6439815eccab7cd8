#include <array>
#include <memory>
#include <string>

#include <QApplication>
#include <gtest/gtest.h>

namespace {

/// Runs the tests of this program under the toolkit's offscreen platform.
class OffscreenApplication : public testing::Environment {
 public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(argc_, argv_.data());
    }
    void TearDown() override { application_.reset(); }

 private:
    std::string name_ = "tests";
    int argc_ = 1;
    std::array<char*, 2> argv_ = {name_.data(), nullptr};
    std::unique_ptr<QApplication> application_;
};

const testing::Environment* const kEnvironment =
    testing::AddGlobalTestEnvironment(std::make_unique<OffscreenApplication>().release());

}  // namespace
