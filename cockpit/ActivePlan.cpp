#include "cockpit/ActivePlan.h"

#include <algorithm>
#include <utility>

#include "base/Utf8.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "geo/Geodesy.h"
#include "nav/plan/RouteEntry.h"
#include "navdb/records/RecordKey.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

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

ActivePlan::ActivePlan(NavDatabase& database, const UserRecordStore& userRecords, Flying flying)
    : database_(database),
      files_(database, fixes_, &userRecords, plan_),
      flying_(std::move(flying)) {}

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

void ActivePlan::noteChange() {
    // Nothing is left to save of a plan without waypoints.
    changed_ = hasPlan() && (file_.path.empty() || files_.SavePlan() != file_.text);
    ++revision_;
    keepUnsaved();
}

void ActivePlan::comeIntoForce() {
    noteChange();
    flying_.onChange(false);
}

std::string ActivePlan::proposedFileName() const {
    if (!file_.path.empty())
        return textOf(file_.path.filename());
    const auto plan = entries();
    if (plan.empty())
        return {};
    const std::string name = nameForFile(plan.front()) + '-' + nameForFile(plan.back());
    return (name.size() > 1 ? name : std::string(kNamelessPlan)) + ".fp";
}

/// What cannot be written is tried again with the next change: the flight goes on.
void ActivePlan::keepUnsaved() {
    if (!changed_)
        return forgetUnsaved();
    if (unsaved_.empty())
        return;
    const bool kept = files_.savePlanAs(unsaved_).empty();
    unsavedIsOurs_ = kept || unsavedIsOurs_;
    const std::string name = textOf(unsaved_.filename());
    trouble_.note(kept ? std::string() : formatText(kFlightTexts.fileNotWritten, {name}));
}

void ActivePlan::forgetUnsaved() {
    trouble_.note({});
    if (std::exchange(unsavedIsOurs_, false))
        systemFileSystem().remove(unsaved_);
}

std::optional<std::string> ActivePlan::recover(const std::filesystem::path& path, bool wanted) {
    const auto bytes = unsaved_.empty() ? std::nullopt : readWholeFile(unsaved_);
    if (!bytes)
        return std::nullopt;
    std::string error = wanted ? files_.LoadPlanText(*bytes) : std::string();
    if (wanted && error.empty()) {
        unsavedIsOurs_ = true;
        file_ = {.path = path, .text = readWholeFile(path).value_or("")};
        comeIntoForce();
    } else if (!systemFileSystem().rename(
                   unsaved_,
                   unsaved_.parent_path() / pathOf("last-" + textOf(unsaved_.filename())))) {
        unsaved_.clear();  // nothing is written over it
    }
    return wanted ? std::optional(std::move(error)) : std::nullopt;
}

std::string ActivePlan::routeLine() const {
    std::string typed = typedLine();
    return typed.empty() ? korvel::routeLine(entries(), database_, present_) : typed;
}

void ActivePlan::recallLine(const std::string& line) {
    const PlanEntries plan = entries();
    if (line.empty() || plan.empty())
        return;
    RouteEntry entry(database_, fixes_, plan.front().record->position, icaoPrefix_);
    const RouteResult result = entry.EnterRoute(line, true);
    const auto same = [](const PlanWaypoint& a, const PlanWaypoint& b) {
        return a.record->key == b.record->key && a.altitudeFt == b.altitudeFt;
    };
    if (result.error.empty() && std::ranges::equal(result.entries, plan, same))
        typed_.remember(line, plan);
}

std::string ActivePlan::enterRoute(std::string_view line, std::optional<GeoPoint> start) {
    RouteEntry entry(database_, fixes_, start ? start : present_, icaoPrefix_);
    RouteResult result = entry.EnterRoute(line, true);
    if (result.error.empty()) {
        typed_.remember(std::string(line), result.entries);
        if (!sharesPlaces(result.entries)) {
            replaceWhole(std::move(result.entries));
            return {};
        }
        const bool edited = beginsAlike(result.entries);
        makeChange([&] { putInForce(std::move(result.entries), edited); });
    }
    return result.error;
}

