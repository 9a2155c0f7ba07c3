// SPDX-License-Identifier: MIT
#include "xlsx/Sheet.h"

#include <algorithm>

#include <planview/AutomationObject.h>

namespace planview::xlsx {

namespace {

constexpr std::int64_t MostTouchedAtOnce = 4'000'000;

void ExpectFew(std::int64_t cells) {
    if (cells > MostTouchedAtOnce) {
        throw AutomationError(AutomationErrorCode::Failed, "A format for " + std::to_string(cells) +
                                                               " single cells at once is too much; give it to whole "
                                                               "rows, whole columns or all cells");
    }
}

}  // namespace

const Cell* SheetRow::Find(std::int32_t column) const noexcept {
    if (cells.empty() || column < cells.front().column || column > cells.back().column) {
        return nullptr;
    }
    // Most rows are filled without gaps.
    const auto guess = static_cast<std::size_t>(column - cells.front().column);
    if (guess < cells.size() && cells[guess].column == column) {
        return &cells[guess];
    }
    const auto found = std::lower_bound(cells.begin(), cells.end(), column,
                                        [](const Cell& cell, std::int32_t wanted) { return cell.column < wanted; });
    return found != cells.end() && found->column == column ? &*found : nullptr;
}

Cell* SheetRow::Find(std::int32_t column) noexcept {
    return const_cast<Cell*>(static_cast<const SheetRow*>(this)->Find(column));
}

const SheetRow* Sheet::FindRow(std::int32_t row) const noexcept {
    const auto index = static_cast<std::size_t>(row - 1);
    const std::size_t page = index / PageRows;
    return page < pages_.size() && pages_[page] ? &(*pages_[page])[index % PageRows] : nullptr;
}

SheetRow& Sheet::RowAt(std::int32_t row) {
    const auto index = static_cast<std::size_t>(row - 1);
    const std::size_t page = index / PageRows;
    if (page >= pages_.size()) {
        pages_.resize(page + 1);
    }
    if (!pages_[page]) {
        pages_[page] = std::make_unique<Page>();
    }
    return (*pages_[page])[index % PageRows];
}

const Cell* Sheet::Find(std::int32_t row, std::int32_t column) const noexcept {
    const SheetRow* const found = FindRow(row);
    return found ? found->Find(column) : nullptr;
}

Cell& Sheet::At(std::int32_t row, std::int32_t column) {
    return CellIn(RowAt(row), column);
}

Cell& Sheet::CellIn(SheetRow& row, std::int32_t column) {
    if (Cell* const found = row.Find(column)) {
        return *found;
    }
    Cell cell;
    cell.column = static_cast<std::uint16_t>(column);
    cell.style = UntouchedStyle(&row, column);
    const auto place =
        row.cells.empty() || row.cells.back().column < column
            ? row.cells.end()
            : std::lower_bound(row.cells.begin(), row.cells.end(), column,
                               [](const Cell& left, std::int32_t wanted) { return left.column < wanted; });
    return *row.cells.insert(place, cell);
}

StyleId Sheet::UntouchedStyle(const SheetRow* row, std::int32_t column) const noexcept {
    if (row && row->style != SheetRow::NoStyle) {
        return row->style;
    }
    const auto index = static_cast<std::size_t>(column - 1);
    return index < columns_.size() && columns_[index].style != SheetRow::NoStyle ? columns_[index].style : style_;
}

StyleId Sheet::StyleAt(std::int32_t row, std::int32_t column) const noexcept {
    const SheetRow* const found = FindRow(row);
    const Cell* const cell = found ? found->Find(column) : nullptr;
    return cell ? cell->style : UntouchedStyle(found, column);
}

void Sheet::Change(const Area& area, StyleChange change) {
    if (area.firstRow == area.lastRow && area.firstColumn == area.lastColumn) {
        Cell& cell = At(area.firstRow, area.firstColumn);
        cell.style = styles_->Changed(cell.style, change);
    } else if (area.HasAllRows() && area.HasAllColumns()) {
        ChangeSheet(change);
    } else if (area.HasAllRows()) {
        ChangeColumns(area, change);
    } else if (area.HasAllColumns()) {
        ChangeRows(area, change);
    } else {
        ChangeCells(area, change);
    }
}

void Sheet::ChangeSheet(StyleChange change) {
    style_ = styles_->Changed(style_, change);
    for (SheetColumn& column : columns_) {
        column.style = column.style == SheetRow::NoStyle ? column.style : styles_->Changed(column.style, change);
    }
    ForEachRowToChange([&](SheetRow& row) {
        row.style = row.style == SheetRow::NoStyle ? row.style : styles_->Changed(row.style, change);
        for (Cell& cell : row.cells) {
            cell.style = styles_->Changed(cell.style, change);
        }
    });
}

void Sheet::ChangeColumns(const Area& area, StyleChange change) {
    std::int64_t crossings = 0;
    ForEachRowToChange(
        [&](const SheetRow& row) { crossings += row.style == SheetRow::NoStyle ? 0 : area.ColumnCount(); });
    ExpectFew(crossings);
    ForEachRowToChange([&](SheetRow& row) {
        for (std::int32_t column = area.firstColumn; column <= area.lastColumn; ++column) {
            if (row.style != SheetRow::NoStyle || row.Find(column)) {
                Cell& cell = CellIn(row, column);
                cell.style = styles_->Changed(cell.style, change);
            }
        }
    });
    columns_.resize(std::max(columns_.size(), static_cast<std::size_t>(area.lastColumn)), otherColumns_);
    for (auto column = static_cast<std::size_t>(area.firstColumn - 1);
         column < static_cast<std::size_t>(area.lastColumn); ++column) {
        StyleId& style = columns_[column].style;
        style = styles_->Changed(style == SheetRow::NoStyle ? style_ : style, change);
    }
}

void Sheet::ChangeRows(const Area& area, StyleChange change) {
    const auto styled = std::count_if(columns_.begin(), columns_.end(),
                                      [](const SheetColumn& column) { return column.style != SheetRow::NoStyle; });
    ExpectFew((std::int64_t{styled} + 1) * area.RowCount());
    for (std::int32_t number = area.firstRow; number <= area.lastRow; ++number) {
        SheetRow& row = RowAt(number);
        for (std::size_t column = 0; styled > 0 && column < columns_.size(); ++column) {
            if (columns_[column].style != SheetRow::NoStyle) {
                static_cast<void>(CellIn(row, static_cast<std::int32_t>(column + 1)));
            }
        }
        for (Cell& cell : row.cells) {
            cell.style = styles_->Changed(cell.style, change);
        }
        row.style = styles_->Changed(row.style == SheetRow::NoStyle ? style_ : row.style, change);
    }
}

void Sheet::ChangeCells(const Area& area, StyleChange change) {
    ExpectFew(std::int64_t{area.RowCount()} * area.ColumnCount());
    for (std::int32_t row = area.firstRow; row <= area.lastRow; ++row) {
        SheetRow& cells = RowAt(row);
        for (std::int32_t column = area.firstColumn; column <= area.lastColumn; ++column) {
            Cell& cell = CellIn(cells, column);
            cell.style = styles_->Changed(cell.style, change);
        }
    }
}

void Sheet::SetWidth(std::int32_t firstColumn, std::int32_t lastColumn, float width) {
    if (firstColumn == 1 && lastColumn == MostColumns) {
        otherColumns_.width = width;
        lastColumn = static_cast<std::int32_t>(columns_.size());
    }
    columns_.resize(std::max(columns_.size(), static_cast<std::size_t>(lastColumn)), otherColumns_);
    for (auto column = static_cast<std::size_t>(firstColumn - 1); column < static_cast<std::size_t>(lastColumn);
         ++column) {
        columns_[column].width = width;
    }
}

void Sheet::TakeRow(std::int32_t row, std::vector<Cell> cells) {
    RowAt(row).cells = std::move(cells);
}

Area Sheet::UsedArea() const {
    Area used{MostRows, 0, MostColumns, 0};
    ForEachRow([&](std::int32_t number, const SheetRow& row) {
        for (const Cell& cell : row.cells) {
            if (cell.kind != CellKind::Empty) {
                used.firstRow = std::min(used.firstRow, number);
                used.lastRow = number;
                used.firstColumn = std::min<std::int32_t>(used.firstColumn, cell.column);
                used.lastColumn = std::max<std::int32_t>(used.lastColumn, cell.column);
            }
        }
    });
    return used.lastRow == 0 ? Area{1, 1, 1, 1} : used;
}

}  // namespace planview::xlsx
