// SPDX-License-Identifier: MIT
#include "grid/MarkedRows.h"

#include "grid/LoaderSupport.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

void SetMarkedRowsHidden(const HostTable& lineIndex, modGrid& driver, CurrentKeys& keys, bool hidden) {
    const modGrid::RedrawAtEnd redraw(driver);
    ForEachRow(lineIndex, [&](HostTable::Row i) {
        if (!lineIndex.Flag(i, "ROW_MARKED")) {
            return;
        }
        keys.column.clear();
        keys.row = lineIndex.Text(i, "GRID_ID");
        lineIndex.PutFlag(i, "ROW_HIDDEN", hidden);
        if (modPlan::TraceEnabled) {
            modPlan::TraceWrite("GRIDCTL", "", hidden ? "MarkedRowsHide" : "MarkedRowsShow",
                                TraceText("{cid: ", keys.column, " - rid: ", keys.row, "}"));
        }
        if (!keys.row.empty()) {  // before a build a row has no key yet; the build then reads the field
            driver.CenterHidden({{}, keys.row}, hidden, NoRedraw);
        }
    });
}

}  // namespace

void HideMarkedRows(const HostTable lineIndex, modGrid& driver, CurrentKeys& keys) {
    SetMarkedRowsHidden(lineIndex, driver, keys, true);
}

void ShowMarkedRows(const HostTable lineIndex, modGrid& driver, CurrentKeys& keys) {
    SetMarkedRowsHidden(lineIndex, driver, keys, false);
}

}  // namespace planview
