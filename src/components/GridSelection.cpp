// SPDX-License-Identifier: MIT
#include "components/GridSelection.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace planview {

namespace {

bool IsSet(const std::vector<bool>& marks, std::int32_t id) noexcept {
    return id >= 0 && static_cast<std::size_t>(id) < marks.size() && marks[static_cast<std::size_t>(id)];
}

void Mark(std::vector<bool>& marks, std::int32_t id, bool selected, int& count) {
    if (IsSet(marks, id) == selected) {
        return;
    }
    const auto index = static_cast<std::size_t>(id);
    if (index >= marks.size()) {
        marks.resize(index + 1);
    }
    marks[index] = selected;
    count += selected ? 1 : -1;
}

void MakeRoom(int order, int& first, int& last) noexcept {
    if (first >= order) {
        ++first;
    }
    if (last >= order) {
        ++last;
    }
}

}  // namespace

bool GridSelection::HasColumn(ColumnId column) const noexcept {
    return columnCount_ > 0 && IsSet(columns_, column.value);
}

bool GridSelection::HasRow(RowId row) const noexcept {
    return rowCount_ > 0 && IsSet(rows_, row.value);
}

bool GridSelection::HasCell(Cell cell, int columnOrder, int rowOrder) const noexcept {
    return HasColumn(cell.column) || HasRow(cell.row) ||
           std::any_of(ranges_.begin(), ranges_.end(), [columnOrder, rowOrder](const CellRange& range) {
               return range.Contains(columnOrder, rowOrder);
           });
}

bool GridSelection::TouchesColumn(ColumnId column, int columnOrder) const noexcept {
    return HasColumn(column) || std::any_of(ranges_.begin(), ranges_.end(), [columnOrder](const CellRange& range) {
               return columnOrder >= range.firstColumn && columnOrder <= range.lastColumn;
           });
}

bool GridSelection::TouchesRow(RowId row, int rowOrder) const noexcept {
    return HasRow(row) || std::any_of(ranges_.begin(), ranges_.end(), [rowOrder](const CellRange& range) {
               return rowOrder >= range.firstRow && rowOrder <= range.lastRow;
           });
}

void GridSelection::Clear() noexcept {
    columns_.clear();
    rows_.clear();
    columnCount_ = 0;
    rowCount_ = 0;
    ranges_.clear();
}

void GridSelection::SetColumn(ColumnId column, bool selected) {
    Mark(columns_, column.value, selected, columnCount_);
}

void GridSelection::SetRow(RowId row, bool selected) {
    Mark(rows_, row.value, selected, rowCount_);
}

void GridSelection::ReplaceLastRange(const CellRange& range) {
    if (ranges_.empty()) {
        ranges_.push_back(range);
    } else {
        ranges_.back() = range;
    }
}

void GridSelection::RemoveCell(int column, int row) {
    std::vector<CellRange> remaining;
    remaining.reserve(ranges_.size());
    for (const CellRange& range : ranges_) {
        if (!range.Contains(column, row)) {
            remaining.push_back(range);
            continue;
        }
        // Above, left, right and below the cell, where there is something.
        if (range.firstRow < row) {
            remaining.push_back({range.firstColumn, range.lastColumn, range.firstRow, row - 1});
        }
        if (range.firstColumn < column) {
            remaining.push_back({range.firstColumn, column - 1, row, row});
        }
        if (range.lastColumn > column) {
            remaining.push_back({column + 1, range.lastColumn, row, row});
        }
        if (range.lastRow > row) {
            remaining.push_back({range.firstColumn, range.lastColumn, row + 1, range.lastRow});
        }
    }
    ranges_ = std::move(remaining);
}

void GridSelection::ColumnInserted(int order) noexcept {
    for (CellRange& range : ranges_) {
        MakeRoom(order, range.firstColumn, range.lastColumn);
    }
}

void GridSelection::RowInserted(int order) noexcept {
    for (CellRange& range : ranges_) {
        MakeRoom(order, range.firstRow, range.lastRow);
    }
}

}  // namespace planview
