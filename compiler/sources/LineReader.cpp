#include "compiler/sources/LineReader.h"

#include <algorithm>
#include <cstring>
#include <system_error>
#include <utility>
#include <zlib.h>

#include "platform/FileNumber.h"

namespace korvel {

namespace {

constexpr std::size_t kFirstBlock = std::size_t{1} << 12;  // it grows with what there is
constexpr std::size_t kBlock = std::size_t{1} << 18;

struct CloseGz {
    void operator()(gzFile_s* file) const { gzclose_r(file); }
};

/// zlib hands plain files through as they are, so one class serves both.
class FileSource : public ByteSource {
 public:
    FileSource(gzFile file, std::uintmax_t size) : file_(file), size_(size) {
        gzbuffer(file_.get(), kBlock);
    }

    std::ptrdiff_t read(std::span<char> room) override {
        const int got = gzread(file_.get(), room.data(), static_cast<unsigned>(room.size()));
        if (got == 0) {
            // A .gz that was cut short ends quietly; only the error code tells.
            int code = Z_OK;
            gzerror(file_.get(), &code);
            return code == Z_OK || code == Z_STREAM_END ? 0 : -1;
        }
        return got;
    }

    [[nodiscard]] double share() const override {
        if (size_ == 0)
            return 1.0;
        return std::min(1.0,
                        static_cast<double>(gzoffset(file_.get())) / static_cast<double>(size_));
    }

 private:
    std::unique_ptr<gzFile_s, CloseGz> file_;
    std::uintmax_t size_;
};

class TextSource : public ByteSource {
 public:
    explicit TextSource(std::string_view text) : text_(text) {}

    std::ptrdiff_t read(std::span<char> room) override {
        const auto count = std::min(room.size(), text_.size() - at_);
        std::copy_n(text_.data() + at_, count, room.data());
        at_ += count;
        return static_cast<std::ptrdiff_t>(count);
    }

    [[nodiscard]] double share() const override {
        return text_.empty() ? 1.0 : static_cast<double>(at_) / static_cast<double>(text_.size());
    }

 private:
    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace

std::unique_ptr<ByteSource> openTextFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error)
        return nullptr;
    const int number = openFileNumber(path);
    if (number < 0)
        return nullptr;
    gzFile file = gzdopen(number, "rb");
    return file != nullptr ? std::make_unique<FileSource>(file, size) : nullptr;
}

std::unique_ptr<ByteSource> openText(std::string_view text) {
    return std::make_unique<TextSource>(text);
}

LineReader::LineReader(std::unique_ptr<ByteSource> source) : source_(std::move(source)) {}

/// Moves the unread rest to the front and appends a block. False when nothing came.
bool LineReader::refill() {
    if (exhausted_)
        return false;
    std::memmove(block_.data(), block_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    const std::size_t room = std::clamp(block_.size(), kFirstBlock, kBlock);
    block_.resize(std::max(block_.size(), end_ + room));
    const auto got = source_->read(std::span(block_).subspan(end_, room));
    if (got <= 0) {
        exhausted_ = true;
        failed_ = got < 0;
        return false;
    }
    end_ += static_cast<std::size_t>(got);
    return true;
}

bool LineReader::next(std::string_view& line) {
    if (afterCr_) {
        afterCr_ = false;
        if ((begin_ < end_ || refill()) && block_[begin_] == '\n')
            ++begin_;
    }
    std::size_t scanned = 0;
    while (true) {
        const char* const first = block_.data() + begin_;
        const char* const last = block_.data() + end_;
        const char* const stop =
            std::find_if(first + scanned, last, [](char c) { return c == '\n' || c == '\r'; });
        scanned = static_cast<std::size_t>(stop - first);
        if (stop == last && scanned < kLongestLine && refill())
            continue;
        if (failed_ || (stop == last && scanned == 0))
            return false;
        line = std::string_view(block_).substr(begin_, scanned);
        begin_ += scanned;
        if (begin_ < end_) {
            afterCr_ = block_[begin_] == '\r';
            if (block_[begin_] == '\r' || block_[begin_] == '\n')
                ++begin_;
        }
        if (++number_ == 1 && line.starts_with("\xEF\xBB\xBF"))
            line.remove_prefix(3);
        return true;
    }
}

}  // namespace korvel
