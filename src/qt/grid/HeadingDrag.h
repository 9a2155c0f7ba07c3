// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <cstdint>
#include <optional>

#include "components/AxisLayout.h"
#include "qt/grid/GridHit.h"

namespace planview {

class GridView;

/// Moves selected columns or rows by their headings, where the grid allows it: within their own area, to where a line
/// shows the gap that they will fill.
class HeadingDrag {
public:
    explicit HeadingDrag(GridView& view) : view_(view) {}

    /// Takes hold of the heading when it can be moved.
    bool press(const GridHit& hit, QPoint point);
    void move(QPoint point);
    /// Lets go; false when nothing was dragged, so that it was a click. The view may be gone afterwards.
    bool release();
    void cancel();
    /// What was taken hold of.
    [[nodiscard]] const GridHit& taken() const { return taken_; }

private:
    using Area = AxisLayout::Area;
    [[nodiscard]] bool across() const { return taken_.place == GridHit::Place::TopHeading; }
    [[nodiscard]] const GridAxis& axis() const;
    [[nodiscard]] std::int32_t track() const { return across() ? taken_.horizontal : taken_.vertical; }
    void aim(int position);
    void moveTracks(std::int32_t before);

    GridView& view_;
    GridHit taken_;
    QPoint start_;
    bool dragging_ = false;
    /// The track in front of which the moved ones go; -1 behind the last one.
    std::optional<std::int32_t> before_;
};

}  // namespace planview
