// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <vector>

namespace planview {

/// How square buttons stand in rows, in pixels.
struct ButtonFlow {
    int side;      ///< of a button
    int gap;       ///< between two buttons and two rows
    int groupGap;  ///< before a button that begins a group
    int margin;    ///< left and right of the rows
    int top;       ///< of the first row
};

/// The places of `count` buttons, which wrap where the width ends. Every row has at least one.
template <class BeginsGroup>
std::vector<QRect> placesOf(std::size_t count, int width, const ButtonFlow& flow, const BeginsGroup& beginsGroup) {
    std::vector<QRect> places;
    places.reserve(count);
    int x = flow.margin;
    int y = flow.top;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0 && beginsGroup(i)) {
            x += flow.groupGap - flow.gap;
        }
        if (i > 0 && x + flow.side > width - flow.margin) {
            x = flow.margin;
            y += flow.side + flow.gap;
        }
        places.emplace_back(x, y, flow.side, flow.side);
        x += flow.side + flow.gap;
    }
    return places;
}

}  // namespace planview
