#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "platform/RandomAccessFile.h"

namespace korvel {

/// A file that is read from its beginning on.
class InputFile {
 public:
    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    virtual ~InputFile() = default;

    /// How many bytes came, at most as many as there is room for; 0 at the end, nothing when
    /// reading fails.
    [[nodiscard]] virtual std::optional<std::size_t> read(std::span<char> room) = 0;
};

/// A file that is open for writing at its end. Destruction closes it, too, but tells of no failure.
class OutputFile {
 public:
    OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    virtual ~OutputFile() = default;

    /// Hands all bytes to the system. False when it did not take them all; then some of them may
    /// be in the file.
    [[nodiscard]] virtual bool write(std::string_view bytes) = 0;
    /// Waits until what was written is on the device.
    [[nodiscard]] virtual bool flush() = 0;
    /// Bytes in the file; nothing when that cannot be told.
    [[nodiscard]] virtual std::optional<std::uint64_t> size() const = 0;
    /// Drops what stands beyond `size` bytes; a shorter file stays as it is.
    [[nodiscard]] virtual bool cutTo(std::uint64_t size) = 0;
    /// To be called once, and nothing after it. False when what was written did not arrive.
    [[nodiscard]] virtual bool close() = 0;
};

/// The door to the files of the system: everything that matters is read and written through it, so
/// that tests can make each step fail. Safe from any thread; failures are told by the results
/// alone. Most callers want the functions of FileIo.h and RandomAccessFile.h, which stand on it.
class FileSystem {
 public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// Whether anything has the name, be it a file or not, readable or not.
    virtual bool exists(const std::filesystem::path& path) = 0;

    /// Null when there is no such regular file or it cannot be opened: a pipe would keep its reader
    /// waiting, and a device may never end.
    virtual std::unique_ptr<InputFile> openForReading(const std::filesystem::path& path) = 0;

    /// Null when there is no such regular file or it cannot be opened.
    virtual std::unique_ptr<RandomAccessFile> openRandomAccess(
        const std::filesystem::path& path) = 0;

    /// A new file of a name of its own (see TemporaryName.h), which is put in `name`, in the folder
    /// of `target` and with the permissions of `target` if that exists.
    virtual std::unique_ptr<OutputFile> createBeside(const std::filesystem::path& target,
                                                     std::filesystem::path& name) = 0;

    /// The file is created when it is missing. Null also for what is no regular file.
    virtual std::unique_ptr<OutputFile> openForAppending(const std::filesystem::path& path) = 0;

    /// Replaces bytes inside an existing file.
    [[nodiscard]] virtual bool overwrite(const std::filesystem::path& path, std::uint64_t offset,
                                         std::span<const std::uint8_t> bytes) = 0;

    /// A file of the new name is replaced, at once and as a whole.
    [[nodiscard]] virtual bool rename(const std::filesystem::path& from,
                                      const std::filesystem::path& to) = 0;

    /// False when the file is still there.
    virtual bool remove(const std::filesystem::path& path) = 0;

    /// Brings names that were changed in a folder to the device. Not every file system can.
    virtual void syncFolder(const std::filesystem::path& folder) = 0;
};

/// The system's own files.
FileSystem& systemFileSystem();

}  // namespace korvel
