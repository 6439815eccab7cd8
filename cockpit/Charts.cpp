#include "cockpit/Charts.h"

#include <algorithm>
#include <utility>

#include "base/Calendar.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "navdb/file/DatabaseFile.h"

namespace korvel {
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
    const std::uint32_t today = dateNumber(clock_.localNow());
    std::uint32_t oldest = today;
    for (const auto& file : files)
        oldest = std::min(oldest, file->header().expiry);
    if (oldest == 0)
        notice_ = text(kStatusTexts.chartsUndated);
    else if (oldest < today)
        notice_ = formatText(kStatusTexts.chartsExpired, {std::string_view(dashedDate(oldest))});
}

}  // namespace korvel
