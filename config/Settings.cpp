#include "config/Settings.h"

#include <cstddef>

#include "config/ProfileFile.h"

namespace korvel {
namespace {

using RotateModes = std::array<int, 3>;

constexpr unsigned kRotateModeCount = 5;
constexpr unsigned kBitsPerMode = 8;

constexpr std::array kSettings = {
    SettingInfo{"Port", &Settings::port},
    SettingInfo{"ShowHints2", &Settings::showHints},
    SettingInfo{"Icon", &Settings::icons},
    SettingInfo{"Autozoom", &Settings::autozoom},
    SettingInfo{"ViewMask", &Settings::viewMask},
    SettingInfo{"RotateMask", &Settings::rotateModes},
    SettingInfo{"RotateNavaids", &Settings::rotateNavaids},
    SettingInfo{"HighNavaids", &Settings::highNavaids},
    SettingInfo{"VRPNavaids", &Settings::vrpNavaids},
    SettingInfo{"ApprMode", &Settings::apprMode},
    SettingInfo{"GearWarning", &Settings::gearWarning},
    SettingInfo{"IcaoPrefix", &Settings::icaoPrefix},
    SettingInfo{"SchemeFile", &Settings::schemeFile},
    SettingInfo{"Autoview", &Settings::autoview},
    SettingInfo{"Approach", &Settings::approachSpeedKt},
    SettingInfo{"AutoSequence", &Settings::autoSequence},
    SettingInfo{"Tracking", &Settings::tracking},
    SettingInfo{"MapMask2", &Settings::mapMask},
    SettingInfo{"MapPref", &Settings::mapPref},
    SettingInfo{"IntelliBdryAlt", &Settings::boundaryAltitude},
    SettingInfo{"GyroConn", &Settings::gyroConnected},
    SettingInfo{"ViaGyro", &Settings::viaGyro},
    SettingInfo{"AltUnit", &Settings::altUnit},
    SettingInfo{"DisplayPages", &Settings::displayPages},
    SettingInfo{"DisplayPrivAirports", &Settings::displayPrivateAirports},
    SettingInfo{"AltMode", &Settings::altMode},
    SettingInfo{"SimLat", &Settings::simLat},
    SettingInfo{"SimLon", &Settings::simLon},
    SettingInfo{"PortGyro", &Settings::portGyro},
    SettingInfo{"BaudGyro", &Settings::baudGyro},
    SettingInfo{"AutoApprMode", &Settings::autoApprMode},
    SettingInfo{"IgnoreMagVar", &Settings::ignoreMagVar},
    SettingInfo{"MinObsHt", &Settings::minObstacleHeight},
    SettingInfo{"GsUnit", &Settings::gsUnit},
    SettingInfo{"LogEnable", &Settings::logEnable},
    SettingInfo{"LogStartVal", &Settings::logStartKt},
    SettingInfo{"LogEndVal", &Settings::logEndKt},
};
static_assert(kSettings.size() == 37);

SettingValue toStored(bool flag) { return flag ? 1 : 0; }
SettingValue toStored(int number) { return number; }
SettingValue toStored(const std::string& text) { return text; }
SettingValue toStored(const RotateModes& modes) {
    unsigned packed = 0;
    for (std::size_t i = 0; i < modes.size(); ++i)
        packed |= (static_cast<unsigned>(modes[i]) % kRotateModeCount) << (kBitsPerMode * i);
    return static_cast<int>(packed);
}

void fromStored(int stored, bool& flag) { flag = stored != 0; }
void fromStored(int stored, int& number) { number = stored; }
void fromStored(int stored, RotateModes& modes) {
    for (std::size_t i = 0; i < modes.size(); ++i) {
        const unsigned byte = (static_cast<unsigned>(stored) >> (kBitsPerMode * i)) & 0xFFU;
        modes[i] = static_cast<int>(byte % kRotateModeCount);
    }
}

void fromStored(int /*stored*/, std::string& /*text*/) {}

template <class Field>
void loadField(ProfileFile& profile, std::string_view key, Field& field) {
    fromStored(profile.getInt(kOptionsSection, key, std::get<int>(toStored(field))), field);
}

void loadField(ProfileFile& profile, std::string_view key, std::string& field) {
    field = profile.getString(kOptionsSection, key, field);
}

}  // namespace

SettingValue SettingInfo::valueIn(const Settings& settings) const {
    return std::visit([&settings](auto field) { return toStored(settings.*field); }, member);
}

void SettingInfo::store(const SettingValue& value, Settings& settings) const {
    if (const auto* number = std::get_if<int>(&value))
        std::visit([&](auto field) { fromStored(*number, settings.*field); }, member);
    else if (const auto* field = std::get_if<std::string Settings::*>(&member))
        settings.** field = std::get<std::string>(value);
}

std::span<const SettingInfo> settingsTable() { return kSettings; }

Settings loadSettings(ProfileFile& profile) {
    Settings settings;
    for (const SettingInfo& setting : kSettings) {
        std::visit([&](auto field) { loadField(profile, setting.key, settings.*field); },
                   setting.member);
    }
    return settings;
}

void storeChangedSettings(ProfileFile& profile, const Settings& before, const Settings& after) {
    for (const SettingInfo& setting : kSettings) {
        const SettingValue value = setting.valueIn(after);
        if (value == setting.valueIn(before))
            continue;
        if (const int* number = std::get_if<int>(&value))
            profile.setInt(kOptionsSection, setting.key, *number, true);
        else
            profile.setString(kOptionsSection, setting.key, std::get<std::string>(value), true);
    }
}

}  // namespace korvel
