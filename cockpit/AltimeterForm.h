#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvel {

/// What the pilot reads off the altimeter, beside the receiver's altitude. Numbers are feet or,
/// with the altitude unit 1, metres.
struct AltimeterForm {
    /// What the altimeter and the receiver may differ by: pressure and temperature make no more.
    static constexpr int kMostOffsetFt = 3000;

    std::optional<std::int32_t> receiverFt{};  ///< uncorrected; nothing without a good altitude
    std::optional<std::int32_t> offsetFt{};    ///< in force; nothing when none is set
    int altUnit = 0;

    /// What the altimeter should read now, to begin with; empty when that is not known.
    [[nodiscard]] std::string proposed() const;
    /// "The receiver says 3280 ft" and, on the next line, the correction in force.
    [[nodiscard]] std::string words() const;
    /// The offset that what was typed makes. The message for the pilot, empty on success;
    /// `offsetFt` is as it was when there is one.
    [[nodiscard]] std::string read(std::string_view typed, std::int32_t& offsetFt) const;

 private:
    [[nodiscard]] std::string shown(std::int32_t feet) const;
};

}  // namespace korvel
