// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <planview/Export.h>

#include "components/GridControl.h"

namespace planview {

/// What people call a line or a period: its heading without the blanks that indent it; its key where that is empty.
[[nodiscard]] std::string HeadingOf(const GridControl& grid, RowId line);
[[nodiscard]] std::string HeadingOf(const GridControl& grid, ColumnId period);

/// A cell as people call it: "Durable goods, Apr 06".
[[nodiscard]] PLANVIEW_EXPORT std::string CellCaption(const GridControl& grid, Cell cell,
                                                      std::string_view between = ", ");
/// The cell that had these keys; by the keys where the grid has changed since.
[[nodiscard]] std::string CellCaption(const GridControl& grid, const CellKey& keys);

}  // namespace planview
