// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <planview/Export.h>

#include "components/GridControl.h"

namespace planview {

/// The smallest block around the visible planning cells that are selected, as "ROW3/COL4:COL9" (lines, then columns;
/// one alone without ":"). Where only whole lines are selected, the lines alone: "ROW3:ROW5". The current cell where
/// nothing is selected. Empty where no planning cell is.
[[nodiscard]] PLANVIEW_EXPORT std::string SelectionText(const GridControl& grid);

}  // namespace planview
