// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "calculation/PlanCalculation.h"

namespace planview {

/// A leaf below a computed cell: the cell is the sum of weight times value over its leaves.
struct WeightedLeaf {
    PlanCell cell;
    double weight = 1;
};

/// The leaves of a computed cell through any number of levels, on both axes; in their order, each once. No value for a
/// cell that is not a sum, a weighted sum or a mean of cells, or that stands in a cycle.
///
/// A mean counts the cells that hold something, as AVERAGE does, and all of them while none does.
[[nodiscard]] std::optional<std::vector<WeightedLeaf>> LeavesOf(const PlanCalculation& plan, PlanCell total);

}  // namespace planview
