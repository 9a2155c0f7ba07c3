// SPDX-License-Identifier: MIT
#include "grid/SelectedCells.h"

#include <algorithm>

namespace planview {

namespace {

/// Columns or rows in their order; those of the planning area only where asked for.
struct Wanted {
    bool planningOnly = false;
    HiddenCells hidden = HiddenCells::Taken;
};

std::vector<ColumnId> ColumnsOf(const GridControl& grid, Wanted wanted) {
    std::vector<ColumnId> columns;
    for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
        if (wanted.planningOnly && area != ColumnArea::Center) {
            continue;
        }
        for (const ColumnId column : grid.Columns(area)) {
            if (wanted.hidden == HiddenCells::Taken || !grid.Column(column).hidden) {
                columns.push_back(column);
            }
        }
    }
    return columns;
}

std::vector<RowId> RowsOf(const GridControl& grid, Wanted wanted) {
    std::vector<RowId> rows;
    for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
        if (wanted.planningOnly && area != RowArea::Center) {
            continue;
        }
        for (const RowId row : grid.Rows(area)) {
            if (wanted.hidden == HiddenCells::Taken || !grid.Row(row).hidden) {
                rows.push_back(row);
            }
        }
    }
    return rows;
}

/// What is selected may have been hidden meanwhile; then the user sees the current cell alone.
bool IsSeen(const GridControl& grid) {
    const GridSelection& selection = grid.Selection();
    const std::vector<ColumnId> columns = ColumnsOf(grid, {false, HiddenCells::LeftOut});
    const std::vector<RowId> rows = RowsOf(grid, {false, HiddenCells::LeftOut});
    const auto anyWithin = [&grid](const auto& tracks, int first, int last) {
        return std::any_of(tracks.begin(), tracks.end(), [&](auto track) {
            const int order = grid.OrderOf(track);
            return order >= first && order <= last;
        });
    };
    return std::any_of(columns.begin(), columns.end(), [&](ColumnId id) { return selection.HasColumn(id); }) ||
           std::any_of(rows.begin(), rows.end(), [&](RowId id) { return selection.HasRow(id); }) ||
           std::any_of(selection.Ranges().begin(), selection.Ranges().end(), [&](const CellRange& range) {
               return anyWithin(columns, range.firstColumn, range.lastColumn) &&
                      anyWithin(rows, range.firstRow, range.lastRow);
           });
}

template <class Id>
std::vector<Id> From(const std::vector<Id>& ids, Id first) {
    return {std::find(ids.begin(), ids.end(), first), ids.end()};
}

}  // namespace

SelectedBlock BlockOfSelection(const GridControl& grid, HiddenCells hidden) {
    const GridSelection& selection = grid.Selection();
    SelectedBlock block;
    if (!IsSeen(grid)) {
        if (const std::optional<Cell> current = grid.CurrentCell()) {
            block.columns.push_back(current->column);
            block.rows.push_back(current->row);
        }
        return block;
    }
    // Whole columns reach over all planning rows, whole rows over all planning columns.
    const bool noRanges = selection.Ranges().empty();
    for (const ColumnId column : ColumnsOf(grid, {selection.HasWholeRows() && noRanges, hidden})) {
        if (selection.HasWholeRows() || selection.TouchesColumn(column, grid.OrderOf(column))) {
            block.columns.push_back(column);
        }
    }
    for (const RowId row : RowsOf(grid, {selection.HasWholeColumns() && noRanges, hidden})) {
        if (selection.HasWholeColumns() || selection.TouchesRow(row, grid.OrderOf(row))) {
            block.rows.push_back(row);
        }
    }
    return block;
}

std::vector<Cell> CellsOfSelection(const GridControl& grid, HiddenCells hidden) {
    const SelectedBlock block = BlockOfSelection(grid, hidden);
    std::vector<Cell> cells;
    if (block.CellCount() == 1) {
        return {{block.columns.front(), block.rows.front()}};
    }
    for (const RowId row : block.rows) {
        const int rowOrder = grid.OrderOf(row);
        for (const ColumnId column : block.columns) {
            const Cell cell{column, row};
            if (grid.Selection().HasCell(cell, grid.OrderOf(column), rowOrder)) {
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
    return planning ? From(ColumnsOf(grid, {true, HiddenCells::Taken}), first) : std::vector<ColumnId>{first};
}

std::vector<RowId> RowsFrom(const GridControl& grid, RowId first) {
    const bool planning = grid.Row(first).area == RowArea::Center;
    return planning ? From(RowsOf(grid, {true, HiddenCells::Taken}), first) : std::vector<RowId>{first};
}

}  // namespace planview
