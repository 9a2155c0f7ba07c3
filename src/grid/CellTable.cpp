// SPDX-License-Identifier: MIT
#include "grid/CellTable.h"

#include <utility>

namespace planview {

CellTable::CellTable(HostTable table, Lookup lookup) : table_(std::move(table)), lookup_(lookup) {
    if (lookup_ != Lookup::Walk) {
        BuildIndex();
    }
}

void CellTable::UseIndex(bool isHeard) {
    if (lookup_ == Lookup::Walk) {
        lookup_ = isHeard ? Lookup::IndexedWatched : Lookup::Indexed;
        BuildIndex();
    }
}

HostTable::Row CellTable::Find(std::int16_t row, std::int16_t column) {
    if (lookup_ == Lookup::Walk) {
        return FirstMatch(row, column);
    }
    const HostTable::Row found = IndexedRow({row, column});
    if (lookup_ == Lookup::Indexed || (table_.RowCount() == indexedRows_ && (found == 0 || IsAt(found, row, column)))) {
        return found;
    }
    BuildIndex();
    return IndexedRow({row, column});
}

HostTable::Row CellTable::IndexedRow(CellPosition position) const {
    const HostTable::Row* const found = index_.Find(position);
    return found ? *found : HostTable::Row{0};
}

HostTable::Row CellTable::FirstMatch(std::int16_t row, std::int16_t column) const {
    const int count = table_.RowCount();
    for (int i = 1; i <= count; ++i) {
        const auto tableRow = static_cast<HostTable::Row>(i);
        if (IsAt(tableRow, row, column)) {
            return tableRow;
        }
    }
    return 0;
}

bool CellTable::IsAt(HostTable::Row tableRow, std::int16_t row, std::int16_t column) const {
    return table_.Int16(tableRow, "Z") == row && table_.Int16(tableRow, "C") == column;
}

void CellTable::Add(std::int16_t row, std::int16_t column, const Variant& value) {
    if (!rows_) {
        rows_ = table_.Rows();
    }
    const HostTable::Row tableRow = table_.AddRow(rows_);
    table_.Put(tableRow, "Z", row);
    table_.Put(tableRow, "C", column);
    table_.Put(tableRow, "V", value);
    if (lookup_ != Lookup::Walk) {
        index_.Add({row, column}, tableRow);
        indexedRows_ = tableRow;
    }
}

void CellTable::BuildIndex() {
    const int count = table_.RowCount();
    indexedRows_ = count;
    index_.Clear();
    index_.Reserve(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) {
        const auto tableRow = static_cast<HostTable::Row>(i);
        index_.Add({table_.Int16(tableRow, "Z"), table_.Int16(tableRow, "C")}, tableRow);
    }
}

}  // namespace planview
