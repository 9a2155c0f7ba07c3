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

std::string JoinedTexts(const MacroProblems& problems) {
    std::string text;
    for (const MacroProblem& problem : problems) {
        text += (text.empty() ? "" : "\n") + problem.Text();
    }
    return text;
}

}  // namespace

MacroProblems RunMacroCommand(ControlContext& context, const std::string& nodeKey, bool onSelectedLine,
                              MacroResult& result) {
    if (IsRecordingNode(context, nodeKey)) {
        result = ReplayRecording(context, nodeKey, onSelectedLine);
        return result.done ? MacroProblems() : MacroProblems{{nodeKey, "", result.message, ""}};
    }
    MacroOutcome outcome = RunMacroNode(PartsOf(context), nodeKey, onSelectedLine);
    result.done = outcome.problems.empty();
    result.cells = outcome.changed;
    result.message = result.done ? Counted(outcome.changed, "cell") + " changed." : JoinedTexts(outcome.problems);
    return std::move(outcome.problems);
}

MacroProblems CheckMacroCommand(ControlContext& context, const std::string& nodeKey) {
    if (!IsRecordingNode(context, nodeKey)) {
        return CheckMacroNode(PartsOf(context), nodeKey);
    }
    const std::string fault = RecordingFault(context, nodeKey);
    return fault.empty() ? MacroProblems() : MacroProblems{{nodeKey, "", fault, ""}};
}

MacroResult PlanView::RunMacro(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(state_, MacroLabel, "Run", [&](ControlContext& context) {
        static_cast<void>(RunMacroCommand(context, nodeKey, onSelectedLine, result));
    });
    return result;
}

MacroResult PlanView::CheckMacro(const std::string& nodeKey) {
    MacroResult result;
    Guarded(state_, MacroLabel, "Generate", [&](ControlContext& context) {
        const MacroProblems problems = CheckMacroCommand(context, nodeKey);
        result.done = problems.empty();
        result.message = result.done ? "no problem was found." : JoinedTexts(problems);
    });
    return result;
}

void PlanView::MoveMacroNode(const std::string& nodeKey, const std::string& target, std::int16_t action) {
    Guarded(state_, MacroLabel, "MoveMacroNode", [&](ControlContext& context) {
        switch (static_cast<DropAction>(action)) {
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
