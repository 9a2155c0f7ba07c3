// SPDX-License-Identifier: MIT
#include "grid/KeptView.h"

#include <algorithm>

#include "grid/IndexAxis.h"
#include "grid/TrackOrder.h"

namespace planview {

namespace {

constexpr bool NoRedraw = false;

bool IsSize(std::int16_t size) {
    return size > 0 && size <= MaxTrackSize;
}

std::vector<std::string> PlanningKeys(const std::vector<KeptView::Track>& tracks, const IndexAxis& axis) {
    std::vector<std::string> keys;
    for (const KeptView::Track& track : tracks) {
        if (track.key.starts_with(axis.keyPrefix)) {
            keys.push_back(track.key);
        }
    }
    return keys;
}

}  // namespace

KeptView ViewOf(const GridControl& grid) {
    KeptView view;
    for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
        for (const ColumnId column : grid.Columns(area)) {
            const GridColumn& one = grid.Column(column);
            view.columns.push_back({one.key, one.width, one.height});
        }
    }
    for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
        for (const RowId row : grid.Rows(area)) {
            const GridRow& one = grid.Row(row);
            view.rows.push_back({one.key, one.width, one.height});
        }
    }
    view.labelWidth = grid.Settings().labelColumnWidth;
    const GridViewState seen = grid.ViewState();
    view.firstColumn = seen.firstColumn;
    view.firstRow = seen.firstRow;
    return view;
}

bool IsPossible(const KeptView& view) {
    const auto possible = [](const KeptView::Track& track) {
        return !track.key.empty() && IsSize(track.width) && IsSize(track.height);
    };
    return IsSize(view.labelWidth) && std::all_of(view.columns.begin(), view.columns.end(), possible) &&
           std::all_of(view.rows.begin(), view.rows.end(), possible);
}

void ShowView(GridControl& grid, const KeptView& view) {
    const bool redraw = grid.RedrawOn();
    grid.SetRedraw(false);
    const auto setSizes = [&](GridElement element, CellKeyView keys, const KeptView::Track& track) {
        grid.SetAttribute(element, keys, GridAttribute::Width, track.width, NoRedraw);
        grid.SetAttribute(element, keys, GridAttribute::Height, track.height, NoRedraw);
    };
    for (const KeptView::Track& column : view.columns) {
        setSizes(GridElement::Column, {column.key, {}}, column);
    }
    for (const KeptView::Track& row : view.rows) {
        setSizes(GridElement::Row, {{}, row.key}, row);
    }
    grid.SetAttribute(GridElement::Grid, {}, GridAttribute::LabelColumnWidth, view.labelWidth, NoRedraw);
    ArrangeAmong(grid, ColumnAxis, PlanningKeys(view.columns, ColumnAxis));
    ArrangeAmong(grid, RowAxis, PlanningKeys(view.rows, RowAxis));
    grid.SetFirstColumn(view.firstColumn, NoRedraw);
    grid.SetFirstRow(view.firstRow, NoRedraw);
    grid.SetRedraw(redraw);
    grid.Redraw();
}

}  // namespace planview
