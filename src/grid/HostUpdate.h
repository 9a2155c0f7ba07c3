// SPDX-License-Identifier: MIT
#pragma once

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/GridControl.h"

namespace planview {

/// Tells the host that it is to read its tables again. Before each event the positions of the grid's first visible
/// column and row are written into `FIRST_COL` and `FIRST_ROW` of GRID_ATTR, when that table is set; the host hears of
/// it whatever the table does with them.
class HostUpdate {
public:
    HostUpdate(const GridControl& grid, const TableSlots& tables, EventSource& events)
        : grid_(grid), tables_(tables), events_(events) {}

    /// Raises `GridStartUpdate`.
    void StartUpdate();
    /// Raises `GridReturnKeyPressed`.
    void ReturnKeyPressed();

private:
    void WriteFirstColumnAndRow();

    const GridControl& grid_;
    const TableSlots& tables_;
    EventSource& events_;
};

}  // namespace planview
