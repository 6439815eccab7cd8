#include "navdb/LoadReport.h"

#include <fstream>
#include <mutex>
#include <system_error>
#include <utility>

namespace korvel {
namespace {

/// One for all reports: two of them may name the same file.
std::mutex& reportLock() {
    static std::mutex lock;
    return lock;
}

}  // namespace

LoadReport::LoadReport(std::filesystem::path path) : path_(std::move(path)) {}

void LoadReport::restart() {
    const std::lock_guard held(reportLock());
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

void LoadReport::AppendLoadReport(std::string_view text) {
    const std::lock_guard held(reportLock());
    std::ofstream file(path_, std::ios::binary | std::ios::app);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace korvel
