// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <planview/Export.h>

#include "components/GridTypes.h"

namespace planview {

class GridControl;

/// The id of both the label column and the heading row.
inline constexpr std::int32_t HeadingTrack = 0;

/// One visible column or row on its way along a screen axis, in logical pixels.
struct AxisItem {
    std::int32_t track = -1;  ///< the ColumnId's or RowId's value, see AxisLayout::ShowsColumns()
    int start = 0;            ///< from the start of its area
    int size = 0;
    [[nodiscard]] int End() const noexcept { return start + size; }
};

/// Where the columns (or, when switched, the rows) stand along the horizontal axis, and the others along the vertical
/// axis. Hidden ones are left out. The leading area holds the labels, the trailing one the right or bottom fixed ones.
class PLANVIEW_EXPORT AxisLayout {
public:
    enum class Axis { Horizontal, Vertical };
    enum class Area { Leading, Center, Trailing };

    /// Recomputes the layout. `labelWidth` is the width of the leading label on the horizontal axis.
    void Update(const GridControl& grid, Axis axis, int labelWidth);

    /// True where the axis shows columns: horizontally unless switched, vertically when switched.
    [[nodiscard]] bool ShowsColumns() const noexcept { return showsColumns_; }
    [[nodiscard]] std::span<const AxisItem> Items(Area area) const noexcept;
    [[nodiscard]] int Extent(Area area) const noexcept;
    /// The index of a track, -1 when it is hidden or lies in another area.
    [[nodiscard]] int IndexOf(Area area, std::int32_t track) const noexcept;

private:
    bool showsColumns_ = true;
    std::vector<AxisItem> leading_;
    std::vector<AxisItem> center_;
    std::vector<AxisItem> trailing_;
    std::vector<int> index_;  // by track, within its area; -1 where hidden
};

}  // namespace planview
