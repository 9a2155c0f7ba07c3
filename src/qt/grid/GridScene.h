// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QColor>
#include <string>
#include <unordered_map>

#include "components/GridControl.h"
#include "qt/grid/GridBitmaps.h"
#include "qt/grid/GridFonts.h"
#include "qt/grid/GridGeometry.h"
#include "qt/grid/GridTheme.h"
#include "qt/grid/PendingMarks.h"

namespace planview {

/// A dot before the label of a row; with a letter in it where it says what the row is for.
struct RowDot {
    QRgb color = 0;
    QChar letter;
    friend bool operator==(const RowDot&, const RowDot&) = default;
};

/// The rows that carry a dot, by key.
using RowDots = std::unordered_map<std::string, RowDot>;

/// All that a picture of the grid is made from. No widget is involved, so that screen, print and files share the
/// painter.
struct GridScene {
    const GridControl& grid;
    const GridGeometry& geometry;
    GridTheme theme;
    GridFonts& fonts;  ///< made for the geometry's unit
    GridBitmaps& bitmaps;
    const PendingMarks& pending;
    const RowDots& dots;
    bool framed = true;   ///< the current cell has its frame
    bool focused = true;  ///< the current cell's frame is muted while the grid does not have the focus
};

}  // namespace planview
