#include "receiver/SentenceText.h"

#include "base/TextNumbers.h"

namespace korvel {
namespace {

/// In bytes, so that the compiler makes vectors of it.
unsigned sumOf(std::string_view body) {
    unsigned char sum = 0;
    for (const char c : body)
        sum ^= static_cast<unsigned char>(c);
    return sum;
}

}  // namespace

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
    sum = static_cast<unsigned char>(sumOf(line.substr(1, asterisk - 1)));
    std::string_view digits = line.substr(asterisk + 1);
    return scanHex(digits) == sum ? ChecksumState::Right : ChecksumState::Wrong;
}

void appendSum(std::string& line, unsigned sum) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    line += '*';
    line += kDigits[sum >> 4U & 0xFU];
    line += kDigits[sum & 0xFU];
}

std::string sentenceOf(std::string_view body) {
    std::string line = "$";
    line += body;
    appendSum(line, sumOf(body));
    return line;
}

}  // namespace korvel
