// SPDX-License-Identifier: MIT
#include "grid/ForecastLine.h"

namespace planview {

void ChooseForecastLine(HostTable lineIndex, std::string_view key) {
    const HostTable::Row row = lineIndex.FindRow("GRID_ID", key);
    if (row == 0) {
        return;
    }
    const HostTable::Row sales = lineIndex.FindRow("SHOW_CHART", "S");
    const HostTable::Row forecast = lineIndex.FindRow("SHOW_CHART", "F");
    const bool becomesSales = sales == 0 || row == forecast;
    // Each mark stands once: the line that had it gets the other one where that is free, else none.
    const HostTable::Row before = becomesSales ? sales : forecast;
    const bool otherIsFree = row == (becomesSales ? forecast : sales);
    if (before != 0 && before != row) {
        lineIndex.Put(before, "SHOW_CHART", !otherIsFree ? "" : becomesSales ? "F" : "S");
    }
    lineIndex.Put(row, "SHOW_CHART", becomesSales ? "S" : "F");
}

}  // namespace planview
