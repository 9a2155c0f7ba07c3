// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include <planview/Export.h>

#include "components/GridTypes.h"

namespace planview {

enum class SelectionMode { Replace, Extend, Add };

enum class SelectionKind { Cells, Columns, Rows };

/// Where hidden columns or rows stand, seen from a visible one.
enum class HiddenSide { Before, Behind };

/// A block of cells by 0-based places among all columns and all rows (see GridControl::OrderOf), bounds included.
struct CellRange {
    int firstColumn = 0;
    int lastColumn = 0;
    int firstRow = 0;
    int lastRow = 0;

    [[nodiscard]] bool Contains(int column, int row) const noexcept {
        return column >= firstColumn && column <= lastColumn && row >= firstRow && row <= lastRow;
    }
    friend bool operator==(const CellRange&, const CellRange&) = default;
};

/// What is selected: whole columns, whole rows and blocks of cells. Changed only by GridControl.
class PLANVIEW_EXPORT GridSelection {
public:
    [[nodiscard]] bool HasColumn(ColumnId column) const noexcept;
    [[nodiscard]] bool HasRow(RowId row) const noexcept;
    /// By whole column, by whole row or by a block.
    [[nodiscard]] bool HasCell(Cell cell, int columnOrder, int rowOrder) const noexcept;
    /// Whether a whole column, or a block of cells that reaches into it, makes its heading stand out.
    [[nodiscard]] bool TouchesColumn(ColumnId column, int columnOrder) const noexcept;
    [[nodiscard]] bool TouchesRow(RowId row, int rowOrder) const noexcept;
    [[nodiscard]] const std::vector<CellRange>& Ranges() const noexcept { return ranges_; }
    [[nodiscard]] bool HasWholeColumns() const noexcept { return columnCount_ > 0; }
    [[nodiscard]] bool HasWholeRows() const noexcept { return rowCount_ > 0; }
    [[nodiscard]] bool IsEmpty() const noexcept { return ranges_.empty() && columnCount_ == 0 && rowCount_ == 0; }

    void Clear() noexcept;
    void SetColumn(ColumnId column, bool selected);
    void SetRow(RowId row, bool selected);
    void AddRange(const CellRange& range) { ranges_.push_back(range); }
    /// Replaces the block added last; adds it when there is none.
    void ReplaceLastRange(const CellRange& range);
    /// Takes one cell out; a block around it is cut into the blocks that remain.
    void RemoveCell(int column, int row);
    void ClearRanges() noexcept { ranges_.clear(); }
    /// Keeps the blocks on their cells when a column or row is put in at this place; one inside a block joins it.
    void ColumnInserted(int order) noexcept;
    void RowInserted(int order) noexcept;
    friend bool operator==(const GridSelection&, const GridSelection&) = default;

private:
    std::vector<bool> columns_;  // by ColumnId
    std::vector<bool> rows_;     // by RowId
    int columnCount_ = 0;
    int rowCount_ = 0;
    std::vector<CellRange> ranges_;
};

}  // namespace planview
