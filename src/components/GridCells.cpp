// SPDX-License-Identifier: MIT
#include "components/GridCells.h"

#include <algorithm>

namespace planview {

namespace {

const std::string NoText;

std::uint64_t TooltipKey(Cell cell) noexcept {
    constexpr unsigned ColumnBits = 32;
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(cell.row.value)) << ColumnBits) |
           static_cast<std::uint32_t>(cell.column.value);
}

/// The column's value, with room for it. A row that uses only its first column, the label, stays that short; any other
/// gets room for all columns and grows in steps as columns are added.
template <class Value>
Value& Grow(std::vector<Value>& values, ColumnId column, int columnCount) {
    const auto index = static_cast<std::size_t>(column.value);
    if (index >= values.size()) {
        if (index >= values.capacity()) {
            const auto wanted = index == 0 ? std::size_t{1} : static_cast<std::size_t>(columnCount);
            const bool columnsCameLater = values.capacity() > 1;
            values.reserve(columnsCameLater ? std::max(wanted, values.capacity() + values.capacity() / 2) : wanted);
        }
        values.resize(index + 1);
    }
    return values[index];
}

}  // namespace

const GridCells::Line* GridCells::FindLine(RowId row) const noexcept {
    const auto index = static_cast<std::size_t>(row.value);
    return index < lines_.size() ? &lines_[index] : nullptr;
}

GridCells::Line& GridCells::LineOf(RowId row) {
    const auto index = static_cast<std::size_t>(row.value);
    if (index >= lines_.size()) {
        lines_.resize(index + 1);
    }
    return lines_[index];
}

const std::string& GridCells::Contents(Cell cell) const noexcept {
    const Line* line = FindLine(cell.row);
    const auto index = static_cast<std::size_t>(cell.column.value);
    return line && index < line->contents.size() ? line->contents[index] : NoText;
}

const std::string& GridCells::Tooltip(Cell cell) const {
    const auto found = tooltips_.find(TooltipKey(cell));
    return found != tooltips_.end() ? found->second : NoText;
}

StyleId GridCells::Style(Cell cell) const noexcept {
    const Line* line = FindLine(cell.row);
    const auto index = static_cast<std::size_t>(cell.column.value);
    return line && index < line->styles.size() ? line->styles[index] : PlainStyle;
}

bool GridCells::SetContents(Cell cell, std::string_view contents, int columnCount) {
    if (Contents(cell) == contents) {
        return false;
    }
    Grow(LineOf(cell.row).contents, cell.column, columnCount) = contents;
    return true;
}

bool GridCells::SetTooltip(Cell cell, std::string_view tooltip) {
    if (Tooltip(cell) == tooltip) {
        return false;
    }
    if (tooltip.empty()) {
        tooltips_.erase(TooltipKey(cell));
    } else {
        tooltips_[TooltipKey(cell)] = tooltip;
    }
    return true;
}

bool GridCells::SetStyle(Cell cell, StyleId style, int columnCount) {
    if (Style(cell) == style) {
        return false;
    }
    Grow(LineOf(cell.row).styles, cell.column, columnCount) = style;
    return true;
}

void GridCells::Clear() {
    *this = GridCells();
}

}  // namespace planview
