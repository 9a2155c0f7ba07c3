// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "components/GridControl.h"
#include "grid/UserActions.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// The steps of an edit: one, or several if its values do not fit into one field or its cells are no block.
[[nodiscard]] std::vector<MacroStep> StepsOfEdit(const GridControl& grid, const EditNote& note,
                                                 const UndoStep& changes);

}  // namespace planview
