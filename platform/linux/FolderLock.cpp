#include "platform/FolderLock.h"

#include <cerrno>
#include <sys/file.h>

#include "platform/linux/FileDescriptor.h"

namespace korvel {

struct FolderLock::File {
    FileDescriptor fd;
};

FolderLock::FolderLock(const std::filesystem::path& folder) : file_(std::make_unique<File>()) {
    const std::filesystem::path name = folder / "korvel.lock";
    file_->fd =
        FileDescriptor(::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666));
    if (!file_->fd)
        return;
    if (::flock(file_->fd.get(), LOCK_EX | LOCK_NB) == 0)
        holder_ = Holder::Us;
    else if (errno == EWOULDBLOCK)
        holder_ = Holder::Other;
}

FolderLock::~FolderLock() = default;

}  // namespace korvel
