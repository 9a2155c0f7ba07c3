// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <cstdint>
#include <optional>
#include <string>

#include "components/AxisLayout.h"
#include "qt/grid/GridHit.h"

namespace planview {

class GridView;

/// Moves selected columns or rows by their headings, where the grid allows it: within their own area, to where a line
/// shows the gap that they will fill. Knows them by their keys, because the host may rebuild the grid meanwhile.
class HeadingDrag {
public:
    explicit HeadingDrag(GridView& view) : view_(view) {}

    /// Takes hold of the heading when it can be moved.
    bool press(const GridHit& hit, QPoint point);
    void move(QPoint point);
    /// Lets go; false when nothing was dragged, so that it was a click. The view may be gone afterwards.
    bool release();
    void cancel();
    /// What was taken hold of, as it can be found now.
    [[nodiscard]] GridHit taken() const;

private:
    using Area = AxisLayout::Area;
    [[nodiscard]] bool across() const { return place_ == GridHit::Place::TopHeading; }
    [[nodiscard]] const GridAxis& axis() const;
    /// The key of a column or row of the axis, and the id of the one that was taken hold of; -1 where there is none
    /// now.
    [[nodiscard]] const std::string& keyOf(std::int32_t track) const;
    [[nodiscard]] std::int32_t track() const;
    void aim(int position);
    void moveTracks(const std::string& before);

    GridView& view_;
    GridHit::Place place_ = GridHit::Place::Nothing;
    std::string key_;
    QPoint start_;
    bool dragging_ = false;
    /// The key of the track in front of which the moved ones go; empty: behind the last one.
    std::optional<std::string> before_;
};

}  // namespace planview
