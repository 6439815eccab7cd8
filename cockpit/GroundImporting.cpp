#include "cockpit/GroundImporting.h"

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/Ascii.h"
#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ChartTexts.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/GroundTexts.h"
#include "geo/GeoText.h"
#include "ground/DataFiles.h"
#include "platform/FileDate.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "platform/ThreadPriority.h"
#include "platform/Threading.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

/// More than any file of these kinds has.
constexpr std::size_t kLargestFile = std::size_t{512} << 20U;

/// Under which the program finds it again: texts are looked for by their ending.
std::string nameInFolder(const fs::path& file, GroundFileKind kind) {
    const std::string name = textOf(file.filename());
    const bool isText = kind == GroundFileKind::Airspaces || kind == GroundFileKind::Obstacles;
    const auto& endings = kind == GroundFileKind::Airspaces ? kAirspaceEndings : kObstacleEndings;
    const bool isFound = !isText || std::ranges::any_of(endings, [&name](std::string_view ending) {
        return endsWithIgnoringCase(name, ending);
    });
    return isFound ? name : name + ".txt";
}

std::string dateText(const GroundFile& found, const fs::path& file) {
    if (found.madeYmd != 0)
        return dashedDate(found.madeYmd);
    const auto day = fileDate(file);
    return day ? dashedDate(static_cast<std::uint32_t>(ymdOf(*day))) : std::string();
}

std::string boxText(const AirspaceBox& box) {
    return formatText(kGroundTexts.boxFromTo,
                      {latitudeText(box.south, 0) + " " + longitudeText(box.west, 0),
                       latitudeText(box.north, 0) + " " + longitudeText(box.east, 0)});
}

std::string contentText(const GroundFile& found) {
    const int count = static_cast<int>(found.count);
    switch (found.kind) {
        case GroundFileKind::BaseMap:
            return std::string(text(kGroundTexts.baseMap));
        case GroundFileKind::Heights:
            return formatText(kGroundTexts.heights, {count, count});
        case GroundFileKind::Airspaces:
            return formatText(kGroundTexts.airspaceCount, {count});
        case GroundFileKind::Obstacles:
            return formatText(kGroundTexts.obstacleCount, {count});
        case GroundFileKind::Unknown:
            break;
    }
    return {};
}

std::string takenText(const GroundImporting::Taken& taken) {
    if (!taken.error.empty())
        return formatText(kGroundTexts.fileLeftOut,
                          {std::string_view(taken.name), std::string_view(taken.error)});
    const GroundFile& found = taken.found;
    std::string words = taken.name + "\n  " + contentText(found);
    if (found.kind != GroundFileKind::BaseMap)
        words += "  " + boxText(found.box);
    if (!taken.date.empty())
        words += "\n  " + formatText(found.madeYmd != 0 ? kGroundTexts.dataOf : kGroundTexts.fileOf,
                                     {std::string_view(taken.date)});
    if (found.problems != 0)
        words += "\n  " + formatText(kGroundTexts.rowsLeftOut, {static_cast<int>(found.problems)});
    if (taken.replaced)
        words.append("\n  ").append(text(kGroundTexts.replaced));
    return words;
}

}  // namespace

GroundImporting::GroundImporting(std::vector<fs::path> files, fs::path folder)
    : files_(std::move(files)), folder_(std::move(folder)) {
    thread_ = systemThreading().startThread([this] {
        lowerThreadPriority();
        run();
    });
    if (!thread_.joinable())
        run();
}

GroundImporting::~GroundImporting() {
    breakOff();
    if (thread_.joinable())
        thread_.join();
}

void GroundImporting::run() {
    for (const fs::path& file : files_) {
        if (!wanted_)
            break;
        *state_.lock() = {.doing = textOf(file.filename()),
                          .percent = static_cast<int>(taken_.size() * 100 / files_.size())};
        taken_.push_back(take(file));
    }
    finished_ = true;
}

GroundImporting::Taken GroundImporting::take(const fs::path& file) const {
    Taken taken{.name = textOf(file.filename())};
    const auto leftOut = [&taken](std::string why) {
        taken.error = std::move(why);
        return taken;
    };
    if (folder_.empty())
        return leftOut(std::string(text(kChartTexts.noFolder)));
    if (isNoFile(file))
        return leftOut(std::string(text(kFlightTexts.noFile)));
    std::error_code unknown;
    const auto size = fs::file_size(file, unknown);
    if (!unknown && size > kLargestFile)
        return leftOut(std::string(text(kGroundTexts.tooLarge)));
    const auto bytes = readWholeFile(file);
    if (!bytes)
        return leftOut(std::string(text(kFlightTexts.fileOpenError)));
    taken.found = inspectGroundFile(file, *bytes);
    if (taken.found.kind == GroundFileKind::Unknown)
        return leftOut(std::string(text(kGroundTexts.unknownFile)));
    if (!taken.found.error.empty())
        return leftOut(taken.found.error);
    taken.date = dateText(taken.found, file);
    taken.name = nameInFolder(file, taken.found.kind);
    const fs::path target = folder_ / pathOf(taken.name);
    if (fs::equivalent(file, target, unknown))
        return taken;
    taken.replaced = fs::exists(target, unknown);
    if (!writeFileAtomically(target, *bytes))
        return leftOut(formatText(kFlightTexts.fileNotWritten, {taken.name}));
    return taken;
}

std::string groundImportText(const GroundImporting& importing) {
    std::string words;
    for (const GroundImporting::Taken& taken : importing.taken())
        words += takenText(taken) + "\n";
    if (const std::size_t rest = importing.asked() - importing.taken().size(); rest > 0)
        words += formatText(kGroundTexts.notReached, {static_cast<int>(rest)}) + "\n";
    return words;
}

}  // namespace korvel
