// SPDX-License-Identifier: MIT
#include "book/FixedCell.h"

#include <charconv>
#include <cstdint>
#include <string>

#include "book/CellValue.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

// Palette indices and the alignment code of a cell that nobody has given a look.
constexpr std::int32_t White = 0;
constexpr std::int32_t Black = 1;
constexpr std::int32_t AlignLeft = 1;

/// "FLC2" is 2 and "L", "ROW5" is 5 and "".
struct FixedPlace {
    std::int32_t number = 0;
    std::string side;
};

FixedPlace PlaceOf(std::string_view key) {
    constexpr std::size_t PrefixLength = 3;
    FixedPlace place;
    if (key.size() > PrefixLength) {
        std::from_chars(key.data() + PrefixLength, key.data() + key.size(), place.number);
        place.side = key.front() == 'F' ? key.substr(1, 1) : std::string_view();
    }
    return place;
}

/// A side that is none of the fixed ones means the planning area.
bool IsAt(const MemoryTable& table, std::int32_t row, std::string_view numberField, std::string_view sideField,
          const FixedPlace& place, std::string_view sides) {
    const std::string side = table.Value(row, sideField).AsText();
    const bool fixed = side.size() == 1 && sides.find(side) != std::string_view::npos;
    return NumberOf(table.Value(row, numberField)) == place.number && (fixed ? side : std::string()) == place.side;
}

}  // namespace

bool IsFixedCell(std::string_view columnKey, std::string_view rowKey) noexcept {
    return columnKey.starts_with('F') || rowKey.starts_with('F');
}

void PutFixedCell(const Book& book, std::string_view columnKey, std::string_view rowKey, const Variant& value) {
    MemoryTable& table = book[BookTable::FixedTab];
    const FixedPlace column = PlaceOf(columnKey);
    const FixedPlace line = PlaceOf(rowKey);
    // The view reads the rows one after the other, so that of several for a cell the last one shows.
    for (std::int32_t row = table.RowCount(); row >= 1; --row) {
        if (IsAt(table, row, "COLUMN", "FLG_COL_FIX", column, "LR") &&
            IsAt(table, row, "LINE", "FLG_LINE_FIX", line, "TB")) {
            table.SetValue(row, "VALUE", value);
            return;
        }
    }
    table.AddRowWith({{"COLUMN", column.number},
                      {"FLG_COL_FIX", column.side},
                      {"LINE", line.number},
                      {"FLG_LINE_FIX", line.side},
                      {"VALUE", value},
                      {"BGCOLOR", White},
                      {"FGCOLOR", Black},
                      {"TEXTALIGN", AlignLeft}});
}

}  // namespace planbook
