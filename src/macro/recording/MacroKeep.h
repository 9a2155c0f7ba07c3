// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "automation/HostTable.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// Appends a recording to MACRO_TREE: an M_RECORD node with an M_STEP node for each step, whose text says what it does.
/// It stands last below `parentKey`, last among the roots where that is empty. Answers its key. Throws as the table
/// does, before a row is added where the table has not the fields of the macro editor or not the parent.
std::string KeepSteps(const HostTable& macroTree, const std::vector<MacroStep>& steps, const std::string& name,
                      const std::string& parentKey, StepSentence sentenceOf);

}  // namespace planview
