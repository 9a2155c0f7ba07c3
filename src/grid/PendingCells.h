// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "automation/HostTable.h"
#include "components/GridControl.h"

namespace planview {

/// The planning cells that show another value than TAB_OLD keeps for them: what the user has changed and the host has
/// not taken over yet. The first row of a cell counts. Empty without the table.
[[nodiscard]] std::vector<Cell> PendingCells(const GridControl& grid, const HostTable& tabOld);

}  // namespace planview
