#include "navdb/file/FieldValue.h"

#include <string_view>

#include "base/TextNumbers.h"

namespace korvel {
namespace {

struct Printer {
    FieldType type;

    std::string operator()(std::int32_t value) const { return formatInt(value); }
    std::string operator()(double value) const {
        return formatFixed(value, type == FieldType::TenThousandths ? 4 : 6);
    }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const MarkedText& marked) const { return marked.text; }
    std::string operator()(const std::vector<std::uint8_t>& bytes) const {
        static constexpr std::string_view kDigits = "0123456789abcdef";
        std::string text;
        text.reserve(bytes.size() * 3);
        for (const std::uint8_t byte : bytes)
            text += {kDigits[byte >> 4U], kDigits[byte & 0xFU], ' '};
        return text;
    }
};

}  // namespace

std::string FieldValue::print() const { return std::visit(Printer{type}, content); }

}  // namespace korvel
