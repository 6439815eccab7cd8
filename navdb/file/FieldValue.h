#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "navdb/file/DatabaseLayout.h"

namespace korvel {

/// A text, and the word beside it.
struct MarkedText {
    std::string text;
    std::uint32_t word = 0;
};

/// One decoded field of a row. Numbers come scaled: degrees, MHz or kHz, degrees of variation.
struct FieldValue {
    FieldType type = FieldType::Integer;
    std::variant<std::int32_t, std::vector<std::uint8_t>, std::string, double, MarkedText> content;

    /// A byte block as "%02x " for each byte, degrees with six decimals.
    [[nodiscard]] std::string print() const;
};

/// The fields of a row by name.
using FieldMap = std::map<std::string, FieldValue, std::less<>>;

}  // namespace korvel
