// SPDX-License-Identifier: MIT
#pragma once

#include "macro/language/MacroProgram.h"
#include "macro/language/MacroSheet.h"

namespace planview {

/// Runs the statements of a macro over a sheet, which keeps the macro's own values of an earlier run no longer. Throws
/// MacroFault.
void RunProgram(const MacroProgram& program, const PlanningTable& table, MacroSheet& sheet);

}  // namespace planview
