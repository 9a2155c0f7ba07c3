// SPDX-License-Identifier: MIT
#include <planview/Macros.h>

#include "automation/Texts.h"
#include "control/Guarded.h"
#include "control/MacroCommands.h"
#include "grid/CellCaption.h"
#include "macro/recording/MacroRecorded.h"
#include "macro/recording/MacroReplay.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view MacroLabel = "MACRO";

MacroReplay ReplayOf(ControlContext& context) {
    return MacroReplay({context.grid, context.valueEntry,
                        [&](const ViewStep& step) { return context.runner.MisfitOf(step); },
                        [&](const ViewStep& step) { return context.runner.Replay(step); }, SentenceOf});
}

MacroOutcome Replay(ControlContext& context, std::vector<MacroStep> steps, bool onSelectedLine) {
    std::string where;
    if (onSelectedLine) {
        const std::string line = SelectedLine(context.grid);
        if (line.empty()) {
            return FailedOutcome(
                "Select the line to replay on: its heading, or cells of it alone. Nothing was changed.");
        }
        std::optional<std::vector<MacroStep>> there = MacroReplay::OnLine(context.grid, std::move(steps), line);
        if (!there) {
            return FailedOutcome(
                "The recording is not about one line alone, so it can be replayed only where it was recorded. "
                "Nothing was changed.");
        }
        steps = std::move(*there);
        where = " on " + HeadingOf(context.grid, context.grid.FindRow(line).value());
    }
    MacroOutcome outcome = ReplayOf(context).Run(steps);
    outcome.done =
        Counted(steps.size(), "step") + " replayed" + where + ", " + Counted(outcome.changed, "cell") + " changed.";
    return outcome;
}

}  // namespace

MacroOutcome ReplayRecording(ControlContext& context, const std::string& nodeKey, bool onSelectedLine) {
    if (TraceEnabled) {
        TraceWrite(MacroLabel, "BEGIN", "Replay",
                   TraceText("{node: ", nodeKey, " - selected line: ", onSelectedLine, "}"));
    }
    MacroOutcome outcome;
    std::vector<MacroStep> steps;
    if (const std::optional<std::string> error =
            ErrorTextOf([&] { steps = RecordedSteps(context.tree, context.tables.MACRO_TREE, nodeKey); })) {
        outcome = FailedOutcome(*error);
    } else {
        outcome = Replay(context, std::move(steps), onSelectedLine);
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

std::string RecordingFault(ControlContext& context, const std::string& nodeKey) {
    std::string fault;
    const std::optional<std::string> error = ErrorTextOf(
        [&] { fault = ReplayOf(context).Check(RecordedSteps(context.tree, context.tables.MACRO_TREE, nodeKey)); });
    return error.value_or(fault);
}

MacroResult Macros::Replay(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(State(), MacroLabel, "Replay",
            [&](ControlContext& context) { result = ResultOf(ReplayRecording(context, nodeKey, onSelectedLine)); });
    return result;
}

}  // namespace planview
