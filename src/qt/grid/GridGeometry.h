// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "components/AxisLayout.h"
#include "components/GridTypes.h"

namespace planview {

/// All positions here are paint pixels: pixels of the device that is painted on.

/// A half-open stretch of an axis.
struct GridBand {
    int start = 0;
    int end = 0;
    [[nodiscard]] int size() const { return end > start ? end - start : 0; }
    [[nodiscard]] bool contains(int position) const { return position >= start && position < end; }
};

/// A column or row that is at least partly visible.
struct GridTrack {
    std::int32_t id = -1;
    AxisLayout::Area area = AxisLayout::Area::Center;
    int index = 0;  ///< in AxisLayout::Items(area)
    int start = 0;
    int end = 0;
    [[nodiscard]] int size() const { return end - start; }
};

/// The visible part of one axis: the leading tracks at the start, the trailing ones at the end (right behind the centre
/// when all of that fits), between them the centre from its first visible track on.
///
/// The centre scrolls by whole tracks. Only the last page is aligned to the end, so that it leaves no gap; there the
/// first visible track may be cut.
class GridAxis {
public:
    GridAxis() = default;
    /// `unit` is the size of a logical pixel, `extent` the size of the view. `layout` must outlive the axis.
    GridAxis(const AxisLayout& layout, int first, double unit, int extent);

    [[nodiscard]] const AxisLayout& layout() const { return *layout_; }
    [[nodiscard]] bool showsColumns() const { return layout_->ShowsColumns(); }
    [[nodiscard]] int extent() const { return extent_; }
    /// Where everything ends; beyond it the ground is empty.
    [[nodiscard]] int contentEnd() const { return contentEnd_; }
    [[nodiscard]] GridBand band(AxisLayout::Area area) const { return bands_[static_cast<std::size_t>(area)]; }

    /// Leading, centre, trailing.
    [[nodiscard]] std::span<const GridTrack> tracks() const { return tracks_; }
    [[nodiscard]] const GridTrack* at(int position) const;
    [[nodiscard]] const GridTrack* find(std::int32_t id) const;
    /// The first leading track, which carries the headings of the other axis.
    [[nodiscard]] const GridTrack* heading() const;

    /// The index of the first centre track, 0 .. maxFirst().
    [[nodiscard]] int first() const { return first_; }
    [[nodiscard]] int maxFirst() const { return maxFirst_; }
    /// How many whole centre tracks are visible, at least 1.
    [[nodiscard]] int page() const { return page_; }
    /// The pixels of the centre that are scrolled away.
    [[nodiscard]] int offset() const { return offset_; }
    /// The first track to scroll to so that this one is wholly visible, the nearest one to first().
    [[nodiscard]] int firstToShow(int index) const;
    /// Where a centre track stands, visible or not.
    [[nodiscard]] GridBand centerBand(int index) const;

private:
    [[nodiscard]] int scaled(int logical) const;
    void placeAreas();
    void scrollTo(int first);
    void addTracks(AxisLayout::Area area, int origin);

    const AxisLayout* layout_ = nullptr;
    double unit_ = 1.0;
    int extent_ = 0;
    int contentEnd_ = 0;
    GridBand bands_[3];
    std::vector<GridTrack> tracks_;
    int first_ = 0;
    int maxFirst_ = 0;
    int page_ = 1;
    int offset_ = 0;
};

/// Both axes: where every visible cell stands.
struct GridGeometry {
    GridAxis horizontal;
    GridAxis vertical;
    double unit = 1.0;  ///< paint pixels per logical pixel

    /// The cell where two tracks cross.
    [[nodiscard]] Cell cell(std::int32_t horizontalId, std::int32_t verticalId) const {
        return horizontal.showsColumns() ? Cell{ColumnId{horizontalId}, RowId{verticalId}}
                                         : Cell{ColumnId{verticalId}, RowId{horizontalId}};
    }
    [[nodiscard]] std::int32_t horizontalId(Cell cell) const {
        return horizontal.showsColumns() ? cell.column.value : cell.row.value;
    }
    [[nodiscard]] std::int32_t verticalId(Cell cell) const {
        return horizontal.showsColumns() ? cell.row.value : cell.column.value;
    }
    /// The visible part of the cell; empty when it is out of sight.
    [[nodiscard]] QRect cellRect(Cell cell) const;
    /// At least one device pixel.
    [[nodiscard]] int pixels(double logical) const;
    /// The width of the line between two cells.
    [[nodiscard]] int hairline() const { return unit < 2.0 ? 1 : static_cast<int>(unit); }
    /// The width of the line between two areas, which takes the place of the last hairline before it.
    [[nodiscard]] int edge() const { return 2 * hairline(); }
};

}  // namespace planview
