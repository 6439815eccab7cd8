#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/ProfileFile.h"
#include "platform/Clock.h"
#include "receiver/GpsInput.h"
#include "receiver/PortScan.h"
#include "receiver/PortSettings.h"
#include "receiver/SentenceSource.h"
#include "receiver/SerialSource.h"

namespace korvel {

/// Which port carries what, as the settings say.
struct PortChoice {
    std::optional<PortSettings> gps{};  ///< the receiver's; nothing to scan for it
    bool found = false;  ///< an earlier scan found it, and another may look for it again
    /// The receiver speaks through the attitude module's port: that one is listened to, and the
    /// receiver's own is left alone.
    bool viaGyro = false;
    /// The module has a port of its own, which no scan opens.
    bool gyroConnected = false;
    PortSettings gyro{};  ///< the module's

    friend bool operator==(const PortChoice&, const PortChoice&) = default;
};

/// Finds the receiver, tells the pilot how far the connection has come, and notices when the
/// receiver falls silent. Main thread only.
///
/// A port that was found by scanning is left for others when it is silent, one that the pilot chose
/// only when it has gone: then the receiver may have come back under another name. What speaks is
/// not left, unless it cannot be a receiver.
class ConnectionMonitor {
 public:
    /// All of them outlive the monitor.
    struct Parts {
        SerialSource& port;          ///< whichever carries the receiver's sentences
        SentenceListener& listener;  ///< of what is started here
        GpsInput& input;
        ProfileFile& profile;  ///< where a port that was found by scanning is stored
        const Clock& clock;
    };

    explicit ConnectionMonitor(const Parts& parts) : parts_(parts) { forgetConnection(); }

    /// Takes effect with the next open attempt; closes the port when it is another one now.
    void choosePort(PortChoice choice);
    const PortChoice& choice() const { return choice_; }
    /// Listens to another source than a port, which must outlive its use; null goes back to the
    /// port. The one in use until now is stopped.
    void useSource(SentenceSource* source);
    /// Whether several ports are tried in turn.
    bool scanning() const { return otherSource_ == nullptr && scan_.has_value(); }
    /// Whether they are tried because the port that the pilot chose has lost its receiver.
    bool searchesLost() const { return scanning() && isChosen(); }

    /// The connection step: a status text of one or two lines ("\n" between them), empty once the
    /// receiver delivers a fix. With `open` it also tries to start the source.
    std::string connectionStatus(bool open);

    /// Decodes what has arrived since the last tick and declares a silent receiver dead.
    void gpsTick();

    /// What a status is prefixed with: the source, or the port and the speed in use; empty before
    /// the first attempt of a scan.
    std::string sourceLabel() const { return portLabel(!choice_.viaGyro); }
    /// The same of the receiver's own port or of the attitude module's.
    std::string portLabel(bool forGps) const;

    /// Set once a fix has been seen on this connection.
    bool connected() const { return connected_; }

 private:
    /// The receiver is dead: nothing is due from it until its next sentence.
    static constexpr std::int64_t kDeclaredDead = -1;

    /// The pilot chose the receiver's own port.
    bool isChosen() const { return !choice_.viaGyro && choice_.gps && !choice_.found; }
    /// The port that is listened to unless ports are tried in turn.
    std::optional<PortSettings> fixedPort() const {
        return choice_.viaGyro ? std::optional(choice_.gyro) : choice_.gps;
    }
    SentenceSource& started();

    std::string startSource();
    void closeWhatIsStale();
    PortSettings portToOpen();
    std::string failedToOpen(const std::string& failure);
    void forgetConnection();
    void noteFix();
    void storeFoundPort();

    /// Goes on trying ports, or begins to.
    void stepScan(std::uint32_t flags);
    /// Begins to when the fixed one has been without a sentence for long.
    void reconsiderPort(bool portIsGone);
    /// Whether what is heard comes from a receiver, be it one that searches for satellites.
    bool isReceiver(std::uint32_t flags) const;
    /// When the last sentence with a correct checksum came.
    std::int64_t lastCorrectMs() const { return parts_.input.store().shared().lock()->correctMs; }

    /// Keeps the flag that bytes arrive up to date; returns all flags.
    std::uint32_t noteActivity(bool receiving);
    std::string statusAt(std::uint32_t flags);
    bool silentFor5Seconds(bool queueEmpty);

    Parts parts_;
    PortChoice choice_;
    SentenceSource* otherSource_ = nullptr;  // in the port's place
    std::optional<PortScan> scan_;           // while ports are tried in turn
    std::string lostStatus_;                 // of the chosen port while others are tried
    bool connected_ = false;
    bool spoke_ = false;  // a correct sentence was known of at the last step of a scan
    std::int64_t listenedSinceMs_ = 0;     // for the receiver on the fixed port
    std::int64_t openedMs_ = 0;            // when what is listened to was started
    std::int64_t lastSentenceTickMs_ = 0;  // of the last tick that found sentences
};

}  // namespace korvel
