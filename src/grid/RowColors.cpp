// SPDX-License-Identifier: MIT
#include "grid/RowColors.h"

#include "grid/IndexAxis.h"
#include "grid/LoaderSupport.h"
#include "grid/Selection.h"
#include "trace/ErrorTrap.h"

namespace planview {

bool ColorSelectedRows(HostTable lineIndex, modGrid& driver, RowColor which, std::int16_t color) {
    const bool background = which == RowColor::Background;
    ForEachRow(lineIndex, [&](HostTable::Row i) {
        if (driver.HeadingSelected(RowAxis.KeysOf(lineIndex.Text(i, "GRID_ID")))) {
            lineIndex.Put(i, background ? "ROW_BG" : "ROW_FG", color);
        }
    });
    const bool done = background ? RowBgColor(lineIndex, driver) : RowFgColor(lineIndex, driver);
    driver.Grid().Redraw();
    return done;
}

std::optional<std::int16_t> ColorOfSelectedRow(const HostTable& lineIndex, modGrid& driver, RowColor which) {
    std::optional<std::int16_t> color;
    ResumeNext([&] {
        const int count = lineIndex.RowCount();
        for (int i = 1; i <= count && !color; ++i) {
            const auto row = static_cast<HostTable::Row>(i);
            if (driver.HeadingSelected(RowAxis.KeysOf(lineIndex.Text(row, "GRID_ID")))) {
                color = lineIndex.Int16(row, which == RowColor::Background ? "ROW_BG" : "ROW_FG");
            }
        }
    });
    return color;
}

}  // namespace planview
