// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "components/GridControl.h"

namespace planview {

/// A selection as one block: its columns and rows in their order.
struct SelectedBlock {
    std::vector<ColumnId> columns;
    std::vector<RowId> rows;
    [[nodiscard]] std::size_t CellCount() const noexcept { return columns.size() * rows.size(); }
};

/// Whether hidden cells within a selection count.
enum class HiddenCells { Taken, LeftOut };

/// The smallest block around what is selected; the current cell when nothing that can be seen is. Whole columns and
/// rows count with their planning cells. Empty in a grid without a current cell.
[[nodiscard]] SelectedBlock BlockOfSelection(const GridControl& grid, HiddenCells hidden = HiddenCells::Taken);

/// The selected cells, row by row; the current cell when none that can be seen is selected.
[[nodiscard]] std::vector<Cell> CellsOfSelection(const GridControl& grid, HiddenCells hidden = HiddenCells::Taken);

/// The keys of the planning columns (rows) whose headings are selected, hidden ones too, in their order.
[[nodiscard]] std::vector<std::string> SelectedColumnKeys(const GridControl& grid);
[[nodiscard]] std::vector<std::string> SelectedRowKeys(const GridControl& grid);

/// The planning columns from this one on, hidden ones too; a fixed column alone.
[[nodiscard]] std::vector<ColumnId> ColumnsFrom(const GridControl& grid, ColumnId first);
[[nodiscard]] std::vector<RowId> RowsFrom(const GridControl& grid, RowId first);

}  // namespace planview
