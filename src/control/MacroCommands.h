// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <planview/Macros.h>

#include "macro/tree/MacroOutcome.h"

namespace planview {

struct ControlContext;

/// As the host gets it.
[[nodiscard]] MacroResult ResultOf(const MacroOutcome& outcome);

/// Runs what the MACRO_TREE node with this key is: a macro is run, a recording is replayed. The one place that tells
/// them apart.
MacroOutcome RunMacroCommand(ControlContext& context, const std::string& nodeKey, bool onSelectedLine);

/// Checks a macro or recording as it would run now.
MacroProblems CheckMacroCommand(ControlContext& context, const std::string& nodeKey);

/// What would keep the recording from being replayed, for the user; empty where nothing would.
[[nodiscard]] std::string RecordingFault(ControlContext& context, const std::string& nodeKey);

/// What `DP_Import_MacroTree` does.
void ImportMacroTree(const std::shared_ptr<detail::ControlState>& state) noexcept;

MacroOutcome ReplayRecording(ControlContext& context, const std::string& nodeKey, bool onSelectedLine);

}  // namespace planview
