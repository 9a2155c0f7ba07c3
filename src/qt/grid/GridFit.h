// SPDX-License-Identifier: MIT
#pragma once

#include "components/GridTypes.h"

class QFont;

namespace planview {

class GridControl;

/// The logical pixels that a column or row needs to show all its texts whole, hidden cells left out.
[[nodiscard]] int fittingWidth(const GridControl& grid, const QFont& family, ColumnId column);
[[nodiscard]] int fittingHeight(const GridControl& grid, const QFont& family, RowId row);
/// The same of those that stand the other way round while the grid is switched.
[[nodiscard]] int fittingHeight(const GridControl& grid, const QFont& family, ColumnId column);
[[nodiscard]] int fittingWidth(const GridControl& grid, const QFont& family, RowId row);

}  // namespace planview
