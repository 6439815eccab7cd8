#include "compiler/sources/ZipArchive.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>
#include <zlib.h>

namespace korvel {

namespace {

constexpr std::string_view kEntryMark("PK\x03\x04", 4);
constexpr std::string_view kDirectoryMark("PK\x01\x02", 4);
constexpr std::string_view kEndMark("PK\x05\x06", 4);
constexpr std::size_t kEntryHeader = 30;
constexpr std::size_t kDirectoryHeader = 46;
constexpr std::size_t kEndHeader = 22;
constexpr std::size_t kLongestComment = 65535;
constexpr std::uint64_t kLargestDirectory = std::uint64_t{1} << 24;
constexpr int kRawWindow = -15;  // zlib's word for data without a header of its own
constexpr std::size_t kBlock = std::size_t{1} << 16;

std::uint64_t number(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value |= std::uint64_t{static_cast<std::uint8_t>(bytes[at + i])} << (8 * i);
    return value;
}

/// Shorter at the file's end.
std::string bytesAt(const RandomAccessFile& file, std::uint64_t at, std::size_t count) {
    std::vector<std::uint8_t> room(count);
    room.resize(file.readAt(at, room));
    return {room.begin(), room.end()};
}

class MemoryFile : public RandomAccessFile {
 public:
    explicit MemoryFile(std::string bytes) : bytes_(std::move(bytes)) {}
    [[nodiscard]] std::uint64_t size() const override { return bytes_.size(); }
    [[nodiscard]] std::size_t readAt(std::uint64_t offset,
                                     std::span<std::uint8_t> room) const override {
        const std::size_t from = std::min<std::uint64_t>(offset, bytes_.size());
        const std::size_t count = std::min(room.size(), bytes_.size() - from);
        std::copy_n(bytes_.data() + from, count, room.data());
        return count;
    }

 private:
    const std::string bytes_;
};

class EntrySource : public ByteSource {
 public:
    EntrySource(std::shared_ptr<const RandomAccessFile> file, ZipArchive::Entry entry,
                std::uint64_t from)
        : file_(std::move(file)), entry_(std::move(entry)), at_(from), left_(entry_.packedSize) {
        failed_ = inflateInit2(&stream_, kRawWindow) != Z_OK;
    }
    ~EntrySource() override { inflateEnd(&stream_); }

    std::ptrdiff_t read(std::span<char> room) override {
        if (failed_ || room.empty())
            return failed_ ? -1 : 0;
        const auto got = entry_.isDeflated ? unpack(room) : copy(room);
        done_ += static_cast<std::uint64_t>(std::max<std::ptrdiff_t>(got, 0));
        if (got > 0)
            checksum_ = crc32(checksum_, reinterpret_cast<const Bytef*>(room.data()),
                              static_cast<uInt>(got));
        failed_ = got < 0 || done_ > entry_.size ||
                  (got == 0 && (done_ != entry_.size || checksum_ != entry_.checksum));
        return failed_ ? -1 : got;
    }

    [[nodiscard]] double share() const override {
        return entry_.size == 0
                   ? 1.0
                   : std::min(1.0, static_cast<double>(done_) / static_cast<double>(entry_.size));
    }

 private:
    std::size_t fetch(std::span<std::uint8_t> room) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(room.size(), left_));
        const std::size_t got = file_->readAt(at_, room.first(wanted));
        at_ += got;
        left_ -= got;
        return got;
    }

    std::ptrdiff_t copy(std::span<char> room) {
        return static_cast<std::ptrdiff_t>(
            fetch({reinterpret_cast<std::uint8_t*>(room.data()), room.size()}));
    }

    std::ptrdiff_t unpack(std::span<char> room) {
        stream_.next_out = reinterpret_cast<Bytef*>(room.data());
        stream_.avail_out = static_cast<uInt>(std::min(room.size(), kBlock));
        const uInt before = stream_.avail_out;
        while (!ended_ && stream_.avail_out == before) {
            if (stream_.avail_in == 0) {
                stream_.next_in = packed_.data();
                stream_.avail_in = static_cast<uInt>(fetch(packed_));
            }
            const int status = inflate(&stream_, Z_NO_FLUSH);
            ended_ = status == Z_STREAM_END;
            if (status != Z_OK && !ended_)
                return -1;
        }
        return static_cast<std::ptrdiff_t>(before - stream_.avail_out);
    }

