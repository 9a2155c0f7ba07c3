#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "control/RecordedActions.h"
#include "macro/MacroKeep.h"
#include "macro/MacroRecorded.h"
#include "macro/MacroReplay.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view MacroLabel = "MACRO";

void TellUser(const ControlContext& context, const std::string& text) {
    context.platform.messageBoxes.Show(
        {text, "Macro", MessageButtons::Ok, MessageIcon::Exclamation, MessageAnswer::Ok});
}

std::string Counted(int count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
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
    const MacroReplay replay({context.grid, context.valueEntry,
                              [&](const ViewAction& action) { return ActionRefusal(context, action); },
                              [&](const ViewAction& action) { PerformAction(context, action); }});
    const ReplayResult result = replay.Run(steps);
    if (!result.error.empty()) {
        return {false, result.cells, result.error};
    }
    return {true, result.cells,
            Counted(result.steps, "step") + " replayed" + where + ", " + Counted(result.cells, "cell") + " changed."};
}

}  // namespace

void PlanView::StartRecording() {
    Guarded(state_, MacroLabel, "StartRecord", [](ControlContext& context) { context.recording.StartRecord(); });
}

void PlanView::PauseRecording() {
    Guarded(state_, MacroLabel, "InterruptRecord",
            [](ControlContext& context) { context.recording.InterruptRecord(); });
}

void PlanView::StopRecording() {
    Guarded(state_, MacroLabel, "StopRecord", [](ControlContext& context) { context.recording.StopRecord(); });
}

void PlanView::UndoRecordedStep() {
    Guarded(state_, MacroLabel, "UndoRecord", [](ControlContext& context) { context.recording.UndoRecord(); });
}

bool PlanView::IsRecording() const noexcept {
    return state_->context.recording.State() != RecordState::Off;
}

bool PlanView::IsRecordingPaused() const noexcept {
    return state_->context.recording.State() == RecordState::Interrupted;
}

int PlanView::RecordedSteps() const noexcept {
    return state_->context.recording.StepCount();
}

void PlanView::SetRecordingListener(std::function<void()> listener) {
    state_->context.recording.SetListener(std::move(listener));
}

std::string PlanView::KeepRecording(const std::string& name, const std::string& parentNode) {
    std::string key;
    Guarded(state_, MacroLabel, "KeepRecording", [&](ControlContext& context) {
        const HostTable macroRec = context.tables.MACROREC;
        const HostTable macroTree = context.tables.MACRO_TREE;
        if (!macroRec.IsSet() || !macroTree.IsSet()) {
            TellUser(context, "The recording cannot be kept: the host has not set MACROREC and MACRO_TREE.");
            return;
        }
        const std::vector<MacroStep> steps = ReadSteps(macroRec);
        if (steps.empty()) {
            TellUser(context, "There is nothing to keep: no step was recorded.");
            return;
        }
        if (const std::optional<std::string> error =
                ErrorTextOf([&] { key = KeepSteps(macroTree, steps, name, parentNode); })) {
            TraceError(MacroLabel, "KeepRecording", *error);
            TellUser(context, "The recording cannot be kept in MACRO_TREE.\n" + *error);
        } else if (TraceEnabled) {
            TraceWrite(MacroLabel, "", "KeepRecording", TraceText("{node: ", key, " - text: ", name, "}"));
        }
    });
    if (!key.empty()) {
        DP_Import_MacroTree();
    }
    return key;
}

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

}  // namespace planview
