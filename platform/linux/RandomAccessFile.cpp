#include "platform/RandomAccessFile.h"

#include <cerrno>
#include <sys/stat.h>
#include <utility>

#include "platform/linux/FileDescriptor.h"

namespace korvel {
namespace {

class PosixFile final : public RandomAccessFile {
 public:
    explicit PosixFile(FileDescriptor fd) : fd_(std::move(fd)) {}

    std::uint64_t size() const override {
        struct stat status {};
        return ::fstat(fd_.get(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
    }

    std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> room) const override {
        std::size_t done = 0;
        while (done < room.size()) {
            const ssize_t count = ::pread(fd_.get(), room.data() + done, room.size() - done,
                                          static_cast<off_t>(offset + done));
            if (count > 0) {
                done += static_cast<std::size_t>(count);
            } else if (count == 0 || errno != EINTR) {
                break;
            }
        }
        return done;
    }

 private:
    FileDescriptor fd_;
};

}  // namespace

std::unique_ptr<RandomAccessFile> openRandomAccessFile(const std::filesystem::path& path) {
    // A pipe of that name must not make the program wait for its other end.
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!fd || ::fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return nullptr;
    }
    return std::make_unique<PosixFile>(std::move(fd));
}

bool overwriteInFile(const std::filesystem::path& path, std::uint64_t offset,
                     std::span<const std::uint8_t> bytes) {
    FileDescriptor fd(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    if (!fd) {
        return false;
    }
    const ssize_t count =
        ::pwrite(fd.get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
    return fd.reset() && count == static_cast<ssize_t>(bytes.size());
}

}  // namespace korvel
