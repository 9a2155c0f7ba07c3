// SPDX-License-Identifier: MIT
#pragma once

#include "automation/HostTable.h"
#include "components/GridControl.h"
#include "grid/CurrentKeys.h"

namespace planview {

/// Hides or shows every row of LINE_INDEX whose `ROW_MARKED` is "X": in the table, in the grid, and with one entry per
/// row under this method. The grid is redrawn once, also when no row is marked.
void HideMarkedRows(HostTable lineIndex, GridControl& grid, CurrentKeys& keys);
void ShowMarkedRows(HostTable lineIndex, GridControl& grid, CurrentKeys& keys);

}  // namespace planview
