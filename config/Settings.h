#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace korvel {

class ProfileFile;

/// The document's lasting settings, each with its default. Display units, masks and page bits mean
/// what the rooms that use them say.
struct Settings {
    std::string port;  ///< "COM%d:,%d,N,8,1": the GPS port and its speed
    bool showHints = true;
    bool icons = false;  ///< draw navaids as icons
    bool autozoom = true;
    int viewMask = 11;
    /// Three rotation modes, 0 to 4 each.
    std::array<int, 3> rotateModes{0, 4, 4};
    bool rotateNavaids = true;
    bool highNavaids = false;
    bool vrpNavaids = false;
    bool apprMode = true;
    bool gearWarning = false;
    std::string icaoPrefix;
    std::string schemeFile;
    bool autoview = true;
    int approachSpeedKt = 75;
    bool autoSequence = false;
    bool tracking = false;
    int mapMask = 0x7FE07FE;
    int mapPref = 0;
    int boundaryAltitude = 0;
    int gyroConnected = 1;
    int viaGyro = 0;  ///< the receiver is connected through the gyro module
    int altUnit = 0;
    int displayPages = 0x80;  ///< pages that the next-page command cycles through, a bit each
    int displayPrivateAirports = 0;
    int altMode = 0;
    std::string simLat;  ///< decimal degrees, south negative
    std::string simLon;  ///< decimal degrees, west negative
    std::string portGyro;
    std::string baudGyro;
    int autoApprMode = 1;
    int ignoreMagVar = 0;
    int minObstacleHeight = 5;
    int gsUnit = 0;
    int logEnable = 1;
    int logStartKt = -1;  ///< -1: not set
    int logEndKt = -1;    ///< -1: not set

    friend bool operator==(const Settings&, const Settings&) = default;
};

/// The value of one setting as the profile stores it: flags are 0 or 1, the rotation modes are
/// packed one per byte, the first in the lowest.
using SettingValue = std::variant<int, std::string>;

/// How a field is stored: as a flag, as the packed rotation modes, as an integer or as text.
using SettingMember = std::variant<bool Settings::*, std::array<int, 3> Settings::*,
                                   int Settings::*, std::string Settings::*>;

struct SettingInfo {
    std::string_view key;
    SettingMember member;

    SettingValue valueIn(const Settings& settings) const;
    /// Takes a value of the kind that valueIn() gives; one of the other kind is left alone.
    void store(const SettingValue& value, Settings& settings) const;
};

/// All 37 settings in the order in which they are read.
std::span<const SettingInfo> settingsTable();

/// Reads every setting; one that the profile lacks enters it with its default. Saves nothing.
Settings loadSettings(ProfileFile& profile);

/// Writes the settings that differ between `before` and `after` to the profile, which reach the
/// file with its next save.
void storeChangedSettings(ProfileFile& profile, const Settings& before, const Settings& after);

}  // namespace korvel
