// SPDX-License-Identifier: MIT
#include "grid/PendingCells.h"

#include <string>

#include "grid/CellIndex.h"
#include "grid/CellText.h"

namespace planview {

namespace {

/// The columns or rows of the positions that were asked for: the cells of a block share them.
template <class Id>
class KnownPositions {
public:
    template <class FindByPosition>
    std::optional<Id> Find(std::int16_t position, const FindByPosition& find) {
        if (position < 0) {
            return std::nullopt;
        }
        const auto index = static_cast<std::size_t>(position);
        if (index >= known_.size()) {
            known_.resize(index + 1);
        }
        Known& known = known_[index];
        if (!known.asked) {
            known = {true, find(position)};
        }
        return known.id;
    }

private:
    struct Known {
        bool asked = false;
        std::optional<Id> id;
    };
    std::vector<Known> known_;
};

}  // namespace

// Nothing here writes to the trace: the pending cells are counted after every change, and what is counted would push
// what happened out of it.
std::vector<Cell> PendingCells(const GridControl& grid, const HostTable& tabOld) {
    std::vector<Cell> pending;
    if (!tabOld.IsSet()) {
        return pending;
    }
    KnownPositions<ColumnId> columns;
    KnownPositions<RowId> rows;
    const int count = tabOld.RowCount();
    CellIndex seen;
    seen.Reserve(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) {
        const auto tableRow = static_cast<HostTable::Row>(i);
        const std::int16_t row = tabOld.Int16(tableRow, "Z");
        const std::int16_t column = tabOld.Int16(tableRow, "C");
        if (!seen.Add({row, column}, tableRow)) {
            continue;
        }
        const auto columnId =
            columns.Find(column, [&](std::int16_t at) { return grid.FindColumn("COL" + std::to_string(at)); });
        const auto rowId = rows.Find(row, [&](std::int16_t at) { return grid.FindRow("ROW" + std::to_string(at)); });
        if (columnId && rowId && QuietCellText(tabOld.Value(tableRow, "V")) != grid.Contents({*columnId, *rowId})) {
            pending.push_back({*columnId, *rowId});
        }
    }
    return pending;
}

}  // namespace planview
