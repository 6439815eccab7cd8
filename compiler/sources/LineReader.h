#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace korvel {

/// Bytes in order, from a file or from memory.
class ByteSource {
 public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    /// Fills the front of `room`; returns how many bytes, 0 at the end, -1 when reading failed
    /// (an unreadable file, a damaged .gz).
    virtual std::ptrdiff_t read(std::span<char> room) = 0;
    /// How much of the source has been read, 0 to 1.
    [[nodiscard]] virtual double share() const = 0;
};

/// Opens a plain or gzip-compressed file, told apart by its content. Null when it cannot be opened.
std::unique_ptr<ByteSource> openTextFile(const std::filesystem::path& path);

/// Reads `text`, which must outlive the source.
std::unique_ptr<ByteSource> openText(std::string_view text);

/// Cuts a source into lines at LF, CR or CR LF without holding more than one block of it; a file
/// of a whole world's airports is several hundred megabytes.
class LineReader {
 public:
    /// A longer line is cut to this many bytes; no source has such a line unless it is damaged.
    static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

    explicit LineReader(std::unique_ptr<ByteSource> source);

    /// The next line without its end, valid until the next call. False at the end of the source
    /// and after a read failure. A byte order mark before the first line is dropped.
    bool next(std::string_view& line);

    /// Number of the line that next() gave last, from 1.
    [[nodiscard]] std::size_t number() const { return number_; }
    [[nodiscard]] bool failed() const { return failed_; }
    [[nodiscard]] double share() const { return source_->share(); }

 private:
    bool refill();

    std::unique_ptr<ByteSource> source_;
    std::string block_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::size_t number_ = 0;
    bool afterCr_ = false;
    bool exhausted_ = false;
    bool failed_ = false;
};

}  // namespace korvel
