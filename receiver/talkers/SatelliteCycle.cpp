#include "receiver/talkers/SatelliteCycle.h"

#include <algorithm>

#include "base/TextNumbers.h"

namespace korvel {
namespace {

constexpr std::size_t kGroup = 4;        ///< fields of a satellite, and as many in front of them
constexpr std::size_t kMostFields = 22;  ///< four satellites and what one talker puts behind them
constexpr std::size_t kWithSignal = 1;   ///< fields behind the last satellite
constexpr std::size_t kWithSystem = 2;   ///< PQ: the signal, then the system

std::int16_t valueOf(std::string_view field) {
    constexpr int kMost = 999;
    return field.empty() ? SatelliteSignal::kUnknown
                         : static_cast<std::int16_t>(std::clamp(ParseInt(field), -kMost, kMost));
}

/// 0 to 15, one hexadecimal digit.
std::uint8_t signalOf(std::string_view digit) {
    return static_cast<std::uint8_t>(scanHex(digit).value_or(0) & 0xFU);
}

}  // namespace

bool SatelliteCycle::areFields(Talker talker, Fields fields) {
    if (fields.size() < kGroup || fields.size() > kMostFields)
        return false;
    const std::size_t behind = fields.size() % kGroup;
    return behind <= kWithSignal || (behind == kWithSystem && talker == Talker::PQ);
}

bool SatelliteCycle::nameSignal(Fields fields) {
    const std::size_t behind = fields.size() % kGroup;
    return behind != 0 && !fields[fields.size() - behind].empty();
}

void SatelliteCycle::begin(int total) {
    count_ = 0;
    signals_ = 0;
    namesSignals_ = false;
    total_ = total;
    next_ = 1;
}

bool SatelliteCycle::add(Talker talker, Fields fields) {
    const int total = ParseInt(fields[1]);
    const int number = ParseInt(fields[2]);
    if (number == 1)
        begin(total);
    if (number != next_ || total != total_ || number > total) {
        total_ = 0;  // goes on with the next first sentence
        return false;
    }
    const std::size_t behind = fields.size() % kGroup;
    const bool named = nameSignal(fields);
    const std::uint8_t signal = named ? signalOf(fields[fields.size() - behind]) : std::uint8_t{0};
    namesSignals_ = namesSignals_ || named;
    signals_ = static_cast<SignalSet>(signals_ | 1U << signal);
    for (std::size_t at = kGroup; at + kGroup <= fields.size(); at += kGroup)
        addSatellite(talker, fields.subspan(at, kGroup), signal);
    next_ = number + 1;
    if (number < total)
        return false;
    total_ = 0;
    return true;
}

void SatelliteCycle::addSatellite(Talker talker, Fields group, std::uint8_t signal) {
    const auto id = satelliteNumber(talker, systemOf(talker), ParseInt(group[0]));
    if (!id || count_ == entries_.size())
        return;
    entries_.at(count_++) = {.id = *id,
                             .elevationDeg = valueOf(group[1]),
                             .azimuthDeg = valueOf(group[2]),
                             .signalDb = valueOf(group[3]),
                             .signal = signal};
}

}  // namespace korvel
