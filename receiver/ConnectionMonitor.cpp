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

PortSettings settingsOf(const ScanEntry& entry) {
    return PortSettings::of("COM" + formatInt(entry.port), formatInt(entry.baud));
}

std::string withLabel(const std::string& label, std::string_view status) {
    return label.empty() ? std::string(status) : label + "\n" + std::string(status);
}

}  // namespace

void ConnectionMonitor::choosePort(PortChoice choice) {
    if (choice.gps != choice_.gps) {
        parts_.gpsPort.stop();
        forgetConnection();
    }
    choice_ = std::move(choice);
}

void ConnectionMonitor::useSource(SentenceSource* source) {
    started().stop();
    forgetConnection();
    otherSource_ = source;
}

void ConnectionMonitor::forgetConnection() {
    scanIndex_ = -1;
    scanDeadlineMs_ = 0;
    connected_ = false;
}

SentenceSource& ConnectionMonitor::started() {
    return otherSource_ != nullptr ? *otherSource_ : parts_.gpsPort;
}

SentenceSource& ConnectionMonitor::watched() {
    return otherSource_ == nullptr && choice_.viaGyro ? parts_.gyroPort : started();
}

std::string ConnectionMonitor::connectionStatus(bool open) {
    if (open) {
        std::string failure = startSource();
        if (!failure.empty())
            return failure;
    }
    // Asked in every step, also with a fix: otherwise the bytes of the good times would count as
    // news when the receiver has fallen silent.
    const bool receiving = watched().isReceiving();
    if (parts_.input.store().shared().lock()->fixQuality != 0) {
        storeFoundPort();
        connected_ = true;
        return {};
    }
    const std::uint32_t flags = noteActivity(receiving);
    if ((flags & SentenceFlag::kBytesArrive) == 0) {
        const std::string state = watched().stateText();
        return waitingFor(state.empty() ? text(kReceiverTexts.noActivity) : state);
    }
    if ((flags & SentenceFlag::kChecksumCorrect) == 0)
        return waitingFor(text(kReceiverTexts.waitingForNmea));
    if ((flags & SentenceFlag::kRmcOrVtg) == 0)
        return withLabel(sourceLabel(), text(kReceiverTexts.waitingForCourse));
    if ((flags & SentenceFlag::kGga) == 0)
        return withLabel(sourceLabel(), text(kReceiverTexts.waitingForAltitude));
    return std::string(text(kReceiverTexts.locatingSatellites));
}

std::string ConnectionMonitor::startSource() {
    SentenceSource& source = started();
    if (source.hasFailed()) {
        // The device is gone for good (unplugged, or the computer slept): only a new start of the
        // port finds it again. What it said is not to be taken for news of the next one.
        source.stop();
    }
    if (source.isRunning())
        return {};
    parts_.input.store().reset();
    connected_ = false;
    if (scanning())
        nextScanEntry();
    if (otherSource_ == nullptr)
        parts_.gpsPort.choose(portToOpen());
    const std::string failure = source.start(parts_.listener);
    if (failure.empty())
        return {};
    std::string status = portLabel(true) + "\n" + failure;
    if (scanning())
        skipScannedPort();
    scanDeadlineMs_ = 0;
    source.stop();
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
    while (scanIndex_ + 1 < kScanEntries && entryAt(scanIndex_ + 1).port == port)
        ++scanIndex_;
    if (scanIndex_ + 1 >= kScanEntries) {
        scanIndex_ = -1;
        scanDwellMs_ += kDwellGrowthMs;
    }
}

PortSettings ConnectionMonitor::portToOpen() const {
    return choice_.gps ? *choice_.gps : settingsOf(entryAt(scanIndex_));
}

void ConnectionMonitor::storeFoundPort() {
    if (!scanning() || scanIndex_ < 0)
        return;
    const std::string found = settingsOf(entryAt(scanIndex_)).format();
    if (parts_.profile.getString("Options", "Port", "") == found)
        return;
    // The mark tells a later run that this port was found, not chosen: it may look again.
    parts_.profile.setInt("Options", "PortScanned", 1, true);
    parts_.profile.setString("Options", "Port", found, false);
}

std::string ConnectionMonitor::waitingFor(std::string_view what) {
    const std::string label = sourceLabel();
    if (scanning() && deadlinePassed()) {
        scanDeadlineMs_ = 0;
        parts_.gpsPort.stop();
    }
    return withLabel(label, what);
}

bool ConnectionMonitor::deadlinePassed() const { return parts_.clock.tickMs() >= scanDeadlineMs_; }

std::string ConnectionMonitor::portLabel(bool forGps) const {
    if (otherSource_ != nullptr)
        return otherSource_->label();
    if (!forGps)
        return choice_.gyro.label();
    return scanning() && scanIndex_ < 0 ? std::string() : portToOpen().label();
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
    // Only a port can be told by its speed what receiver is at its end.
    input.decoder().setPort(otherSource_ == nullptr ? parts_.gpsPort.settings().format() : "");
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
    for (const std::string& command : input.decoder().takeCommands())
        parts_.gpsPort.write(command);
    if (dead && !input.isSupplanted()) {
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
    if (lastSentenceTickMs_ == kDeclaredDead)
        return false;
    if (lastSentenceTickMs_ == 0 || lastSentenceTickMs_ > now)
        lastSentenceTickMs_ = now;
    const std::int64_t silence = now - lastSentenceTickMs_;
    if (silence < kSilenceMs)
        return false;
    parts_.input.store().trace("bGpsDead=TRUE " + formatInt(scanIndex_) + " " + formatInt(now) +
                               " " + formatInt(lastSentenceTickMs_) + " " + formatInt(silence));
    lastSentenceTickMs_ = kDeclaredDead;
    return true;
}

}  // namespace korvel
