#include "cockpit/ActivePlan.h"

#include <algorithm>
#include <utility>

#include "base/Utf8.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/plan/RouteEntry.h"
#include "navdb/records/RecordKey.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

constexpr std::string_view kNamelessPlan = "plan";

/// Letters and digits, those of other scripts too, which any file system of today holds. A place
/// without a record is called by words; a letter that is no UTF-8 is Latin-1.
std::string nameForFile(const PlanWaypoint& entry) {
    constexpr std::uint32_t kFirstLatin1Letter = 0xC0;
    std::string_view key = hasKindPrefix(entry.key) ? identOfKey(entry.key) : entry.key;
    std::string name;
    while (!key.empty()) {
        const std::string_view before = key;
        const std::uint32_t code = takeCodePoint(key);
        const std::string_view bytes = before.substr(0, before.size() - key.size());
        const bool isPlain = (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') ||
                             (code >= '0' && code <= '9');
        if (isPlain || bytes.size() > 1)
            name += bytes;
        else if (code >= kFirstLatin1Letter)
            name.append({'\xC3', static_cast<char>(code - 0x40U)});
    }
    return name;
}

}  // namespace

ActivePlan::ActivePlan(NavDatabase& database, const UserRecordStore& userRecords,
                       std::function<void(bool edited)> onChange)
    : database_(database),
      files_(database, fixes_, &userRecords, plan_),
      onChange_(std::move(onChange)) {}

std::vector<PlanWaypoint> ActivePlan::entries() const {
    const auto plan = plan_.lock();
    return plan->has_value() ? (*plan)->entries() : std::vector<PlanWaypoint>();
}

bool ActivePlan::hasPlan() const {
    const auto plan = plan_.lock();
    return plan->has_value() && !(*plan)->entries().empty();
}

void ActivePlan::setPresent(std::optional<GeoPoint> present) {
    present_ = present;
    files_.setPresent(present);
}

void ActivePlan::noteChange(bool changed) {
    // Nothing is left to save of a plan without waypoints.
    changed_ = changed && hasPlan();
    ++revision_;
    keepUnsaved();
}

void ActivePlan::comeIntoForce(bool changed) {
    noteChange(changed);
    onChange_(false);
}

std::string ActivePlan::proposedFileName() const {
    if (!file_.empty())
        return file_.filename().string();
    const PlanEntries plan = entries();
    if (plan.empty())
        return {};
    std::string name = nameForFile(plan.front()) + '-' + nameForFile(plan.back());
    return (name.size() > 1 ? name : std::string(kNamelessPlan)) + ".fp";
}

/// A failure to write is forgotten, the next change tries again: the flight goes on.
void ActivePlan::keepUnsaved() {
    if (!changed_)
        return forgetUnsaved();
    if (!unsaved_.empty())
        unsavedIsOurs_ = files_.savePlanAs(unsaved_).empty() || unsavedIsOurs_;
}

void ActivePlan::forgetUnsaved() {
    if (std::exchange(unsavedIsOurs_, false))
        systemFileSystem().remove(unsaved_);
}

std::optional<std::string> ActivePlan::recover() {
    const auto bytes = unsaved_.empty() ? std::nullopt : readWholeFile(unsaved_);
    if (!bytes)
        return std::nullopt;
    std::string error = files_.LoadPlanText(*bytes);
    unsavedIsOurs_ = error.empty();
    comeIntoForce(error.empty());
    return error;
}

std::string ActivePlan::enterRoute(std::string_view line) {
    RouteResult result = RouteEntry(database_, fixes_, present_).EnterRoute(line, true);
    if (result.error.empty()) {
        const bool edited = beginsAlike(result.entries);
        history_.remember(entries());
        putInForce(std::move(result.entries), edited);
    }
    return result.error;
}

bool ActivePlan::beginsAlike(const PlanEntries& entries) {
    const auto plan = plan_.lock();
    const auto current = plan->has_value() ? (*plan)->currentIndex() : std::nullopt;
    if (!current || *current >= entries.size())
        return false;
    const auto sameKey = [](const PlanWaypoint& a, const PlanWaypoint& b) {
        return a.record->key == b.record->key;
    };
    return std::equal(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(*current) + 1,
                      (*plan)->entries().begin(), sameKey);
}

void ActivePlan::putInForce(PlanEntries entries, bool edited) {
    bool goesOn = false;
    if (entries.empty()) {
        plan_.lock()->reset();
    } else {
        FlightPlan next(std::move(entries));
        const auto plan = plan_.lock();
        goesOn = edited && plan->has_value() && next.goOnFrom(**plan);
        *plan = std::move(next);
    }
    noteChange(true);
    if (!goesOn)
        onChange_(edited);
}

void ActivePlan::replace(PlanEntries entries) {
    history_.remember(this->entries());
    putInForce(std::move(entries), true);
}

bool ActivePlan::undo() {
    auto former = history_.undo(entries());
    if (former)
        putInForce(std::move(*former), true);
    return former.has_value();
}

bool ActivePlan::redo() {
    auto later = history_.redo(entries());
    if (later)
        putInForce(std::move(*later), true);
    return later.has_value();
}

template <class Change>
bool ActivePlan::changePlan(Change change) {
    const auto plan = plan_.lock();
    if (!plan->has_value())
        return false;
    change(**plan);
    return true;
}

bool ActivePlan::reverse() {
    const PlanEntries before = entries();
    if (!changePlan([](FlightPlan& plan) { plan.reverse(); }))
        return false;
    history_.remember(before);
    comeIntoForce(true);
    return true;
}

bool ActivePlan::activate() {
    if (!changePlan([](FlightPlan& plan) { plan.activate(); }))
        return false;
    comeIntoForce(changed_);
    return true;
}

void ActivePlan::flyTo(std::size_t index) {
    bool moved = false;
    changePlan([&](FlightPlan& plan) {
        moved = index < plan.entries().size();
        if (moved)
            plan.moveToEntry(index);
    });
    if (moved)
        comeIntoForce(changed_);
}

void ActivePlan::clear() {
    if (const PlanEntries before = entries(); !before.empty())
        history_.remember(before);
    plan_.lock()->reset();
    file_.clear();
    comeIntoForce(false);
}

std::string ActivePlan::open(const std::filesystem::path& path) {
    const auto bytes = readWholeFile(path);
    if (!bytes)
        return std::string(text(kFlightTexts.fileOpenError));
    PlanEntries before = entries();
    std::string error = files_.OpenPlanFile(path, *bytes);
    if (error.empty())
        history_.clear();
    else if (!before.empty())
        history_.remember(std::move(before));
    file_ = files_.openedFile();
    // What a list was converted into may be in no file.
    comeIntoForce(error.empty() && file_.empty());
    return error;
}

std::string ActivePlan::saveAs(const std::filesystem::path& path) {
    std::string error = files_.savePlanAs(path);
    if (error.empty()) {
        file_ = path;
        changed_ = false;
        ++revision_;
        keepUnsaved();
    }
    return error;
}

}  // namespace korvel
