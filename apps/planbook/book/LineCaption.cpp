// SPDX-License-Identifier: MIT
#include "book/LineCaption.h"

#include "book/CellValue.h"

namespace planbook {

using planview::MemoryTable;

namespace {

/// The row whose number field holds `number`; 0 when there is none.
std::int32_t RowOf(const MemoryTable& table, std::string_view field, std::int32_t number) {
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        if (NumberOf(table.Value(row, field)) == number) {
            return row;
        }
    }
    return 0;
}

std::string WithoutIndent(const std::string& text) {
    const std::size_t start = text.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : text.substr(start);
}

}  // namespace

std::string LineCaption(const MemoryTable& lineIndex, std::int32_t row) {
    const std::string kind = lineIndex.Value(row, "LTEXT").AsText();
    const char* field = kind == "F" || kind == "T" ? "FREET" : kind == "P" ? "PLOBT" : "DDICT";
    return WithoutIndent(lineIndex.Value(row, field).AsText());
}

std::string CellName(const Book& book, CellPosition cell) {
    const MemoryTable& lines = book[BookTable::LineIndex];
    const MemoryTable& periods = book[BookTable::ColsIndex];
    const std::int32_t line = RowOf(lines, "LINE", cell.row);
    const std::int32_t period = RowOf(periods, "COLUMN", cell.column);
    const auto name = [](std::int32_t position, std::int32_t row, const char* fixed, const char* kind, auto&& text) {
        return position == 0 ? std::string(fixed) : row == 0 ? kind + std::to_string(position) : text(row);
    };
    return name(cell.row, line, "a fixed line", "line ", [&](std::int32_t row) { return LineCaption(lines, row); }) +
           ", " + name(cell.column, period, "a fixed column", "period ", [&](std::int32_t row) {
               return periods.Value(row, "PERDY").AsText();
           });
}

}  // namespace planbook
