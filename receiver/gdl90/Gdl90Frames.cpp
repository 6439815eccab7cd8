#include "receiver/gdl90/Gdl90Frames.h"

#include <array>

namespace korvel {
namespace {

constexpr std::uint8_t kFlag = 0x7E;
constexpr std::uint8_t kEscape = 0x7D;
constexpr std::uint8_t kEscapeBit = 0x20;
constexpr std::size_t kSumBytes = 2;
/// The longest known message has 436 bytes.
constexpr std::size_t kMostBytes = 1024;

constexpr std::array<std::uint16_t, 256> kTable = [] {
    constexpr unsigned kPolynomial = 0x1021;
    constexpr unsigned kHighBit = 0x8000;
    std::array<std::uint16_t, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        unsigned value = i << 8U;
        for (int bit = 0; bit < 8; ++bit)
            value = (value << 1U) ^ ((value & kHighBit) != 0 ? kPolynomial : 0U);
        table.at(i) = static_cast<std::uint16_t>(value);
    }
    return table;
}();

}  // namespace

std::uint16_t Gdl90Frames::checkSum(Gdl90Bytes bytes) {
    std::uint16_t sum = 0;
    for (const std::uint8_t byte : bytes)
        sum = static_cast<std::uint16_t>(kTable.at(static_cast<std::size_t>(sum >> 8U)) ^
                                         (sum << 8U) ^ byte);
    return sum;
}

void Gdl90Frames::take(std::string_view bytes, const Taker& taker) {
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (byte == kFlag) {
            endFrame(taker);
        } else if (frame_.size() >= kMostBytes) {
            broken_ = true;
        } else if (byte == kEscape && !escaped_) {
            escaped_ = true;
        } else {
            frame_.push_back(static_cast<std::uint8_t>(escaped_ ? byte ^ kEscapeBit : byte));
            escaped_ = false;
        }
    }
}

void Gdl90Frames::endFrame(const Taker& taker) {
    const bool isEmpty = frame_.empty() && !escaped_;
    bool isGood = inside_ && !broken_ && !escaped_ && frame_.size() > kSumBytes;
    if (isGood) {
        const Gdl90Bytes message = Gdl90Bytes(frame_).first(frame_.size() - kSumBytes);
        const unsigned low = frame_[message.size()];
        const unsigned high = frame_[message.size() + 1];
        isGood = checkSum(message) == (low | high << 8U);
        if (isGood)
            taker(message);
    }
    if (!isGood && !isEmpty)
        ++badFrames_;
    frame_.clear();
    escaped_ = false;
    broken_ = false;
    inside_ = true;
}

void Gdl90Frames::finish() {
    if (!frame_.empty() || escaped_)
        ++badFrames_;
    frame_.clear();
    escaped_ = false;
    broken_ = false;
    inside_ = false;
}

std::string gdl90Frame(Gdl90Bytes message) {
    constexpr unsigned kByte = 0xFF;
    const unsigned sum = Gdl90Frames::checkSum(message);
    std::vector<std::uint8_t> clear(message.begin(), message.end());
    clear.push_back(static_cast<std::uint8_t>(sum & kByte));
    clear.push_back(static_cast<std::uint8_t>(sum >> 8U));
    std::string frame(1, static_cast<char>(kFlag));
    for (const std::uint8_t byte : clear) {
        const bool escaped = byte == kFlag || byte == kEscape;
        if (escaped)
            frame += static_cast<char>(kEscape);
        frame += static_cast<char>(escaped ? byte ^ kEscapeBit : byte);
    }
    return frame + static_cast<char>(kFlag);
}

}  // namespace korvel
