// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <planview/Variant.h>

#include "book/BookSchema.h"

namespace planbook {

/// The values of one row in the order of the schema's fields.
using BookRow = std::vector<planview::Variant>;
using BookRows = std::vector<BookRow>;

/// A planning cell by the fields `Z` and `C` of TAB and TAB_OLD.
struct CellPosition {
    std::int32_t row = 0;
    std::int32_t column = 0;
    friend auto operator<=>(const CellPosition&, const CellPosition&) = default;
};

/// A new value in the first row of TAB that has this position, or in a new row.
struct CellEdit {
    CellPosition cell;
    planview::Variant before;  ///< what was last read or written here
    planview::Variant after;
    /// A formula has computed it. What is in the file gives way then: nobody has entered it.
    bool computed = false;
};

/// A cell's value before its first change; kept unless TAB_OLD has a row for the cell.
struct OldValue {
    CellPosition cell;
    planview::Variant value;
};

struct FieldEdit {
    std::size_t row;  ///< from 0, in the order of the rows
    std::size_t field;
    planview::Variant after;
};

/// Changes in a table other than TAB and TAB_OLD.
struct TableEdits {
    BookTable table;
    std::size_t rowCount = 0;  ///< of the table when it was last read
    std::vector<FieldEdit> fields;
    std::optional<BookRows> allRows;  ///< in the place of `fields`, when rows came or went
};

struct BookChanges {
    std::vector<CellEdit> cells;
    std::vector<OldValue> oldValues;
    std::vector<TableEdits> tables;

    [[nodiscard]] bool IsEmpty() const noexcept { return cells.empty() && oldValues.empty() && tables.empty(); }
};

/// A cell that somebody else has changed since this window last read it, so that writing it would lose their value.
struct CellConflict {
    CellPosition cell;
    planview::Variant mine;
    planview::Variant theirs;
};

}  // namespace planbook