    const std::shared_ptr<const RandomAccessFile> file_;
    const ZipArchive::Entry entry_;
    std::uint64_t at_;
    std::uint64_t left_;
    std::uint64_t done_ = 0;
    uLong checksum_ = 0;
    bool ended_ = false;
    bool failed_ = false;
    z_stream stream_{};
    std::array<std::uint8_t, kBlock> packed_{};
};

}  // namespace

std::shared_ptr<const RandomAccessFile> fileInMemory(std::string bytes) {
    return std::make_shared<MemoryFile>(std::move(bytes));
}

std::unique_ptr<ZipArchive> ZipArchive::open(std::shared_ptr<const RandomAccessFile> file) {
    if (!file)
        return nullptr;
    std::unique_ptr<ZipArchive> archive(new ZipArchive(std::move(file)));
    return archive->readDirectory() ? std::move(archive) : nullptr;
}

bool ZipArchive::readDirectory() {
    constexpr std::uint64_t kEncrypted = 1;
    const std::uint64_t size = file_->size();
    const std::size_t tail = std::min<std::uint64_t>(size, kEndHeader + kLongestComment);
    const std::string last = bytesAt(*file_, size - tail, tail);
    const std::size_t end = last.rfind(kEndMark);
    if (end == std::string::npos || last.size() - end < kEndHeader)
        return false;
    const std::uint64_t count = number(last, end + 10, 2);
    const std::uint64_t length = number(last, end + 12, 4);
    if (count > kMostEntries || length > kLargestDirectory)
        return false;
    const std::string rows =
        bytesAt(*file_, number(last, end + 16, 4), static_cast<std::size_t>(length));
    std::size_t at = 0;
    for (std::uint64_t i = 0; i < count; ++i) {
        const auto row = std::string_view(rows).substr(std::min(at, rows.size()));
        if (row.size() < kDirectoryHeader || !row.starts_with(kDirectoryMark))
            return false;
        const std::uint64_t method = number(row, 10, 2);
        const std::size_t nameLength = number(row, 28, 2);
        at += kDirectoryHeader + nameLength + number(row, 30, 2) + number(row, 32, 2);
        Entry entry{.name = std::string(row.substr(kDirectoryHeader, nameLength)),
                    .size = number(row, 24, 4),
                    .packedSize = number(row, 20, 4),
                    .headerAt = number(row, 42, 4),
                    .checksum = static_cast<std::uint32_t>(number(row, 16, 4)),
                    .isDeflated = method == Z_DEFLATED};
        const bool isReadable = (method == 0 || entry.isDeflated) &&
                                (number(row, 8, 2) & kEncrypted) == 0 &&
                                entry.size <= kLargestEntry;
        if (isReadable && !entry.name.empty() && !entry.name.ends_with('/'))
            entries_.push_back(std::move(entry));
    }
    return true;
}

std::unique_ptr<ByteSource> ZipArchive::read(const Entry& entry) const {
    const std::string header = bytesAt(*file_, entry.headerAt, kEntryHeader);
    if (header.size() < kEntryHeader || !header.starts_with(kEntryMark))
        return nullptr;
    const std::uint64_t from =
        entry.headerAt + kEntryHeader + number(header, 26, 2) + number(header, 28, 2);
    return std::make_unique<EntrySource>(file_, entry, from);
}

std::optional<std::string> ZipArchive::readWhole(const Entry& entry, std::uint64_t limit) const {
    const auto source = entry.size <= limit ? read(entry) : nullptr;
    if (!source)
        return std::nullopt;
    std::string bytes;
    std::vector<char> block(kBlock);
    std::ptrdiff_t got = 0;
    while ((got = source->read(block)) > 0)
        bytes.append(block.data(), static_cast<std::size_t>(got));
    return got == 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace korvel
