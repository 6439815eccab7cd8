#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "exchange/Formats.h"
#include "exchange/TrackExchange.h"
#include "nav/track/Track.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "platform/SystemClock.h"
#include "tools/Arguments.h"
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

std::string fileError(const std::string& file) {
    return std::string(text(kFlightTexts.fileOpenError)) + ": " + file;
}

int showTrack(const Invocation& call, const std::string& file, const std::string& output) {
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
        return call.fail(fileError(output), document);
    return call.done(document, plain);
}

int importForeign(const Invocation& call, const std::string& file) {
    auto bytes = readWholeFile(pathOf(file));
    std::string_view format;
    const ForeignTrack track = bytes ? readForeignTrack(std::move(*bytes), format)
                                     : ForeignTrack{.error = fileError(file)};
    Json document{{"error", track.error}, {"points", Json::array()}};
    if (!track.error.empty())
        return call.fail(track.error, document);
    const SystemClock clock;
    for (const auto& point : track.points) {
        Json& json = document["points"].emplace_back();
        if (!point)
            continue;
        json["time"] = point->unixS ? Json(isoText(localSecondsAt(*point->unixS, clock))) : Json();
        addPosition(json, point->position);
        json["groundSpeedKt"] = RoundToInt(point->groundSpeedKt);
        json["trackDeg"] = RoundToInt(point->trackDeg);
        json["altitudeFt"] = RoundToInt(point->altitudeFt);
    }
    Track shown(clock);
    shown.take(trackLinesOf(track, clock));
    return call.done(document, summary(*shown.read()));
}

int exportForeign(const Invocation& call, const std::string& file, const std::string& format,
                  const std::string& output) {
    if (output.empty())
        usageError("track export needs -o");
    const SystemClock clock;
    Track track(clock);
    if (const std::string error = readTrackFile(file, track); !error.empty())
        return call.fail(error);
    const auto points = foreignTrack(*track.read(), clock);
    const auto bytes = trackAs(format, points);
    if (!bytes)
        usageError("track export needs --format gpx, kml or igc");
    if (!writeFileAtomically(pathOf(output), *bytes))
        return call.fail(fileError(output));
    return call.done({{"error", ""}, {"output", output}, {"points", points.size()}}, output + "\n");
}

}  // namespace

int runTrack(Invocation& call) {
    std::vector<std::string> words;
    std::string saved;
    std::string format;
    std::string exported;
    call.options()
        .add_option("file", words, "A \".trk\" track; or import FILE, export FILE")
        ->required()
        ->expected(1, 2);
    call.options().add_option("--save", saved, "Write the track to this \".trk\" file");
    call.options().add_option("--format", format, "export: gpx, kml or igc");
    call.options().add_option("-o", exported, "export: the file to write");
    call.parse();
    if (words.size() == 1)
        return showTrack(call, words[0], saved);
    if (words[0] == "import")
        return importForeign(call, words[1]);
    if (words[0] == "export")
        return exportForeign(call, words[1], format, exported);
    usageError("track takes FILE, import FILE or export FILE");
}

}  // namespace korvel
