#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace korvel {

/// The day on which the program was built, as seconds since 1970-01-01T00:00:00 UTC.
std::int64_t builtAtUnixSeconds();

/// The moment that RMC's fields "hhmmss.sss" and "ddmmyy" name, in whole seconds since
/// 1970-01-01T00:00:00 UTC; nothing when they name none.
///
/// Satellites count weeks modulo 1024, and a receiver that does not know in which of these rounds
/// it lives tells a day of the wrong one. What lies before `earliest` is put forward by 1024 weeks
/// until it does not.
std::optional<std::int64_t> receiverUnixSeconds(std::string_view time, std::string_view date,
                                                std::int64_t earliest = builtAtUnixSeconds());

}  // namespace korvel
