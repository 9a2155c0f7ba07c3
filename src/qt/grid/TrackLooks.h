// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "components/GridControl.h"
#include "qt/grid/GridColors.h"
#include "qt/grid/GridGeometry.h"
#include "qt/grid/HiddenMarks.h"

namespace planview {

/// What a column or row lends to the look of its cells.
struct TrackLook {
    AxisLayout::Area area = AxisLayout::Area::Center;
    int order = 0;         ///< see GridControl::OrderOf()
    bool heading = false;  ///< carries the headings of the other axis
    bool touched = false;  ///< the selection reaches into it
    HiddenBeside hidden;
    // Rows only.
    bool helpLine = false;
    bool readOnly = false;  ///< all its planning cells
    bool sums = false;      ///< a fixed row at the bottom that holds numbers
};

struct PlacedTrack {
    GridTrack track;
    TrackLook look;
};

/// The looks of the visible tracks of both axes, in the order of GridAxis::tracks().
struct TrackLooks {
    TrackLooks(const GridControl& grid, const GridColors& colors, const GridGeometry& geometry);

    std::vector<TrackLook> horizontal;
    std::vector<TrackLook> vertical;
};

/// The place of a column or row among all of its kind, hidden ones included.
[[nodiscard]] int trackOrder(const GridControl& grid, bool column, std::int32_t id);

}  // namespace planview
