#include "grid/ForecastLine.h"

namespace planview {

void ChooseForecastLine(HostTable lineIndex, std::string_view key) {
    const HostTable::Row row = lineIndex.FindRow("GRID_ID", key);
    if (row == 0) {
        return;
    }
    const bool becomesSales = lineIndex.Text(row, "SHOW_CHART") == "F" || lineIndex.FindRow("SHOW_CHART", "S") == 0;
    lineIndex.Put(row, "SHOW_CHART", becomesSales ? "S" : "F");
}

}  // namespace planview
