#include "cockpit/PlanExchange.h"

#include <optional>
#include <system_error>
#include <utility>

#include "base/Ascii.h"
#include "cockpit/Flight.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "config/texts/FlightTexts.h"
#include "exchange/ExportPoint.h"
#include "exchange/Formats.h"
#include "exchange/TrackExchange.h"
#include "exchange/UserWaypoints.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

/// "gpx" of "Flight.GPX".
std::string formatNamed(const std::filesystem::path& path) {
    const std::string ending = inSmallLetters(textOf(path.extension()));
    return ending.empty() ? ending : ending.substr(1);
}

std::string written(const std::optional<std::string>& bytes, const std::filesystem::path& path) {
    if (!bytes)
        return formatText(kExchangeTexts.noSuchExport, {textOf(path.filename())});
    if (!writeFileAtomically(path, *bytes))
        return std::string(text(kFlightTexts.fileOpenError)) + ": " + textOf(path);
    return {};
}

std::filesystem::path unusedFile(const std::filesystem::path& folder, const std::string& name) {
    constexpr std::string_view kEnding = ".UDB.TXT";
    std::error_code unknown;
    for (int number = 1;; ++number) {
        const std::string tried = number == 1 ? name : name + '-' + std::to_string(number);
        std::filesystem::path path = folder / pathOf(tried + std::string(kEnding));
        if (!std::filesystem::exists(path, unknown))
            return path;
    }
}

}  // namespace

std::string exportPlan(const Flight& flight, const std::filesystem::path& path,
                       const Clock& clock) {
    const auto entries = flight.plan().entries();
    return written(
        planAs(formatNamed(path), textOf(path.stem()), exportPoints(entries), clock.unixSeconds()),
        path);
}

std::string exportTrack(const Flight& flight, const std::filesystem::path& path,
                        const Clock& clock) {
    const auto track = flight.track().track();
    if (track == nullptr)
        return std::string(text(kFlightTexts.noTrackToSave));
    return written(trackAs(formatNamed(path), foreignTrack(*track->read(), clock)), path);
}

KeptWaypoints keepWaypoints(std::string bytes, const std::filesystem::path& folder,
                            const std::string& name) {
    std::string_view format;
    ForeignWaypoints read = readForeignWaypoints(std::move(bytes), format);
    if (!read.error.empty())
        return {.error = std::move(read.error)};
    UserWaypoints own = userWaypoints(std::move(read.waypoints));
    KeptWaypoints kept{.file = unusedFile(folder, name),
                       .count = own.waypoints.size(),
                       .notes = std::move(own.notes)};
    std::error_code unknown;
    std::filesystem::create_directories(folder, unknown);
    kept.error = written(userDatabaseText(own.waypoints), kept.file);
    return kept;
}

}  // namespace korvel