/// With the plan in force: then it may well be that plan, made better.
bool ActivePlan::sharesPlaces(const PlanEntries& entries) const {
    const PlanEntries old = this->entries();
    return std::ranges::any_of(entries, [&old](const PlanWaypoint& entry) {
        return std::ranges::any_of(old, [&entry](const PlanWaypoint& other) {
            return other.record->key == entry.record->key;
        });
    });
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
    noteChange();
    if (!goesOn)
        flying_.onChange(edited);
}

void ActivePlan::replace(PlanEntries entries) {
    makeChange([&] { putInForce(std::move(entries), true); });
}

void ActivePlan::replaceWhole(PlanEntries entries) {
    makeChange([&] {
        file_ = {};
        putInForce(std::move(entries), false);
    });
}

// Back and forth

PlanStep ActivePlan::step() const {
    PlanStep now{.flown = flying_.flown(), .file = file_, .aircraft = present_};
    now.plan = *plan_.lock();
    return now;
}

template <class Change>
void ActivePlan::makeChange(Change change) {
    PlanStep before = step();
    change();
    before.endedDirect = before.flown.direct && !flying_.flown().direct;
    if (before.file->path == file_.path)
        before.file.reset();
    history_.remember(std::move(before));
}

bool ActivePlan::undo() { return putBack(history_.undo(step())); }

bool ActivePlan::redo() { return putBack(history_.redo(step())); }

/// Whether the flight has left what was flown before the change behind.
bool ActivePlan::hasGoneOn(const PlanStep& step) {
    constexpr double kStillThereNm = 5;  // without a plan nothing tells but the way
    const auto plan = plan_.lock();
    if (plan->has_value())
        return (*plan)->reachedCount() > 0;
    return step.aircraft && present_ && DistanceNm(*step.aircraft, *present_) > kStillThereNm;
}

bool ActivePlan::putBack(std::optional<PlanStep> step) {
    if (!step)
        return false;
    const bool asItWas = !hasGoneOn(*step);
    bool goesOn = asItWas;
    {
        const auto plan = plan_.lock();
        if (!asItWas && step->plan) {
            FlightPlan next(step->plan->entries());
            goesOn = plan->has_value() && next.goOnFrom(**plan);
            step->plan = std::move(next);
        }
        *plan = step->plan;
    }
    if (step->file)
        file_ = *step->file;
    noteChange();
    if (asItWas && flyAgain(*step))
        return true;
    if (!goesOn)
        flying_.onChange(true);
    return true;
}

/// Not over a direct-to of the pilot's, and not the one that he has cleared.
bool ActivePlan::flyAgain(const PlanStep& step) const {
    if (flying_.flown().direct || (step.flown.direct && !step.endedDirect))
        return false;
    flying_.flyAgain(step.flown);
    return true;
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
    if (!hasPlan())
        return false;
    makeChange([this] {
        changePlan([](FlightPlan& plan) { plan.reverse(); });
        comeIntoForce();
    });
    return true;
}

bool ActivePlan::activate() {
    if (!changePlan([](FlightPlan& plan) { plan.activate(); }))
        return false;
    comeIntoForce();
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
        comeIntoForce();
}

void ActivePlan::clear() {
    if (!hasPlan())
        return;
    makeChange([this] {
        file_ = {};
        putInForce({}, true);
    });
}

std::string ActivePlan::open(const std::filesystem::path& path) {
    if (isNoFile(path))
        return std::string(text(kFlightTexts.noFile));
    const auto bytes = readWholeFile(path);
    if (!bytes)
        return std::string(text(kFlightTexts.fileOpenError));
    std::string error = files_.OpenPlanFile(path, *bytes);
    if (!error.empty())
        return error;
    history_.clear();
    // What a list was converted into may be in no file.
    file_ = {.path = files_.openedFile(), .text = files_.SavePlan()};
    comeIntoForce();
    return {};
}

std::string ActivePlan::saveAs(const std::filesystem::path& path) {
    std::string error = files_.savePlanAs(path);
    if (error.empty()) {
        file_ = {.path = path, .text = files_.SavePlan()};
        noteChange();
    }
    return error;
}

}  // namespace korvel
