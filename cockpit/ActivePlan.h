#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/ToldOnce.h"
#include "cockpit/PlanHistory.h"
#include "nav/plan/FlightPlan.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlanEdit.h"
#include "nav/plan/PlanFiles.h"
#include "nav/plan/TypedRoutes.h"

namespace korvel {

class NavDatabase;
class UserRecordStore;

/// The active plan and what the pilot does with it. Every command returns the message for the
/// pilot, empty on success; one that is refused leaves the plan as it was. Main thread only.
class ActivePlan {
 public:
    /// Whoever flies the plan.
    struct Flying {
        /// Another plan has come into force, or one that was `edited` and is to be flown anew all
        /// the same.
        std::function<void(bool edited)> onChange;
        std::function<ActiveNavigation::Flown()> flown;
        std::function<void(const ActiveNavigation::Flown&)> flyAgain;
    };

    /// Both must outlive the desk.
    ActivePlan(NavDatabase& database, const UserRecordStore& userRecords, Flying flying);

    GuardedPlan& plan() { return plan_; }
    GeneratedFixes& fixes() { return fixes_; }
    /// A copy of the plan's entries; empty without a plan.
    [[nodiscard]] std::vector<PlanWaypoint> entries() const;
    [[nodiscard]] bool hasPlan() const;
    /// Grows with every change of the plan.
    [[nodiscard]] std::uint64_t revision() const { return revision_; }

    /// Where the aircraft is: identifiers that repeat are looked up near it.
    void setPresent(std::optional<GeoPoint> present);

    /// Stands before the identifiers of airports that a line may leave it out of; empty for
    /// nothing.
    void setIcaoPrefix(const std::string& prefix) { icaoPrefix_ = prefix; }
    [[nodiscard]] const std::string& icaoPrefix() const { return icaoPrefix_; }

    /// Replaces the plan by a line of identifiers and airways. A line that only goes on otherwise
    /// behind what is flown to counts as edited; one that shares no place with the plan is another
    /// plan, which no file holds. `start` is where its first word is looked for;
    /// where the aircraft is if it is not given.
    [[nodiscard]] std::string enterRoute(std::string_view line,
                                         std::optional<GeoPoint> start = std::nullopt);
    /// The line that the plan was entered by, airways included; else one that would give it.
    [[nodiscard]] std::string routeLine() const;
    /// The line that the plan was entered by; empty when nobody entered it so.
    [[nodiscard]] std::string typedLine() const { return typed_.lineOf(entries()); }
    /// An earlier run's plan was entered by this line; nothing to one that gives another plan.
    void recallLine(const std::string& line);
    /// Puts edited entries in force; none of them is no plan. What is flown to stays so if it can.
    void replace(std::vector<PlanWaypoint> entries);
    /// Puts another plan in force, which no file of the pilot's holds.
    void replaceWhole(std::vector<PlanWaypoint> entries);
    /// False without a plan.
    bool reverse();
    /// Flies the plan anew from where the aircraft is; false without one.
    bool activate();
    /// Flies to this entry next; does nothing when there is none at `index`.
    void flyTo(std::size_t index);
    /// Removes the plan; a direct-to goes on.
    void clear();

    /// Takes back the last change of the entries, and takes that back; false when there is none.
    /// What was flown then is flown again: the leg, unless the aircraft has gone on in the
    /// meantime, and a direct-to that the change has ended, unless there is another one now.
    bool undo();
    bool redo();
    [[nodiscard]] bool canUndo() const { return history_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return history_.canRedo(); }

    /// Opens a ".fp" or ".TXT" file. One that cannot be opened or read as a plan changes nothing.
    [[nodiscard]] std::string open(const std::filesystem::path& path);
    /// Saves to this file, which becomes the plan's file.
    [[nodiscard]] std::string saveAs(const std::filesystem::path& path);

    /// Empty for a plan that has no file yet.
    [[nodiscard]] const std::filesystem::path& file() const { return file_.path; }
    /// A bare name to save it under: its file's, else of where it begins and ends.
    [[nodiscard]] std::string proposedFileName() const;

    /// From now on what no file of the pilot's holds is kept in this one: a program that is killed
    /// loses no plan. It goes as soon as there is nothing to keep any more.
    void keepUnsavedIn(const std::filesystem::path& path) { unsaved_ = path; }
    /// Puts what an earlier run has left there in force, as a changed plan of the file `path`,
    /// which may be empty. Nothing when there is none, else the message; what cannot be read is set
    /// aside, and so it is when it is not `wanted`.
    [[nodiscard]] std::optional<std::string> recover(const std::filesystem::path& path,
                                                     bool wanted = true);
    /// The pilot does not want to keep what no file holds.
    void forgetUnsaved();
    /// There is something that no file holds.
    [[nodiscard]] bool changed() const { return changed_; }
    /// Why what no file holds is not kept, told once for as long as it lasts; empty for nothing to
    /// tell.
    [[nodiscard]] std::string takeTrouble() { return trouble_.take(); }
    /// The same for as long as it lasts.
    [[nodiscard]] const std::string& trouble() const { return trouble_.lasting(); }

 private:
    /// Under the plan's lock; false without a plan.
    template <class Change>
    bool changePlan(Change change);
    /// Makes a change that undo() takes back.
    template <class Change>
    void makeChange(Change change);
    [[nodiscard]] PlanStep step() const;
    bool putBack(std::optional<PlanStep> step);
    bool flyAgain(const PlanStep& step) const;
    [[nodiscard]] bool hasGoneOn(const PlanStep& step);

    /// As the plan in force, as far as that has been flown.
    [[nodiscard]] bool sharesPlaces(const std::vector<PlanWaypoint>& entries) const;
    bool beginsAlike(const PlanEntries& entries);
    void putInForce(PlanEntries entries, bool edited);
    /// What no file holds any more or not yet is looked after.
    void noteChange();
    void comeIntoForce();
    void keepUnsaved();

    NavDatabase& database_;
    GeneratedFixes fixes_;
    GuardedPlan plan_;
    PlanFiles files_;
    Flying flying_;
    std::optional<GeoPoint> present_;
    std::string icaoPrefix_;
    PlanHistory history_;
    TypedRoutes typed_;
    PlanFile file_;
    bool changed_ = false;
    std::filesystem::path unsaved_;  // empty: nothing is kept
    bool unsavedIsOurs_ = false;     // and not an earlier run's, which nobody has seen
    ToldOnce trouble_;
    std::uint64_t revision_ = 0;
};

}  // namespace korvel
