// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "components/TreeControl.h"
#include "grid/ValueEntry.h"
#include "macro/run/MacroCheck.h"

namespace planview {

/// What a macro runs on.
struct MacroRunParts {
    GridControl& grid;
    const TableSlots& tables;
    TreeControl& tree;
    ValueEntry& valueEntry;
};

/// What became of a run.
struct MacroOutcome {
    MacroProblems problems;  ///< none: it ran
    int changed = 0;         ///< cells that hold another value now
};

/// Checks the macro with this key as it would run now ("GENERATE"); empty where it can. Traced under "MACRO".
[[nodiscard]] MacroProblems CheckMacroNode(const MacroRunParts& parts, std::string_view nodeKey);

/// Runs the macro with this key. Everything is computed first, and nothing is changed when anything is wrong: a problem
/// of the check, a division by zero, a number too large, a text among the numbers, a cell that may not be changed. The
/// cells that then get another value are changed as one action of value entry.
///
/// A macro on the selected line runs once for each line that is selected, from top to bottom. `onSelectedLine` makes
/// one of a macro that is about one other line alone.
MacroOutcome RunMacroNode(const MacroRunParts& parts, std::string_view nodeKey, bool onSelectedLine = false);

}  // namespace planview
