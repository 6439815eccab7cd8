#include "platform/FileIo.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "platform/win32/Handle.h"

namespace korvel {
namespace {

constexpr std::size_t kMaxWrite = 1U << 24U;

/// A new file beside `target`.
Handle createBeside(const std::filesystem::path& target, std::filesystem::path& name) {
    constexpr int kAttempts = 100;  // names that a crash may have left behind
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        name = target;
        name += '.' + std::to_string(GetCurrentProcessId()) + '.' + std::to_string(attempt);
        Handle file(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file || GetLastError() != ERROR_FILE_EXISTS) {
            return file;
        }
    }
    return {};
}

bool writeAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMaxWrite));
        if (WriteFile(file, bytes.data(), wanted, &count, nullptr) == FALSE || count == 0) {
            return false;
        }
        bytes.remove_prefix(count);
    }
    return true;
}

}  // namespace

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes) {
    std::filesystem::path temporary;
    Handle file = createBeside(path, temporary);
    if (!file) {
        return false;
    }
    const bool written = writeAll(file.get(), bytes) && FlushFileBuffers(file.get()) != FALSE;
    file.reset();
    if (!written || MoveFileExW(temporary.c_str(), path.c_str(),
                                MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == FALSE) {
        DeleteFileW(temporary.c_str());
        return false;
    }
    return true;
}

}  // namespace korvel
