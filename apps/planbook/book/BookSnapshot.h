#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include <planview/Variant.h>

#include "book/Book.h"

namespace planbook {

/// The values of one row in the order of the schema's fields.
using BookRow = std::vector<planview::Variant>;
using BookRows = std::vector<BookRow>;

/// A planning cell by the fields `Z` and `C` of TAB and TAB_OLD.
struct CellPlace {
    std::int32_t row = 0;
    std::int32_t column = 0;
    friend bool operator==(const CellPlace&, const CellPlace&) = default;
};

/// A new value in the first row of TAB that has this place, or in a new row.
struct CellEdit {
    CellPlace cell;
    planview::Variant before;  ///< what was last read or written here
    planview::Variant after;
};

/// A cell's value before its first change; kept unless TAB_OLD has a row for the cell.
struct OldValue {
    CellPlace cell;
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
    /// Nothing but what is on screen and what is marked.
    [[nodiscard]] bool IsViewOnly() const noexcept;
};

[[nodiscard]] BookRows RowsOf(const planview::MemoryTable& table, const TableDescription& description);

/// What the book file held when its tables were last read or written, to tell what has changed in them since.
class BookSnapshot {
public:
    BookSnapshot() = default;
    explicit BookSnapshot(const Book& book);

    [[nodiscard]] BookChanges ChangesIn(const Book& book) const;
    /// The changes have been written to the file.
    void Apply(const BookChanges& changes);
    /// TAB_OLD has been emptied in the file.
    void ForgetOldValues() noexcept;
    /// Gives the tables the rows kept here.
    void PutInto(const Book& book) const;

    /// The value of a cell of TAB; Empty when there is no row for it.
    [[nodiscard]] planview::Variant ValueOf(CellPlace cell) const;

private:
    struct PlaceHash {
        std::size_t operator()(CellPlace place) const noexcept;
    };
    /// The first row of each cell, from 0.
    using CellIndex = std::unordered_map<CellPlace, std::size_t, PlaceHash>;

    [[nodiscard]] BookRows& Rows(BookTable table) noexcept { return rows_[static_cast<std::size_t>(table)]; }
    [[nodiscard]] const BookRows& Rows(BookTable table) const noexcept {
        return rows_[static_cast<std::size_t>(table)];
    }
    [[nodiscard]] CellIndex& IndexOf(BookTable table) noexcept {
        return table == BookTable::Tab ? tabIndex_ : tabOldIndex_;
    }
    void BuildIndex(BookTable table);
    void AddCell(BookTable table, CellPlace cell, const planview::Variant& value);

    std::array<BookRows, BookTableCount> rows_;
    CellIndex tabIndex_;
    CellIndex tabOldIndex_;
};

}  // namespace planbook
