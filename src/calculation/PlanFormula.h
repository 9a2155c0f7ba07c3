// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "calculation/PlanValues.h"
#include "formula/Formula.h"

namespace planview {

/// The cell at `across` of a target of the axis: a period of a line, a line of a period.
[[nodiscard]] inline PlanCell CellOf(FormulaAxis axis, int along, int across) noexcept {
    return axis == FormulaAxis::Lines ? PlanCell{along, across} : PlanCell{across, along};
}

/// A formula with what it computes. "Along" its axis stand its targets: the lines for the formula of a line; "across"
/// stand the cells of one target: the periods there.
struct PlanFormula {
    FormulaAxis axis = FormulaAxis::Lines;
    int target = 0;           ///< along the axis
    std::optional<int> only;  ///< across: of a cell's formula
    BoundFormula bound;
    int solveOrder = 0;  ///< where a line and a column cross, the higher one computes; the column, where both are equal
    bool mayEnter = false;  ///< what is typed there is spread over its leaves

    [[nodiscard]] PlanCell CellAt(int across) const noexcept { return CellOf(axis, target, across); }
    [[nodiscard]] int Across(PlanCell cell) const noexcept {
        return axis == FormulaAxis::Lines ? cell.period : cell.line;
    }
    [[nodiscard]] int Along(PlanCell cell) const noexcept {
        return axis == FormulaAxis::Lines ? cell.line : cell.period;
    }
};

/// How many lines and periods there are: those of the plan, and with the fixed ones behind them.
struct PlanSize {
    int lines = 0;
    int periods = 0;
    int allLines = 0;
    int allPeriods = 0;

    /// The cells of one target of the axis. A fixed column has a value for each planning line only.
    [[nodiscard]] int Across(FormulaAxis axis) const noexcept { return axis == FormulaAxis::Lines ? periods : lines; }
};

}  // namespace planview
