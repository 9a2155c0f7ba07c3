// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

#include <planview/Variant.h>

#include "components/GridTypes.h"

namespace planview {

/// A computed cell with its value of now: a number, or empty where there is none.
struct ComputedValue {
    CellKey cell;
    Variant value;
    std::string shown;  ///< what the grid shows of it
};

/// What the leaves of a total take.
struct SpreadValues {
    std::vector<std::pair<Cell, Variant>> leaves;
    std::string refusal;  ///< why nothing can be spread, a sentence; empty where it can
};

/// Computes some of the planning cells from the others. Value entry tells it what has changed and stores what it
/// answers, within the same action.
class CellComputation {
public:
    virtual ~CellComputation() = default;
    /// Whether there is any computed cell.
    [[nodiscard]] virtual bool Computes() const = 0;
    [[nodiscard]] virtual bool IsComputed(Cell cell) const = 0;
    /// The grid shows new values in these cells. Answers the computed ones that are others now.
    [[nodiscard]] virtual std::vector<ComputedValue> Follow(std::span<const CellKey> changed) = 0;
    /// What the leaves of a computed cell take so that it becomes this number; those that change.
    [[nodiscard]] virtual SpreadValues Spread(Cell total, double amount) const = 0;

protected:
    CellComputation() = default;
    CellComputation(const CellComputation&) = default;
    CellComputation& operator=(const CellComputation&) = default;
};

}  // namespace planview
