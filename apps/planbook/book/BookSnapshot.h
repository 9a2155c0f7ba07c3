// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <unordered_map>

#include <planview/Variant.h>

#include "book/Book.h"
#include "book/BookChanges.h"

namespace planbook {

[[nodiscard]] BookRows RowsOf(const planview::MemoryTable& table, const TableDescription& description);

/// What the book file held when its tables were last read or written, to tell what has changed in them since.
class BookSnapshot {
public:
    BookSnapshot() = default;
    explicit BookSnapshot(const Book& book);

    [[nodiscard]] BookChanges ChangesIn(const Book& book) const;
    /// The same of one table, other than TAB and TAB_OLD, alone.
    [[nodiscard]] std::optional<TableEdits> EditsOf(const Book& book, BookTable which) const;
    /// The changes have been written to the file.
    void Apply(const BookChanges& changes);
    /// TAB_OLD has been emptied in the file.
    void ForgetOldValues() noexcept;
    /// Gives the tables the rows kept here.
    void PutInto(const Book& book) const;

    /// The value of a cell of TAB; Empty when there is no row for it.
    [[nodiscard]] planview::Variant ValueOf(CellPosition cell) const;

private:
    struct PositionHash {
        std::size_t operator()(CellPosition position) const noexcept;
    };
    /// The first row of each cell, from 0.
    using CellIndex = std::unordered_map<CellPosition, std::size_t, PositionHash>;

    [[nodiscard]] BookRows& Rows(BookTable table) noexcept { return rows_[static_cast<std::size_t>(table)]; }
    [[nodiscard]] const BookRows& Rows(BookTable table) const noexcept {
        return rows_[static_cast<std::size_t>(table)];
    }
    [[nodiscard]] CellIndex& IndexOf(BookTable table) noexcept {
        return table == BookTable::Tab ? tabIndex_ : tabOldIndex_;
    }
    void BuildIndex(BookTable table);
    void AddCell(BookTable table, CellPosition cell, const planview::Variant& value);

    std::array<BookRows, BookTableCount> rows_;
    CellIndex tabIndex_;
    CellIndex tabOldIndex_;
};

}  // namespace planbook
