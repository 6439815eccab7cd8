#include "navdb/LoadReport.h"

#include <utility>

#include "base/ThreadSafety.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

constexpr std::size_t kGatheredBytes = 65536;

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
    writtenSize_ = 0;
    fileIsWhole_ = path_.empty() || disk_.remove(path_);
}

void LoadReport::AppendLoadReport(std::string_view text) {
    const MutexLock held(reportLock());
    reported_ += text;
    if (!gathers_ || reported_.size() - writtenSize_ >= kGatheredBytes)
        writeGathered();
}

void LoadReport::gather(bool on) {
    const MutexLock held(reportLock());
    gathers_ = on;
    if (!on)
        writeGathered();
}

/// Under the lock.
void LoadReport::writeGathered() {
    const std::string_view text = std::string_view(reported_).substr(writtenSize_);
    writtenSize_ = reported_.size();
    if (path_.empty() || !fileIsWhole_ || text.empty())
        return;
    const auto file = disk_.openForAppending(path_);
    fileIsWhole_ = file && file->write(text) && file->close();
}

std::string LoadReport::text() const {
    const MutexLock held(reportLock());
    const bool inMemory = path_.empty() || !fileIsWhole_ || writtenSize_ < reported_.size();
    return inMemory ? reported_ : readWholeFile(path_, kWholeFile, disk_).value_or(reported_);
}

}  // namespace korvel
