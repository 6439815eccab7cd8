#include "cockpit/Charts.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "base/Calendar.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "navdb/file/DatabaseFile.h"
#include "platform/PathText.h"

namespace korvel {

namespace {

using Files = std::vector<std::unique_ptr<DatabaseFile>>;

/// The date that has passed, and where the files are not all of one age which are so old, the
/// oldest first.
std::string expiredParts(const Files& files, std::uint32_t today) {
    std::multimap<std::uint32_t, std::string> expired;
    bool unlike = false;
    for (const auto& file : files) {
        const std::uint32_t expiry = file->header().expiry;
        unlike |= expiry != files.front()->header().expiry;
        if (expiry < today)
            expired.emplace(expiry, textOf(pathOf(*file->fileName()).stem()));
    }
    std::string parts;
    for (const auto& [expiry, name] : expired) {
        parts.append(parts.empty() ? "" : ", ").append(dashedDate(expiry));
        if (!unlike)
            break;
        parts.append(" ").append(name);
    }
    return parts;
}

std::string noticeOfAge(const Files& files, std::uint32_t today) {
    const bool undated =
        std::ranges::any_of(files, [](const auto& file) { return file->header().expiry == 0; });
    if (undated)
        return std::string(text(kStatusTexts.chartsUndated));
    const std::string parts = expiredParts(files, today);
    return parts.empty() ? parts
                         : formatText(kStatusTexts.chartsExpired, {std::string_view(parts)});
}

}  // namespace
Charts::Charts(const Clock& clock, const std::filesystem::path& folder)
    : clock_(clock),
      database_(clock),
      report_(folder.empty() ? LoadReport() : LoadReport(folder / kLoadReportName)) {
    updateNotice();
}

void Charts::load(std::span<const std::filesystem::path> folders) {
    loading_.reset();
    loader_.load(folders);
    updateNotice();
}

void Charts::startLoading(std::vector<std::filesystem::path> folders) {
    loading_.reset();
    loading_ = std::make_unique<ChartLoading>(clock_, report_, std::move(folders));
    updateNotice();
}

void Charts::breakOff() {
    if (loading_)
        loading_->breakOff();
}

std::optional<ChartLoading::State> Charts::loading() const {
    return loading_ ? std::optional(loading_->state()) : std::nullopt;
}

bool Charts::takeLoaded() {
    if (!loading_ || !loading_->isFinished())
        return false;
    const std::unique_ptr<ChartLoading> finished = std::move(loading_);
    DatabaseLoader* const loaded = finished->loaded();
    if (loaded == nullptr) {
        updateNotice();
        return false;
    }
    loader_.takeOver(*loaded);
    updateNotice();
    return true;
}

void Charts::updateNotice() {
    const auto& files = database_.files();
    notice_.clear();
    if (files.empty()) {
        if (!loading_)
            notice_ = text(kStatusTexts.noDatabase);
        return;
    }
    notice_ = noticeOfAge(files, dateNumber(clock_.localNow()));
}

}  // namespace korvel
