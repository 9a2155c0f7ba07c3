// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "formula/FormulaShape.h"
#include "macro/language/MacroProgram.h"

namespace planview {

/// The shape of a statement's value; its target and periods must be set. Throws FormulaFault if parts of it do not fit
/// each other or the target. `perPeriod`: a condition decides for each period whether the statement runs.
[[nodiscard]] FormulaShape ShapeOfValue(const MacroStatement& statement, bool perPeriod);

/// Throws FormulaFault for a test that has more than one line.
void CheckTestShape(const FormulaExpression& test);

/// Sets the statement's direction: whether it reads other periods of the line that it assigns. Marks the operands that
/// do. Throws FormulaFault, with the line's name, if it needs both earlier and later periods.
void FindDirection(MacroStatement& statement, const PlanningTable& table, const std::string& line);

}  // namespace planview
