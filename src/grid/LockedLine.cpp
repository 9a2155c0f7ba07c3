// SPDX-License-Identifier: MIT
#include "grid/LockedLine.h"

#include "grid/LoaderSupport.h"

namespace planview {

bool IsLockedLine(const HostTable& lineIndex, HostTable::Row row) {
    return lineIndex.Flag(row, "READONLY") && !lineIndex.Flag(row, "ROW_TEXT");
}

void ShowLocked(modGrid& driver, CellKeyView row) {
    driver.BackgroundColor(row, modGrid::ReadOnlyBackground, NoRedraw);
    driver.ForegroundColor(row, modGrid::ReadOnlyForeground, NoRedraw);
}

}  // namespace planview
