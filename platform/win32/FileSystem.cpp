#include "platform/FileSystem.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include "platform/TemporaryName.h"
#include "platform/win32/Handle.h"
#include "platform/win32/LongPath.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr std::size_t kMaxPiece = std::size_t{1} << 24U;
constexpr int kRenameAttempts = 20;
constexpr DWORD kRenamePauseMs = 10;

DWORD pieceOf(std::size_t size) { return static_cast<DWORD>(std::min(size, kMaxPiece)); }

Handle open(const fs::path& file, DWORD access, DWORD sharing, DWORD whichOnes) {
    return Handle(CreateFileW(longPath(file).c_str(), access, sharing, nullptr, whichOnes,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
}

OVERLAPPED positionOf(std::uint64_t offset) {
    OVERLAPPED position{};
    position.Offset = static_cast<DWORD>(offset);
    position.OffsetHigh = static_cast<DWORD>(offset >> 32U);
    return position;
}

std::optional<std::uint64_t> sizeOf(HANDLE file) {
    LARGE_INTEGER size{};
    return GetFileSizeEx(file, &size) != FALSE
               ? std::optional(static_cast<std::uint64_t>(size.QuadPart))
               : std::nullopt;
}

class WindowsInput final : public InputFile {
 public:
    explicit WindowsInput(Handle file) : file_(std::move(file)) {}

    std::optional<std::size_t> read(std::span<char> room) override {
        DWORD count = 0;
        if (ReadFile(file_.get(), room.data(), pieceOf(room.size()), &count, nullptr) == FALSE)
            return std::nullopt;
        return count;
    }

 private:
    Handle file_;
};

class WindowsRandomAccess final : public RandomAccessFile {
 public:
    explicit WindowsRandomAccess(Handle file) : file_(std::move(file)) {}

    std::uint64_t size() const override { return sizeOf(file_.get()).value_or(0); }

    std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> room) const override {
        std::size_t done = 0;
        while (done < room.size()) {
            OVERLAPPED position = positionOf(offset + done);
            DWORD count = 0;
            if (ReadFile(file_.get(), room.data() + done, pieceOf(room.size() - done), &count,
                         &position) == FALSE ||
                count == 0)
                break;
            done += count;
        }
        return done;
    }

 private:
    Handle file_;
};

class WindowsOutput final : public OutputFile {
 public:
    explicit WindowsOutput(Handle file) : file_(std::move(file)) {}

    bool write(std::string_view bytes) override {
        if (SetFilePointerEx(file_.get(), {}, nullptr, FILE_END) == FALSE)
            return false;
        while (!bytes.empty()) {
            DWORD count = 0;
            if (WriteFile(file_.get(), bytes.data(), pieceOf(bytes.size()), &count, nullptr) ==
                    FALSE ||
                count == 0)
                return false;
            bytes.remove_prefix(count);
        }
        return true;
    }

    bool flush() override { return FlushFileBuffers(file_.get()) != FALSE; }
    std::optional<std::uint64_t> size() const override { return sizeOf(file_.get()); }

    bool cutTo(std::uint64_t size) override {
        const auto now = sizeOf(file_.get());
        if (!now || *now <= size)
            return now.has_value();
        LARGE_INTEGER end{};
        end.QuadPart = static_cast<LONGLONG>(size);
        return SetFilePointerEx(file_.get(), end, nullptr, FILE_BEGIN) != FALSE &&
               SetEndOfFile(file_.get()) != FALSE;
    }

    bool close() override {
        file_.reset();
        return true;
    }

 private:
    Handle file_;
};

/// Nothing but a file on a disk: no pipe, no device.
Handle openFile(const fs::path& file, DWORD access, DWORD creation) {
    Handle opened = open(file, access, kShareAll, creation);
    if (opened && GetFileType(opened.get()) != FILE_TYPE_DISK)
        opened.reset();
    return opened;
}

template <class File, class Interface>
std::unique_ptr<Interface> asFile(Handle file) {
    return file ? std::make_unique<File>(std::move(file)) : nullptr;
}

class WindowsFileSystem final : public FileSystem {
 public:
    bool exists(const std::filesystem::path& path) override {
        std::error_code unknown;
        return std::filesystem::exists(path, unknown);
    }

    std::unique_ptr<InputFile> openForReading(const fs::path& path) override {
        return asFile<WindowsInput, InputFile>(openFile(path, GENERIC_READ, OPEN_EXISTING));
    }

    std::unique_ptr<RandomAccessFile> openRandomAccess(const fs::path& path) override {
        return asFile<WindowsRandomAccess, RandomAccessFile>(
            openFile(path, GENERIC_READ, OPEN_EXISTING));
    }

    std::unique_ptr<OutputFile> createBeside(const fs::path& target, fs::path& name) override {
        constexpr int kAttempts = 100;  // names that a crash may have left behind
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            name = target.parent_path() / temporaryName(GetCurrentProcessId(), attempt);
            Handle file = open(name, GENERIC_WRITE, 0, CREATE_NEW);
            if (file || GetLastError() != ERROR_FILE_EXISTS)
                return asFile<WindowsOutput, OutputFile>(std::move(file));
        }
        return nullptr;
    }

    std::unique_ptr<OutputFile> openForAppending(const fs::path& path) override {
        return asFile<WindowsOutput, OutputFile>(openFile(path, GENERIC_WRITE, OPEN_ALWAYS));
    }

    bool overwrite(const fs::path& path, std::uint64_t offset,
                   std::span<const std::uint8_t> bytes) override {
        const Handle file = open(path, GENERIC_WRITE, kShareAll, OPEN_EXISTING);
        OVERLAPPED position = positionOf(offset);
        DWORD count = 0;
        return file &&
               WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count,
                         &position) != FALSE &&
               count == bytes.size();
    }

    // What looks into every new file, such as a virus scanner, has it open for a moment, and such a
    // file is neither moved nor replaced.
    bool rename(const fs::path& from, const fs::path& to) override {
        const std::wstring source = longPath(from), target = longPath(to);
        for (int attempt = 1;; ++attempt) {
            if (MoveFileExW(source.c_str(), target.c_str(),
                            MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE)
                return true;
            const DWORD error = GetLastError();
            if (attempt == kRenameAttempts ||
                (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION))
                return false;
            Sleep(kRenamePauseMs);
        }
    }

    bool remove(const fs::path& path) override {
        return DeleteFileW(longPath(path).c_str()) != FALSE ||
               GetLastError() == ERROR_FILE_NOT_FOUND;
    }

    void syncFolder(const fs::path& /*folder*/) override {}  // renaming has written it through
};

}  // namespace

FileSystem& systemFileSystem() {
    static WindowsFileSystem files;
    return files;
}

}  // namespace korvel
