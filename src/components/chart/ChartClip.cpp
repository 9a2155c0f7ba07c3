// SPDX-License-Identifier: MIT
#include "components/chart/ChartClip.h"

#include <algorithm>
#include <cstddef>

namespace planview {

namespace {

constexpr double Hair = 0.5;

/// Where the straight line through two points of different heights has a height.
ChartPoint AtHeight(ChartPoint from, ChartPoint to, double y) noexcept {
    return {from.x + (to.x - from.x) * ((y - from.y) / (to.y - from.y)), y};
}

/// The part of an area on the inner side of one height.
template <class IsInside>
std::vector<ChartPoint> CutAt(const std::vector<ChartPoint>& outline, double y, const IsInside& isInside) {
    std::vector<ChartPoint> kept;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const ChartPoint before = outline[i == 0 ? outline.size() - 1 : i - 1];
        const ChartPoint here = outline[i];
        if (isInside(before) != isInside(here)) {
            kept.push_back(AtHeight(before, here, y));
        }
        if (isInside(here)) {
            kept.push_back(here);
        }
    }
    return kept;
}

}  // namespace

ChartHeights HeightsOf(const ChartRect& area) noexcept {
    return {area.y - Hair, area.Bottom() + Hair};
}

std::optional<std::pair<ChartPoint, ChartPoint>> SegmentBetween(ChartPoint from, ChartPoint to,
                                                                ChartHeights heights) noexcept {
    if (std::max(from.y, to.y) < heights.top || std::min(from.y, to.y) > heights.bottom) {
        return std::nullopt;
    }
    const auto cut = [&](ChartPoint end) {
        return heights.Contain(end) ? end : AtHeight(from, to, std::clamp(end.y, heights.top, heights.bottom));
    };
    return std::pair{cut(from), cut(to)};
}

std::vector<std::vector<ChartPoint>> LineBetween(std::span<const ChartPoint> line, ChartHeights heights) {
    std::vector<std::vector<ChartPoint>> parts;
    bool open = false;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const auto segment = SegmentBetween(line[i - 1], line[i], heights);
        if (!segment) {
            open = false;
            continue;
        }
        if (!open) {
            parts.push_back({segment->first});
        }
        parts.back().push_back(segment->second);
        open = heights.Contain(line[i]);
    }
    return parts;
}

std::vector<ChartPoint> AreaBetween(std::vector<ChartPoint> outline, ChartHeights heights) {
    if (std::all_of(outline.begin(), outline.end(), [&](ChartPoint place) { return heights.Contain(place); })) {
        return outline;
    }
    const auto belowTop = [&](ChartPoint place) { return place.y >= heights.top; };
    const auto aboveBottom = [&](ChartPoint place) { return place.y <= heights.bottom; };
    return CutAt(CutAt(outline, heights.top, belowTop), heights.bottom, aboveBottom);
}

}  // namespace planview
