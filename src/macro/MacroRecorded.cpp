#include "macro/MacroRecorded.h"

#include <planview/AutomationObject.h>

namespace planview {

namespace {

[[noreturn]] void Refuse(const std::string& why) {
    throw AutomationError(AutomationErrorCode::Failed, why);
}

}  // namespace

std::vector<MacroStep> RecordedSteps(const HostTable& macroTree, const std::string& nodeKey) {
    if (!macroTree.IsSet()) {
        Refuse("There is no table of macros: the host has not set MACRO_TREE.");
    }
    const HostTable::Row node = macroTree.FindRow("NODEKEY", nodeKey);
    if (node == 0 || nodeKey.empty()) {
        Refuse("There is no macro with the key \"" + nodeKey + "\".");
    }
    if (macroTree.Text(node, "NODETYPE") != "M_RECORD") {
        Refuse("\"" + macroTree.Text(node, "NODETEXT") + "\" is no recording. Choose one.");
    }
    std::vector<MacroStep> steps;
    const int count = macroTree.RowCount();
    for (int i = 1; i <= count; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        if (macroTree.Text(row, "NODETYPE") != "M_STEP" || macroTree.Text(row, "NODEREF") != nodeKey ||
            macroTree.Flag(row, "INACTIVE")) {
            continue;
        }
        std::optional<MacroStep> step = ReadStepFields(macroTree.Text(row, "NODEVALUE"));
        if (!step) {
            Refuse("The step \"" + macroTree.Text(row, "NODETEXT") + "\" of \"" + macroTree.Text(node, "NODETEXT") +
                   "\" cannot be read. Delete it, or record anew. Nothing was changed.");
        }
        steps.push_back(std::move(*step));
    }
    if (steps.empty()) {
        Refuse("The recording \"" + macroTree.Text(node, "NODETEXT") + "\" has no steps.");
    }
    return steps;
}

}  // namespace planview
