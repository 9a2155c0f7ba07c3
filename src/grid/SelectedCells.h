// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "components/GridControl.h"

namespace planview {

/// The visible part of a selection as one block: its columns and rows in their order.
struct SelectedBlock {
    std::vector<ColumnId> columns;
    std::vector<RowId> rows;
    [[nodiscard]] std::size_t CellCount() const noexcept { return columns.size() * rows.size(); }
};

/// The smallest block around what is selected; the current cell when nothing is. Whole columns and rows count with
/// their planning cells. Empty in a grid without a current cell.
[[nodiscard]] SelectedBlock BlockOfSelection(const GridControl& grid);

/// The selected visible cells, row by row; the current cell when nothing is selected.
[[nodiscard]] std::vector<Cell> CellsOfSelection(const GridControl& grid);

/// The keys of the planning columns (rows) whose headings are selected, hidden ones too, in their order.
[[nodiscard]] std::vector<std::string> SelectedColumnKeys(const GridControl& grid);
[[nodiscard]] std::vector<std::string> SelectedRowKeys(const GridControl& grid);

/// The visible planning columns from this one on; the visible columns of its area when it is a fixed one.
[[nodiscard]] std::vector<ColumnId> ColumnsFrom(const GridControl& grid, ColumnId first);
[[nodiscard]] std::vector<RowId> RowsFrom(const GridControl& grid, RowId first);

}  // namespace planview
