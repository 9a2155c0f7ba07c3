// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <planview/Export.h>

#include "components/chart/ChartPlot.h"

namespace planview {

/// Two heights, y downwards. What is drawn is cut to the plot's before it is drawn: a painter takes as long as a dashed
/// line or an area is high, seen or not, and drawings in files have no clip.
struct ChartHeights {
    double top = 0;
    double bottom = 0;
    [[nodiscard]] bool Contain(ChartPoint place) const noexcept { return place.y >= top && place.y <= bottom; }
};

/// The heights of a plot's area and a hair more, so that what lies on its border is inside.
[[nodiscard]] PLANVIEW_EXPORT ChartHeights HeightsOf(const ChartRect& area) noexcept;

/// The part of a segment between two heights; none where all of it lies on one side.
[[nodiscard]] PLANVIEW_EXPORT std::optional<std::pair<ChartPoint, ChartPoint>> SegmentBetween(
    ChartPoint from, ChartPoint to, ChartHeights heights) noexcept;

/// The parts of a line between two heights.
[[nodiscard]] PLANVIEW_EXPORT std::vector<std::vector<ChartPoint>> LineBetween(std::span<const ChartPoint> line,
                                                                               ChartHeights heights);

/// The part of an area between two heights, given and answered as its outline; empty where nothing is left.
[[nodiscard]] PLANVIEW_EXPORT std::vector<ChartPoint> AreaBetween(std::vector<ChartPoint> outline,
                                                                  ChartHeights heights);

}  // namespace planview
