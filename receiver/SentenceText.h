#pragma once

#include <string>
#include <string_view>

namespace korvel {

// What makes a line a sentence: "$", allowed characters, and behind the last asterisk two digits
// that agree with the sum of everything between.

/// A line ends at its first CR; some receivers send two.
constexpr std::string_view withoutCr(std::string_view text) {
    return text.substr(0, text.find('\r'));
}

/// Everything up to 'z': the few characters above it that ASCII has are refused as well.
bool hasSentenceCharacters(std::string_view line);

enum class ChecksumState { Missing, Wrong, Right };

/// `line` begins with "$" and has no CR. `sum` is what its characters come to, unless there is none
/// to compare it with.
ChecksumState checkSum(std::string_view line, unsigned char& sum);

/// Puts an asterisk and the two digits of the sum (0 to 255) behind a sentence.
void appendSum(std::string& line, unsigned sum);

/// "GPRMC,..." as a sentence: "$GPRMC,...*hh", without a line end.
std::string sentenceOf(std::string_view body);

}  // namespace korvel
