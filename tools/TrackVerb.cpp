#include <algorithm>
#include <cstdint>
#include <string>

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/track/Track.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "platform/SystemClock.h"
#include "tools/Invocation.h"
#include "tools/PlanInput.h"
#include "tools/RecordJson.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

std::string isoText(std::int64_t seconds) {
    const LocalTime time = localTimeAt(seconds);
    return dateText(time).insert(6, "-").insert(4, "-") + "T" + timeText(time, true, ":");
}

Json pointsJson(const Track::Recording& recording) {
    Json points = Json::array();
    for (const auto& slot : recording.slots) {
        if (!slot) {
            points.push_back(nullptr);
            continue;
        }
        Json& point = points.emplace_back(Json::object());
        point["time"] = isoText(recording.baseS + slot->offsetS);
        addPosition(point, slot->position);
        point["groundSpeedKt"] = slot->groundSpeedKt;
        point["trackDeg"] = slot->trackDeg;
        point["altitudeFt"] = slot->altitudeFt;
    }
    return points;
}

/// What a track is in a few words.
std::string summary(const Track::Recording& recording) {
    long long points = 0;
    long long breaks = 0;
    std::int64_t lastS = recording.baseS;
    double miles = 0.0;
    const TrackPoint* before = nullptr;
    for (const auto& slot : recording.slots) {
        if (!slot) {
            ++breaks;
            before = nullptr;
            continue;
        }
        ++points;
        lastS = recording.baseS + slot->offsetS;
        miles += before != nullptr ? DistanceNm(before->position, slot->position) : 0.0;
        before = &*slot;
    }
    if (points == 0)
        return "no points\n";
    return formatInt(points) + " points, " + formatInt(breaks) + " breaks, " +
           formatFixed(miles, 1) + " nm\n" + isoText(recording.baseS) + " to " + isoText(lastS) +
           "\n";
}

}  // namespace

int runTrack(Invocation& call) {
    std::string file;
    std::string output;
    call.options().add_option("file", file, "A \".trk\" track")->required();
    call.options().add_option("--save", output, "Write the track to this \".trk\" file");
    call.parse();
    const SystemClock clock;
    Track track(clock);
    const std::string error = readTrackFile(file, track);
    Json document{{"error", error}, {"base", nullptr}, {"points", Json::array()}};
    if (!error.empty())
        return call.fail(error, document);
    std::string plain;
    {
        const auto recording = track.read();
        document["points"] = pointsJson(*recording);
        plain = summary(*recording);
        const auto isPoint = [](const auto& slot) { return slot.has_value(); };
        if (std::ranges::any_of(recording->slots, isPoint))
            document["base"] = isoText(recording->baseS);
    }
    std::string lines;
    if (!output.empty() &&
        !(track.WriteTrackText(lines) && writeFileAtomically(pathOf(output), lines)))
        return call.fail(std::string(text(kFlightTexts.fileOpenError)) + ": " + output, document);
    return call.done(document, plain);
}

}  // namespace korvel
