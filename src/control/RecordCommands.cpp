// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "macro/recording/MacroKeep.h"
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

}  // namespace

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
                ErrorTextOf([&] { key = KeepSteps(macroTree, steps, name, parentNode, SentenceOf); })) {
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

}  // namespace planview
