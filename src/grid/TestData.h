// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Platform.h>

#include "components/GridControl.h"
#include "grid/ValueEntry.h"

namespace planview {

/// Asks, then gives every planning cell that takes numbers a whole one made up at random, as one change of the user's:
/// about 80 to 1200, each line around a level of its own.
void FillWithTestData(const GridControl& grid, ValueEntry& valueEntry, MessageBoxes& messageBoxes);

}  // namespace planview
