// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/Failure.h>

#include "automation/TableSlots.h"
#include "grid/CurrentKeys.h"
#include "grid/modGrid.h"

namespace planview {

/// What the loaders work on.
struct LoaderContext {
    modGrid& driver;
    const TableSlots& tables;
    CurrentKeys& keys;
    /// Where each loader adds what became of its table; null where nobody asks.
    std::vector<TableReport>* report = nullptr;
};

/// The seven loaders turn one host table each into a part of the grid. Each walks its table once from row 1, changes
/// the grid with redraw off, and opens with a trace entry that names the table. A failure (a table that is not set, a
/// field that cannot be read) ends the loader with an "ERROR" entry; what it has built so far stays.
///
/// Columns and rows come before the cells that refer to them. Reading a field runs the host's code, which may call the
/// control: a loader keeps its keys to itself and only shows them in `keys`.

/// COLS_INDEX: planning columns with their headings; writes each key into `GRID_ID`.
void Creation_Columns(const LoaderContext& context) noexcept;
/// LINE_INDEX: planning rows with their labels and looks; writes each key into `GRID_ID`.
void Creation_Rows(const LoaderContext& context) noexcept;
/// FIXED_COLS: fixed columns on the left and right; writes each key into `GRID_ID`.
void Creation_FixedColumns(const LoaderContext& context) noexcept;
/// FIXED_LINES: fixed rows at the top and bottom; reads `GRID_ID` and leaves it as it is.
void Creation_FixedLines(const LoaderContext& context) noexcept;
/// TAB: the planning cells' values.
void FillCells(const LoaderContext& context) noexcept;
/// FIXED_TAB: contents and looks of cells in fixed columns or rows.
void FillFixedCells(const LoaderContext& context) noexcept;
/// CELL_ATTR: looks of single planning cells. A cell that the grid does not have is traced and passed over.
void CellAttributes(const LoaderContext& context) noexcept;

// What one row of a table becomes; the column, row or cell is there. They throw.

void ShowColumn(const LoaderContext& context, HostTable::Row i, const std::string& key);
void ShowRow(const LoaderContext& context, HostTable::Row i, const std::string& key);
/// The second pass: lines that only show planning values.
void LockRow(const LoaderContext& context, HostTable::Row i);
void ShowFixedColumn(const LoaderContext& context, HostTable::Row i, const std::string& key, std::string_view side);
void ShowFixedLine(const LoaderContext& context, HostTable::Row i, const std::string& key, std::string_view side);
/// The second pass: fixed headings are no part of the selection, so that only planning columns and rows are marked.
void FinishFixed(modGrid& driver, CellKeyView keys, bool readOnly);
void ShowFixedCell(const LoaderContext& context, HostTable::Row i, CellKeyView cell);
void ShowCellAttributes(const LoaderContext& context, HostTable::Row i, CellKeyView cell);

/// The cell that a row of FIXED_TAB or of CELL_ATTR is about.
[[nodiscard]] CellKey FixedCellKey(const HostTable& fixedTab, HostTable::Row i);
[[nodiscard]] CellKey AttributedCellKey(const HostTable& cellAttr, HostTable::Row i);

}  // namespace planview
