#include "receiver/LineSplitter.h"

#include <algorithm>
#include <cassert>

namespace korvel {

void LineSplitter::setDelimiter(std::string_view delimiter) {
    delimiter_ = delimiter;
    matched_ = 0;
}

void LineSplitter::clear() {
    buffered_ = 0;
    resyncing_ = false;
    matched_ = 0;
}

void LineSplitter::append(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, kCapacity);
        appendPiece(piece);
        bytes.remove_prefix(piece.size());
    }
}

void LineSplitter::appendPiece(std::string_view bytes) {
    if (!resyncing_ && bytes.size() > room()) {
        resyncing_ = true;
        matched_ = 0;
    }
    if (resyncing_) {
        bytes = afterDelimiter(bytes);
        if (resyncing_)
            return;
        buffered_ = 0;
    }
    std::copy(bytes.begin(), bytes.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(buffered_));
    buffered_ += bytes.size();
}

/// What follows the first delimiter, which may have begun in an earlier piece; ends the resyncing
/// when it is found.
std::string_view LineSplitter::afterDelimiter(std::string_view bytes) {
    std::size_t used = 0;
    while (matched_ < delimiter_.size() && used < bytes.size()) {
        matched_ = extendMatch(matched_, bytes[used]);
        ++used;
    }
    resyncing_ = matched_ < delimiter_.size();
    return bytes.substr(used);
}

/// How much of the delimiter is matched when `next` follows its first `matched` characters. A
/// mismatch falls back to the longest shorter match, so that CR CR LF ends a line too.
std::size_t LineSplitter::extendMatch(std::size_t matched, char next) const {
    const std::string_view delimiter = delimiter_;
    std::string seen(delimiter.substr(0, matched));
    seen.push_back(next);
    std::string_view tail = seen;
    while (!delimiter.starts_with(tail))
        tail.remove_prefix(1);
    return tail.size();
}

int LineSplitter::readLine(std::span<char> out) {
    assert(!out.empty());
    const std::size_t longest = out.size() - 1;
    std::size_t length = std::min(buffered_, longest);
    if (delimiter_.empty()) {
        if (length == 0)
            return kNoLine;
    } else {
        length = content().find(delimiter_);
        if (length == std::string_view::npos)
            return kNoLine;
    }
    const bool fits = length <= longest;
    if (fits) {
        std::copy_n(buffer_.begin(), length, out.begin());
        out[length] = '\0';
    }
    dropFront(length + delimiter_.size());
    return fits ? static_cast<int>(length) : kLineTooLong;
}

void LineSplitter::dropFront(std::size_t count) {
    const std::string_view rest = content().substr(count);
    std::copy(rest.begin(), rest.end(), buffer_.begin());
    buffered_ -= count;
}

}  // namespace korvel
