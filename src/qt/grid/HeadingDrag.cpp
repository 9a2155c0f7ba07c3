// SPDX-License-Identifier: MIT
#include "qt/grid/HeadingDrag.h"

#include <QApplication>
#include <algorithm>
#include <string>
#include <vector>

#include "qt/grid/GridView.h"

namespace planview {

namespace {

/// The keys of an area in order, and those among them that are to move.
struct AreaKeys {
    std::vector<std::string> all;
    std::vector<std::string> moved;
    std::size_t target = 0;  ///< how many of those that stay stand before the moved ones
};

template <class Ids, class Describe, class IsSelected>
AreaKeys keysOf(const Ids& ids, std::string_view before, std::string_view fixedKey, Describe describe,
                IsSelected isSelected) {
    AreaKeys keys;
    bool passed = false;
    for (const auto id : ids) {
        const std::string& key = describe(id).key;
        if (key == fixedKey) {
            continue;
        }
        passed = passed || key == before;
        keys.all.push_back(key);
        if (isSelected(id)) {
            keys.moved.push_back(key);
        } else if (!passed) {
            ++keys.target;
        }
    }
    return keys;
}

/// Moves one after the other, so that none displaces another: those from before the gap last first, then those from
/// behind it.
template <class Move>
void moveKeys(const AreaKeys& keys, Move move) {
    std::size_t stay = 0;
    std::size_t fromBefore = 0;
    std::size_t next = 0;
    for (const std::string& key : keys.all) {
        if (next < keys.moved.size() && key == keys.moved[next]) {
            ++next;
            fromBefore += stay < keys.target ? 1 : 0;
        } else {
            ++stay;
        }
    }
    const auto place = [&](std::size_t index) { return static_cast<std::int16_t>(keys.target + index + 1); };
    for (std::size_t i = fromBefore; i-- > 0;) {
        move(keys.moved[i], place(i));
    }
    for (std::size_t i = fromBefore; i < keys.moved.size(); ++i) {
        move(keys.moved[i], place(i));
    }
}

}  // namespace

const GridAxis& HeadingDrag::axis() const {
    const GridGeometry& geometry = view_.geometry();
    return across() ? geometry.horizontal : geometry.vertical;
}

const std::string& HeadingDrag::keyOf(std::int32_t track) const {
    const GridControl& grid = view_.grid();
    return axis().showsColumns() ? grid.Column(ColumnId{track}).key : grid.Row(RowId{track}).key;
}

std::int32_t HeadingDrag::track() const {
    const GridControl& grid = view_.grid();
    return axis().showsColumns() ? grid.FindColumn(key_).value_or(ColumnId()).value
                                 : grid.FindRow(key_).value_or(RowId()).value;
}

GridHit HeadingDrag::taken() const {
    GridHit hit;
    const std::int32_t found = track();
    if (found >= 0) {
        hit.place = place_;
        hit.horizontal = across() ? found : HeadingTrack;
        hit.vertical = across() ? HeadingTrack : found;
    }
    return hit;
}

bool HeadingDrag::press(const GridHit& hit, QPoint point) {
    const GridControl& grid = view_.grid();
    if (!grid.Settings().moveAllowed || grid.Settings().dragDrop == 0 ||
        (hit.place != GridHit::Place::TopHeading && hit.place != GridHit::Place::LeftHeading)) {
        return false;
    }
    place_ = hit.place;
    const std::int32_t pressed = across() ? hit.horizontal : hit.vertical;
    key_ = keyOf(pressed);
    start_ = point;
    dragging_ = false;
    before_.reset();
    return axis().showsColumns() ? grid.Selection().HasColumn(ColumnId{pressed})
                                 : grid.Selection().HasRow(RowId{pressed});
}

void HeadingDrag::move(QPoint point) {
    dragging_ = dragging_ || (point - start_).manhattanLength() >= QApplication::startDragDistance();
    if (dragging_) {
        const QPoint device = view_.toDevice(point);
        aim(across() ? device.x() : device.y());
    }
}

void HeadingDrag::aim(int position) {
    const GridAxis& now = axis();
    const GridTrack* own = now.find(track());
    if (!own) {
        return;
    }
    const GridTrack* last = nullptr;
    for (const GridTrack& other : now.tracks()) {
        if (other.area != own->area || &other == now.heading()) {
            continue;
        }
        if (position < (other.start + other.end) / 2) {
            before_ = keyOf(other.id);
            view_.setDropMark(across(), std::max(other.start, now.band(other.area).start));
            return;
        }
        last = &other;
    }
    if (last) {
        // Others may follow behind the last one in sight.
        const std::span<const AxisItem> items = now.layout().Items(own->area);
        const auto next = static_cast<std::size_t>(last->index) + 1;
        before_ = next < items.size() ? keyOf(items[next].track) : std::string();
        view_.setDropMark(across(), std::min(last->end, now.band(own->area).end));
    }
}

bool HeadingDrag::release() {
    const std::optional<std::string> before = before_;
    const bool dragged = dragging_;
    cancel();
    if (dragged && before) {
        moveTracks(*before);
    }
    return dragged;
}

void HeadingDrag::cancel() {
    dragging_ = false;
    before_.reset();
    view_.setDropMark(false, std::nullopt);
}

void HeadingDrag::moveTracks(const std::string& before) {
    GridControl& grid = view_.grid();
    const std::int32_t taken = track();
    if (taken < 0) {
        return;
    }
    const bool columns = axis().showsColumns();
    std::vector<std::string> stood;
    if (columns) {
        const ColumnArea area = grid.Column(ColumnId{taken}).area;
        const AreaKeys keys = keysOf(
            grid.Columns(area), before, LabelColumnKey,
            [&](ColumnId id) -> const GridColumn& { return grid.Column(id); },
            [&](ColumnId id) { return grid.Selection().HasColumn(id); });
        moveKeys(keys, [&](const std::string& key, std::int16_t place) { grid.MoveColumn(key, place, false); });
        stood = area == ColumnArea::Center ? keys.all : stood;
    } else {
        const RowArea area = grid.Row(RowId{taken}).area;
        const AreaKeys keys = keysOf(
            grid.Rows(area), before, HeadingRowKey, [&](RowId id) -> const GridRow& { return grid.Row(id); },
            [&](RowId id) { return grid.Selection().HasRow(id); });
        moveKeys(keys, [&](const std::string& key, std::int16_t place) { grid.MoveRow(key, place, false); });
        stood = area == RowArea::Center ? keys.all : stood;
    }
    grid.Redraw();
    if (!stood.empty()) {
        grid.ReportMoved(columns ? MovedTracks::Columns : MovedTracks::Rows, stood);
    }
}

}  // namespace planview
