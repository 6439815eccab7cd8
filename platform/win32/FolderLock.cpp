#include "platform/FolderLock.h"

#include "platform/win32/Handle.h"
#include "platform/win32/LongPath.h"

namespace korvel {

struct FolderLock::File {
    Handle handle;
};

/// Whoever has the file open shares it with nobody.
FolderLock::FolderLock(const std::filesystem::path& folder) : file_(std::make_unique<File>()) {
    const std::filesystem::path name = folder / "korvel.lock";
    file_->handle = Handle(CreateFileW(longPath(name).c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                       nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file_->handle)
        holder_ = Holder::Us;
    else if (GetLastError() == ERROR_SHARING_VIOLATION)
        holder_ = Holder::Other;
}

FolderLock::~FolderLock() = default;

}  // namespace korvel
