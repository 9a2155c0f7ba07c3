#include <algorithm>

#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "control/RecordedActions.h"
#include "macro/MacroRecorded.h"
#include "macro/MacroReplay.h"
#include "macro/MacroRun.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view MacroLabel = "MACRO";

std::string Counted(int count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

MacroReplay ReplayOf(ControlContext& context) {
    return MacroReplay({context.grid, context.valueEntry,
                        [&](const ViewAction& action) { return ActionRefusal(context, action); },
                        [&](const ViewAction& action) { PerformAction(context, action); }});
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
        where = " on " + CaptionOf(context.grid, PlaceAxis::Lines, line);
    }
    const ReplayResult result = ReplayOf(context).Run(steps);
    if (!result.error.empty()) {
        return {false, result.cells, result.error};
    }
    return {true, result.cells,
            Counted(result.steps, "step") + " replayed" + where + ", " + Counted(result.cells, "cell") + " changed."};
}

/// The macro or recording that the node is or stands in, with what is below it; empty where there is none.
MacroOutline OutlineOf(ControlContext& context, const std::string& nodeKey) {
    const HostTable macroTree = context.tables.MACRO_TREE;
    return macroTree.IsSet()
               ? MacroOutline::Read(context.tree, macroTree, MacroKeyOf(context.tree, macroTree, nodeKey))
               : MacroOutline();
}

MacroResult NoMacro() {
    return {false, 0, "This is no macro and no recording. Choose one in the tree."};
}

bool IsForSelectedLine(const MacroOutline& outline) {
    for (int i = 0; i < outline.Count(); ++i) {
        const MacroNode& node = outline.At(i);
        if (node.type == MacroNodeType::TableLine && node.value == SelectedPlace) {
            return true;
        }
    }
    return false;
}

std::string TextOf(const MacroProblems& problems) {
    std::string text;
    for (const MacroProblem& problem : problems) {
        text += (text.empty() ? "" : "\n") + problem.Text();
    }
    return text;
}

MacroRunParts PartsOf(ControlContext& context) {
    return {context.grid, context.tables, context.tree, context.valueEntry};
}

}  // namespace

MacroResult PlanView::ReplayMacro(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(state_, MacroLabel, "Replay", [&](ControlContext& context) {
        const HostTable macroTree = context.tables.MACRO_TREE;
        if (TraceEnabled) {
            TraceWrite(MacroLabel, "BEGIN", "Replay",
                       TraceText("{node: ", nodeKey, " - selected line: ", onSelectedLine, "}"));
        }
        std::vector<MacroStep> steps;
        if (const std::optional<std::string> error =
                ErrorTextOf([&] { steps = planview::RecordedSteps(context.tree, macroTree, nodeKey); })) {
            result.message = *error;
        } else {
            result = Replay(context, std::move(steps), onSelectedLine);
        }
        if (TraceEnabled) {
            TraceWrite(MacroLabel, "END", "Replay", TraceText("{cells: ", result.cells, " - ", result.message, "}"));
        }
    });
    return result;
}

MacroResult PlanView::RunMacro(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result = NoMacro();
    std::string recording;
    Guarded(state_, MacroLabel, "RunMacro", [&](ControlContext& context) {
        const MacroOutline outline = OutlineOf(context, nodeKey);
        if (outline.IsEmpty()) {
            return;
        }
        const MacroNode& macro = outline.At(0);
        if (macro.type == MacroNodeType::Recording) {
            recording = macro.key;
        } else if (onSelectedLine && !IsForSelectedLine(outline)) {
            result.message =
                "This macro names its lines itself; it cannot be run on the selected one. Nothing was changed.";
        } else {
            const MacroOutcome outcome = RunMacroNode(PartsOf(context), macro.key);
            result.done = outcome.problems.empty();
            result.cells = outcome.changed;
            result.message = result.done ? Counted(outcome.changed, "cell") + " changed."
                                         : TextOf(outcome.problems) + "\nNothing was changed.";
        }
    });
    return recording.empty() ? result : ReplayMacro(recording, onSelectedLine);
}

MacroResult PlanView::CheckMacro(const std::string& nodeKey) {
    MacroResult result = NoMacro();
    Guarded(state_, MacroLabel, "CheckMacro", [&](ControlContext& context) {
        const MacroOutline outline = OutlineOf(context, nodeKey);
        if (outline.IsEmpty()) {
            return;
        }
        const MacroNode& macro = outline.At(0);
        std::string fault;
        if (macro.type == MacroNodeType::Recording) {
            const std::optional<std::string> error = ErrorTextOf([&] {
                fault = ReplayOf(context).Check(
                    planview::RecordedSteps(context.tree, context.tables.MACRO_TREE, macro.key));
            });
            fault = error.value_or(fault);
        } else {
            fault = TextOf(CheckMacroNode(PartsOf(context), macro.key));
        }
        result.done = fault.empty();
        result.message = result.done ? "It has no fault." : fault;
    });
    return result;
}

}  // namespace planview
