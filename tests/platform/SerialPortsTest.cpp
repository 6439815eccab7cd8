#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/FileIo.h"
#include "platform/linux/SerialPorts.h"

namespace korvel { namespace {

namespace fs = std::filesystem;

/// A tree like the system's, with devices of the test's choice.
class SerialPortsTest : public testing::Test {
 protected:
    void SetUp() override {
        fs::create_directories(folders_.sysfs);
        fs::create_directories(folders_.ports);
    }

    void addDevice(const std::string& name, const std::string& place, const std::string& type) {
        const fs::path device = root_.path() / "devices" / place;
        fs::create_directories(device);
        fs::create_directories(folders_.sysfs / name);
        fs::create_directory_symlink(device, folders_.sysfs / name / "device");
        if (!type.empty()) { ASSERT_TRUE(writeFileAtomically(folders_.sysfs / name / "type", type + "\n")); }
    }

    std::string fileOf(const std::string& name) const {
        return serialDeviceFile(name, folders_).value_or("none").string();
    }

    TempFolder root_;
    SerialFolders folders_{.ports = root_.path() / "ports", .sysfs = root_.path() / "tty", .dev = "/dev"};
};

TEST_F(SerialPortsTest, UsbComesFirstBySocketThenPortsWithHardware) {
    addDevice("ttyS10", "pnp/10", "4");
    addDevice("ttyS2", "pnp/2", "4");
    addDevice("ttyS0", "serial8250/0", "0");
    addDevice("ttyUSB0", "usb1/1-4/1-4:1.0/ttyUSB0", "");
    addDevice("ttyUSB7", "usb1/1-2/1-2:1.0/ttyUSB7", "");
    addDevice("ttyACM0", "usb1/1-3/1-3:1.0", "");
    fs::create_directories(folders_.sysfs / "tty1");
    const std::vector<fs::path> expected = {
        "/dev/ttyUSB7", "/dev/ttyACM0", "/dev/ttyUSB0", "/dev/ttyS2", "/dev/ttyS10"};
    EXPECT_EQ(listSerialDevices(folders_), expected);
    EXPECT_EQ(fileOf("COM1"), "/dev/ttyUSB7");
    EXPECT_EQ(fileOf("com5"), "/dev/ttyS10");
    EXPECT_EQ(fileOf("COM6"), "none");
    for (const char* line : {"rfcomm10", "rfcomm2", "rfcommx"}) fs::create_directories(folders_.sysfs / line);
    EXPECT_EQ(listBluetoothLines(folders_), (std::vector<fs::path>{"/dev/rfcomm2", "/dev/rfcomm10"}));
    EXPECT_EQ(fileOf("COM6"), "none") << "a radio is not tried by itself";
}

TEST_F(SerialPortsTest, ALinkHoldsEvenWhileItLeadsNowhere) {
    addDevice("ttyUSB0", "usb1/1-4/1-4:1.0/ttyUSB0", "");
    fs::create_symlink("/dev/serial/by-id/unplugged", folders_.ports / "com1");
    EXPECT_EQ(fileOf("COM1"), (folders_.ports / "com1").string());
    EXPECT_EQ(fileOf("COM01"), (folders_.ports / "com1").string());
}

TEST_F(SerialPortsTest, OtherNames) {
    EXPECT_EQ(fileOf("/dev/pts/3"), "/dev/pts/3");
    for (const char* name : {"", "COM", "COM0", "COM-1", "COM1x", "COM99999999999", "COM1:", "tty"})
        EXPECT_EQ(fileOf(name), "none") << name;
}

}}  // namespace korvel
