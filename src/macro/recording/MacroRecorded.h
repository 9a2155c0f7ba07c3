// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "automation/HostTable.h"
#include "components/TreeControl.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// The steps of the recording that is the node with this key, in the order of the tree and without the inactive ones.
/// Throws with a sentence for the user where it is none or a step cannot be read.
[[nodiscard]] std::vector<MacroStep> RecordedSteps(TreeControl& tree, const HostTable& macroTree,
                                                   std::string_view nodeKey);

}  // namespace planview
