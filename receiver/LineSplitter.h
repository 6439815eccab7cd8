#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace korvel {

/// Cuts a stream of bytes into lines, in a buffer of fixed size. When the bytes without a whole
/// line outgrow it, input is dropped up to and including the next delimiter. Not thread-safe.
class LineSplitter {
 public:
    static constexpr std::size_t kCapacity = 1024;
    static constexpr int kNoLine = -1;
    static constexpr int kLineTooLong = -2;

    /// CR LF at first. Without a delimiter (empty) bytes are not cut but taken as they come.
    void setDelimiter(std::string_view delimiter);

    void append(std::string_view bytes);

    /// Takes the next whole line out, with a zero behind it, and returns its length; the longest
    /// that fits is one less than `out` holds. A longer line is dropped: kLineTooLong. kNoLine when
    /// no whole line is there. Without a delimiter, takes as many bytes as there are and fit.
    int readLine(std::span<char> out);

    /// Forgets the bytes held, and expects a line's start next.
    void clear();

    std::size_t buffered() const { return buffered_; }
    /// How many bytes can be appended at once without being too many for the buffer.
    std::size_t room() const { return resyncing_ ? kCapacity : kCapacity - buffered_; }
    bool isResyncing() const { return resyncing_; }

 private:
    void appendPiece(std::string_view bytes);
    std::string_view afterDelimiter(std::string_view bytes);
    std::size_t extendMatch(std::size_t matched, char next) const;
    std::string_view content() const { return {buffer_.data(), buffered_}; }
    void dropFront(std::size_t count);

    std::string delimiter_ = "\r\n";
    std::array<char, kCapacity> buffer_{};
    std::size_t buffered_ = 0;
    bool resyncing_ = false;
    std::size_t matched_ = 0;  ///< characters of the delimiter seen at the end while resyncing
};

}  // namespace korvel
