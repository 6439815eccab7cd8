#include "navdb/LoadReport.h"

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

LoadReport::LoadReport(std::filesystem::path path, FileSystem& disk)
    : path_(std::move(path)), disk_(disk) {}

void LoadReport::restart() {
    const MutexLock held(reportLock());
    reported_.clear();
    fileIsWhole_ = path_.empty() || disk_.remove(path_);
}

void LoadReport::AppendLoadReport(std::string_view text) {
    const MutexLock held(reportLock());
    reported_ += text;
    if (!path_.empty() && fileIsWhole_) {
        const auto file = disk_.openForAppending(path_);
        fileIsWhole_ = file && file->write(text) && file->close();
    }
}

std::string LoadReport::text() const {
    const MutexLock held(reportLock());
    const bool inMemory = path_.empty() || !fileIsWhole_;
    return inMemory ? reported_ : readWholeFile(path_, kWholeFile, disk_).value_or(reported_);
}

}  // namespace korvel
