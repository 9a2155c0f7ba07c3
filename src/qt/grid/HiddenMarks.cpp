// SPDX-License-Identifier: MIT
#include "qt/grid/HiddenMarks.h"

#include <cstdlib>
#include <utility>

#include "qt/grid/TrackLooks.h"

namespace planview {

namespace {

using Area = AxisLayout::Area;

/// How far from its border a mark can be hit, in logical pixels.
constexpr int MarkReach = 4;

/// The orders of all tracks of an area, hidden ones included, as a half-open range.
std::pair<int, int> areaOrders(const GridControl& grid, bool columns, Area area) {
    const auto range = [&](const auto& ids) {
        return ids.empty() ? std::pair(0, 0) : std::pair(grid.OrderOf(ids.front()), grid.OrderOf(ids.back()) + 1);
    };
    const auto index = static_cast<std::uint8_t>(area);
    return columns ? range(grid.Columns(static_cast<ColumnArea>(index)))
                   : range(grid.Rows(static_cast<RowArea>(index)));
}

bool isAllHidden(const GridControl& grid, const GridAxis& axis) {
    const auto [first, end] = areaOrders(grid, axis.showsColumns(), Area::Center);
    return end > first && axis.layout().Items(Area::Center).empty();
}

std::optional<HiddenMark> markOnAxis(const GridControl& grid, const GridAxis& axis, int position, int reach) {
    const auto isNear = [&](int border) { return std::abs(position - border) <= reach; };
    for (const GridTrack& track : axis.tracks()) {
        if (!isNear(track.start) && !isNear(track.end)) {
            continue;
        }
        const HiddenBeside hidden = hiddenBeside(grid, axis, track);
        if (hidden.before && isNear(track.start)) {
            return HiddenMark{axis.showsColumns(), track.id, HiddenSide::Before};
        }
        if (hidden.behind && isNear(track.end)) {
            return HiddenMark{axis.showsColumns(), track.id, HiddenSide::Behind};
        }
    }
    return std::nullopt;
}

}  // namespace

HiddenBeside hiddenBeside(const GridControl& grid, const GridAxis& axis, const GridTrack& track) {
    const bool columns = axis.showsColumns();
    const std::span<const AxisItem> items = axis.layout().Items(track.area);
    const auto [first, end] = areaOrders(grid, columns, track.area);
    const auto index = static_cast<std::size_t>(track.index);
    const int order = trackOrder(grid, columns, track.id);
    const int before = index > 0 ? trackOrder(grid, columns, items[index - 1].track) : first - 1;
    const bool isLast = index + 1 == items.size();
    const bool endsTheFixed = isLast && track.area == Area::Leading && isAllHidden(grid, axis);
    return {order - before > 1, endsTheFixed || (isLast && end - order > 1)};
}

std::optional<HiddenMark> hiddenMarkAt(const GridControl& grid, const GridGeometry& geometry, QPoint point) {
    const GridTrack* h = geometry.horizontal.at(point.x());
    const GridTrack* v = geometry.vertical.at(point.y());
    const int reach = geometry.pixels(MarkReach);
    std::optional<HiddenMark> mark;
    if (v && v == geometry.vertical.heading()) {
        mark = markOnAxis(grid, geometry.horizontal, point.x(), reach);
    }
    if (!mark && h && h == geometry.horizontal.heading()) {
        mark = markOnAxis(grid, geometry.vertical, point.y(), reach);
    }
    return mark;
}

}  // namespace planview
