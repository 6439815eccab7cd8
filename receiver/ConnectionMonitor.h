#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/ProfileFile.h"
#include "platform/Clock.h"
#include "receiver/GpsInput.h"
#include "receiver/PortSettings.h"
#include "receiver/SentenceSource.h"
#include "receiver/SerialSource.h"

namespace korvel {

/// Which port carries what, as the settings say.
struct PortChoice {
    std::optional<PortSettings> gps{};  ///< the receiver's; nothing to scan for it
    bool viaGyro = false;               ///< the receiver speaks through the attitude module's port
    PortSettings gyro{};                ///< the attitude module's, for its label

    friend bool operator==(const PortChoice&, const PortChoice&) = default;
};

/// Finds the receiver, tells the pilot how far the connection has come, and notices when the
/// receiver falls silent. Main thread only.
class ConnectionMonitor {
 public:
    /// All of them outlive the monitor.
    struct Parts {
        SerialSource& gpsPort;
        SerialSource& gyroPort;
        SentenceListener& listener;  ///< of what is started here
        GpsInput& input;
        ProfileFile& profile;  ///< where a port that was found by scanning is stored
        const Clock& clock;
    };

    explicit ConnectionMonitor(const Parts& parts) : parts_(parts) {}

    /// Takes effect with the next open attempt; closes the receiver's port when its setting
    /// changed.
    void choosePort(PortChoice choice);
    const PortChoice& choice() const { return choice_; }
    /// Listens to another source than a port, which must outlive its use; null goes back to the
    /// port. The one in use until now is stopped.
    void useSource(SentenceSource* source);
    bool scanning() const { return otherSource_ == nullptr && !choice_.gps; }

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

    std::string startSource();
    void forgetConnection();
    void nextScanEntry();
    void skipScannedPort();
    PortSettings portToOpen() const;
    void storeFoundPort();
    std::string waitingFor(std::string_view what);
    bool deadlinePassed() const;
    SentenceSource& started();
    SentenceSource& watched();
    /// Keeps the flag that bytes arrive up to date; returns all flags.
    std::uint32_t noteActivity(bool receiving);
    bool silentFor5Seconds(bool queueEmpty);

    Parts parts_;
    PortChoice choice_;
    SentenceSource* otherSource_ = nullptr;  // in the port's place
    int scanIndex_ = -1;                     // place in the scan table; -1 before the first attempt
    std::int64_t scanDwellMs_ = 3000;        // how long one entry is tried
    std::int64_t scanDeadlineMs_ = 0;        // when the present entry is given up; 0 for none
    bool connected_ = false;
    std::int64_t lastSentenceTickMs_ = 0;  // of the last tick that found sentences
};

}  // namespace korvel
