#include "screen/PageLists.h"

#include <algorithm>

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
        return page.data.nearAirports ? page.data.nearAirports->size() : 0;
    return 0;
}

FlightPlanRows planRows(const ListPage& page) { return {page.width, page.height, rowCount(page)}; }

RowListLayout nearestRows(const ListPage& page, const RowListView& view) {
    return layOutRowList(page.width, page.height, rowCount(page), view);
}

}  // namespace

void PageLists::follow(const CockpitData& before, const CockpitData& now) {
    if (nearest_.selected && before.nearAirports && now.nearAirports)
        nearest_.selected = rowOfSame(*before.nearAirports, *nearest_.selected, *now.nearAirports);
}

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
