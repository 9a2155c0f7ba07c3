// SPDX-License-Identifier: MIT
#pragma once

class QFont;

namespace planview {

class GridControl;

/// The logical pixels that the label column needs to show all its texts whole; when the grid is switched, those of the
/// headings that stand in its place.
[[nodiscard]] int widestLabel(const GridControl& grid, const QFont& family);

}  // namespace planview
