#pragma once

#include <cstdint>
#include <string>

#include "config/ProfileFile.h"
#include "platform/Clock.h"
#include "receiver/GpsInput.h"
#include "receiver/LineListener.h"
#include "receiver/SerialPort.h"

namespace korvel {

/// Which port carries what, as the settings say.
struct PortChoice {
    std::string gps;       ///< settings text of the receiver's port; empty to scan for it
    bool viaGyro = false;  ///< the receiver speaks through the attitude module's port
    std::string gyroPort;  ///< the attitude module's port and speed, for its label
    std::string gyroBaud;

    friend bool operator==(const PortChoice&, const PortChoice&) = default;
};

/// Finds the receiver, tells the pilot how far the connection has come, and notices when the
/// receiver falls silent. Main thread only.
class ConnectionMonitor {
 public:
    /// All of them outlive the monitor.
    struct Parts {
        SerialPort& gpsPort;
        SerialPort& gyroPort;
        LineListener& listener;  ///< attached to the receiver's port when it opens
        GpsInput& input;
        GpsSurroundings& surroundings;
        ProfileFile& profile;  ///< where a port that was found by scanning is stored
        const Clock& clock;
    };

    explicit ConnectionMonitor(const Parts& parts) : parts_(parts) {}

    /// Takes effect with the next open attempt; closes the receiver's port when its setting
    /// changed.
    void choosePort(PortChoice choice);
    const PortChoice& choice() const { return choice_; }
    bool scanning() const { return choice_.gps.empty(); }

    /// The connection step: a status text of one or two lines ("\n" between them), empty once the
    /// receiver delivers a fix. With `open` it also tries to open the port.
    std::string connectionStatus(bool open);

    /// Decodes what has arrived since the last tick and declares a silent receiver dead.
    void gpsTick();

    /// What a status is prefixed with: the port and the speed in use; empty before the first
    /// attempt of a scan.
    std::string portLabel(bool forGps) const;

    /// Set once a fix has been seen on this connection.
    bool connected() const { return connected_; }

 private:
    /// The receiver is dead: nothing is due from it until its next sentence.
    static constexpr std::int64_t kDeclaredDead = -1;

    std::string openPort();
    void nextScanEntry();
    void skipScannedPort();
    std::string portToOpen() const;
    void storeFoundPort();
    std::string waitingFor(std::string_view what);
    bool deadlinePassed() const;
    SerialPort& watchedPort() { return choice_.viaGyro ? parts_.gyroPort : parts_.gpsPort; }
    /// Keeps the flag that bytes arrive up to date; returns all flags.
    std::uint32_t noteActivity(bool receiving);
    bool silentFor5Seconds(bool queueEmpty);

    Parts parts_;
    PortChoice choice_;
    int scanIndex_ = -1;               // place in the scan table; -1 before the first attempt
    std::int64_t scanDwellMs_ = 3000;  // how long one entry is tried
    std::int64_t scanDeadlineMs_ = 0;  // when the present entry is given up; 0 for none
    bool connected_ = false;
    std::int64_t lastSentenceTickMs_ = 0;  // of the last tick that found sentences
};

}  // namespace korvel
