#include "nav/plan/PlanFiles.h"

#include <algorithm>
#include <utility>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlaceLookup.h"
#include "nav/plan/WaypointList.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/FixRecord.h"
#include "navdb/user/UserRecordStore.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
bool PlanFiles::isOwnPlace(std::string_view key) const {
    if (fixes_.find(key))
        return true;
    const DatabaseRecord* const own = userRecords_ != nullptr ? userRecords_->find(key) : nullptr;
    return own != nullptr && own->GetKind() == kFixKind;
}

std::string PlanFiles::SavePlan() const {
    std::string text;
    const auto plan = plan_.lock();
    if (!*plan)
        return text;
    for (const PlanWaypoint& entry : (*plan)->entries()) {
        text += entry.key + altitudeSuffix(entry.altitudeFt);
        const auto* fix = dynamic_cast<const FixRecord*>(entry.record.get());
        const bool isMarked = fix != nullptr && fix->usage == kUsageMarked;
        if (isMarked || isOwnPlace(entry.key))
            text += ' ' + positionText(entry.position());
        text += "\r\n";
    }
    return text;
}

std::string PlanFiles::savePlanAs(const std::filesystem::path& path) const {
    return writeFileAtomically(path, SavePlan(), disk_)
               ? std::string()
               : std::string(text(kFlightTexts.fileOpenError));
}

std::string PlanFiles::OpenPlanFile(const std::filesystem::path& path, std::string_view bytes) {
    openedFile_.clear();
    const std::string name = textOf(path);
    if (endsWithIgnoringCase(name, ".FP"))
        return openText(bytes, path);
    if (!endsWithIgnoringCase(name, ".TXT"))
        return std::string(text(kFlightTexts.unsupportedFileType));
    // Not read back: another plan may stand in a file that could not be written.
    const auto converted =
        ImportWaypointList(path, bytes, PlaceLookup(database_, fixes_, present_), disk_);
    return converted ? openText(converted->text, converted->file)
                     : std::string(text(kFlightTexts.invalidFormat));
}

std::string PlanFiles::openText(std::string_view planText, const std::filesystem::path& file) {
    std::string error = LoadPlanText(planText);
    if (error.empty())
        openedFile_ = file;
    return error;
}

std::string PlanFiles::resolveLine(std::string_view line, PlaceLookup& lookup,
                                   PlanWaypoint& entry) {
    std::string words(line);
    if (const std::size_t at = words.find('@'); at != std::string::npos) {
        std::string_view number = std::string_view(words).substr(at + 1);
        const auto altitude = scanPlannedAltitude(number);
        if (!altitude)
            return std::string(text(kFlightTexts.invalidAltitude));
        entry.altitudeFt = *altitude;
        words.erase(at, std::min(words.find(' ', at), words.size()) - at);
    }
    const std::size_t space = words.find(' ');
    entry.key = words.substr(0, space);
    if (space == std::string::npos) {
        entry.record = lookup.next(entry.key);
    } else if (auto known = lookup.peekDatabase(entry.key)) {
        entry.record = std::move(known);
    } else if (const GeoPoint at = parsePositionText(std::string_view(words).substr(space));
               IsValid(at)) {
        entry.record = fixes_.FindOrCreateFix(at, identOfKey(entry.key));
        // There may have been a fix of another name.
        entry.key = entry.record->key;
    }
    if (!entry.record)
        return formatText(kFlightTexts.navaidNotFound, {identOfKey(entry.key)});
    lookup.moveTo(entry.record->position);
    entry.text = entry.key;
    if (entry.altitudeFt != kNoAltitudeFt)
        entry.text += '@' + formatFixed(entry.altitudeFt * 0.01, 1);
    return {};
}

std::string PlanFiles::LoadPlanText(std::string_view text) {
    PlaceLookup lookup(database_, fixes_, present_);
    std::vector<PlanWaypoint> entries;
    while (!text.empty()) {
        std::string line(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        std::erase(line, '\r');
        const std::string_view content = stripped(line);
        if (content.empty() || content.starts_with(';'))
            continue;
        std::string error = resolveLine(content, lookup, entries.emplace_back());
        if (!error.empty())
            return error;
    }
    *plan_.lock() = FlightPlan(std::move(entries));
    return {};
}

}  // namespace korvel
