// SPDX-License-Identifier: MIT
#include "grid/CellCaption.h"

namespace planview {

namespace {

/// Labels may be indented.
std::string Trimmed(const std::string& text) {
    const std::size_t start = text.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : text.substr(start, text.find_last_not_of(' ') - start + 1);
}

std::string HeadingOr(const GridControl& grid, CellKeyView heading, const std::string& key) {
    const std::optional<Cell> cell = grid.FindCell(heading);
    const std::string text = cell ? Trimmed(grid.Contents(*cell)) : std::string();
    return text.empty() ? key : text;
}

}  // namespace

std::string CellCaption(const GridControl& grid, const CellKey& cell) {
    return HeadingOr(grid, {LabelColumnKey, cell.row}, cell.row) + ", " +
           HeadingOr(grid, {cell.column, HeadingRowKey}, cell.column);
}

}  // namespace planview
