// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include <planview/Spreadsheet.h>

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

/// Checks whether the macro with this key could run now ("GENERATE"); empty if it could. Traced under "MACRO".
[[nodiscard]] MacroProblems CheckMacroNode(const MacroRunParts& parts, std::string_view nodeKey);

/// Runs the macro with this key. Everything is computed first; nothing is changed if the check finds a problem, or on a
/// division by zero, an overflow, a text among the numbers or a cell that may not be changed. Cells with new values are
/// then changed as one action of value entry.
///
/// A macro on the selected line runs once for each selected line, from top to bottom. `onSelectedLine` does the same
/// with a macro that is about exactly one other line.
MacroOutcome RunMacroNode(const MacroRunParts& parts, std::string_view nodeKey, bool onSelectedLine = false);

/// Computes the same and changes nothing: appends what would change, line by line. A cell that may not be changed is
/// among them as refused, and does not keep the others from being changed.
MacroOutcome PreviewMacroNode(const MacroRunParts& parts, std::string_view nodeKey, bool onSelectedLine,
                              std::vector<UploadChange>& changes);

}  // namespace planview
