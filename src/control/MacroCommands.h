#pragma once

#include <string>

#include <planview/PlanView.h>

#include "macro/MacroProblem.h"

namespace planview {

struct ControlContext;

/// Runs what the MACRO_TREE node with this key is: a macro is run, a recording is replayed. The one place that tells them
/// apart. Answers what is wrong; `result` has the same for the user.
MacroProblems RunMacroCommand(ControlContext& context, const std::string& nodeKey, bool onSelectedLine,
                              MacroResult& result);

/// Checks a macro as it would run now; a recording is checked when it is replayed.
MacroProblems CheckMacroCommand(ControlContext& context, const std::string& nodeKey);

MacroResult ReplayRecording(ControlContext& context, const std::string& nodeKey, bool onSelectedLine);

}  // namespace planview
