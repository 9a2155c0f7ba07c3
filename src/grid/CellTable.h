// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "automation/HostTable.h"
#include "grid/CellIndex.h"

namespace planview {

/// TAB or TAB_OLD by cells: finds the first row whose `Z` and `C` match.
///
/// One search walks the table. For the length of a bulk change an index over the rows can be kept; it is dropped with
/// the object, because between user actions the host may change its tables at will. Should it do so in between, the
/// index is built anew.
class CellTable {
public:
    enum class Lookup {
        Walk,
        Indexed,        ///< for an action in which the host hears nothing
        IndexedWatched  ///< for one in which it may change the rows at every value that it hears of
    };

    CellTable(HostTable table, Lookup lookup);

    /// From now on as Indexed, or as IndexedWatched where the host hears of values.
    void UseIndex(bool isHeard);
    /// The first row of the cell, 0 when there is none.
    [[nodiscard]] HostTable::Row Find(std::int16_t row, std::int16_t column);
    [[nodiscard]] Variant Value(HostTable::Row tableRow) const { return table_.Value(tableRow, "V"); }
    void SetValue(HostTable::Row tableRow, const Variant& value) const { table_.Put(tableRow, "V", value); }
    /// Appends a row for the cell.
    void Add(std::int16_t row, std::int16_t column, const Variant& value);

private:
    void BuildIndex();
    [[nodiscard]] HostTable::Row IndexedRow(CellPosition position) const;
    [[nodiscard]] HostTable::Row FirstMatch(std::int16_t row, std::int16_t column) const;
    [[nodiscard]] bool IsAt(HostTable::Row tableRow, std::int16_t row, std::int16_t column) const;

    HostTable table_;
    Lookup lookup_;
    int indexedRows_ = 0;
    CellIndex index_;
    ObjectRef rows_;  // once a row has been added
};

}  // namespace planview
