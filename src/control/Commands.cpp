// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

#include "control/Guarded.h"

namespace planview {

bool PlanView::Run(Command command, Arguments arguments) {
    bool done = false;
    if (const CommandRow* row = FindCommand(command)) {
        Guarded(state_, row->control, row->Method(),
                [&](ControlContext& context) { done = context.runner.RunWith(command, arguments); });
    }
    return done;
}

CommandState PlanView::StateOf(Command command) const {
    return StatesOf({&command, 1}).front();
}

std::vector<CommandState> PlanView::StatesOf(std::span<const Command> commands) const {
    const std::shared_ptr<State> state = state_;
    std::vector<CommandState> states(commands.size());
    const CommandSituation now = state->context.runner.Situation();
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (state->terminated) {
            states[i].reason = "The control has ended.";
            continue;
        }
        // A host's table that is asked may fail.
        if (const std::optional<std::string> error =
                ErrorTextOf([&] { states[i] = CommandRunner::StateOf(commands[i], now); })) {
            states[i] = {false, false, *error, {}};
        }
    }
    return states;
}

void PlanView::SetCommandListener(std::function<void()> listener) {
    state_->context.runner.SetListener(std::move(listener));
}

// --- Values

void PlanView::Undo() {
    Run(Command::Undo);
}

void PlanView::Redo() {
    Run(Command::Redo);
}

bool PlanView::CanUndo() const noexcept {
    return state_->context.history.CanUndo();
}

bool PlanView::CanRedo() const noexcept {
    return state_->context.history.CanRedo();
}

void PlanView::Copy() {
    Run(Command::Copy);
}

void PlanView::Cut() {
    Run(Command::Cut);
}

void PlanView::Paste() {
    Run(Command::Paste);
}

void PlanView::Fill() {
    Run(Command::Fill);
}

void PlanView::Delete() {
    Run(Command::Delete);
}

void PlanView::RaiseSelected(double percent) {
    const Variant argument(percent);
    Run(Command::Raise, {&argument, 1});
}

// --- Columns, rows and panes

void PlanView::HideColumns() {
    Run(Command::HideColumns);
}

void PlanView::ShowColumns() {
    Run(Command::ShowColumns);
}

void PlanView::HideRows() {
    Run(Command::HideRows);
}

void PlanView::ShowRows() {
    Run(Command::ShowRows);
}

void PlanView::SwitchChart() {
    Run(Command::SwitchChart);
}

bool PlanView::ChartShown() const noexcept {
    return state_->context.settings.chartShown;
}

void PlanView::ShowSelectedColumnsInChart() {
    Run(Command::ShowColumnsInChart);
}

void PlanView::ShowSelectedRowsInChart() {
    Run(Command::ShowRowsInChart);
}

void PlanView::SwitchMacroTree() {
    Run(Command::SwitchMacroTree);
}

bool PlanView::MacroTreeShown() const noexcept {
    return state_->context.settings.treeShown;
}

// --- Exchange and recording

void PlanView::Download() {
    Run(Command::Download);
}

void PlanView::Upload() {
    Run(Command::Upload);
}

void PlanView::StartRecording() {
    Run(Command::StartRecording);
}

void PlanView::PauseRecording() {
    Run(Command::PauseRecording);
}

void PlanView::StopRecording() {
    Run(Command::StopRecording);
}

void PlanView::UndoRecordedStep() {
    Run(Command::UndoRecordedStep);
}

}  // namespace planview
