// SPDX-License-Identifier: MIT
#include "grid/HostUpdate.h"

#include "grid/modGrid.h"
#include "trace/modPlan.h"

namespace planview {

void HostUpdate::StartUpdate() {
    WriteFirstColumnAndRow();
    events_.Raise(EventId::GridStartUpdate);
}

void HostUpdate::ReturnKeyPressed() {
    WriteFirstColumnAndRow();
    events_.Raise(EventId::GridReturnKeyPressed);
}

void HostUpdate::WriteFirstColumnAndRow() {
    constexpr HostTable::Row Row = 1;
    const HostTable gridAttr = tables_.GRID_ATTR;
    if (gridAttr.IsSet()) {
        const std::optional<ColumnId> column = grid_.FirstColumn();
        const std::optional<RowId> row = grid_.FirstRow();
        gridAttr.Put(Row, "FIRST_COL", modGrid::PositionOf(column ? grid_.Column(*column).key : ""));
        gridAttr.Put(Row, "FIRST_ROW", modGrid::PositionOf(row ? grid_.Row(*row).key : ""));
    }
    modPlan::TraceWrite("GRIDCTL", "", "Update Q/7 tables fired", "{}");
}

}  // namespace planview
