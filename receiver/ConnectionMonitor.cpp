#include "receiver/ConnectionMonitor.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ReceiverTexts.h"

namespace korvel {
namespace {

struct ScanEntry {
    int port;
    int baud;
};

// COM6 alone is also tried at 38400: receivers on a Bluetooth or USB bridge there run at it.
constexpr std::array<ScanEntry, 19> kScanTable = {{{1, 9600},
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
constexpr int kScanEntries = static_cast<int>(kScanTable.size());
constexpr std::int64_t kFirstDwellMs = 3000;
constexpr std::int64_t kDwellGrowthMs = 500;
constexpr std::int64_t kSilenceMs = 5000;

const ScanEntry& entryAt(int index) { return kScanTable.at(static_cast<std::size_t>(index)); }

std::string settingsText(const ScanEntry& entry) {
    return "COM" + formatInt(entry.port) + ":," + formatInt(entry.baud) + ",N,8,1";
}

std::string withLabel(const std::string& label, std::string_view status) {
    return label.empty() ? std::string(status) : label + "\n" + std::string(status);
}

}  // namespace

void ConnectionMonitor::choosePort(PortChoice choice) {
    if (choice.gps != choice_.gps) {
        parts_.gpsPort.close();
        scanIndex_ = -1;
        scanDeadlineMs_ = 0;
        connected_ = false;
    }
    choice_ = std::move(choice);
}

std::string ConnectionMonitor::connectionStatus(bool open) {
    if (open) {
        std::string failure = openPort();
        if (!failure.empty()) {
            return failure;
        }
    }
    // Asked in every step, also with a fix: otherwise the bytes of the good times would count as
    // news when the receiver has fallen silent.
    const bool receiving = watchedPort().isReceiving();
    if (parts_.input.store().shared().lock()->fixQuality != 0) {
        storeFoundPort();
        connected_ = true;
        return {};
    }
    const std::uint32_t flags = noteActivity(receiving);
    if ((flags & SentenceFlag::kBytesArrive) == 0) {
        return waitingFor(text(kReceiverTexts.noActivity));
    }
    if ((flags & SentenceFlag::kChecksumCorrect) == 0) {
        return waitingFor(text(kReceiverTexts.waitingForNmea));
    }
    if ((flags & SentenceFlag::kRmcOrVtg) == 0) {
        return withLabel(portLabel(!choice_.viaGyro), text(kReceiverTexts.waitingForCourse));
    }
    if ((flags & SentenceFlag::kGga) == 0) {
        return withLabel(portLabel(!choice_.viaGyro), text(kReceiverTexts.waitingForAltitude));
    }
    return std::string(text(kReceiverTexts.locatingSatellites));
}

std::string ConnectionMonitor::openPort() {
    if (parts_.gpsPort.hasReadFailed()) {
        // The device is gone for good (unplugged, or the computer slept): only a new start of the
        // port finds it again. What it said is not to be taken for news of the next one.
        parts_.gpsPort.close();
    }
    if (parts_.gpsPort.isOpen()) {
        return {};
    }
    parts_.input.store().reset();
    connected_ = false;
    if (scanning()) {
        nextScanEntry();
    }
    const std::string failure = parts_.gpsPort.open(portToOpen());
    if (failure.empty()) {
        parts_.gpsPort.setListener(&parts_.listener);
        parts_.gpsPort.startThread();
        return {};
    }
    std::string status = portLabel(true) + "\n" + failure;
    if (scanning()) {
        skipScannedPort();
    }
    scanDeadlineMs_ = 0;
    parts_.gpsPort.close();
    return status;
}

void ConnectionMonitor::nextScanEntry() {
    if (scanIndex_ == -1) {
        scanIndex_ = 0;
        scanDwellMs_ = kFirstDwellMs;
    } else if (++scanIndex_ >= kScanEntries) {
        scanIndex_ = 0;
        scanDwellMs_ += kDwellGrowthMs;
    }
    scanDeadlineMs_ = parts_.clock.tickMs() + scanDwellMs_;
}

void ConnectionMonitor::skipScannedPort() {
    const int port = entryAt(scanIndex_).port;
    while (scanIndex_ + 1 < kScanEntries && entryAt(scanIndex_ + 1).port == port) {
        ++scanIndex_;
    }
    if (scanIndex_ + 1 >= kScanEntries) {
        scanIndex_ = -1;
        scanDwellMs_ += kDwellGrowthMs;
    }
}

std::string ConnectionMonitor::portToOpen() const {
    return scanning() ? settingsText(entryAt(scanIndex_)) : choice_.gps;
}

void ConnectionMonitor::storeFoundPort() {
    if (!scanning() || scanIndex_ < 0) {
        return;
    }
    const std::string found = settingsText(entryAt(scanIndex_));
    if (parts_.profile.getString("Options", "Port", "") == found) {
        return;
    }
    // The mark tells a later run that this port was found, not chosen: it may look again.
    parts_.profile.setInt("Options", "PortScanned", 1, true);
    parts_.profile.setString("Options", "Port", found, false);
}

std::string ConnectionMonitor::waitingFor(std::string_view what) {
    const std::string label = portLabel(!choice_.viaGyro);
    if (scanning() && deadlinePassed()) {
        scanDeadlineMs_ = 0;
        parts_.gpsPort.close();
    }
    return withLabel(label, what);
}

bool ConnectionMonitor::deadlinePassed() const { return parts_.clock.tickMs() >= scanDeadlineMs_; }

std::string ConnectionMonitor::portLabel(bool forGps) const {
    if (!forGps) {
        return choice_.gyroPort + " " + choice_.gyroBaud;
    }
    if (scanning()) {
        if (scanIndex_ < 0) {
            return {};
        }
        const ScanEntry& entry = entryAt(scanIndex_);
        return "COM" + formatInt(entry.port) + " " + formatInt(entry.baud);
    }
    // "%[^:]:,%[^,],%s": the name up to the colon, the speed up to the next comma.
    const std::string_view text = choice_.gps;
    const std::string_view name = text.substr(0, text.find(':'));
    constexpr std::string_view kBetween = ":,";
    if (text.substr(name.size(), kBetween.size()) != kBetween) {
        return std::string(name);
    }
    const std::string_view rest = text.substr(name.size() + kBetween.size());
    return std::string(name) + " " + std::string(rest.substr(0, rest.find(',')));
}

std::uint32_t ConnectionMonitor::noteActivity(bool receiving) {
    const auto shared = parts_.input.store().shared().lock();
    std::uint32_t& flags = shared->sentenceFlags;
    if (receiving) {
        flags |= SentenceFlag::kBytesArrive;
    } else if ((flags & SentenceFlag::kChecksumCorrect) == 0) {
        // Half a sentence before the plug was pulled must not look like a receiver for ever.
        flags &= ~SentenceFlag::kBytesArrive;
    }
    return flags;
}

void ConnectionMonitor::gpsTick() {
    GpsInput& input = parts_.input;
    GpsFixStore& store = input.store();
    input.expireSatellitesWanted();
    bool dead = false;
    {
        const auto queue = input.queue().lock();
        dead = silentFor5Seconds(queue->empty());
        const int qualityBefore = store.shared().lock()->fixQuality;
        input.decode(*queue);
        if (qualityBefore != 0 && store.shared().lock()->fixQuality == 0) {
            dead = true;
            lastSentenceTickMs_ = kDeclaredDead;
            store.trace("bGpsDead=TRUE");
        }
    }
    if (dead && !parts_.surroundings.simulatorActive()) {
        store.reset();
        store.trace("*** gps commands not received ***");
    }
}

bool ConnectionMonitor::silentFor5Seconds(bool queueEmpty) {
    const std::int64_t now = parts_.clock.tickMs();
    if (!queueEmpty) {
        lastSentenceTickMs_ = now;
        return false;
    }
    if (lastSentenceTickMs_ == kDeclaredDead) {
        return false;
    }
    if (lastSentenceTickMs_ == 0 || lastSentenceTickMs_ > now) {
        lastSentenceTickMs_ = now;
    }
    const std::int64_t silence = now - lastSentenceTickMs_;
    if (silence < kSilenceMs) {
        return false;
    }
    parts_.input.store().trace("bGpsDead=TRUE " + formatInt(scanIndex_) + " " + formatInt(now) +
                               " " + formatInt(lastSentenceTickMs_) + " " + formatInt(silence));
    lastSentenceTickMs_ = kDeclaredDead;
    return true;
}

}  // namespace korvel
