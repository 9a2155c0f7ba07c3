// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "automation/HostTable.h"
#include "components/GridControl.h"

namespace planview {

/// How deep each planning line stands in the outline, in the grid's order; more is deeper. The field `LEVEL` of
/// LINE_INDEX, which is optional; where a line has none in it, the blanks before its label.
[[nodiscard]] std::vector<int> LineLevels(const GridControl& grid, const HostTable& lineIndex);

}  // namespace planview
