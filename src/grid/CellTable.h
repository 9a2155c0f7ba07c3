#pragma once

#include <cstdint>
#include <unordered_map>

#include "automation/HostTable.h"

namespace planview {

/// TAB or TAB_OLD as a place of cells: finds the first row whose `Z` and `C` match.
///
/// One search walks the table. For the length of a bulk change an index over the rows can be kept; it is dropped with
/// the object, because between user actions the host may change its tables at will. Should it do so even in between,
/// when it hears of a value, the index is built anew.
class CellTable {
public:
    enum class Lookup { Walk, Indexed };

    CellTable(HostTable table, Lookup lookup);

    /// The first row of the cell, 0 when there is none.
    [[nodiscard]] HostTable::Row Find(std::int16_t row, std::int16_t column);
    [[nodiscard]] Variant Value(HostTable::Row tableRow) const { return table_.Value(tableRow, "V"); }
    void SetValue(HostTable::Row tableRow, const Variant& value) const { table_.Put(tableRow, "V", value); }
    /// Appends a row for the cell.
    void Add(std::int16_t row, std::int16_t column, const Variant& value);

private:
    [[nodiscard]] static std::uint32_t Key(std::int16_t row, std::int16_t column) noexcept {
        return static_cast<std::uint32_t>(static_cast<std::uint16_t>(row)) << 16U | static_cast<std::uint16_t>(column);
    }
    void BuildIndex();
    [[nodiscard]] HostTable::Row FirstMatch(std::int16_t row, std::int16_t column) const;
    [[nodiscard]] HostTable::Row InIndex(std::int16_t row, std::int16_t column) const;
    [[nodiscard]] bool IsAt(HostTable::Row tableRow, std::int16_t row, std::int16_t column) const;

    HostTable table_;
    bool indexed_;
    int indexedRows_ = 0;
    std::unordered_map<std::uint32_t, HostTable::Row> index_;
};

}  // namespace planview
