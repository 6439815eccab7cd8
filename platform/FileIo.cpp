#include "platform/FileIo.h"

#include <algorithm>
#include <fstream>
#include <ios>

namespace korvel {
namespace {

constexpr std::size_t kChunkBytes = 65536;

}  // namespace

std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::size_t limit) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    // In chunks, since the size of a pipe or of a file under /proc is not known beforehand.
    std::string bytes;
    while (bytes.size() < limit && file) {
        const std::size_t before = bytes.size();
        const std::size_t wanted = std::min(kChunkBytes, limit - before);
        bytes.resize(before + wanted);
        file.read(bytes.data() + before, static_cast<std::streamsize>(wanted));
        bytes.resize(before + static_cast<std::size_t>(file.gcount()));
    }
    if (file.bad()) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace korvel
