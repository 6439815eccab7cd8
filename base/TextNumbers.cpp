#include "base/TextNumbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

#include "base/Ascii.h"

namespace korvel {
namespace {

constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isHexDigit(char c) {
    return isDigit(c) || (lowerAscii(c) >= 'a' && lowerAscii(c) <= 'f');
}

/// Reads ahead in a text without changing it.
class Cursor {
 public:
    explicit Cursor(std::string_view text) : text_(text) {}

    char peek(std::size_t ahead = 0) const {
        return position_ + ahead < text_.size() ? text_[position_ + ahead] : '\0';
    }
    void skip(std::size_t count) { position_ += count; }
    void skipSpace() {
        while (isSpace(peek()))
            ++position_;
    }
    /// True for a minus sign; a plus sign is taken as well.
    bool takeSign() {
        const char sign = peek();
        if (sign == '+' || sign == '-')
            ++position_;
        return sign == '-';
    }
    template <class Predicate>
    std::size_t take(Predicate matches) {
        const std::size_t start = position_;
        while (position_ < text_.size() && matches(text_[position_]))
            ++position_;
        return position_ - start;
    }
    bool takeWord(std::string_view word) {
        for (std::size_t i = 0; i < word.size(); ++i)
            if (lowerAscii(peek(i)) != word[i])
                return false;
        position_ += word.size();
        return true;
    }
    std::size_t position() const { return position_; }
    std::string_view rest() const { return text_.substr(position_); }
    std::string_view since(std::size_t start) const {
        return text_.substr(start, position_ - start);
    }

 private:
    std::string_view text_;
    std::size_t position_ = 0;
};

std::optional<double> scanWord(Cursor& cursor) {
    if (cursor.takeWord("inf")) {
        // Once "infinity" is begun it has to be finished, or there is no number.
        if (lowerAscii(cursor.peek()) != 'i')
            return std::numeric_limits<double>::infinity();
        if (cursor.takeWord("inity"))
            return std::numeric_limits<double>::infinity();
        return std::nullopt;
    }
    if (cursor.takeWord("nan"))
        return std::numeric_limits<double>::quiet_NaN();
    return std::nullopt;
}

/// Takes "e", a sign and digits where they stand; the exponent, 0 when there are no digits.
int takeExponent(Cursor& cursor, char letter) {
    if (lowerAscii(cursor.peek()) != letter)
        return 0;
    cursor.skip(1);
    std::string_view digits = cursor.rest();
    cursor.takeSign();
    cursor.take(isDigit);
    return isSpace(digits.empty() ? ' ' : digits.front()) ? 0 : scanInt(digits).value_or(0);
}

/// How many places the first digit that is not 0 stands before (above 0) or behind the point.
int placesBeforePoint(std::string_view mantissa) {
    const std::size_t first = mantissa.find_first_not_of("0.");
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    return static_cast<int>(point) - static_cast<int>(std::min(first, mantissa.size()));
}

/// The value of a well-formed number, a hexadecimal one without its prefix.
double convert(std::string_view number, bool hex, int places, int exponent) {
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value,
                                        hex ? std::chars_format::hex : std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range) {
        // The standard leaves the value alone, so which end of the range it left is found here.
        const std::int64_t magnitude = std::int64_t{hex ? 4 : 1} * places + exponent;
        return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

std::optional<double> scanNumber(Cursor& cursor) {
    const bool hex = cursor.peek() == '0' && lowerAscii(cursor.peek(1)) == 'x';
    if (hex)
        cursor.skip(2);
    const auto matches = hex ? isHexDigit : isDigit;
    const std::size_t start = cursor.position();
    std::size_t digits = cursor.take(matches);
    if (cursor.peek() == '.') {
        cursor.skip(1);
        digits += cursor.take(matches);
    }
    if (digits == 0)
        return std::nullopt;
    const int places = placesBeforePoint(cursor.since(start));
    const int exponent = takeExponent(cursor, hex ? 'p' : 'e');
    return convert(cursor.since(start), hex, places, exponent);
}

}  // namespace

std::optional<int> scanInt(std::string_view& text) {
    Cursor cursor(text);
    cursor.skipSpace();
    const bool negative = cursor.takeSign();
    constexpr std::int64_t kLimit = std::numeric_limits<int>::max();
    std::int64_t value = 0;
    const std::size_t digits = cursor.take([&value](char c) {
        if (!isDigit(c))
            return false;
        value = value > kLimit ? value : value * 10 + (c - '0');
        return true;
    });
    if (digits == 0)
        return std::nullopt;
    text = cursor.rest();
    if (negative)
        return value > kLimit ? std::numeric_limits<int>::min() : static_cast<int>(-value);
    return static_cast<int>(value > kLimit ? kLimit : value);
}

std::optional<unsigned> scanHex(std::string_view& text) {
    Cursor cursor(text);
    cursor.skipSpace();
    const bool negative = cursor.takeSign();
    std::size_t taken = 0;
    if (cursor.peek() == '0' && lowerAscii(cursor.peek(1)) == 'x') {
        // "0x" without digits still reads as the number 0.
        cursor.skip(2);
        taken = 1;
    }
    constexpr std::uint64_t kLimit = std::numeric_limits<std::uint32_t>::max();
    std::uint64_t value = 0;
    taken += cursor.take([&value](char c) {
        if (!isHexDigit(c))
            return false;
        const int digit = isDigit(c) ? c - '0' : lowerAscii(c) - 'a' + 10;
        value = value > kLimit ? value : value * 16 + static_cast<unsigned>(digit);
        return true;
    });
    if (taken == 0)
        return std::nullopt;
    text = cursor.rest();
    const auto magnitude = static_cast<std::uint32_t>(value > kLimit ? kLimit : value);
    return negative ? 0U - magnitude : magnitude;
}

std::optional<double> scanDouble(std::string_view& text) {
    Cursor cursor(text);
    cursor.skipSpace();
    const bool negative = cursor.takeSign();
    const char first = lowerAscii(cursor.peek());
    const std::optional<double> value =
        first == 'i' || first == 'n' ? scanWord(cursor) : scanNumber(cursor);
    if (!value)
        return std::nullopt;
    text = cursor.rest();
    return negative ? -*value : *value;
}

int ParseInt(std::string_view text) { return scanInt(text).value_or(0); }

double ParseDouble(std::string_view text) { return scanDouble(text).value_or(0.0); }

std::string formatInt(long long value) { return std::to_string(value); }

std::string formatFixed(double value, int decimals) {
    // The longest double has 309 digits before its point.
    constexpr std::size_t kLongest = 400;
    std::array<char, kLongest> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                      std::chars_format::fixed, decimals);
    return {text.data(), result.ptr};
}

}  // namespace korvel
