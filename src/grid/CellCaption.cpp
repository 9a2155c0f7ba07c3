// SPDX-License-Identifier: MIT
#include "grid/CellCaption.h"

#include "automation/Texts.h"

namespace planview {

namespace {

std::string HeadingOr(const GridControl& grid, CellKeyView heading, const std::string& key) {
    const std::optional<Cell> cell = grid.FindCell(heading);
    const std::string_view text = cell ? Trimmed(grid.Contents(*cell)) : std::string_view();
    return text.empty() ? key : std::string(text);
}

}  // namespace

std::string HeadingOf(const GridControl& grid, RowId line) {
    const std::string& key = grid.Row(line).key;
    return HeadingOr(grid, {LabelColumnKey, key}, key);
}

std::string HeadingOf(const GridControl& grid, ColumnId period) {
    const std::string& key = grid.Column(period).key;
    return HeadingOr(grid, {key, HeadingRowKey}, key);
}

std::string CellCaption(const GridControl& grid, Cell cell, std::string_view between) {
    return HeadingOf(grid, cell.row) + std::string(between) + HeadingOf(grid, cell.column);
}

std::string CellCaption(const GridControl& grid, const CellKey& keys) {
    const std::optional<Cell> cell = grid.FindCell(keys);
    return cell ? CellCaption(grid, *cell) : keys.row + ", " + keys.column;
}

}  // namespace planview
