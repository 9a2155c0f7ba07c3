// SPDX-License-Identifier: MIT
#pragma once

#include "macro/language/MacroProgram.h"
#include "macro/run/MacroGrid.h"
#include "macro/tree/MacroOutcome.h"
#include "macro/tree/MacroOutline.h"

namespace planview {

/// Checks a macro against the grid: its attributes, its statements, and what they name. Every statement is checked even
/// if others are wrong. Only the program of a macro without problems may be run.
///
/// `selectedLine` is the line that "SELECTED" stands for, `selectedPeriods` the periods.
[[nodiscard]] MacroProgram CheckMacro(const MacroOutline& outline, const MacroGrid& table,
                                      std::optional<int> selectedLine, const std::vector<int>& selectedPeriods,
                                      MacroProblems& problems);

}  // namespace planview
