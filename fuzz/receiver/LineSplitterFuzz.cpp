// The line splitter against a slow one that keeps what it holds in a text and looks at it anew each
// time. The input is a row of chunks: two bytes of length and how to read, then the bytes.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

#include "receiver/LineSplitter.h"

namespace {

using korvel::LineSplitter;

constexpr std::string_view kDelimiter = "\r\n";

class SlowSplitter {
 public:
    void append(const std::string& bytes) {
        if (!resyncing_ && held_.size() + bytes.size() > LineSplitter::kCapacity) {
            resyncing_ = true;
            dropped_.clear();
        }
        if (!resyncing_) {
            held_ += bytes;
            return;
        }
        dropped_ += bytes;
        const std::size_t end = dropped_.find(kDelimiter);
        if (end != std::string::npos) {
            held_ = dropped_.substr(end + kDelimiter.size());
            resyncing_ = false;
        }
    }

    int readLine(std::string& line, std::size_t longest) {
        const std::size_t end = held_.find(kDelimiter);
        if (end == std::string::npos)
            return LineSplitter::kNoLine;
        line = held_.substr(0, end);
        held_ = held_.substr(end + kDelimiter.size());
        return line.size() > longest ? LineSplitter::kLineTooLong : static_cast<int>(line.size());
    }

    std::size_t size() const { return held_.size(); }
    bool isResyncing() const { return resyncing_; }

 private:
    std::string held_;
    std::string dropped_;
    bool resyncing_ = false;
};

void require(bool holds) {
    if (!holds)
        std::abort();
}

void readAll(LineSplitter& splitter, SlowSplitter& slow, std::size_t longest) {
    std::array<char, 256> out{};
    int length = 0;
    while (length != LineSplitter::kNoLine) {
        std::string expected;
        length = splitter.readLine(std::span(out).first(longest + 1));
        require(length == slow.readLine(expected, longest));
        require(length < 0 || (expected == std::string_view(out.data(), expected.size()) &&
                               out.at(expected.size()) == '\0'));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LineSplitter splitter;
    SlowSplitter slow;
    std::size_t at = 0;
    while (at + 2 <= size) {
        const std::size_t head = data[at] * std::size_t{256} + data[at + 1];
        at += 2;
        // Runs of one byte make chunks that overflow from small inputs.
        const std::size_t repeat = (head & 0x8000U) != 0 ? 64 : 1;
        const std::size_t length = std::min<std::size_t>(head % 64, size - at);
        std::string chunk;
        for (std::size_t i = 0; i < length; ++i)
            chunk.append(chunk.size() < 900 ? repeat : 1, static_cast<char>(data[at + i]));
        at += length;
        require(chunk.size() <= LineSplitter::kCapacity);
        splitter.append(chunk);
        slow.append(chunk);
        if ((head & 0x4000U) == 0)
            readAll(splitter, slow, (head & 0x2000U) != 0 ? 3 : 159);
        require(splitter.buffered() == slow.size());
        require(splitter.buffered() <= LineSplitter::kCapacity);
        require(splitter.isResyncing() == slow.isResyncing());
    }
    return 0;
}
