#pragma once

#include <string>
#include <vector>

#include "automation/HostTable.h"
#include "macro/MacroStep.h"

namespace planview {

/// The steps of the recording that is the node with this key, without the inactive ones. Throws with a sentence for the
/// user where it is none or a step cannot be read.
[[nodiscard]] std::vector<MacroStep> RecordedSteps(const HostTable& macroTree, const std::string& nodeKey);

}  // namespace planview
