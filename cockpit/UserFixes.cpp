#include "cockpit/UserFixes.h"

#include <algorithm>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "cockpit/ActivePlan.h"
#include "cockpit/Charts.h"
#include "config/ProfileFile.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/plan/RouteWords.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/RecordKey.h"

namespace korvel {
namespace {

constexpr std::string_view kCountKey = "UserFixCount";
constexpr int kMostFixes = 999;

std::string entryKey(std::size_t index) {
    return "UserFix" + formatInt(static_cast<long long>(index) + 1);
}

/// Nothing that a route or a plan file would read as something else.
bool isName(std::string_view name) {
    return !name.empty() && name.size() <= kMaxIdentLength &&
           std::ranges::all_of(
               name, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

FixRecord recordOf(const UserFix& fix) {
    FixRecord record;
    record.key = makeRecordKey(kFixKind, fix.name);
    record.ident.assign(fix.name);
    record.position = fix.position;
    record.usage = kUsageMarked;
    return record;
}

}  // namespace

UserFixes::UserFixes(ProfileFile& profile, Charts& charts, const ActivePlan& plan)
    : profile_(profile), charts_(charts), plan_(plan) {
    load();
    putInForce();
}

/// What stands there may be anything.
std::size_t UserFixes::storedCount() const {
    return static_cast<std::size_t>(
        std::clamp(profile_.getInt(kOptionsSection, kCountKey, 0), 0, kMostFixes));
}

void UserFixes::load() {
    for (std::size_t i = 0; i < storedCount(); ++i) {
        const std::string entry = profile_.getString(kOptionsSection, entryKey(i), "");
        const std::size_t space = std::min(entry.find(' '), entry.size());
        UserFix fix{entry.substr(0, space), parsePositionText(entry.substr(space))};
        if (isName(fix.name) && IsValid(fix.position))
            fixes_.push_back(std::move(fix));
    }
}

void UserFixes::save() {
    for (std::size_t i = 0; i < std::max(storedCount(), fixes_.size()); ++i) {
        const std::string entry =
            i < fixes_.size() ? fixes_[i].name + ' ' + positionText(fixes_[i].position) : "";
        profile_.setString(kOptionsSection, entryKey(i), entry, true);
    }
    isSaved_ = profile_.setInt(kOptionsSection, kCountKey, static_cast<int>(fixes_.size()), false);
}

void UserFixes::putInForce() {
    std::vector<FixRecord> records;
    records.reserve(fixes_.size());
    for (const UserFix& fix : fixes_)
        records.push_back(recordOf(fix));
    charts_.setMarkedFixes(std::move(records));
}

std::string UserFixes::proposedName() const {
    for (int number = 1; number <= kMostFixes; ++number) {
        std::string name = "USR" + zeroPadded(number, 3);
        if (refusal(name).empty())
            return name;
    }
    return {};
}

std::string UserFixes::refusal(std::string_view name) const {
    if (!isName(name) || fixes_.size() >= kMostFixes)
        return std::string(text(kFlightTexts.markNameInvalid));
    std::vector<std::string> airway;
    charts_.database().GetAirwayRoutes(name, airway);
    const bool isTaken = !airway.empty() || charts_.database().Find(name) != nullptr ||
                         std::ranges::find(fixes_, name, &UserFix::name) != fixes_.end();
    return isTaken ? formatText(kFlightTexts.markNameTaken, {name}) : std::string();
}

std::string UserFixes::add(std::string_view name, GeoPoint position) {
    if (std::string message = refusal(name); !message.empty())
        return message;
    fixes_.push_back({std::string(name), position});
    save();
    putInForce();
    return {};
}

std::string UserFixes::remove(std::size_t index) {
    const std::string key = makeRecordKey(kFixKind, fixes_.at(index).name);
    const auto entries = plan_.entries();
    if (std::ranges::any_of(entries, [&](const auto& entry) { return entry.record->key == key; }))
        return formatText(kFlightTexts.markInPlan, {std::string_view(fixes_[index].name)});
    fixes_.erase(fixes_.begin() + static_cast<std::ptrdiff_t>(index));
    save();
    putInForce();
    return {};
}

}  // namespace korvel
