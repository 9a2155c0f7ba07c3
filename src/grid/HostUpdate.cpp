// SPDX-License-Identifier: MIT
#include "grid/HostUpdate.h"

#include "grid/GridSettings.h"
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
    const HostTable gridAttr = tables_.GRID_ATTR;
    const std::optional<ColumnId> column = grid_.FirstColumn();
    const std::optional<RowId> row = grid_.FirstRow();
    PutGridAttribute(gridAttr, "FIRST_COL", modGrid::PositionOf(column ? grid_.Column(*column).key : ""));
    PutGridAttribute(gridAttr, "FIRST_ROW", modGrid::PositionOf(row ? grid_.Row(*row).key : ""));
    modPlan::TraceWrite("GRIDCTL", "", "Update Q/7 tables fired", "{}");
}

}  // namespace planview
