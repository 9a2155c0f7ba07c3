// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "xlsx/CellStyle.h"

namespace planview::xlsx {

inline constexpr std::int32_t MostRows = 1'048'576;
inline constexpr std::int32_t MostColumns = 16'384;

/// Rows and columns from 1, the last ones included.
struct Area {
    std::int32_t firstRow = 1;
    std::int32_t lastRow = MostRows;
    std::int32_t firstColumn = 1;
    std::int32_t lastColumn = MostColumns;

    [[nodiscard]] bool HasAllRows() const noexcept { return firstRow == 1 && lastRow == MostRows; }
    [[nodiscard]] bool HasAllColumns() const noexcept { return firstColumn == 1 && lastColumn == MostColumns; }
    [[nodiscard]] std::int32_t RowCount() const noexcept { return lastRow - firstRow + 1; }
    [[nodiscard]] std::int32_t ColumnCount() const noexcept { return lastColumn - firstColumn + 1; }

    friend bool operator==(const Area&, const Area&) = default;
};

enum class CellKind : std::uint8_t { Empty, Number, Boolean, Text };

/// 16 bytes, because a sheet has many.
struct Cell {
    double number = 0;  ///< a boolean as 0 or 1, a text as its number in the workbook's TextPool
    std::uint16_t column = 0;
    StyleId style = 0;
    CellKind kind = CellKind::Empty;
};

/// The cells of one row in the order of their columns.
struct SheetRow {
    static constexpr StyleId NoStyle = 0xFFFF;

    std::vector<Cell> cells;
    StyleId style = NoStyle;

    [[nodiscard]] const Cell* Find(std::int32_t column) const noexcept;
    [[nodiscard]] Cell* Find(std::int32_t column) noexcept;
};

struct SheetColumn {
    StyleId style = SheetRow::NoStyle;
    float width = DefaultWidth;  ///< in characters

    static constexpr float DefaultWidth = 8.43F;

    friend bool operator==(const SheetColumn&, const SheetColumn&) = default;
};

/// Cells, rows and columns of one sheet, with the styles that rows, columns and the sheet give to cells still
/// untouched.
///
/// A cell keeps its whole style from the first touch on; an untouched one looks as its row, else its column, else the
/// sheet. Where a changed row meets a column with a style of its own, the cell is touched, so that both show.
class Sheet {
public:
    explicit Sheet(StyleTable& styles) : styles_(&styles) {}

    /// Null where the cell is untouched.
    [[nodiscard]] const Cell* Find(std::int32_t row, std::int32_t column) const noexcept;
    [[nodiscard]] Cell& At(std::int32_t row, std::int32_t column);
    [[nodiscard]] StyleId StyleAt(std::int32_t row, std::int32_t column) const noexcept;

    /// Throws AutomationError where this would touch more cells one by one than memory is meant for.
    void Change(const Area& area, StyleChange change);
    void SetWidth(std::int32_t firstColumn, std::int32_t lastColumn, float width);

    /// Takes the cells of a row that has none yet, in the order of their columns.
    void TakeRow(std::int32_t row, std::vector<Cell> cells);

    [[nodiscard]] StyleId OwnStyle() const noexcept { return style_; }
    /// As many as have anything of their own; those behind look as the sheet.
    [[nodiscard]] const std::vector<SheetColumn>& Columns() const noexcept { return columns_; }
    /// What columns behind Columns() are.
    [[nodiscard]] const SheetColumn& OtherColumns() const noexcept { return otherColumns_; }

    /// Calls visit(row number, SheetRow) for each row with cells or a style, from the top.
    template <class Visit>
    void ForEachRow(Visit&& visit) const {
        for (std::size_t page = 0; page < pages_.size(); ++page) {
            for (std::size_t i = 0; pages_[page] && i < PageRows; ++i) {
                const SheetRow& row = (*pages_[page])[i];
                if (!row.cells.empty() || row.style != SheetRow::NoStyle) {
                    visit(static_cast<std::int32_t>(page * PageRows + i + 1), row);
                }
            }
        }
    }

    /// The smallest area around the cells that have a value; of one cell, the first, where none has.
    [[nodiscard]] Area UsedArea() const;

private:
    static constexpr std::size_t PageRows = 256;
    using Page = std::array<SheetRow, PageRows>;

    [[nodiscard]] const SheetRow* FindRow(std::int32_t row) const noexcept;
    [[nodiscard]] SheetRow& RowAt(std::int32_t row);
    [[nodiscard]] StyleId UntouchedStyle(const SheetRow* row, std::int32_t column) const noexcept;
    [[nodiscard]] Cell& CellIn(SheetRow& row, std::int32_t column);
    void ChangeSheet(StyleChange change);
    void ChangeColumns(const Area& area, StyleChange change);
    void ChangeRows(const Area& area, StyleChange change);
    void ChangeCells(const Area& area, StyleChange change);
    template <class Visit>
    void ForEachRowToChange(Visit&& visit) {
        for (auto& page : pages_) {
            for (std::size_t i = 0; page && i < PageRows; ++i) {
                visit((*page)[i]);
            }
        }
    }

    StyleTable* styles_;
    std::vector<std::unique_ptr<Page>> pages_;
    std::vector<SheetColumn> columns_;
    SheetColumn otherColumns_;
    StyleId style_ = 0;
};

}  // namespace planview::xlsx
