// SPDX-License-Identifier: MIT
#include "grid/SelectedCells.h"

#include <algorithm>

namespace planview {

namespace {

/// All visible columns in their order, left to right; those of the planning area only where asked for.
std::vector<ColumnId> VisibleColumns(const GridControl& grid, bool planningOnly) {
    std::vector<ColumnId> visible;
    for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
        if (planningOnly && area != ColumnArea::Center) {
            continue;
        }
        for (const ColumnId column : grid.Columns(area)) {
            if (!grid.Column(column).hidden) {
                visible.push_back(column);
            }
        }
    }
    return visible;
}

std::vector<RowId> VisibleRows(const GridControl& grid, bool planningOnly) {
    std::vector<RowId> visible;
    for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
        if (planningOnly && area != RowArea::Center) {
            continue;
        }
        for (const RowId row : grid.Rows(area)) {
            if (!grid.Row(row).hidden) {
                visible.push_back(row);
            }
        }
    }
    return visible;
}

template <class Id>
std::vector<Id> From(const std::vector<Id>& ids, Id first) {
    return {std::find(ids.begin(), ids.end(), first), ids.end()};
}

}  // namespace

SelectedBlock BlockOfSelection(const GridControl& grid) {
    const GridSelection& selection = grid.Selection();
    SelectedBlock block;
    if (selection.IsEmpty()) {
        if (const std::optional<Cell> current = grid.CurrentCell()) {
            block.columns.push_back(current->column);
            block.rows.push_back(current->row);
        }
        return block;
    }
    // Whole columns reach over all planning rows, whole rows over all planning columns.
    for (const ColumnId column : VisibleColumns(grid, selection.HasWholeRows() && selection.Ranges().empty())) {
        if (selection.HasWholeRows() || selection.TouchesColumn(column, grid.OrderOf(column))) {
            block.columns.push_back(column);
        }
    }
    for (const RowId row : VisibleRows(grid, selection.HasWholeColumns() && selection.Ranges().empty())) {
        if (selection.HasWholeColumns() || selection.TouchesRow(row, grid.OrderOf(row))) {
            block.rows.push_back(row);
        }
    }
    return block;
}

std::vector<Cell> CellsOfSelection(const GridControl& grid) {
    const SelectedBlock block = BlockOfSelection(grid);
    const bool one = grid.Selection().IsEmpty();
    std::vector<Cell> cells;
    for (const RowId row : block.rows) {
        const int rowOrder = grid.OrderOf(row);
        for (const ColumnId column : block.columns) {
            const Cell cell{column, row};
            if (one || grid.Selection().HasCell(cell, grid.OrderOf(column), rowOrder)) {
                cells.push_back(cell);
            }
        }
    }
    return cells;
}

std::vector<std::string> SelectedColumnKeys(const GridControl& grid) {
    std::vector<std::string> keys;
    for (const ColumnId column : grid.Columns(ColumnArea::Center)) {
        if (grid.Selection().HasColumn(column)) {
            keys.push_back(grid.Column(column).key);
        }
    }
    return keys;
}

std::vector<std::string> SelectedRowKeys(const GridControl& grid) {
    std::vector<std::string> keys;
    for (const RowId row : grid.Rows(RowArea::Center)) {
        if (grid.Selection().HasRow(row)) {
            keys.push_back(grid.Row(row).key);
        }
    }
    return keys;
}

std::vector<ColumnId> ColumnsFrom(const GridControl& grid, ColumnId first) {
    const bool planning = grid.Column(first).area == ColumnArea::Center;
    return planning ? From(VisibleColumns(grid, true), first) : std::vector<ColumnId>{first};
}

std::vector<RowId> RowsFrom(const GridControl& grid, RowId first) {
    const bool planning = grid.Row(first).area == RowArea::Center;
    return planning ? From(VisibleRows(grid, true), first) : std::vector<RowId>{first};
}

}  // namespace planview
