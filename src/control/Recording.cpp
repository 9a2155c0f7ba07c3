// SPDX-License-Identifier: MIT
#include <planview/Recording.h>

#include "control/Guarded.h"
#include "grid/CellRules.h"
#include "macro/recording/MacroKeep.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view MacroLabel = "MACRO";

void TellUser(const ControlContext& context, const std::string& text) {
    context.shared.desktop.messageBoxes.Show(
        {text, "Macro", MessageButtons::Ok, MessageIcon::Exclamation, MessageAnswer::Ok});
}

}  // namespace

void Recording::Start() {
    RunCommand(State(), Command::StartRecording);
}

void Recording::Pause() {
    RunCommand(State(), Command::PauseRecording);
}

void Recording::Stop() {
    RunCommand(State(), Command::StopRecording);
}

void Recording::UndoStep() {
    RunCommand(State(), Command::UndoRecordedStep);
}

bool Recording::IsOn() const noexcept {
    return State()->context.macros.recording.State() != RecordState::Off;
}

bool Recording::IsPaused() const noexcept {
    return State()->context.macros.recording.State() == RecordState::Interrupted;
}

int Recording::Steps() const noexcept {
    return State()->context.macros.recording.StepCount();
}

ListenerId Recording::AddListener(std::function<void()> listener) {
    return State()->context.macros.recording.Listeners().Add(std::move(listener));
}

void Recording::RemoveListener(ListenerId listener) noexcept {
    State()->context.macros.recording.Listeners().Remove(listener);
}

std::string Recording::Keep(const std::string& name, const std::string& parentNode) {
    std::string key;
    Guarded(State(), MacroLabel, "KeepRecording", [&](ControlContext& context) {
        const HostTable macroRec = context.shared.tables.MACROREC;
        const HostTable macroTree = context.shared.tables.MACRO_TREE;
        if (context.grid.control.IsReadOnly()) {
            TellUser(context, "The recording cannot be kept. " + std::string(RefusalText(Refusal::TableReadOnly)));
            return;
        }
        if (!macroRec.IsSet() || !macroTree.IsSet()) {
            TellUser(context, "The recording cannot be kept: the host has not set MACROREC and MACRO_TREE.");
            return;
        }
        const std::vector<MacroStep> steps = ReadSteps(macroRec);
        if (steps.empty()) {
            TellUser(context, "There is nothing to keep: no step was recorded.");
            return;
        }
        if (const std::optional<CaughtError> error =
                CaughtErrorOf([&] { key = KeepSteps(macroTree, steps, name, parentNode, SentenceOf); })) {
            TraceError(MacroLabel, "KeepRecording", *error);
            TellUser(context, "The recording cannot be kept in MACRO_TREE.\n" + error->text);
        } else if (TraceEnabled) {
            TraceWrite(MacroLabel, "", "KeepRecording", TraceText("{node: ", key, " - text: ", name, "}"));
        }
    });
    if (!key.empty()) {
        ImportMacroTree(State());
    }
    return key;
}

}  // namespace planview
