// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "components/GridControl.h"

namespace planview {

/// A cell as a message names it: "Durable goods, Apr 06"; by its keys where the headings are empty.
[[nodiscard]] std::string CellCaption(const GridControl& grid, const CellKey& cell);

}  // namespace planview
