#include "navdb/LoadReport.h"

#include <fstream>
#include <system_error>
#include <utility>

#include "base/ThreadSafety.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

/// One for all reports: two of them may name the same file.
Mutex& reportLock() {
    static Mutex lock;
    return lock;
}

}  // namespace

LoadReport::LoadReport(std::filesystem::path path) : path_(std::move(path)) {}

void LoadReport::restart() {
    const MutexLock held(reportLock());
    inMemory_.clear();
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

void LoadReport::AppendLoadReport(std::string_view text) {
    const MutexLock held(reportLock());
    if (path_.empty()) {
        inMemory_ += text;
        return;
    }
    std::ofstream file(path_, std::ios::binary | std::ios::app);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
}

std::string LoadReport::text() const {
    const MutexLock held(reportLock());
    return path_.empty() ? inMemory_ : readWholeFile(path_).value_or(std::string());
}

}  // namespace korvel
