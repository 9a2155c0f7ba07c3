// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "automation/HostTable.h"
#include "components/TreeControl.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// The active steps of the recording with this node key, in tree order. Throws with a sentence for the user if it is no
/// recording or a step cannot be read.
[[nodiscard]] std::vector<MacroStep> RecordedSteps(TreeControl& tree, const HostTable& macroTree,
                                                   std::string_view nodeKey);

}  // namespace planview
