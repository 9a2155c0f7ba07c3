// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "automation/HostTable.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// Appends a recording to MACRO_TREE: an M_RECORD node with an M_STEP node for each step, whose text describes the
/// step. It becomes the last child of `parentKey`, or the last root if that is empty. Returns its key. Passes on what
/// the table throws; throws before adding a row if the table lacks the macro editor's fields or the parent.
std::string KeepSteps(const HostTable& macroTree, const std::vector<MacroStep>& steps, const std::string& name,
                      const std::string& parentKey, StepSentence sentenceOf);

}  // namespace planview
