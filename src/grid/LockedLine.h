// SPDX-License-Identifier: MIT
#pragma once

#include "automation/HostTable.h"
#include "grid/modGrid.h"

namespace planview {

/// Whether a row of LINE_INDEX is a line that only shows planning values.
[[nodiscard]] bool IsLockedLine(const HostTable& lineIndex, HostTable::Row row);

/// Gives the row the colours of what cannot be edited; they take the place of its own until it is built unlocked.
void ShowLocked(modGrid& driver, CellKeyView row);

}  // namespace planview
