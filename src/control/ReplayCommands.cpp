// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

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

MacroResult Replay(ControlContext& context, std::vector<MacroStep> steps, bool onSelectedLine) {
    std::string where;
    if (onSelectedLine) {
        const std::string line = SelectedLine(context.grid);
        if (line.empty()) {
            return {false, 0, "Select the line to replay on: its heading, or cells of it alone. Nothing was changed."};
        }
        std::optional<std::vector<MacroStep>> there = MacroReplay::OnLine(context.grid, std::move(steps), line);
        if (!there) {
            return {false, 0,
                    "The recording is not about one line alone, so it can be replayed only where it was recorded. "
                    "Nothing was changed."};
        }
        steps = std::move(*there);
        where = " on " + HeadingOf(context.grid, context.grid.FindRow(line).value());
    }
    const ReplayResult result = ReplayOf(context).Run(steps);
    if (!result.error.empty()) {
        return {false, result.cells, result.error};
    }
    return {true, result.cells,
            Counted(result.steps, "step") + " replayed" + where + ", " + Counted(result.cells, "cell") + " changed."};
}

}  // namespace

MacroResult ReplayRecording(ControlContext& context, const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    if (TraceEnabled) {
        TraceWrite(MacroLabel, "BEGIN", "Replay",
                   TraceText("{node: ", nodeKey, " - selected line: ", onSelectedLine, "}"));
    }
    std::vector<MacroStep> steps;
    if (const std::optional<std::string> error =
            ErrorTextOf([&] { steps = RecordedSteps(context.tree, context.tables.MACRO_TREE, nodeKey); })) {
        result.message = *error;
    } else {
        result = Replay(context, std::move(steps), onSelectedLine);
    }
    if (TraceEnabled) {
        TraceWrite(MacroLabel, "END", "Replay", TraceText("{cells: ", result.cells, " - ", result.message, "}"));
    }
    return result;
}

std::string RecordingFault(ControlContext& context, const std::string& nodeKey) {
    std::string fault;
    const std::optional<std::string> error = ErrorTextOf(
        [&] { fault = ReplayOf(context).Check(RecordedSteps(context.tree, context.tables.MACRO_TREE, nodeKey)); });
    return error.value_or(fault);
}

MacroResult PlanView::ReplayMacro(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(state_, MacroLabel, "Replay",
            [&](ControlContext& context) { result = ReplayRecording(context, nodeKey, onSelectedLine); });
    return result;
}

}  // namespace planview
