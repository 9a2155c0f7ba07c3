// SPDX-License-Identifier: MIT
#include "grid/TrackCaptions.h"

namespace planview {

TrackCaptions CaptionsOf(const GridControl& grid) {
    TrackCaptions captions;
    const std::optional<RowId> heading = grid.FindRow(HeadingRowKey);
    const std::optional<ColumnId> label = grid.FindColumn(LabelColumnKey);
    if (!heading || !label) {
        return captions;
    }
    for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
        for (const ColumnId column : grid.Columns(area)) {
            captions.emplace(grid.Column(column).key, grid.Contents({column, *heading}));
        }
    }
    for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
        for (const RowId row : grid.Rows(area)) {
            captions.emplace(grid.Row(row).key, grid.Contents({*label, row}));
        }
    }
    return captions;
}

std::unordered_set<std::string> GoneSince(const TrackCaptions& before, const GridControl& grid) {
    const TrackCaptions now = CaptionsOf(grid);
    std::unordered_set<std::string> gone;
    for (const auto& [key, caption] : before) {
        const auto found = now.find(key);
        if (found == now.end() || found->second != caption) {
            gone.insert(key);
        }
    }
    return gone;
}

}  // namespace planview
