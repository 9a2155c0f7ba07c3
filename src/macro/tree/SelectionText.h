// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <planview/Export.h>

#include "components/GridControl.h"

namespace planview {

/// The smallest block that contains the selected visible planning cells, "ROW3/COL4:COL9": lines, then columns, a
/// single one without ":". If only whole lines are selected, just the lines: "ROW3:ROW5". If nothing is selected, the
/// current cell. Empty if that is no planning cell.
[[nodiscard]] PLANVIEW_EXPORT std::string SelectionText(const GridControl& grid);

}  // namespace planview
