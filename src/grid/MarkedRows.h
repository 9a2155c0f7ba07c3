// SPDX-License-Identifier: MIT
#pragma once

#include "automation/HostTable.h"
#include "grid/CurrentKeys.h"
#include "grid/modGrid.h"

namespace planview {

/// Hides or shows every row of LINE_INDEX whose `ROW_MARKED` is "X": in the table, in the grid, and with one entry per
/// row under this method. The grid is redrawn once, also when no row is marked.
void HideMarkedRows(HostTable lineIndex, modGrid& driver, CurrentKeys& keys);
void ShowMarkedRows(HostTable lineIndex, modGrid& driver, CurrentKeys& keys);

}  // namespace planview
