#include "platform/FileIo.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <system_error>

#include "platform/linux/FileDescriptor.h"

namespace korvel {
namespace {

/// The file that `path` leads to: a link stays a link when the file behind it is replaced.
std::filesystem::path behindLinks(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error)) {
        return path;
    }
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    return error ? path : target;
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(fd, bytes.data(), bytes.size());
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// A new file beside `target`, with the permissions that any new file gets.
FileDescriptor createBeside(const std::filesystem::path& target, std::string& name) {
    constexpr int kAttempts = 100;  // names that a crash may have left behind
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        name = target.string() + '.' + std::to_string(::getpid()) + '.' + std::to_string(attempt);
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) {
            return FileDescriptor(fd);
        }
    }
    return {};
}

/// The new file gets the old one's permissions, where the file system has any.
void copyPermissions(const std::filesystem::path& target, int fd) {
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) {
        [[maybe_unused]] const int failed = ::fchmod(fd, old.st_mode & 0777U);
    }
}

void syncFolder(const std::filesystem::path& folder) {
    // Not every file system can sync a folder; the rename stands either way.
    const FileDescriptor fd(
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd) {
        ::fsync(fd.get());
    }
}

}  // namespace

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes) {
    const std::filesystem::path target = behindLinks(path);
    std::string temporary;
    FileDescriptor fd = createBeside(target, temporary);
    if (!fd) {
        return false;
    }
    copyPermissions(target, fd.get());
    const bool written = writeAll(fd.get(), bytes) && ::fsync(fd.get()) == 0;
    const bool closed = fd.reset();
    if (!written || !closed || std::rename(temporary.c_str(), target.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return false;
    }
    syncFolder(target.parent_path());
    return true;
}

}  // namespace korvel
