#include "receiver/talkers/SatelliteNumber.h"

#include "base/TextNumbers.h"

namespace korvel {
namespace {

using enum SatelliteSystem;

constexpr int kMostNumber = 64;  ///< of any system but SBAS
constexpr int kSbasOffset = 87;

struct Range {
    int first;
    int last;
    SatelliteSystem system;
    int taken;  ///< off the number
};
/// How receivers number all systems in one row.
constexpr std::array<Range, 8> kOneRow = {{{1, 32, Gps, 0},
                                           {33, 64, Sbas, -kSbasOffset},
                                           {65, 99, Glonass, 64},
                                           {120, 158, Sbas, 0},
                                           {193, 202, Qzss, 192},
                                           {203, 263, BeiDou, 200},
                                           {301, 336, Galileo, 300},
                                           {401, 463, BeiDou, 400}}};

std::optional<SatelliteNumber> inOneRow(int number) {
    for (const Range& range : kOneRow)
        if (number >= range.first && number <= range.last)
            return SatelliteNumber{range.system, number - range.taken};
    return std::nullopt;
}

/// The largest of the offsets that the number is above, taken off.
int withoutOffset(SatelliteSystem system, int number) {
    struct Offset {
        SatelliteSystem system;
        int taken;
    };
    constexpr std::array<Offset, 7> kOffsets = {{{Glonass, 64},
                                                 {Galileo, 300},
                                                 {Galileo, 100},
                                                 {BeiDou, 400},
                                                 {BeiDou, 200},
                                                 {BeiDou, 140},
                                                 {Qzss, 192}}};
    for (const Offset& offset : kOffsets)
        if (offset.system == system && number > offset.taken)
            return number - offset.taken;
    return number;
}

}  // namespace

std::optional<SatelliteSystem> systemOf(Talker talker) {
    switch (talker) {
        case Talker::GN:
            return std::nullopt;
        case Talker::GP:
            return Gps;
        case Talker::GA:
            return Galileo;
        case Talker::GL:
            return Glonass;
        case Talker::GB:
        case Talker::BD:
        case Talker::PQ:
            return BeiDou;
        case Talker::GQ:
        case Talker::QZ:
            return Qzss;
        case Talker::GI:
            return NavIc;
    }
    return std::nullopt;
}

std::optional<SatelliteSystem> systemOf(std::string_view digit) {
    constexpr std::array kByDigit = {Gps, Glonass, Galileo, BeiDou, Qzss, NavIc};
    const int number = ParseInt(digit);
    if (number < 1 || number > static_cast<int>(kByDigit.size()))
        return std::nullopt;
    return kByDigit.at(static_cast<std::size_t>(number) - 1);
}

std::optional<SatelliteNumber> satelliteNumber(std::optional<SatelliteSystem> system, int number) {
    if (!system || *system == Gps)
        return inOneRow(number);
    const int own = withoutOffset(*system, number);
    return own >= 1 && own <= kMostNumber ? std::optional(SatelliteNumber{*system, own})
                                          : std::nullopt;
}

std::optional<SatelliteNumber> satelliteNumber(Talker talker, std::optional<SatelliteSystem> system,
                                               int number) {
    constexpr int kFirstQzss = 193;
    constexpr int kLastQzss = 202;
    const bool isQzss = talker == Talker::PQ && number >= kFirstQzss && number <= kLastQzss;
    return satelliteNumber(isQzss ? Qzss : system, number);
}

std::optional<int> gpsNumber(const SatelliteNumber& satellite) {
    constexpr int kLastSbas = 64;
    if (satellite.system == Gps)
        return satellite.number;
    if (satellite.system != Sbas || satellite.number - kSbasOffset > kLastSbas)
        return std::nullopt;
    return satellite.number - kSbasOffset;
}

}  // namespace korvel
