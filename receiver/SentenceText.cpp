#include "receiver/SentenceText.h"

#include "base/TextNumbers.h"

namespace korvel {

/// Nearly every line passes, so each is looked at whole, in bytes and without a way out: such a
/// loop the compiler turns into vectors.
bool hasSentenceCharacters(std::string_view line) {
    constexpr unsigned char kSpan = 'z' - ' ';
    unsigned char refused = 0;
    for (const char c : line) {
        const auto aboveSpace = static_cast<unsigned char>(c - ' ');
        refused |= aboveSpace > kSpan ? 1 : 0;
    }
    return refused == 0;
}

ChecksumState checkSum(std::string_view line, unsigned char& sum) {
    constexpr std::size_t kTail = 3;  // the asterisk and two digits
    const std::size_t asterisk = line.rfind('*');
    if (asterisk == std::string_view::npos || asterisk + kTail != line.size())
        return ChecksumState::Missing;
    sum = 0;
    for (const char c : line.substr(1, asterisk - 1))
        sum ^= static_cast<unsigned char>(c);
    std::string_view digits = line.substr(asterisk + 1);
    return scanHex(digits) == sum ? ChecksumState::Right : ChecksumState::Wrong;
}

}  // namespace korvel
