#include "platform/RandomAccessFile.h"

#include <algorithm>
#include <windows.h>

namespace korvel {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr std::size_t kMaxPiece = std::size_t{1} << 30;

OVERLAPPED positionOf(std::uint64_t offset) {
    OVERLAPPED position{};
    position.Offset = static_cast<DWORD>(offset);
    position.OffsetHigh = static_cast<DWORD>(offset >> 32U);
    return position;
}

HANDLE openExisting(const std::filesystem::path& path, DWORD access) {
    return CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

class Win32File final : public RandomAccessFile {
 public:
    explicit Win32File(HANDLE handle) : handle_(handle) {}
    ~Win32File() override { CloseHandle(handle_); }
    Win32File(const Win32File&) = delete;
    Win32File& operator=(const Win32File&) = delete;

    std::uint64_t size() const override {
        LARGE_INTEGER size{};
        return GetFileSizeEx(handle_, &size) != 0 ? static_cast<std::uint64_t>(size.QuadPart) : 0;
    }

    std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> room) const override {
        std::size_t done = 0;
        while (done < room.size()) {
            OVERLAPPED position = positionOf(offset + done);
            DWORD count = 0;
            const auto piece = static_cast<DWORD>(std::min(room.size() - done, kMaxPiece));
            if (ReadFile(handle_, room.data() + done, piece, &count, &position) == 0 ||
                count == 0) {
                break;
            }
            done += count;
        }
        return done;
    }

 private:
    HANDLE handle_;
};

}  // namespace

std::unique_ptr<RandomAccessFile> openRandomAccessFile(const std::filesystem::path& path) {
    HANDLE handle = openExisting(path, GENERIC_READ);
    if (handle == INVALID_HANDLE_VALUE) {
        return nullptr;
    }
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        return nullptr;
    }
    return std::make_unique<Win32File>(handle);
}

bool overwriteInFile(const std::filesystem::path& path, std::uint64_t offset,
                     std::span<const std::uint8_t> bytes) {
    HANDLE handle = openExisting(path, GENERIC_WRITE);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    OVERLAPPED position = positionOf(offset);
    DWORD count = 0;
    const bool written =
        WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &count, &position) != 0;
    const bool closed = CloseHandle(handle) != 0;
    return written && closed && count == bytes.size();
}

}  // namespace korvel
