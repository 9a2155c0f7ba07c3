// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "macro/language/MacroProgram.h"

namespace planview {

/// How many lines and periods an expression has of its own.
struct MacroShape {
    int lines = 1;        ///< more than one: it is taken line by line
    int areaPeriods = 0;  ///< more than none: an area with periods of its own is taken period by period
};

/// The shape of the value of a statement, whose target and periods are known. Throws MacroFault where its pieces do not
/// fit each other or the target: `perPeriod` says that a condition decides for each period whether it runs.
[[nodiscard]] MacroShape ShapeOfValue(const MacroStatement& statement, bool perPeriod);

/// Throws MacroFault for a test that is taken line by line.
void CheckTestShape(const MacroExpression& test);

/// Finds out whether the statement reads its own line in other periods, and marks the operands that do. Throws
/// MacroFault, with the line's name, for a line that needs both its earlier and its later periods.
void FindDirection(MacroStatement& statement, const PlanningTable& table, const std::string& line);

}  // namespace planview
