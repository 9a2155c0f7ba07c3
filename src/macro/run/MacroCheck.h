// SPDX-License-Identifier: MIT
#pragma once

#include "macro/language/MacroProgram.h"
#include "macro/run/MacroGrid.h"
#include "macro/run/MacroProblem.h"
#include "macro/tree/MacroOutline.h"

namespace planview {

/// Reads a macro: its attributes, its statements, what they name in this grid. Every statement is checked, whatever is
/// wrong with the others, and each problem stands with its node; only a macro without problems has a program to run.
///
/// `selectedLine` is what "SELECTED" stands for as a line, `selectedPeriods` what it stands for as periods.
[[nodiscard]] MacroProgram CheckMacro(const MacroOutline& outline, const MacroGrid& table,
                                      std::optional<int> selectedLine, const std::vector<int>& selectedPeriods,
                                      MacroProblems& problems);

}  // namespace planview
