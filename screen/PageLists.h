#pragma once

#include <cstddef>
#include <optional>

#include "cockpit/CockpitData.h"
#include "cockpit/PageId.h"
#include "pages/FlightPlanPage.h"
#include "pages/NearestPage.h"

namespace korvel {

/// The page that may hold a list, as it stands at present.
struct ListPage {
    PageId page;
    double width;   ///< device-independent pixels
    double height;  ///< device-independent pixels
    const CockpitData& data;
};

/// Where the pilot is in the lists of the pages "FlightPlan", "Nearest-Airport" and "Airspace": the
/// row at the top, and the row that is marked. Rows count from the list's first.
class PageLists {
 public:
    const FlightPlanView& plan() const { return plan_; }
    const RowListView& nearest() const { return nearest_; }
    const RowListView& airspaces() const { return airspaces_; }

    /// A page is shown anew: nothing is marked.
    void reset() { *this = {}; }
    /// The mark stays with its airport when the list of them changes.
    void follow(const CockpitData& before, const CockpitData& now);

    /// Moves the page's list up by so many rows, or down when negative.
    void scroll(const ListPage& page, int rows);
    /// Moves the mark down by so many rows, or up when negative, and the list with it; the first
    /// time it comes to what is flown to. False when the page has no list.
    bool moveMark(const ListPage& page, int rows);
    /// The marked row; none when there is none or it has gone.
    std::optional<std::size_t> marked(const ListPage& page) const;
    /// Takes the plan's row under a point of the page in hand; false for none.
    bool lift(const ListPage& page, Point at);
    /// Carries it there; at the list's ends the list moves by a row.
    void carry(const ListPage& page, Point at);
    /// Puts it down, and says which row it was and where it stands now; nothing without one.
    std::optional<LiftedRow> putDown();

    /// The row under a point of the page.
    std::optional<std::size_t> rowAt(const ListPage& page, Point at) const;

 private:
    FlightPlanView plan_;
    RowListView nearest_;
    RowListView airspaces_;  ///< nothing is marked: there is nothing to open
};

}  // namespace korvel
