#include "receiver/PortScan.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/TextNumbers.h"

namespace korvel {
namespace {

struct PortAndSpeed {
    int port;
    int baud;
};

// COM6 alone is also tried at 38400: receivers on a Bluetooth or USB bridge there run at it.
constexpr std::array<PortAndSpeed, 19> kUsual = {{{1, 9600},
                                                  {1, 4800},
                                                  {2, 9600},
                                                  {2, 4800},
                                                  {3, 9600},
                                                  {3, 4800},
                                                  {4, 9600},
                                                  {4, 4800},
                                                  {5, 9600},
                                                  {5, 4800},
                                                  {6, 38400},
                                                  {6, 9600},
                                                  {6, 4800},
                                                  {7, 9600},
                                                  {7, 4800},
                                                  {8, 9600},
                                                  {8, 4800},
                                                  {9, 9600},
                                                  {9, 4800}}};
constexpr int kPortsAround = 16;  ///< as many as a pilot is offered
constexpr std::int64_t kFirstDwellMs = 3000;
constexpr std::int64_t kDwellGrowthMs = 500;

std::string portName(int number) { return "COM" + formatInt(number); }

}  // namespace

PortScan PortScan::ofAllPorts() {
    std::vector<PortSettings> entries;
    for (const PortAndSpeed& usual : kUsual)
        entries.push_back(PortSettings::of(portName(usual.port), formatInt(usual.baud)));
    return PortScan(std::move(entries));
}

PortScan PortScan::around(const PortSettings& lost) {
    std::vector<PortSettings> entries;
    for (int number = 1; number <= kPortsAround; ++number) {
        PortSettings other = PortSettings::of(portName(number), lost.speed);
        if (other.name() == lost.name())
            continue;
        entries.push_back(lost);
        entries.push_back(std::move(other));
    }
    return PortScan(std::move(entries));
}

void PortScan::beginWith(const PortSettings& entry) {
    const auto found = std::ranges::find(entries_, entry);
    if (found != entries_.end())
        std::rotate(entries_.begin(), found, entries_.end());
}

void PortScan::leaveOut(std::string_view name) {
    std::erase_if(
        entries_, [name](const PortSettings& entry) { return entry.name() == name; });
}

void PortScan::next(std::int64_t nowMs) {
    if (!isAtEntry()) {
        index_ = 0;
        dwellMs_ = kFirstDwellMs;
    } else if (!stays_ && ++index_ >= count()) {
        index_ = 0;
        dwellMs_ += kDwellGrowthMs;
    }
    stays_ = false;
    renew(nowMs);
}

void PortScan::skipPort() {
    const std::string device = entry().device;
    do {
        ++index_;
    } while (index_ < count() && entry().device == device);
    // Where the round ends the next one begins as the first did, not longer.
    index_ = index_ < count() ? index_ - 1 : -1;
}

void PortScan::putLast() {
    if (index_ >= count() - last_)
        return;
    ++last_;
    std::rotate(entries_.begin() + index_, entries_.begin() + index_ + 1, entries_.end());
    // Another one stands in its place now.
    stays_ = index_ < count() - 1;
}

}  // namespace korvel
