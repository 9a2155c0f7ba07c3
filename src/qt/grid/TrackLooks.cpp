// SPDX-License-Identifier: MIT
#include "qt/grid/TrackLooks.h"

#include <algorithm>

namespace planview {

namespace {

using Area = AxisLayout::Area;

/// How many columns are checked to see whether a bottom row holds sums.
constexpr std::size_t SampledColumns = 64;

bool sumsUp(const GridControl& grid, RowId row, std::span<const AxisItem> columns) {
    for (const AxisItem& column : columns.first(std::min(columns.size(), SampledColumns))) {
        const Cell cell{ColumnId{column.track}, row};
        if (!grid.Contents(cell).empty()) {
            return grid.Number(cell, grid.Look(cell)).has_value();
        }
    }
    return false;
}

void describeRow(const GridControl& grid, const GridColors& colors, std::span<const AxisItem> columns, RowId row,
                 TrackLook& trackLook) {
    if (columns.empty()) {
        return;
    }
    if (trackLook.area == Area::Trailing) {
        trackLook.sums = sumsUp(grid, row, columns);
    } else if (trackLook.area == Area::Center) {
        const CellLook look = grid.Look({ColumnId{columns.front().track}, row});
        trackLook.helpLine = look.helpLine;
        trackLook.readOnly = look.readOnly && colors.isReadOnlyPair(look.background, look.foreground);
    }
}

std::vector<TrackLook> describe(const GridControl& grid, const GridColors& colors, const GridAxis& axis,
                                const GridAxis& across) {
    std::vector<TrackLook> result;
    result.reserve(axis.tracks().size());
    const bool columns = axis.showsColumns();
    const GridSelection& selection = grid.Selection();
    for (const GridTrack& track : axis.tracks()) {
        TrackLook trackLook;
        trackLook.area = track.area;
        trackLook.order = trackOrder(grid, columns, track.id);
        trackLook.heading = &track == axis.heading();
        if (columns) {
            trackLook.touched = selection.TouchesColumn(ColumnId{track.id}, trackLook.order);
        } else {
            trackLook.touched = selection.TouchesRow(RowId{track.id}, trackLook.order);
            describeRow(grid, colors, across.layout().Items(Area::Center), RowId{track.id}, trackLook);
        }
        trackLook.hidden = hiddenBeside(grid, axis, track);
        result.push_back(trackLook);
    }
    return result;
}

}  // namespace

int trackOrder(const GridControl& grid, bool column, std::int32_t id) {
    return column ? grid.OrderOf(ColumnId{id}) : grid.OrderOf(RowId{id});
}

TrackLooks::TrackLooks(const GridControl& grid, const GridColors& colors, const GridGeometry& geometry)
    : horizontal(describe(grid, colors, geometry.horizontal, geometry.vertical)),
      vertical(describe(grid, colors, geometry.vertical, geometry.horizontal)) {}

}  // namespace planview
