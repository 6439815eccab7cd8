#include "cockpit/FileOpening.h"

#include <utility>

#include "base/Ascii.h"
#include "exchange/Source.h"
#include "exchange/TrackExchange.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "platform/Threading.h"

namespace korvel {
namespace {

using Progress = std::function<bool(double share)>;

FileOpening::Found found(const std::filesystem::path& path, const Clock& clock,
                         const Progress& goOn) {
    FileOpening::Found found;
    if (auto bytes = readWholeFile(path, kLargestForeignFile)) {
        const ForeignFile file = readForeignFile(*bytes);
        found.content = file.content;
        if (file.content.track)
            found.track = trackLinesOf(file.track, clock);
        if (found.content.plan || found.content.track || found.content.waypoints) {
            found.bytes = std::move(*bytes);
            return found;
        }
    }
    found.isOwnTrack = endsWithIgnoringCase(textOf(path.filename()), ".trk");
    if (found.isOwnTrack)
        found.track = readTrackFile(path, goOn);
    return found;
}

}  // namespace

FileOpening::FileOpening(std::filesystem::path path, const Clock& clock)
    : path_(std::move(path)), clock_(clock) {
    thread_ = systemThreading().startThread([this] { run(); });
    if (!thread_.joinable())
        run();
}

FileOpening::~FileOpening() {
    breakOff();
    if (thread_.joinable())
        thread_.join();
}

FileOpening::Found FileOpening::read(const std::filesystem::path& path, const Clock& clock) {
    return found(
        path, clock, [](double) { return true; });
}

void FileOpening::run() {
    found_ = found(path_, clock_, [this](double share) {
        percent_ = static_cast<int>(share * 100);
        return wanted_.load();
    });
    finished_ = true;
}

}  // namespace korvel
