#include "screen/PageLists.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cockpit/NearAirports.h"

namespace korvel {
namespace {

std::size_t moved(std::size_t row, int rows, std::size_t last) {
    const auto to = static_cast<std::ptrdiff_t>(row) + rows;
    return static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(to, 0, static_cast<std::ptrdiff_t>(last)));
}

/// Of the list on the page; 0 without one.
std::size_t rowCount(const ListPage& page) {
    if (page.page == PageId::FlightPlan)
        return page.data.plan ? page.data.plan->rows.size() : 0;
    if (page.page == PageId::NearestAirport)
        return page.data.shownNearAirports() ? page.data.shownNearAirports()->size() : 0;
    return 0;
}

bool hasSameRows(const PlanView* before, const PlanView* now) {
    return before != nullptr && now != nullptr &&
           std::ranges::equal(before->rows, now->rows, {}, &PlanRow::text, &PlanRow::text);
}

FlightPlanRows planRows(const ListPage& page) { return {page.width, page.height, rowCount(page)}; }

RowListLayout nearestRows(const ListPage& page, const RowListView& view) {
    return layOutNearest(page.width, page.height, rowCount(page), view).list;
}

}  // namespace

void PageLists::follow(const CockpitData& before, const CockpitData& now) {
    if (!hasSameRows(before.plan.get(), now.plan.get()))
        plan_.lifted.reset();
    const auto& former = before.shownNearAirports();
    if (nearest_.selected && former && now.shownNearAirports())
        nearest_.selected = rowOfSame(*former, *nearest_.selected, *now.shownNearAirports());
}

bool PageLists::lift(const ListPage& page, Point at) {
    const auto row = page.page == PageId::FlightPlan ? rowAt(page, at) : std::nullopt;
    if (!row)
        return false;
    // The list stays where it is, whatever is flown to meanwhile.
    plan_.firstRow = firstShownRow(page.data, plan_, planRows(page));
    plan_.lifted = {.row = *row, .to = *row, .y = at.y};
    return true;
}

void PageLists::carry(const ListPage& page, Point at) {
    if (!plan_.lifted)
        return;
    const FlightPlanRows rows = planRows(page);
    plan_.lifted->y = at.y;
    if (at.y < rows.header().bottom())
        scroll(page, -1);
    else if (at.y >= rows.totals().y)
        scroll(page, 1);
    const std::size_t first = plan_.firstRow.value_or(0);
    const double height = rows.row(first, first).height;
    const int down = static_cast<int>(std::floor((at.y - rows.header().bottom()) / height));
    const int most = static_cast<int>(std::min(rows.visible(), rowCount(page) - first)) - 1;
    plan_.lifted->to = moved(first, std::clamp(down, 0, most), rowCount(page) - 1);
}

std::optional<LiftedRow> PageLists::putDown() { return std::exchange(plan_.lifted, std::nullopt); }

void PageLists::scroll(const ListPage& page, int rows) {
    if (page.page == PageId::FlightPlan) {
        const FlightPlanRows all = planRows(page);
        plan_.firstRow = moved(firstShownRow(page.data, plan_, all), rows, all.lastFirst());
    } else if (page.page == PageId::NearestAirport) {
        nearest_.first = moved(nearest_.first, rows, rowCount(page));
    } else if (page.page == PageId::Airspace && page.data.airspaces) {
        const RowListLayout layout =
            layOutRowList(page.width, page.height, page.data.airspaces->size(), airspaces_);
        airspaces_.first =
            moved(airspaces_.first, rows, layout.lastFirst(page.data.airspaces->size()));
    }
}

bool PageLists::moveMark(const ListPage& page, int rows) {
    if (page.page == PageId::Airspace) {
        scroll(page, rows);
        return true;
    }
    const std::size_t count = rowCount(page);
    if (count == 0)
        return false;
    const auto next = [rows, count](std::optional<std::size_t> row, std::size_t start) {
        return row ? moved(*row, rows, count - 1) : std::min(start, count - 1);
    };
    if (page.page == PageId::FlightPlan) {
        plan_.selectedRow = next(plan_.selectedRow, page.data.plan->active.value_or(0));
        plan_.firstRow = planRows(page).firstFor(*plan_.selectedRow);
    } else {
        const std::size_t row = next(nearest_.selected, 0);
        nearest_.selected = row;
        nearest_.first = row - row % nearestRows(page, nearest_).perPage;
    }
    return true;
}

std::optional<std::size_t> PageLists::marked(const ListPage& page) const {
    const auto row = page.page == PageId::FlightPlan ? plan_.selectedRow : nearest_.selected;
    return row && *row < rowCount(page) ? row : std::nullopt;
}

std::optional<std::size_t> PageLists::rowAt(const ListPage& page, Point at) const {
    if (rowCount(page) == 0)
        return std::nullopt;
    if (page.page == PageId::NearestAirport)
        return nearestRows(page, nearest_).rowAt(at);
    const FlightPlanRows rows = planRows(page);
    return rows.rowAt(at, firstShownRow(page.data, plan_, rows));
}

}  // namespace korvel
