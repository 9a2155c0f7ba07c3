// SPDX-License-Identifier: MIT
#include "control/MacroPart.h"

#include "automation/Texts.h"
#include "commands/TreeCommands.h"
#include "dialogs/frmUpload.h"
#include "grid/CellCaption.h"
#include "grid/ProposedChanges.h"
#include "macro/recording/MacroRecorded.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view MacroLabel = "MACRO";

}  // namespace

MacroPart::MacroPart(ControlShared& shared, GridPart& grid, CommandRunner& runner)
    : nodes{tree, shared.tables, shared.events},
      recording({shared.tables, grid.control, shared.events, shared.desktop.messageBoxes}),
      editor({grid.control, shared.tables, tree, shared.events, shared.desktop.popups, shared.desktop.messageBoxes,
              toolbar, [this] { Import(); }, [this](const std::string& key) { return Run(key, false); },
              [this](const std::string& key) { return Check(key); },
              [this](const std::string& key) { return RunPreviewed(key, false); }, shared.failures}),
      shared_(shared),
      grid_(grid),
      tables_(shared.tables),
      runner_(runner) {}

void MacroPart::Import() {
    modMacro::Build(nodes);
}

MacroResult ResultOf(const MacroOutcome& outcome) {
    std::vector<std::string> texts;
    for (const MacroProblem& problem : outcome.problems) {
        texts.push_back(problem.Text());
    }
    return {texts.empty(), outcome.changed, texts.empty() ? outcome.done : Joined(texts, "\n")};
}

// --- Macros

MacroRunParts MacroPart::RunParts() {
    return {grid_.control, tables_, tree, grid_.valueEntry};
}

bool MacroPart::IsRecordingNode(const std::string& nodeKey) const {
    const HostTable table = tables_.MACRO_TREE;
    const HostTable::Row row = table.FindRow("NODEKEY", nodeKey);
    std::string type;
    // A host's table may lack the field: then there are no recordings.
    ResumeNext([&] { type = row == 0 ? std::string() : table.Text(row, "NODETYPE"); });
    return MacroNodeTypeOf(type) == MacroNodeType::Recording;
}

MacroOutcome MacroPart::Run(const std::string& nodeKey, bool onSelectedLine) {
    if (IsRecordingNode(nodeKey)) {
        return Replay(nodeKey, onSelectedLine);
    }
    MacroOutcome outcome = RunMacroNode(RunParts(), nodeKey, onSelectedLine);
    outcome.done = Counted(outcome.changed, "cell") + " changed.";
    return outcome;
}

MacroProblems MacroPart::Check(const std::string& nodeKey) {
    if (!IsRecordingNode(nodeKey)) {
        return CheckMacroNode(RunParts(), nodeKey);
    }
    const std::string fault = RecordingFault(nodeKey);
    return fault.empty() ? MacroProblems() : MacroProblems{{nodeKey, "", fault, ""}};
}

MacroOutcome MacroPart::Preview(const std::string& nodeKey, bool onSelectedLine, UploadPreview& preview) {
    if (IsRecordingNode(nodeKey)) {
        return FailedOutcome(
            "A recording is replayed step by step and cannot be seen before. Replay it, and undo it where it is "
            "wrong.");
    }
    return PreviewMacroNode(RunParts(), nodeKey, onSelectedLine, preview.changes);
}

MacroOutcome MacroPart::RunPreviewed(const std::string& nodeKey, bool onSelectedLine) {
    UploadPreview preview;
    MacroOutcome outcome = Preview(nodeKey, onSelectedLine, preview);
    if (!outcome.problems.empty()) {
        return outcome;
    }
    const TreeNode node = tree.Nodes().Find(nodeKey);
    if (preview.changes.empty()) {
        outcome.done = "The macro changes nothing.";
    } else if (!ConfirmMacro(shared_.desktop.forms, preview, node ? node.Text() : nodeKey)) {
        outcome.done = "Nothing was changed.";
    } else {
        const UploadResult result = ApplyTicked(grid_.control, grid_.valueEntry, preview.changes);
        outcome.changed = result.changed;
        outcome.done = TextOf(result, "the preview was made");
    }
    return outcome;
}

// --- Recordings

MacroReplay MacroPart::ReplayParts() {
    return MacroReplay({grid_.control, grid_.valueEntry,
                        [this](const ViewStep& step) { return runner_.MisfitOf(step); },
                        [this](const ViewStep& step) { return runner_.Replay(step); }, SentenceOf});
}

MacroOutcome MacroPart::ReplaySteps(std::vector<MacroStep> steps, bool onSelectedLine) {
    const GridControl& grid = grid_.control;
    std::string where;
    if (onSelectedLine) {
        const std::string line = SelectedLine(grid);
        if (line.empty()) {
            return FailedOutcome(
                "Select the line to replay on: its heading, or cells of it alone. Nothing was changed.");
        }
        std::optional<std::vector<MacroStep>> there = MacroReplay::OnLine(grid, std::move(steps), line);
        if (!there) {
            return FailedOutcome(
                "The recording is not about one line alone, so it can be replayed only where it was recorded. "
                "Nothing was changed.");
        }
        steps = std::move(*there);
        where = " on " + HeadingOf(grid, grid.FindRow(line).value());
    }
    MacroOutcome outcome = ReplayParts().Run(steps);
    outcome.done =
        Counted(steps.size(), "step") + " replayed" + where + ", " + Counted(outcome.changed, "cell") + " changed.";
    return outcome;
}

MacroOutcome MacroPart::Replay(const std::string& nodeKey, bool onSelectedLine) {
    if (TraceEnabled) {
        TraceWrite(MacroLabel, "BEGIN", "Replay",
                   TraceText("{node: ", nodeKey, " - selected line: ", onSelectedLine, "}"));
    }
    MacroOutcome outcome;
    std::vector<MacroStep> steps;
    if (const std::optional<std::string> error =
            ErrorTextOf([&] { steps = RecordedSteps(tree, tables_.MACRO_TREE, nodeKey); })) {
        outcome = FailedOutcome(*error);
    } else {
        outcome = ReplaySteps(std::move(steps), onSelectedLine);
    }
    for (MacroProblem& problem : outcome.problems) {
        problem.nodeKey = nodeKey;
    }
    if (TraceEnabled) {
        const MacroResult result = ResultOf(outcome);
        TraceWrite(MacroLabel, "END", "Replay", TraceText("{cells: ", result.cells, " - ", result.message, "}"));
    }
    return outcome;
}

std::string MacroPart::RecordingFault(const std::string& nodeKey) {
    std::string fault;
    const std::optional<std::string> error =
        ErrorTextOf([&] { fault = ReplayParts().Check(RecordedSteps(tree, tables_.MACRO_TREE, nodeKey)); });
    return error.value_or(fault);
}

}  // namespace planview
