#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <termios.h>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/Event.h"
#include "platform/FileSystem.h"
#include "platform/PseudoTerminal.h"
#include "platform/SerialDevice.h"
#include "platform/linux/FileDescriptor.h"
#include "system/DescriptorLimit.h"

namespace korvel { namespace {

TEST(LinuxDevices, AnOpenLineShutsOtherProgramsOut) {
    const auto far = PseudoTerminal::create();
    ASSERT_NE(far, nullptr);
    SystemError error = kNoError;
    const auto device = systemSerialDeviceOpener({})(R"(\\.\)" + far->deviceName(), error);
    ASSERT_NE(device, nullptr);
    const std::string name = far->deviceName();
    const FileDescriptor other(::open(name.substr(0, name.find(':')).c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK));
    const bool refused = !other && errno == EBUSY;
    int exclusive = 0;  // the superuser comes in all the same, and sees the mark
    EXPECT_TRUE(refused || (::ioctl(other.get(), TIOCGEXCL, &exclusive) == 0 && exclusive != 0));
}

TEST(LinuxDevices, AWriteThatFailsIsTold) {
    const TempFolder folder;
    const auto full = systemFileSystem().openForAppending(folder / "log");
    ASSERT_NE(full, nullptr);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit none{.rlim_cur = 0, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &none), 0);
    const bool written = full->write("x");
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    EXPECT_TRUE(full->write("x") && full->flush() && full->close());
}

TEST(LinuxDevices, WithoutDescriptorsThereAreNoEventsAndNoLines) {
    const auto far = PseudoTerminal::create();
    ASSERT_NE(far, nullptr);
    const std::string name = R"(\\.\)" + far->deviceName();
    std::vector<SystemError> errors;
    for (std::unique_ptr<SerialDevice> device; device == nullptr && errors.size() < 9;) {
        const DescriptorLimit limit(static_cast<int>(errors.size()));
        device = systemSerialDeviceOpener({})(name, errors.emplace_back());
    }
    EXPECT_EQ(errors, (std::vector<SystemError>{kErrorTooManyOpenFiles, kErrorTooManyOpenFiles, kNoError}));
    Event event;
    {
        const DescriptorLimit none(0);
        event = Event(Event::Reset::Auto);
        EXPECT_FALSE(event);
        event.set();
        EXPECT_FALSE(event.isSet());
    }
    event = Event(Event::Reset::Auto);
    event.set();
    EXPECT_TRUE(event.isSet());
}

}}  // namespace korvel
