// SPDX-License-Identifier: MIT
#include "qt/grid/GridGeometry.h"

#include <algorithm>
#include <cmath>

namespace planview {

namespace {

using Area = AxisLayout::Area;

QRect rectOf(GridBand horizontal, GridBand vertical) {
    return {horizontal.start, vertical.start, horizontal.size(), vertical.size()};
}

GridBand visiblePart(const GridAxis& axis, const GridTrack& track) {
    const GridBand band = axis.band(track.area);
    return {std::max(track.start, band.start), std::min(track.end, band.end)};
}

}  // namespace

GridAxis::GridAxis(const AxisLayout& layout, int first, double unit, int extent)
    : layout_(&layout), unit_(unit), extent_(std::max(extent, 0)) {
    placeAreas();
    scrollTo(first);
    addTracks(Area::Leading, 0);
    addTracks(Area::Center, band(Area::Center).start - offset_);
    addTracks(Area::Trailing, band(Area::Trailing).start);
}

int GridAxis::scaled(int logical) const {
    return static_cast<int>(std::lround(logical * unit_));
}

void GridAxis::placeAreas() {
    const int leading = scaled(layout_->Extent(Area::Leading));
    const int center = scaled(layout_->Extent(Area::Center));
    const int trailing = scaled(layout_->Extent(Area::Trailing));
    // Fixed tracks that leave no room are cut, the trailing ones first, so that a centre track can be seen.
    const std::span<const AxisItem> items = layout_->Items(Area::Center);
    const int least = items.empty() ? 0 : std::min(scaled(items.front().size), extent_ / 2);
    const int leadingEnd = std::min(leading, extent_ - least);
    const int trailingStart = std::max(leadingEnd + least, std::min(leadingEnd + center, extent_ - trailing));
    contentEnd_ = std::min(trailingStart + trailing, extent_);
    bands_[static_cast<std::size_t>(Area::Leading)] = {0, leadingEnd};
    bands_[static_cast<std::size_t>(Area::Center)] = {leadingEnd, trailingStart};
    bands_[static_cast<std::size_t>(Area::Trailing)] = {trailingStart, contentEnd_};
}

void GridAxis::scrollTo(int first) {
    const std::span<const AxisItem> items = layout_->Items(Area::Center);
    const int total = scaled(layout_->Extent(Area::Center));
    const int room = band(Area::Center).size();
    if (items.empty() || total <= room) {
        page_ = std::max(1, static_cast<int>(items.size()));
        return;
    }
    const auto fits = std::partition_point(items.begin(), items.end(),
                                           [&](const AxisItem& item) { return total - scaled(item.start) > room; });
    const int count = static_cast<int>(items.size());
    maxFirst_ = std::min(static_cast<int>(fits - items.begin()), count - 1);
    first_ = std::clamp(first, 0, maxFirst_);
    const int start = scaled(items[static_cast<std::size_t>(first_)].start);
    const int aligned = std::max(total - room, 0);
    // A single track wider than the view shows its start.
    offset_ = first_ == maxFirst_ && fits != items.end() ? aligned : start;

    const auto cut = std::partition_point(items.begin() + first_, items.end(),
                                          [&](const AxisItem& item) { return scaled(item.End()) - start <= room; });
    page_ = std::max(1, static_cast<int>(cut - items.begin()) - first_);
}

void GridAxis::addTracks(Area area, int origin) {
    const std::span<const AxisItem> items = layout_->Items(area);
    const GridBand visible = band(area);
    const auto begin = std::partition_point(
        items.begin(), items.end(), [&](const AxisItem& item) { return origin + scaled(item.End()) <= visible.start; });
    for (auto item = begin; item != items.end() && origin + scaled(item->start) < visible.end; ++item) {
        tracks_.push_back({item->track, area, static_cast<int>(item - items.begin()), origin + scaled(item->start),
                           origin + scaled(item->End())});
    }
}

const GridTrack* GridAxis::at(int position) const {
    for (const GridTrack& track : tracks_) {
        if (visiblePart(*this, track).contains(position)) {
            return &track;
        }
    }
    return nullptr;
}

const GridTrack* GridAxis::find(std::int32_t id) const {
    const auto found = std::find_if(tracks_.begin(), tracks_.end(), [id](const GridTrack& t) { return t.id == id; });
    return found == tracks_.end() ? nullptr : &*found;
}

const GridTrack* GridAxis::heading() const {
    return find(HeadingTrack);
}

int GridAxis::firstToShow(int index) const {
    const std::span<const AxisItem> items = layout_->Items(Area::Center);
    if (index < 0 || static_cast<std::size_t>(index) >= items.size()) {
        return first_;
    }
    const GridBand place = centerBand(index);
    const GridBand room = band(Area::Center);
    if (place.start < room.start) {
        return std::min(index, maxFirst_);
    }
    if (place.end <= room.end) {
        return first_;
    }
    const int end = scaled(items[static_cast<std::size_t>(index)].End());
    const auto fits = std::partition_point(items.begin(), items.begin() + index, [&](const AxisItem& item) {
        return end - scaled(item.start) > room.size();
    });
    return std::min(static_cast<int>(fits - items.begin()), maxFirst_);
}

GridBand GridAxis::centerBand(int index) const {
    const AxisItem& item = layout_->Items(Area::Center)[static_cast<std::size_t>(index)];
    const int origin = band(Area::Center).start - offset_;
    return {origin + scaled(item.start), origin + scaled(item.End())};
}

QRect GridGeometry::cellRect(Cell cell) const {
    const GridTrack* h = horizontal.find(horizontalId(cell));
    const GridTrack* v = vertical.find(verticalId(cell));
    return h && v ? rectOf(visiblePart(horizontal, *h), visiblePart(vertical, *v)) : QRect();
}

int GridGeometry::pixels(double logical) const {
    return std::max(1, static_cast<int>(std::lround(logical * unit)));
}

}  // namespace planview
