// SPDX-License-Identifier: MIT
#include "components/AxisLayout.h"

#include <cstddef>

#include "components/GridControl.h"

namespace planview {

namespace {

/// Lays the visible ones out one after the other; `sizeOf` gives a track's size.
template <class Id, class TrackOf, class SizeOf>
void LayOut(std::span<const Id> tracks, TrackOf trackOf, SizeOf sizeOf, std::vector<AxisItem>& items,
            std::vector<int>& index) {
    items.clear();
    int start = 0;
    for (const Id id : tracks) {
        const auto& track = trackOf(id);
        if (track.hidden) {
            continue;
        }
        const auto slot = static_cast<std::size_t>(id.value);
        if (slot >= index.size()) {
            index.resize(slot + 1, -1);
        }
        index[slot] = static_cast<int>(items.size());
        const int size = sizeOf(id, track);
        items.push_back({id.value, start, size});
        start += size;
    }
}

/// The first planning track's height gives the heading its own; the label has one for a grid without any.
template <class Id, class TrackOf>
int HeadingHeight(std::span<const Id> planning, TrackOf trackOf, int fallback) {
    return planning.empty() ? fallback : trackOf(planning.front()).height;
}

}  // namespace

void AxisLayout::Update(const GridControl& grid, Axis axis, int labelWidth) {
    const bool horizontal = axis == Axis::Horizontal;
    showsColumns_ = horizontal != grid.Settings().switched;
    index_.clear();
    const auto columnOf = [&grid](ColumnId id) -> const GridColumn& { return grid.Column(id); };
    const auto rowOf = [&grid](RowId id) -> const GridRow& { return grid.Row(id); };
    // Across the screen a track counts by its width, down the screen by its height; only the label differs.
    const auto layOut = [&](auto trackOf, auto area, int labelSize, std::vector<AxisItem>& items) {
        const auto sizeOf = [horizontal, labelSize](auto id, const auto& track) {
            if (id.value == HeadingTrack) {
                return labelSize;
            }
            return static_cast<int>(horizontal ? track.width : track.height);
        };
        LayOut(area, trackOf, sizeOf, items, index_);
    };
    if (showsColumns_) {
        const int labelSize =
            horizontal ? labelWidth : HeadingHeight(grid.Rows(RowArea::Center), rowOf, DefaultRowHeight);
        layOut(columnOf, grid.Columns(ColumnArea::Left), labelSize, leading_);
        layOut(columnOf, grid.Columns(ColumnArea::Center), labelSize, center_);
        layOut(columnOf, grid.Columns(ColumnArea::Right), labelSize, trailing_);
    } else {
        const int labelSize =
            horizontal ? labelWidth : HeadingHeight(grid.Columns(ColumnArea::Center), columnOf, DefaultRowHeight);
        layOut(rowOf, grid.Rows(RowArea::Top), labelSize, leading_);
        layOut(rowOf, grid.Rows(RowArea::Center), labelSize, center_);
        layOut(rowOf, grid.Rows(RowArea::Bottom), labelSize, trailing_);
    }
}

std::span<const AxisItem> AxisLayout::Items(Area area) const noexcept {
    switch (area) {
        case Area::Leading:
            return leading_;
        case Area::Center:
            return center_;
        case Area::Trailing:
            break;
    }
    return trailing_;
}

int AxisLayout::Extent(Area area) const noexcept {
    const std::span<const AxisItem> items = Items(area);
    return items.empty() ? 0 : items.back().End();
}

int AxisLayout::IndexOf(Area area, std::int32_t track) const noexcept {
    if (track < 0 || static_cast<std::size_t>(track) >= index_.size()) {
        return -1;
    }
    const std::span<const AxisItem> items = Items(area);
    const int index = index_[static_cast<std::size_t>(track)];
    const bool isHere = index >= 0 && static_cast<std::size_t>(index) < items.size() &&
                        items[static_cast<std::size_t>(index)].track == track;
    return isHere ? index : -1;
}

}  // namespace planview
