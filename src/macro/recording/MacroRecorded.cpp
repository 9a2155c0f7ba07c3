// SPDX-License-Identifier: MIT
#include "macro/recording/MacroRecorded.h"

#include <string>

#include <planview/AutomationObject.h>

#include "macro/tree/MacroOutline.h"

namespace planview {

namespace {

[[noreturn]] void Refuse(const std::string& why) {
    throw AutomationError(AutomationErrorCode::Failed, why);
}

}  // namespace

std::vector<MacroStep> RecordedSteps(TreeControl& tree, const HostTable& macroTree, std::string_view nodeKey) {
    if (!macroTree.IsSet()) {
        Refuse("There is no table of macros: the host has not set MACRO_TREE.");
    }
    const MacroOutline outline = MacroOutline::Read(tree, macroTree, nodeKey);
    if (outline.IsEmpty()) {
        Refuse("There is no macro with the key \"" + std::string(nodeKey) + "\".");
    }
    const MacroNode& recording = outline.At(0);
    if (recording.type != MacroNodeType::Recording) {
        Refuse("\"" + recording.text + "\" is no recording. Choose one.");
    }
    std::vector<MacroStep> steps;
    for (const int child : outline.ActiveChildren(0)) {
        const MacroNode& node = outline.At(child);
        std::optional<MacroStep> step =
            node.type == MacroNodeType::Step ? ReadStepFields(node.value) : std::optional<MacroStep>();
        if (!step) {
            Refuse("The step \"" + node.text + "\" of \"" + recording.text +
                   "\" cannot be read. Delete it, or record anew. Nothing was changed.");
        }
        steps.push_back(std::move(*step));
    }
    if (steps.empty()) {
        Refuse("The recording \"" + recording.text + "\" has no steps.");
    }
    return steps;
}

}  // namespace planview
