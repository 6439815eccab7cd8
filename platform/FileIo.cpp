#include "platform/FileIo.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <system_error>

#include "platform/Folders.h"
#include "platform/TemporaryName.h"

namespace korvel {
namespace {

constexpr std::size_t kFirstChunkBytes = 4096;
constexpr std::size_t kChunkBytes = 65536;

/// The file that `path` leads to.
std::filesystem::path behindLinks(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error))
        return path;
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    return error ? path : target;
}

bool writeThrough(OutputFile& file, std::string_view bytes) {
    const bool written = file.write(bytes) && file.flush();
    return file.close() && written;
}

}  // namespace

bool isNoFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::size_t limit,
                                         FileSystem& disk) {
    const std::unique_ptr<InputFile> file = disk.openForReading(path);
    if (!file)
        return std::nullopt;
    // In chunks that grow, since the size of a file under /proc is not known beforehand.
    std::string bytes;
    while (bytes.size() < limit) {
        const std::size_t before = bytes.size();
        bytes.resize(before +
                     std::min(std::clamp(before, kFirstChunkBytes, kChunkBytes), limit - before));
        const auto count = file->read(std::span(bytes).subspan(before));
        if (!count)
            return std::nullopt;
        bytes.resize(before + *count);
        if (*count == 0)
            break;
    }
    return bytes;
}

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                         FileSystem& disk) {
    const std::filesystem::path target = behindLinks(path);
    if (isNoFile(target))
        return false;
    std::filesystem::path temporary;
    const std::unique_ptr<OutputFile> file = disk.createBeside(target, temporary);
    if (!file)
        return false;
    if (!writeThrough(*file, bytes) || !disk.rename(temporary, target)) {
        disk.remove(temporary);
        return false;
    }
    disk.syncFolder(target.parent_path());
    return true;
}

void clearTemporaries(const std::filesystem::path& folder) {
    constexpr std::chrono::minutes kMayBeInUse{1};
    for (const std::filesystem::path& file : findFiles(folder, kTemporaryPattern)) {
        std::error_code error;
        const auto written = std::filesystem::last_write_time(file, error);
        if (!error && std::filesystem::file_time_type::clock::now() - written > kMayBeInUse)
            std::filesystem::remove(file, error);
    }
}

}  // namespace korvel
