// SPDX-License-Identifier: MIT
#include <algorithm>

#include "components/GridControl.h"
#include "components/GridState.h"

namespace planview {

using Kind = SelectionPlace::Kind;

GridViewState GridControl::ViewState() const {
    State& state = *state_;
    GridViewState view;
    // A grid that was never scrolled begins with whatever comes first.
    if (const std::optional<ColumnId> first = FirstColumn(); first && state.firstColumn.wanted) {
        view.firstColumn = state.columns.At(*first).key;
    }
    if (const std::optional<RowId> first = FirstRow(); first && state.firstRow.wanted) {
        view.firstRow = state.rows.At(*first).key;
    }
    if (state.current) {
        view.current = state.KeyOf(*state.current);
    }
    for (int order = 0; order < state.columns.Count() && state.selection.HasWholeColumns(); ++order) {
        if (const ColumnId column = state.columns.AtOrder(order); state.HasWhole(column)) {
            view.columns.push_back(state.columns.At(column).key);
        }
    }
    for (int order = 0; order < state.rows.Count() && state.selection.HasWholeRows(); ++order) {
        if (const RowId row = state.rows.AtOrder(order); state.HasWhole(row)) {
            view.rows.push_back(state.rows.At(row).key);
        }
    }
    for (const CellRange& range : state.selection.Ranges()) {
        const Cell from{state.columns.AtOrder(range.firstColumn), state.rows.AtOrder(range.firstRow)};
        const Cell to{state.columns.AtOrder(range.lastColumn), state.rows.AtOrder(range.lastRow)};
        view.blocks.emplace_back(state.KeyOf(from), state.KeyOf(to));
    }
    if (state.anchor.kind == Kind::Cell && state.anchor.ownsRange) {
        view.blockEnd = state.KeyOf(state.anchor.end);
    }
    return view;
}

void GridControl::RestoreViewState(const GridViewState& view) {
    State& state = *state_;
    if (!state.settings.created) {
        return;
    }
    SetFirstColumn(view.firstColumn, false);
    SetFirstRow(view.firstRow, false);
    state.selection.Clear();
    state.anchor = SelectionAnchor();
    for (const std::string& key : view.columns) {
        SetSelection({key, {}}, false);
    }
    for (const std::string& key : view.rows) {
        SetSelection({{}, key}, false);
    }
    for (const auto& [from, to] : view.blocks) {
        const std::optional<Cell> first = FindCell(from);
        const std::optional<Cell> last = FindCell(to);
        if (first && last) {
            state.selection.AddRange(state.RangeOf(*first, *last));
        }
    }
    const std::optional<Cell> current = view.current ? FindCell(*view.current) : std::nullopt;
    const std::optional<Cell> end = view.blockEnd ? FindCell(*view.blockEnd) : std::nullopt;
    if (current) {
        state.current = current;
    }
    const std::vector<CellRange>& ranges = state.selection.Ranges();
    if (current && end && !ranges.empty() && ranges.back() == state.RangeOf(*current, *end)) {
        state.anchor = {Kind::Cell, *current, *end, true};
    }
    state.reports.NoteEverything();
}

}  // namespace planview
