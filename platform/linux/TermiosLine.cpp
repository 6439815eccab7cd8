#include "platform/linux/TermiosLine.h"

// The kernel's own structure, for speeds that have no constant; <termios.h> must stay out.
#include <algorithm>
#include <array>
#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <cerrno>
#include <linux/serial.h>
#include <sys/ioctl.h>

namespace korvel {
namespace {

struct NamedSpeed {
    std::uint32_t baud;
    tcflag_t code;
};

constexpr std::array<NamedSpeed, 8> kNamedSpeeds = {{{1200, B1200},
                                                     {2400, B2400},
                                                     {4800, B4800},
                                                     {9600, B9600},
                                                     {19200, B19200},
                                                     {38400, B38400},
                                                     {57600, B57600},
                                                     {115200, B115200}}};

/// Other speeds, 14400 for one, are given as numbers.
tcflag_t speedCode(std::uint32_t baud) {
    const auto* const named =
        std::find_if(kNamedSpeeds.begin(), kNamedSpeeds.end(),
                     [&](const NamedSpeed& speed) { return speed.baud == baud; });
    return named == kNamedSpeeds.end() ? tcflag_t{BOTHER} : named->code;
}

constexpr std::array<tcflag_t, 4> kSizes = {CS5, CS6, CS7, CS8};

void setFlag(tcflag_t& flags, tcflag_t flag, bool on) { flags = on ? flags | flag : flags & ~flag; }

void fill(termios2& line, const LineSettings& settings) {
    line.c_iflag &= ~tcflag_t{IGNBRK | BRKINT | IGNPAR | PARMRK | ISTRIP | INLCR | IGNCR | ICRNL |
                              IUCLC | IXANY};
    setFlag(line.c_iflag, INPCK, settings.parityCheck);
    setFlag(line.c_iflag, IXON, settings.xonXoffOutput);
    setFlag(line.c_iflag, IXOFF, settings.xonXoffInput);
    line.c_oflag &= ~tcflag_t{OPOST};
    line.c_lflag &= ~tcflag_t{ISIG | ICANON | ECHO | ECHONL | IEXTEN};
    line.c_cflag &= ~tcflag_t{CSIZE | PARODD | CBAUD | CIBAUD};
    line.c_cflag |= CREAD | CLOCAL | kSizes[settings.dataBits - 5U] | speedCode(settings.baud);
    setFlag(line.c_cflag, CSTOPB, settings.twoStopBits);
    setFlag(line.c_cflag, PARENB, settings.parityBit);
    setFlag(line.c_cflag, CRTSCTS, settings.ctsOutputFlow);
    line.c_ispeed = settings.baud;
    line.c_ospeed = settings.baud;
    // With these, "no bytes yet" and "hung up" read differently.
    line.c_cc[VMIN] = 1;
    line.c_cc[VTIME] = 0;
}

bool isPossible(const LineSettings& settings) {
    return settings.binary && !settings.dsrOutputFlow && !settings.dsrSensitivity &&
           !settings.replaceErrors && !settings.dropNuls && !settings.abortOnError &&
           settings.dataBits >= 5 && settings.dataBits <= 8 && settings.baud > 0;
}

/// Within 3 %, beyond which characters are misread.
bool runsNear(std::uint32_t actual, std::uint32_t wanted) {
    const std::uint32_t difference = actual > wanted ? actual - wanted : wanted - actual;
    return difference <= wanted * 3 / 100;
}

void setModemLine(int fd, int line, bool on) {
    // A pseudo-terminal has no such lines, and a device may lack them: the data flows all the same.
    ::ioctl(fd, on ? TIOCMBIS : TIOCMBIC, &line);
}

}  // namespace

int readTermiosLine(int fd, LineSettings& settings) {
    termios2 line{};
    if (::ioctl(fd, TCGETS2, &line) != 0)
        return errno;
    const auto* const size = std::find(kSizes.begin(), kSizes.end(), line.c_cflag & CSIZE);
    settings = LineSettings();
    settings.baud = line.c_ospeed;
    settings.dataBits = static_cast<std::uint8_t>(5 + (size - kSizes.begin()));
    settings.parityBit = (line.c_cflag & PARENB) != 0;
    settings.twoStopBits = (line.c_cflag & CSTOPB) != 0;
    settings.parityCheck = (line.c_iflag & INPCK) != 0;
    settings.ctsOutputFlow = (line.c_cflag & CRTSCTS) != 0;
    settings.xonXoffOutput = (line.c_iflag & IXON) != 0 && (line.c_lflag & ICANON) == 0;
    settings.xonXoffInput = (line.c_iflag & IXOFF) != 0;
    return 0;
}

int applyTermiosLine(int fd, const LineSettings& settings) {
    if (!isPossible(settings))
        return EINVAL;
    termios2 line{};
    if (::ioctl(fd, TCGETS2, &line) != 0)
        return errno;
    fill(line, settings);
    if (::ioctl(fd, TCSETS2, &line) != 0 || ::ioctl(fd, TCGETS2, &line) != 0)
        return errno;
    if (!runsNear(line.c_ospeed, settings.baud))
        return EINVAL;
    setModemLine(fd, TIOCM_DTR, settings.dtrOn);
    setModemLine(fd, TIOCM_RTS, settings.rtsOn);
    return 0;
}

}  // namespace korvel
