#include "grid/PendingCells.h"

#include <unordered_set>

#include "grid/CellText.h"
#include "grid/modGrid.h"

namespace planview {

std::vector<Cell> PendingCells(const GridControl& grid, const HostTable& tabOld) {
    std::vector<Cell> pending;
    if (!tabOld.IsSet()) {
        return pending;
    }
    std::unordered_set<std::int32_t> seen;
    const int count = tabOld.RowCount();
    for (int i = 1; i <= count; ++i) {
        const auto tableRow = static_cast<HostTable::Row>(i);
        const std::int16_t row = tabOld.Int16(tableRow, "Z");
        const std::int16_t column = tabOld.Int16(tableRow, "C");
        const bool first = seen.insert((std::int32_t{row} << 16) | static_cast<std::uint16_t>(column)).second;
        const std::optional<Cell> cell =
            first ? grid.FindCell({modGrid::ColumnKey(column, ""), modGrid::RowKey(row, "")}) : std::nullopt;
        if (cell && CellText(tabOld.Value(tableRow, "V")) != grid.Contents(*cell)) {
            pending.push_back(*cell);
        }
    }
    return pending;
}

}  // namespace planview
