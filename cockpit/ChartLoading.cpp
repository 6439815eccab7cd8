#include "cockpit/ChartLoading.h"

#include <utility>

#include "config/texts/DatabaseTexts.h"
#include "platform/Threading.h"

namespace korvel {
ChartLoading::ChartLoading(const Clock& clock, LoadReport& report,
                           std::vector<std::filesystem::path> folders)
    : database_(clock), loader_(database_, report), folders_(std::move(folders)) {
    thread_ = systemThreading().startThread([this] { run(); });
    if (!thread_.joinable())
        run();
}

ChartLoading::~ChartLoading() {
    wanted_ = false;
    if (thread_.joinable())
        thread_.join();
}

void ChartLoading::breakOff() {
    wanted_ = false;
    *state_.lock() = {.text = std::string(text(kDatabaseTexts.aborting))};
}

void ChartLoading::run() {
    complete_ = loader_.load(
        folders_, [this](std::string_view text, int percent) { return note(text, percent); });
    finished_ = true;
}

bool ChartLoading::note(std::string_view text, int percent) {
    const auto state = state_.lock();
    // Under the lock, so that nothing is written over the word of breakOff().
    if (!wanted_)
        return false;
    *state = {.text = std::string(text), .percent = percent};
    return true;
}

}  // namespace korvel
