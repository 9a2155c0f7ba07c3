// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "macro/language/MacroProgram.h"

namespace planview {

/// The size of an expression.
struct MacroShape {
    int lines = 1;        ///< more than 1: it is computed line by line
    int areaPeriods = 0;  ///< more than 0: it contains an area with given periods
};

/// The shape of a statement's value; its target and periods must be set. Throws MacroFault if parts of it do not fit
/// each other or the target. `perPeriod`: a condition decides for each period whether the statement runs.
[[nodiscard]] MacroShape ShapeOfValue(const MacroStatement& statement, bool perPeriod);

/// Throws MacroFault for a test that has more than one line.
void CheckTestShape(const MacroExpression& test);

/// Sets the statement's direction: whether it reads other periods of the line that it assigns. Marks the operands that
/// do. Throws MacroFault, with the line's name, if it needs both earlier and later periods.
void FindDirection(MacroStatement& statement, const PlanningTable& table, const std::string& line);

}  // namespace planview
