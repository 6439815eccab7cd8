#include "platform/FileSystem.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "platform/TemporaryName.h"
#include "platform/linux/FileDescriptor.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

FileDescriptor open(const fs::path& file, int flags) {
    return FileDescriptor(::open(file.c_str(), flags | O_CLOEXEC, 0666));
}

/// Nothing but a regular file. A pipe of that name must not make the program wait for its other
/// end, hence without blocking, which means nothing to a file.
FileDescriptor openFile(const fs::path& file, int flags) {
    FileDescriptor fd = open(file, flags | O_NONBLOCK);
    struct stat status {};
    if (fd && (::fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode)))
        fd.reset();
    return fd;
}

std::optional<std::uint64_t> sizeOf(int fd) {
    struct stat status {};
    return ::fstat(fd, &status) == 0 ? std::optional(static_cast<std::uint64_t>(status.st_size))
                                     : std::nullopt;
}

class PosixInput final : public InputFile {
 public:
    explicit PosixInput(FileDescriptor fd) : fd_(std::move(fd)) {}

    std::optional<std::size_t> read(std::span<char> room) override {
        ssize_t count = 0;
        do {
            count = ::read(fd_.get(), room.data(), room.size());
        } while (count < 0 && errno == EINTR);
        return count < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(count));
    }

 private:
    FileDescriptor fd_;
};

class PosixRandomAccess final : public RandomAccessFile {
 public:
    explicit PosixRandomAccess(FileDescriptor fd) : fd_(std::move(fd)) {}

    std::uint64_t size() const override { return sizeOf(fd_.get()).value_or(0); }

    std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> room) const override {
        std::size_t done = 0;
        while (done < room.size()) {
            const ssize_t count = ::pread(fd_.get(), room.data() + done, room.size() - done,
                                          static_cast<off_t>(offset + done));
            if (count > 0)
                done += static_cast<std::size_t>(count);
            else if (count == 0 || errno != EINTR)
                break;
        }
        return done;
    }

 private:
    FileDescriptor fd_;
};

class PosixOutput final : public OutputFile {
 public:
    explicit PosixOutput(FileDescriptor fd) : fd_(std::move(fd)) {}

    bool write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t count = ::write(fd_.get(), bytes.data(), bytes.size());
            if (count > 0)
                bytes.remove_prefix(static_cast<std::size_t>(count));
            else if (count == 0 || errno != EINTR)
                return false;
        }
        return true;
    }

    bool flush() override { return ::fsync(fd_.get()) == 0; }
    std::optional<std::uint64_t> size() const override { return sizeOf(fd_.get()); }

    bool cutTo(std::uint64_t size) override {
        const auto now = sizeOf(fd_.get());
        return now && (*now <= size || ::ftruncate(fd_.get(), static_cast<off_t>(size)) == 0);
    }

    bool close() override { return fd_.reset(); }

 private:
    FileDescriptor fd_;
};

template <class File, class Interface>
std::unique_ptr<Interface> asFile(FileDescriptor fd) {
    return fd ? std::make_unique<File>(std::move(fd)) : nullptr;
}

/// The new file gets the old one's permissions, where the file system has any.
void copyPermissions(const fs::path& target, int fd) {
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) [[maybe_unused]]
        const int failed = ::fchmod(fd, old.st_mode & 0777U);
}

class PosixFileSystem final : public FileSystem {
 public:
    bool exists(const std::filesystem::path& path) override {
        std::error_code unknown;
        return std::filesystem::exists(path, unknown);
    }

    std::unique_ptr<InputFile> openForReading(const fs::path& path) override {
        return asFile<PosixInput, InputFile>(openFile(path, O_RDONLY));
    }

    std::unique_ptr<RandomAccessFile> openRandomAccess(const fs::path& path) override {
        return asFile<PosixRandomAccess, RandomAccessFile>(openFile(path, O_RDONLY));
    }

    std::unique_ptr<OutputFile> createBeside(const fs::path& target, fs::path& name) override {
        constexpr int kAttempts = 100;  // names that a crash may have left behind
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            name = target.parent_path() /
                   temporaryName(static_cast<unsigned long>(::getpid()), attempt);
            FileDescriptor fd = open(name, O_WRONLY | O_CREAT | O_EXCL);
            if (fd) {
                copyPermissions(target, fd.get());
                return std::make_unique<PosixOutput>(std::move(fd));
            }
            if (errno != EEXIST)
                return nullptr;
        }
        return nullptr;
    }

    std::unique_ptr<OutputFile> openForAppending(const fs::path& path) override {
        return asFile<PosixOutput, OutputFile>(openFile(path, O_WRONLY | O_CREAT | O_APPEND));
    }

    bool overwrite(const fs::path& path, std::uint64_t offset,
                   std::span<const std::uint8_t> bytes) override {
        FileDescriptor fd = openFile(path, O_WRONLY);
        if (!fd)
            return false;
        const ssize_t count =
            ::pwrite(fd.get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        return fd.reset() && count == static_cast<ssize_t>(bytes.size());
    }

    bool rename(const fs::path& from, const fs::path& to) override {
        return std::rename(from.c_str(), to.c_str()) == 0;
    }

    bool remove(const fs::path& path) override {
        return ::unlink(path.c_str()) == 0 || errno == ENOENT;
    }

    void syncFolder(const fs::path& folder) override {
        const FileDescriptor fd = open(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
        if (fd)
            ::fsync(fd.get());
    }
};

}  // namespace

FileSystem& systemFileSystem() {
    static PosixFileSystem files;
    return files;
}

}  // namespace korvel
