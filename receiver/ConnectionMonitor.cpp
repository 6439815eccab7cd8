#include "receiver/ConnectionMonitor.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ReceiverTexts.h"

namespace korvel {
namespace {

constexpr std::int64_t kSilenceMs = 5000;
/// How long the fixed port may stay without a sentence before others are tried.
constexpr std::int64_t kPatienceMs = 10000;

std::string withLabel(const std::string& label, std::string_view status) {
    return label.empty() ? std::string(status) : label + "\n" + std::string(status);
}

bool saysThatPortIsGone(std::string_view failure) {
    return failure == text(kReceiverTexts.invalidPort) ||
           failure == text(kReceiverTexts.portMissing);
}

}  // namespace

void ConnectionMonitor::choosePort(PortChoice choice) {
    const std::optional<PortSettings> before = fixedPort();
    const bool wasVia = choice_.viaGyro;
    choice_ = std::move(choice);
    if (fixedPort() != before || choice_.viaGyro != wasVia) {
        parts_.port.stop();
        forgetConnection();
    }
}

void ConnectionMonitor::useSource(SentenceSource* source) {
    started().stop();
    otherSource_ = source;
    forgetConnection();
}

void ConnectionMonitor::forgetConnection() {
    scan_.reset();
    if (!fixedPort())
        scan_ = PortScan::ofAllPorts();
    lostStatus_.clear();
    connected_ = false;
    listenedSinceMs_ = parts_.clock.tickMs();
}

SentenceSource& ConnectionMonitor::started() {
    return otherSource_ != nullptr ? *otherSource_ : parts_.port;
}

std::string ConnectionMonitor::connectionStatus(bool open) {
    if (open) {
        std::string failure = startSource();
        if (!failure.empty())
            return failure;
    }
    // Asked in every step, also with a fix: otherwise the bytes of the good times would count as
    // news when the receiver has fallen silent.
    const bool receiving = started().isReceiving();
    if (parts_.input.store().shared().lock()->fixQuality != 0) {
        noteFix();
        return {};
    }
    const std::uint32_t flags = noteActivity(receiving);
    std::string status = statusAt(flags);
    stepScan(flags);
    return status;
}

std::string ConnectionMonitor::statusAt(std::uint32_t flags) {
    const auto waitingFor = [this](std::string_view what) {
        return withLabel(sourceLabel(), what);
    };
    if ((flags & SentenceFlag::kBytesArrive) == 0) {
        const std::string state = started().stateText();
        return waitingFor(state.empty() ? text(kReceiverTexts.noActivity) : state);
    }
    if ((flags & SentenceFlag::kChecksumCorrect) == 0)
        return waitingFor(text(kReceiverTexts.waitingForNmea));
    const std::string talker = parts_.input.otherTalker();
    if (!talker.empty() && !isReceiver(flags))
        return waitingFor(formatText(kReceiverTexts.talksOther, {std::string_view(talker)}));
    if ((flags & SentenceFlag::kRmcOrVtg) == 0)
        return waitingFor(text(kReceiverTexts.waitingForCourse));
    if ((flags & SentenceFlag::kGga) == 0)
        return waitingFor(text(kReceiverTexts.waitingForAltitude));
    return std::string(text(kReceiverTexts.locatingSatellites));
}

void ConnectionMonitor::noteFix() {
    connected_ = true;
    if (!scanning() || !scan_->isAtEntry())
        return;
    scan_->renew(parts_.clock.tickMs());
    if (!isChosen()) {
        storeFoundPort();
    } else if (scan_->entry() == *choice_.gps) {
        scan_.reset();  // back where the pilot wants it
        lostStatus_.clear();
    }
}

// Opening

std::string ConnectionMonitor::startSource() {
    closeWhatIsStale();
    SentenceSource& source = started();
    if (source.isRunning())
        return {};
    parts_.input.store().reset();
    connected_ = false;
    if (otherSource_ == nullptr) {
        PortSettings port = portToOpen();
        if (choice_.viaGyro && port.name().empty())
            return std::string(text(kReceiverTexts.modulePortNotSet));
        parts_.port.choose(std::move(port));
    }
    openedMs_ = parts_.clock.tickMs();
    const std::string failure = source.start(parts_.listener);
    return failure.empty() ? failure : failedToOpen(failure);
}

/// What is gone for good (unplugged, or the computer slept) only a new start finds again, and what
/// it said is not to be taken for news of the next one.
void ConnectionMonitor::closeWhatIsStale() {
    SentenceSource& source = started();
    if (source.hasFailed()) {
        source.stop();
        if (scanning() && lastCorrectMs() >= openedMs_)
            scan_->stay();
    } else if (otherSource_ == nullptr && !scan_ && parts_.port.seemsStale()) {
        source.stop();
    }
}

PortSettings ConnectionMonitor::portToOpen() {
    if (!scan_)
        return fixedPort().value();
    do {
        scan_->next(parts_.clock.tickMs());
    } while (choice_.gyroConnected && scan_->entry().name() == choice_.gyro.name());
    return scan_->entry();
}

std::string ConnectionMonitor::failedToOpen(const std::string& failure) {
    started().stop();
    std::string status = sourceLabel() + "\n" + failure;
    if (otherSource_ != nullptr)
        return status;
    if (!scan_) {
        reconsiderPort(saysThatPortIsGone(failure));
        lostStatus_ = status;
        return status;
    }
    // That a port does not exist where the lost one might have gone is no news for the pilot.
    const bool isElsewhere = isChosen() && scan_->entry() != *choice_.gps;
    if (isElsewhere)
        status = lostStatus_;
    else
        lostStatus_ = status;
    scan_->skipPort();
    return status;
}

std::string ConnectionMonitor::portLabel(bool forGps) const {
    if (otherSource_ != nullptr)
        return otherSource_->label();
    if (!forGps)
        return choice_.gyro.label();
    if (scan_)
        return scan_->isAtEntry() ? scan_->entry().label() : std::string();
    return choice_.gps ? choice_.gps->label() : std::string();
}

// Trying ports in turn

void ConnectionMonitor::stepScan(std::uint32_t flags) {
    if (!scanning())
        return reconsiderPort(false);
    const std::int64_t now = parts_.clock.tickMs();
    const bool spokeBefore = std::exchange(spoke_, (flags & SentenceFlag::kChecksumCorrect) != 0);
    if (spoke_ && (!spokeBefore || isReceiver(flags)))
        scan_->renew(now);
    if (!scan_->isOver(now))
        return;
    if (spoke_)
        scan_->putLast();
    parts_.port.stop();
}

bool ConnectionMonitor::isReceiver(std::uint32_t flags) const {
    constexpr std::uint32_t kBoth = SentenceFlag::kRmcOrVtg | SentenceFlag::kGga;
    // While the simulator flies nothing is decoded: nobody knows what is heard.
    if ((flags & kBoth) == kBoth || connected_ || parts_.input.isSupplanted())
        return true;
    const std::int64_t positionMs = parts_.input.store().own().positionTickMs;
    return positionMs >= openedMs_ && parts_.clock.tickMs() - positionMs < kSilenceMs;
}

void ConnectionMonitor::reconsiderPort(bool portIsGone) {
    if (otherSource_ != nullptr || choice_.viaGyro || scan_)
        return;
    const std::int64_t correctMs = lastCorrectMs();
    if (parts_.clock.tickMs() - std::max(listenedSinceMs_, correctMs) < kPatienceMs)
        return;
    if (choice_.found) {
        scan_ = PortScan::ofAllPorts();
        scan_->beginWith(*choice_.gps);
    } else if (portIsGone || correctMs >= listenedSinceMs_) {
        lostStatus_ = withLabel(sourceLabel(), text(kReceiverTexts.noActivity));
        scan_ = PortScan::around(*choice_.gps);
    } else {
        return;  // nothing was ever heard here: the receiver may be switched off
    }
    // Once more from the beginning: a handle can be stale.
    parts_.port.stop();
}

void ConnectionMonitor::storeFoundPort() {
    const std::string found = scan_->entry().format();
    if (parts_.profile.getString("Options", "Port", "") == found)
        return;
    // The mark tells a later run that this port was found, not chosen: it may look again.
    parts_.profile.setInt("Options", "PortScanned", 1, true);
    parts_.profile.setString("Options", "Port", found, false);
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
    // Only the receiver's own port can be told by its speed what is at its end.
    const bool isOwnPort = otherSource_ == nullptr && !choice_.viaGyro;
    input.decoder().setPort(isOwnPort ? parts_.port.settings().format() : "");
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
        parts_.port.write(command);
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
    parts_.input.store().trace("bGpsDead=TRUE " + formatInt(scan_ ? scan_->index() : -1) + " " +
                               formatInt(now) + " " + formatInt(lastSentenceTickMs_) + " " +
                               formatInt(silence));
    lastSentenceTickMs_ = kDeclaredDead;
    return true;
}

}  // namespace korvel
