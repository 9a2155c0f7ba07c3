// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "components/GridControl.h"
#include "grid/UserActions.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// An edit as steps: one, or several where its values do not fit into one field or its cells form no block.
[[nodiscard]] std::vector<MacroStep> StepsOfEdit(const GridControl& grid, const EditNote& note,
                                                 const UndoStep& changes);

}  // namespace planview
