#include "ground/terrain/Unpack.h"

#include <algorithm>
#include <cstdint>
#include <zlib.h>

namespace korvel {
namespace {

constexpr std::string_view kGzip = "\x1F\x8B";
constexpr std::string_view kZipEntry("PK\x03\x04", 4);
constexpr std::string_view kZipDirectory("PK\x01\x02", 4);
constexpr std::string_view kZipEnd("PK\x05\x06", 4);
constexpr std::size_t kZipEndSize = 22;
constexpr std::size_t kZipEntrySize = 30;
constexpr std::size_t kZipDirectorySize = 46;
constexpr int kGzipWindow = 15 + 16;
constexpr int kRawWindow = -15;
constexpr std::size_t kStored = 0;
constexpr std::size_t kDeflated = 8;

std::size_t number(std::string_view bytes, std::size_t at, std::size_t count) {
    std::size_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value |= static_cast<std::size_t>(static_cast<std::uint8_t>(bytes[at + i])) << (8 * i);
    return value;
}

/// All that the bytes inflate to, which has to be complete.
std::optional<std::string> inflated(std::string_view bytes, int window, std::size_t limit) {
    z_stream stream{};
    if (inflateInit2(&stream, window) != Z_OK)
        return std::nullopt;
    std::string input(bytes);
    std::string result(limit + 1, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    const int status = inflate(&stream, Z_FINISH);
    const std::size_t size = result.size() - stream.avail_out;
    inflateEnd(&stream);
    if (status != Z_STREAM_END || size > limit)
        return std::nullopt;
    result.resize(size);
    return result;
}

/// The first entry of a zip file, as its directory at the end describes it: the entry itself may
/// not know its size.
std::optional<std::string> unzipped(std::string_view bytes, std::size_t limit) {
    const std::size_t end = bytes.rfind(kZipEnd);
    if (end == std::string_view::npos || bytes.size() - end < kZipEndSize)
        return std::nullopt;
    const std::size_t row = number(bytes, end + 16, 4);
    if (row > bytes.size() || bytes.size() - row < kZipDirectorySize ||
        !bytes.substr(row).starts_with(kZipDirectory))
        return std::nullopt;
    const std::size_t method = number(bytes, row + 10, 2);
    const std::size_t size = number(bytes, row + 20, 4);
    const std::size_t entry = number(bytes, row + 42, 4);
    if (entry > bytes.size() || bytes.size() - entry < kZipEntrySize ||
        !bytes.substr(entry).starts_with(kZipEntry))
        return std::nullopt;
    const std::size_t start =
        entry + kZipEntrySize + number(bytes, entry + 26, 2) + number(bytes, entry + 28, 2);
    if (start > bytes.size() || size > bytes.size() - start)
        return std::nullopt;
    const std::string_view packed = bytes.substr(start, size);
    if (method == kDeflated)
        return inflated(packed, kRawWindow, limit);
    if (method != kStored || packed.size() > limit)
        return std::nullopt;
    return std::string(packed);
}

}  // namespace

std::optional<std::string> unpacked(std::string_view bytes, std::size_t limit) {
    if (bytes.starts_with(kZipEntry))
        return unzipped(bytes, limit);
    if (bytes.starts_with(kGzip))
        return inflated(bytes, kGzipWindow, limit);
    if (bytes.size() > limit)
        return std::nullopt;
    return std::string(bytes);
}

}  // namespace korvel
