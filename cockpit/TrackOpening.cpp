#include "cockpit/TrackOpening.h"

#include <utility>

#include "platform/Threading.h"

namespace korvel {

TrackOpening::TrackOpening(std::filesystem::path path) : path_(std::move(path)) {
    thread_ = systemThreading().startThread([this] { run(); });
    if (!thread_.joinable())
        run();
}

TrackOpening::~TrackOpening() {
    breakOff();
    if (thread_.joinable())
        thread_.join();
}

void TrackOpening::run() {
    lines_ = readTrackFile(path_, [this](double share) {
        percent_ = static_cast<int>(share * 100);
        return wanted_.load();
    });
    finished_ = true;
}

}  // namespace korvel
