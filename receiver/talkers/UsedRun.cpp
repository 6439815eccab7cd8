#include "receiver/talkers/UsedRun.h"

#include <algorithm>

#include "base/TextNumbers.h"

namespace korvel {

void UsedRun::add(Talker talker, std::span<const std::string_view> fields) {
    constexpr std::size_t kFixMode = 2;
    constexpr std::size_t kFirst = 3;
    if (ended_)
        *this = UsedRun{};
    ended_ = false;
    gpAlone_ = gpAlone_ && talker == Talker::GP;
    fixMode_ = std::max(fixMode_, ParseInt(fields[kFixMode]));
    auto system = systemOf(talker);
    if (fields.size() > kFewestFields)
        if (const auto stated = systemOf(fields[kFewestFields]))
            system = stated;
    if (system)
        name(*system);
    for (const std::string_view field : fields.subspan(kFirst, kMostInSentence))
        if (!field.empty())
            if (const auto satellite = satelliteNumber(talker, system, ParseInt(field)))
                addSatellite(*satellite);
}

/// SBAS has no name of its own: its satellites stand in the lists of GPS.
void UsedRun::name(SatelliteSystem system) {
    const auto bit = [](SatelliteSystem named) { return 1U << static_cast<unsigned>(named); };
    unsigned named = bit(system);
    if (system == SatelliteSystem::Gps)
        named |= bit(SatelliteSystem::Sbas);
    systems_ = static_cast<SystemSet>(systems_ | named);
}

void UsedRun::addSatellite(const SatelliteNumber& satellite) {
    name(satellite.system);
    std::uint64_t& bits = used_.at(static_cast<std::size_t>(satellite.system));
    const std::uint64_t bit = std::uint64_t{1} << placeInSystem(satellite);
    if ((bits & bit) != 0)
        return;
    bits |= bit;
    if (const auto number = gpsNumber(satellite); number && gpsCount_ < gps_.size())
        gps_.at(gpsCount_++) = *number;
}

}  // namespace korvel
