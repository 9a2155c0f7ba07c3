// SPDX-License-Identifier: MIT
#pragma once

#include "macro/language/MacroProgram.h"
#include "macro/language/MacroSheet.h"

namespace planview {

/// Runs a program on a sheet, after clearing the macro's own values there. Throws FormulaFault.
void RunProgram(const MacroProgram& program, const PlanningTable& table, MacroSheet& sheet);

}  // namespace planview
