// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <cstdint>

#include "qt/grid/GridGeometry.h"

namespace planview {

/// What lies under a point of the grid.
struct GridHit {
    enum class Place { Nothing, Corner, TopHeading, LeftHeading, Cell };
    enum class Border { None, Horizontal, Vertical };

    Place place = Place::Nothing;
    std::int32_t horizontal = -1;  ///< the track under the point on each axis
    std::int32_t vertical = -1;

    /// The heading border under the point: that of a track of the horizontal or the vertical axis.
    Border border = Border::None;
    std::int32_t borderTrack = -1;
    /// 1 where dragging towards the end of the axis makes the track larger, else -1.
    int borderDirection = 1;

    /// `point` in paint pixels.
    [[nodiscard]] static GridHit test(const GridGeometry& geometry, QPoint point);
};

}  // namespace planview
