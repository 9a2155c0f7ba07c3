// SPDX-License-Identifier: MIT
#include "control/MacroCommands.h"

#include "automation/Texts.h"
#include "commands/TreeCommands.h"
#include "control/Guarded.h"
#include "macro/run/MacroRun.h"

namespace planview {

namespace {

constexpr std::string_view MacroLabel = "MACRO";

MacroRunParts PartsOf(ControlContext& context) {
    return {context.grid, context.tables, context.tree, context.valueEntry};
}

bool IsRecordingNode(const ControlContext& context, const std::string& nodeKey) {
    const HostTable table = context.tables.MACRO_TREE;
    const HostTable::Row row = table.FindRow("NODEKEY", nodeKey);
    std::string type;
    // A host's table may lack the field: then there are no recordings.
    ResumeNext([&] { type = row == 0 ? std::string() : table.Text(row, "NODETYPE"); });
    return MacroNodeTypeOf(type) == MacroNodeType::Recording;
}

}  // namespace

MacroResult ResultOf(const MacroOutcome& outcome) {
    std::vector<std::string> texts;
    for (const MacroProblem& problem : outcome.problems) {
        texts.push_back(problem.Text());
    }
    return {texts.empty(), outcome.changed, texts.empty() ? outcome.done : Joined(texts, "\n")};
}

MacroOutcome RunMacroCommand(ControlContext& context, const std::string& nodeKey, bool onSelectedLine) {
    if (IsRecordingNode(context, nodeKey)) {
        return ReplayRecording(context, nodeKey, onSelectedLine);
    }
    MacroOutcome outcome = RunMacroNode(PartsOf(context), nodeKey, onSelectedLine);
    outcome.done = Counted(outcome.changed, "cell") + " changed.";
    return outcome;
}

MacroProblems CheckMacroCommand(ControlContext& context, const std::string& nodeKey) {
    if (!IsRecordingNode(context, nodeKey)) {
        return CheckMacroNode(PartsOf(context), nodeKey);
    }
    const std::string fault = RecordingFault(context, nodeKey);
    return fault.empty() ? MacroProblems() : MacroProblems{{nodeKey, "", fault, ""}};
}

void ImportMacroTree(const std::shared_ptr<detail::ControlState>& state) noexcept {
    constexpr std::string_view Method = "DP_Import_MacroTree";
    Guarded(state, "USERCONTROL", Method, [&](ControlContext& context) {
        modPlan::TraceWrite("USERCONTROL", "", Method, "{}");
        modMacro::Build(context.macroTree);
    });
}

MacroResult Macros::Run(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(State(), MacroLabel, "Run",
            [&](ControlContext& context) { result = ResultOf(RunMacroCommand(context, nodeKey, onSelectedLine)); });
    return result;
}

MacroResult Macros::Check(const std::string& nodeKey) {
    MacroResult result;
    Guarded(State(), MacroLabel, "Generate", [&](ControlContext& context) {
        result = ResultOf({CheckMacroCommand(context, nodeKey), 0, "no problem was found."});
    });
    return result;
}

void Macros::MoveNode(const std::string& nodeKey, const std::string& target, DropAction action) {
    Guarded(State(), MacroLabel, "MoveMacroNode", [&](ControlContext& context) {
        switch (action) {
            case DropAction::MovedBefore:
                context.macroEditor.MoveTo(nodeKey, target, TreeDrop::Before);
                break;
            case DropAction::MovedAfter:
                context.macroEditor.MoveTo(nodeKey, target, TreeDrop::After);
                break;
            case DropAction::MovedBelow:
                context.macroEditor.MoveTo(nodeKey, target, TreeDrop::Below);
                break;
            default:
                break;  // a new node: the host's own
        }
    });
}

}  // namespace planview
