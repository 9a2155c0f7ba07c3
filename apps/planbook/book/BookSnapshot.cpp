// SPDX-License-Identifier: MIT
#include "book/BookSnapshot.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include <planview/AutomationObject.h>

#include "book/CellValue.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

// The fields of TAB and TAB_OLD in the schema's order.
constexpr std::size_t RowField = 0;
constexpr std::size_t ColumnField = 1;
constexpr std::size_t ValueField = 2;

constexpr std::array<std::string_view, 5> ViewFields = {"GRID_ID", "FIRST_COL", "FIRST_ROW", "COL_MARKED",
                                                        "ROW_MARKED"};

bool HoldsCells(BookTable table) noexcept {
    return table == BookTable::Tab || table == BookTable::TabOld;
}

/// No value where Z and C are no position.
std::optional<CellPosition> PositionOf(const BookRow& row) {
    try {
        return CellPosition{row[RowField].AsInt16(), row[ColumnField].AsInt16()};
    } catch (const planview::AutomationError&) {
        return std::nullopt;
    }
}

BookRow RowOf(const MemoryTable& table, std::int32_t number, const TableDescription& description) {
    BookRow row;
    row.reserve(description.fields.size());
    for (const FieldDescription& field : description.fields) {
        row.push_back(table.Value(number, field.name));
    }
    return row;
}

/// The fields of the rows that both have in which they differ.
std::vector<FieldEdit> Differences(const BookRows& before, const MemoryTable& table,
                                   const TableDescription& description) {
    std::vector<FieldEdit> edits;
    for (std::size_t row = 0; row < before.size(); ++row) {
        for (std::size_t field = 0; field < description.fields.size(); ++field) {
            const Variant& now = table.Value(static_cast<std::int32_t>(row) + 1, description.fields[field].name);
            if (!StoredAlike(before[row][field], now)) {
                edits.push_back({row, field, now});
            }
        }
    }
    return edits;
}

bool CellsKeptTheirPlaces(const std::vector<FieldEdit>& edits) {
    return std::all_of(edits.begin(), edits.end(), [](const FieldEdit& edit) { return edit.field == ValueField; });
}

void AddCellChanges(const BookRows& before, const MemoryTable& table, const TableDescription& description,
                    const std::vector<FieldEdit>& edits, BookChanges& changes) {
    for (const FieldEdit& edit : edits) {
        const std::optional<CellPosition> cell = PositionOf(before[edit.row]);
        // An old value that is there stays as it is in the file.
        if (cell && description.table == BookTable::Tab) {
            changes.cells.push_back({*cell, before[edit.row][ValueField], edit.after});
        }
    }
    for (auto row = static_cast<std::int32_t>(before.size()) + 1; row <= table.RowCount(); ++row) {
        const BookRow added = RowOf(table, row, description);
        const std::optional<CellPosition> cell = PositionOf(added);
        if (cell && description.table == BookTable::Tab) {
            changes.cells.push_back({*cell, Variant(), added[ValueField]});
        } else if (cell) {
            changes.oldValues.push_back({*cell, added[ValueField]});
        }
    }
}

}  // namespace

BookRows RowsOf(const MemoryTable& table, const TableDescription& description) {
    BookRows rows;
    rows.reserve(static_cast<std::size_t>(table.RowCount()));
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        rows.push_back(RowOf(table, row, description));
    }
    return rows;
}

BookSnapshot::BookSnapshot(const Book& book) {
    for (const TableDescription& description : BookSchema()) {
        Rows(description.table) = RowsOf(book[description.table], description);
    }
    BuildIndex(BookTable::Tab);
    BuildIndex(BookTable::TabOld);
}

BookChanges BookSnapshot::ChangesIn(const Book& book) const {
    BookChanges changes;
    for (const TableDescription& description : BookSchema()) {
        const MemoryTable& table = book[description.table];
        const BookRows& before = Rows(description.table);
        const auto count = static_cast<std::size_t>(table.RowCount());
        if (!HoldsCells(description.table)) {
            if (std::optional<TableEdits> edits = EditsOf(book, description.table)) {
                changes.tables.push_back(std::move(*edits));
            }
            continue;
        }
        if (count >= before.size()) {
            const std::vector<FieldEdit> edits = Differences(before, table, description);
            if (CellsKeptTheirPlaces(edits)) {
                AddCellChanges(before, table, description, edits, changes);
                continue;
            }
        }
        changes.tables.push_back({description.table, before.size(), {}, RowsOf(table, description)});
    }
    return changes;
}

std::optional<TableEdits> BookSnapshot::EditsOf(const Book& book, BookTable which) const {
    const TableDescription& description = Describe(which);
    const MemoryTable& table = book[which];
    const BookRows& before = Rows(which);
    if (static_cast<std::size_t>(table.RowCount()) != before.size()) {
        return TableEdits{which, before.size(), {}, RowsOf(table, description)};
    }
    std::vector<FieldEdit> edits = Differences(before, table, description);
    return edits.empty() ? std::nullopt
                         : std::optional(TableEdits{which, before.size(), std::move(edits), std::nullopt});
}

void BookSnapshot::Apply(const BookChanges& changes) {
    for (const CellEdit& edit : changes.cells) {
        const auto found = tabIndex_.find(edit.cell);
        if (found != tabIndex_.end()) {
            Rows(BookTable::Tab)[found->second][ValueField] = edit.after;
        } else {
            AddCell(BookTable::Tab, edit.cell, edit.after);
        }
    }
    for (const OldValue& old : changes.oldValues) {
        if (tabOldIndex_.find(old.cell) == tabOldIndex_.end()) {
            AddCell(BookTable::TabOld, old.cell, old.value);
        }
    }
    for (const TableEdits& edits : changes.tables) {
        BookRows& rows = Rows(edits.table);
        if (edits.allRows) {
            rows = *edits.allRows;
            if (HoldsCells(edits.table)) {
                BuildIndex(edits.table);
            }
        }
        for (const FieldEdit& edit : edits.fields) {
            rows[edit.row][edit.field] = edit.after;
        }
    }
}

void BookSnapshot::ForgetOldValues() noexcept {
    Rows(BookTable::TabOld).clear();
    tabOldIndex_.clear();
}

void BookSnapshot::PutInto(const Book& book) const {
    for (const BookTable which : AllBookTables()) {
        MemoryTable& table = book[which];
        table.Clear();
        for (const BookRow& row : Rows(which)) {
            table.AddRow(row);
        }
    }
}

Variant BookSnapshot::ValueOf(CellPosition cell) const {
    const auto found = tabIndex_.find(cell);
    return found == tabIndex_.end() ? Variant() : Rows(BookTable::Tab)[found->second][ValueField];
}

std::size_t BookSnapshot::PositionHash::operator()(CellPosition position) const noexcept {
    constexpr std::uint32_t BitsPerPosition = 16;
    return static_cast<std::uint32_t>(position.row) << BitsPerPosition ^ static_cast<std::uint32_t>(position.column);
}

void BookSnapshot::BuildIndex(BookTable table) {
    CellIndex& index = IndexOf(table);
    index.clear();
    const BookRows& rows = Rows(table);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (const std::optional<CellPosition> cell = PositionOf(rows[row])) {
            index.emplace(*cell, row);
        }
    }
}

void BookSnapshot::AddCell(BookTable table, CellPosition cell, const Variant& value) {
    IndexOf(table).emplace(cell, Rows(table).size());
    Rows(table).push_back({cell.row, cell.column, value});
}

}  // namespace planbook
