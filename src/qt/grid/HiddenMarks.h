// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <cstdint>
#include <optional>

#include "components/GridControl.h"
#include "qt/grid/GridGeometry.h"

namespace planview {

/// On which sides of a visible column or row a mark says that hidden ones stand there.
struct HiddenBeside {
    bool before = false;
    /// Only of the last one of its area; elsewhere the next one carries the mark. The last one before a planning area
    /// that is hidden altogether carries the mark of that area.
    bool behind = false;
};
[[nodiscard]] HiddenBeside hiddenBeside(const GridControl& grid, const GridAxis& axis, const GridTrack& track);

/// A mark at a heading border.
struct HiddenMark {
    bool columns = true;      ///< hidden columns, else rows
    std::int32_t track = -1;  ///< the visible column or row beside it
    HiddenSide side = HiddenSide::Before;
};
/// The mark under a point of the headings, in paint pixels.
[[nodiscard]] std::optional<HiddenMark> hiddenMarkAt(const GridControl& grid, const GridGeometry& geometry,
                                                     QPoint point);

}  // namespace planview
