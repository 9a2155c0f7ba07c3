// SPDX-License-Identifier: MIT
#include "qt/grid/GridLabelWidth.h"

#include <algorithm>
#include <cmath>

#include "components/GridControl.h"
#include "qt/grid/CellContentPainter.h"
#include "qt/grid/GridFonts.h"

namespace planview {

int widestLabel(const GridControl& grid, const QFont& family) {
    GridFonts fonts(family, 1.0);
    qreal widest = 0;
    const auto measure = [&](Cell cell, bool hidden) {
        if (hidden) {
            return;
        }
        const CellLook look = grid.Look(cell);
        // A heading may be painted bold.
        const qreal text = fonts.shaper(look.font, true, false).shape(grid.DisplayText(cell, look)).width;
        widest = std::max(widest, text + (look.bitmap ? BitmapPixels + BitmapGap : 0));
    };
    const auto label = grid.FindColumn(LabelColumnKey);
    const auto heading = grid.FindRow(HeadingRowKey);
    if (!label || !heading) {
        return DefaultLabelColumnWidth;
    }
    if (grid.Settings().switched) {
        for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
            for (const ColumnId column : grid.Columns(area)) {
                measure({column, *heading}, grid.Column(column).hidden);
            }
        }
    } else {
        for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
            for (const RowId row : grid.Rows(area)) {
                measure({*label, row}, grid.Row(row).hidden);
            }
        }
    }
    constexpr int Edge = 2;
    return std::min(static_cast<int>(std::ceil(widest)) + 2 * CellPadding + LabelIndent + Edge, MaxTrackSize);
}

}  // namespace planview
