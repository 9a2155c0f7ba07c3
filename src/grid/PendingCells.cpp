#include "grid/PendingCells.h"

#include "grid/CellIndex.h"
#include "grid/CellText.h"
#include "grid/modGrid.h"

namespace planview {

std::vector<Cell> PendingCells(const GridControl& grid, const HostTable& tabOld) {
    std::vector<Cell> pending;
    if (!tabOld.IsSet()) {
        return pending;
    }
    const int count = tabOld.RowCount();
    CellIndex seen;
    seen.Reset(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) {
        const auto tableRow = static_cast<HostTable::Row>(i);
        const std::int16_t row = tabOld.Int16(tableRow, "Z");
        const std::int16_t column = tabOld.Int16(tableRow, "C");
        const bool first = seen.Add(row, column, tableRow);
        const std::optional<Cell> cell =
            first ? grid.FindCell({modGrid::ColumnKey(column, ""), modGrid::RowKey(row, "")}) : std::nullopt;
        if (cell && CellText(tabOld.Value(tableRow, "V")) != grid.Contents(*cell)) {
            pending.push_back(*cell);
        }
    }
    return pending;
}

}  // namespace planview
