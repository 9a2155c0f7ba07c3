// SPDX-License-Identifier: MIT
#include "qt/grid/GridHit.h"

#include <cstdlib>

namespace planview {

namespace {

using Area = AxisLayout::Area;

/// How far from a border it can be grabbed, in logical pixels.
constexpr int BorderReach = 4;

struct TrackBorder {
    std::int32_t track = -1;
    int direction = 1;
};

/// Tracks at the end of the view keep their outer side; they are grabbed at their inner one.
bool grippedAtStart(const GridAxis& axis, const GridTrack& track) {
    return track.area == Area::Trailing && axis.maxFirst() > 0;
}

TrackBorder borderAt(const GridAxis& axis, int position, int reach) {
    TrackBorder found;
    int nearest = reach + 1;
    for (const GridTrack& track : axis.tracks()) {
        const bool atStart = grippedAtStart(axis, track);
        const int border = atStart ? track.start : track.end;
        const GridBand band = axis.band(track.area);
        const bool visible = atStart ? band.contains(border) : border > band.start && border <= band.end;
        const int distance = std::abs(position - border);
        // The last one wins, so that a track of size 0 can be dragged open again.
        if (visible && distance <= nearest && distance <= reach) {
            nearest = distance;
            found = {track.id, atStart ? -1 : 1};
        }
    }
    return found;
}

}  // namespace

GridHit GridHit::test(const GridGeometry& geometry, QPoint point) {
    GridHit hit;
    const GridTrack* h = geometry.horizontal.at(point.x());
    const GridTrack* v = geometry.vertical.at(point.y());
    const GridTrack* top = geometry.vertical.heading();
    const GridTrack* left = geometry.horizontal.heading();
    const int reach = geometry.pixels(BorderReach);

    if (top && v == top) {
        const TrackBorder border = borderAt(geometry.horizontal, point.x(), reach);
        if (border.track >= 0) {
            hit.border = Border::Horizontal;
            hit.borderTrack = border.track;
            hit.borderDirection = border.direction;
        } else if (h && top->end - point.y() <= reach) {
            hit.border = Border::Vertical;
            hit.borderTrack = top->id;
        }
    }
    if (left && h == left && hit.border == Border::None) {
        const TrackBorder border = borderAt(geometry.vertical, point.y(), reach);
        if (border.track >= 0) {
            hit.border = Border::Vertical;
            hit.borderTrack = border.track;
            hit.borderDirection = border.direction;
        } else if (v && left->end - point.x() <= reach) {
            hit.border = Border::Horizontal;
            hit.borderTrack = left->id;
        }
    }
    if (!h || !v) {
        return hit;
    }
    hit.horizontal = h->id;
    hit.vertical = v->id;
    hit.place = h == left && v == top ? Place::Corner
                : v == top            ? Place::TopHeading
                : h == left           ? Place::LeftHeading
                                      : Place::Cell;
    return hit;
}

}  // namespace planview
