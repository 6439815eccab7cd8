#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvel {

/// Who speaks, the two letters in front of a sentence's kind. Of two that say the same the earlier
/// one here is believed: GN speaks for all systems together.
enum class Talker : std::uint8_t { GN, GP, GA, GL, GB, BD, GQ, QZ, GI, PQ };

inline constexpr std::array<std::string_view, 10> kTalkerLetters = {"GN", "GP", "GA", "GL", "GB",
                                                                    "BD", "GQ", "QZ", "GI", "PQ"};
inline constexpr std::size_t kTalkers = kTalkerLetters.size();

constexpr std::size_t indexOf(Talker talker) { return static_cast<std::size_t>(talker); }

constexpr std::optional<Talker> talkerOf(std::string_view letters) {
    for (std::size_t i = 0; i < kTalkers; ++i)
        if (kTalkerLetters.at(i) == letters)
            return static_cast<Talker>(i);
    return std::nullopt;
}

}  // namespace korvel
