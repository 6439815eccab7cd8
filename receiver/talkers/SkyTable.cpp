#include "receiver/talkers/SkyTable.h"

#include <algorithm>

namespace korvel {
namespace {

std::optional<int> known(std::int16_t value) {
    return value == SatelliteSignal::kUnknown ? std::nullopt : std::optional<int>(value);
}

void merge(SkySatellite& satellite, const SatelliteSignal& signal) {
    if (!satellite.elevationDeg)
        satellite.elevationDeg = known(signal.elevationDeg);
    if (!satellite.azimuthDeg)
        satellite.azimuthDeg = known(signal.azimuthDeg);
    satellite.signalDb = std::max(satellite.signalDb, known(signal.signalDb));
}

}  // namespace

void SkyTable::replace(Talker talker, SignalSet signals,
                       std::span<const SatelliteSignal> satellites) {
    OfTalker& table = talkers_.at(indexOf(talker));
    const auto end = table.entries.begin() + static_cast<std::ptrdiff_t>(table.count);
    const auto kept = std::remove_if(
        table.entries.begin(), end,
        [signals](const SatelliteSignal& entry) { return (signals >> entry.signal & 1U) != 0; });
    table.count = static_cast<std::size_t>(kept - table.entries.begin());
    for (const SatelliteSignal& satellite : satellites)
        if (table.count < kMostOfTalker)
            table.entries.at(table.count++) = satellite;
}

void SkyTable::setUsed(SystemSet systems, const UsedSatellites& used) {
    for (std::size_t i = 0; i < kSatelliteSystems; ++i)
        if ((systems >> i & 1U) != 0)
            used_.at(i) = used.at(i);
}

std::vector<SkySatellite> SkyTable::satellites() const {
    std::vector<SkySatellite> sky;
    for (const OfTalker& table : talkers_) {
        for (const SatelliteSignal& signal : std::span(table.entries).first(table.count)) {
            auto found = std::ranges::lower_bound(sky, signal.id, {}, &SkySatellite::id);
            if (found == sky.end() || found->id != signal.id) {
                found = sky.insert(found, SkySatellite{.id = signal.id});
                const auto system = static_cast<std::size_t>(signal.id.system);
                found->used = (used_.at(system) >> placeInSystem(signal.id) & 1U) != 0;
            }
            merge(*found, signal);
        }
    }
    return sky;
}

}  // namespace korvel
