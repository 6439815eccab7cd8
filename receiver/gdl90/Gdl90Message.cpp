#include "receiver/gdl90/Gdl90Message.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

unsigned word(Gdl90Bytes m, std::size_t at) { return m[at] * 256U + m[at + 1]; }

unsigned triple(Gdl90Bytes m, std::size_t at) { return m[at] * 65536U + word(m, at + 1); }

/// Two's complement of so many bits.
int signedOf(unsigned value, unsigned bits) {
    const unsigned half = 1U << (bits - 1);
    return static_cast<int>(value ^ half) - static_cast<int>(half);
}

std::optional<int> unless(unsigned value, unsigned none) {
    return value == none ? std::nullopt : std::optional(static_cast<int>(value));
}

/// Of the characters that can be shown; NUL and blanks are padding.
std::string textOf(Gdl90Bytes bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (byte == 0)
            break;
        text += byte > ' ' && byte < 0x7F ? static_cast<char>(byte) : ' ';
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

Gdl90Message heartbeat(Gdl90Bytes m) {
    const std::array<std::uint8_t, 2> lowFirst = {m[4], m[3]};  // alone among all numbers
    return Gdl90Heartbeat{.gpsValid = (m[1] & 0x80U) != 0,
                          .maintenance = (m[1] & 0x40U) != 0,
                          .utcOk = (m[2] & 0x01U) != 0,
                          .timeS = static_cast<int>((m[2] & 0x80U) << 9U | word(lowFirst, 0))};
}

void readDirection(Gdl90Target& target, unsigned kind, double degrees) {
    switch (kind) {
        case 1:
            target.trackDeg = degrees;
            break;
        case 2:
            target.headingMagneticDeg = degrees;
            break;
        case 3:
            target.headingTrueDeg = degrees;
            break;
        default:
            break;
    }
}

Gdl90Message target(Gdl90Bytes m) {
    constexpr unsigned kNone12 = 0xFFF;
    constexpr unsigned kNoVertical = 0x800;
    constexpr double kDegPerStep = 180.0 / (1U << 23U);
    constexpr int kId = 10;
    Gdl90Target target;
    target.isOwn = m[0] == kId;
    target.alert = m[1] >> 4U;
    target.addressType = m[1] & 0xFU;
    target.address = triple(m, 2);
    const int lat = signedOf(triple(m, 5), 24);
    const int lon = signedOf(triple(m, 8), 24);
    target.nic = m[13] >> 4U;
    target.nacp = m[13] & 0xFU;
    constexpr int kQuarterCircle = 1 << 22;
    const bool isOnEarth = lat >= -kQuarterCircle && lat <= kQuarterCircle;
    if (isOnEarth && (lat != 0 || lon != 0 || target.nic != 0))
        target.position = GeoPoint{lat * kDegPerStep * kDegToRad, lon * kDegPerStep * kDegToRad};
    if (const auto steps = unless(word(m, 11) >> 4U, kNone12))
        target.pressureAltitudeFt = *steps * 25 - 1000;
    const unsigned misc = m[12] & 0xFU;
    target.extrapolated = (misc & 4U) != 0;
    target.airborne = (misc & 8U) != 0;
    target.groundSpeedKt = unless(word(m, 14) >> 4U, kNone12);
    if (const unsigned vertical = word(m, 15) & 0xFFFU; vertical != kNoVertical)
        target.verticalSpeedFpm = signedOf(vertical, 12) * 64;
    readDirection(target, misc & 3U, m[17] * 360.0 / 256);
    target.emitterCategory = m[18];
    target.callSign = textOf(m.subspan(19, 8));
    target.emergency = m[27] >> 4U;
    return target;
}

Gdl90Message geometricAltitude(Gdl90Bytes m) {
    constexpr unsigned kNone = 0x7FFF;
    return Gdl90GeometricAltitude{.altitudeFt = signedOf(word(m, 1), 16) * 5,
                                  .verticalWarning = (m[3] & 0x80U) != 0,
                                  .vfomM = unless(word(m, 3) & 0x7FFFU, kNone)};
}

Gdl90Message deviceId(Gdl90Bytes m) {
    constexpr std::size_t kSerialAt = 3;
    constexpr std::size_t kMaskEnd = 38;
    std::uint64_t serial = 0;
    for (std::size_t i = 0; i < 8; ++i)
        serial = serial << 8U | m[kSerialAt + i];
    return Gdl90DeviceId{.serial = serial == UINT64_MAX ? std::nullopt : std::optional(serial),
                         .name = textOf(m.subspan(11, 8)),
                         .longName = textOf(m.subspan(19, 16)),
                         .geometricAltitudeIsMsl = (m[kMaskEnd] & 1U) != 0};
}

std::optional<double> angle(unsigned value) {
    constexpr unsigned kNone = 0x7FFF;
    return value == kNone ? std::nullopt : std::optional(signedOf(value, 16) * 0.1);
}

bool canBe(const std::optional<double>& degrees) {
    return !degrees || (*degrees >= -180.05 && *degrees <= 180.05);
}

std::optional<Gdl90Message> attitude(Gdl90Bytes m) {
    constexpr unsigned kNone = 0xFFFF;
    constexpr unsigned kMagnetic = 0x8000;
    Gdl90Attitude attitude;
    attitude.rollDeg = angle(word(m, 2));
    attitude.pitchDeg = angle(word(m, 4));
    if (!canBe(attitude.rollDeg) || !canBe(attitude.pitchDeg))
        return std::nullopt;
    if (const unsigned heading = word(m, 6); heading != kNone) {
        attitude.headingDeg = (heading & ~kMagnetic) * 0.1;
        attitude.headingIsMagnetic = (heading & kMagnetic) != 0;
    }
    attitude.indicatedAirspeedKt = unless(word(m, 8), kNone);
    attitude.trueAirspeedKt = unless(word(m, 10), kNone);
    return attitude;
}

}  // namespace

std::string addressText(std::uint32_t address) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4)
        text += kDigits[address >> static_cast<unsigned>(shift) & 0xFU];
    return text;
}

std::optional<Gdl90Message> decodeGdl90(Gdl90Bytes message) {
    struct Kind {
        int id;
        int subId;  ///< -1: has none
        std::size_t bytes;
        std::optional<Gdl90Message> (*decode)(Gdl90Bytes);
    };
    static const std::array<Kind, 6> kKinds = {
        {{0, -1, 7, [](Gdl90Bytes m) { return std::optional(heartbeat(m)); }},
         {10, -1, 28, [](Gdl90Bytes m) { return std::optional(target(m)); }},
         {20, -1, 28, [](Gdl90Bytes m) { return std::optional(target(m)); }},
         {11, -1, 5, [](Gdl90Bytes m) { return std::optional(geometricAltitude(m)); }},
         {0x65, 0, 39, [](Gdl90Bytes m) { return std::optional(deviceId(m)); }},
         {0x65, 1, 12, attitude}}};
    if (message.empty())
        return std::nullopt;
    for (const Kind& kind : kKinds) {
        if (kind.id != message[0])
            continue;
        if (kind.subId >= 0 && (message.size() < 2 || message[1] != kind.subId))
            continue;
        return message.size() < kind.bytes ? std::nullopt : kind.decode(message);
    }
    return Gdl90Other{.id = message[0], .bytes = message.size()};
}

}  // namespace korvel
