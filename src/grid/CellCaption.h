// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <planview/Export.h>

#include "components/GridControl.h"

namespace planview {

/// The name of a line or period for people: its trimmed heading, or its key if that is empty.
[[nodiscard]] std::string HeadingOf(const GridControl& grid, RowId line);
[[nodiscard]] std::string HeadingOf(const GridControl& grid, ColumnId period);

/// The name of a cell for people: "Durable goods, Apr 06".
[[nodiscard]] PLANVIEW_EXPORT std::string CellCaption(const GridControl& grid, Cell cell,
                                                      std::string_view between = ", ");
/// The same by keys; uses the keys as names if the grid no longer has the cell.
[[nodiscard]] std::string CellCaption(const GridControl& grid, const CellKey& keys);

}  // namespace planview
