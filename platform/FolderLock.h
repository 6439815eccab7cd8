#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

namespace korvel {

/// A folder whose files one program at a time may write, for as long as this lives; the system
/// gives it free when the program ends, however it ends.
class FolderLock {
 public:
    enum class Holder : std::uint8_t {
        Us,
        Other,   ///< another program, perhaps on another machine
        Unknown  ///< nothing can be written there, or the file system knows no locks
    };

    explicit FolderLock(const std::filesystem::path& folder);
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

    [[nodiscard]] Holder holder() const { return holder_; }

 private:
    struct File;
    std::unique_ptr<File> file_;
    Holder holder_ = Holder::Unknown;
};

}  // namespace korvel
