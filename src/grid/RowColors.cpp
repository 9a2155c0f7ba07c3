// SPDX-License-Identifier: MIT
#include "grid/RowColors.h"

#include "grid/IndexAxis.h"
#include "grid/LoaderSupport.h"
#include "grid/Selection.h"

namespace planview {

bool ColorSelectedRows(HostTable lineIndex, modGrid& driver, RowColor which, std::int16_t color) {
    const bool background = which == RowColor::Background;
    ForEachRow(lineIndex, [&](HostTable::Row i) {
        if (driver.HeadingSelected(RowAxis.KeysOf(lineIndex.Text(i, "GRID_ID"))) == 1) {
            lineIndex.Put(i, background ? "ROW_BG" : "ROW_FG", color);
        }
    });
    const bool done = background ? RowBgColor(lineIndex, driver) : RowFgColor(lineIndex, driver);
    driver.Grid().Redraw();
    return done;
}

}  // namespace planview
