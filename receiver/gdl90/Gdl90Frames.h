#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// The bytes of a clear message, its number first, without its check sum.
using Gdl90Bytes = std::span<const std::uint8_t>;

/// Cuts a stream of bytes into messages: 0x7E stands between them, 0x7D escapes the byte behind it
/// (XOR 0x20), the last two bytes are the sum of the others, low byte first. Bounded in memory;
/// reading recovers at the next 0x7E.
class Gdl90Frames {
 public:
    using Taker = std::function<void(Gdl90Bytes message)>;

    /// Hands every message that is whole and correct to `taker`; its bytes are good during the
    /// call.
    void take(std::string_view bytes, const Taker& taker);
    /// The stream is over: what came behind the last 0x7E is no message.
    void finish();

    /// Stretches between flags, or before the first, that are no messages.
    std::int64_t badFrames() const { return badFrames_; }

    /// The polynomial 0x1021, beginning with 0, in the order of the format's own description.
    static std::uint16_t checkSum(Gdl90Bytes bytes);

 private:
    void endFrame(const Taker& taker);

    std::vector<std::uint8_t> frame_;  // clear, since the last flag
    bool inside_ = false;              // a flag has come
    bool escaped_ = false;
    bool broken_ = false;  // too long
    std::int64_t badFrames_ = 0;
};

/// The message as it is sent: with its sum, escapes and a 0x7E at both ends.
std::string gdl90Frame(Gdl90Bytes message);

}  // namespace korvel
