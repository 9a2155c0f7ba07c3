// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

#include "control/Guarded.h"

namespace planview {

bool RunCommand(const std::shared_ptr<detail::ControlState>& state, Command command,
                AutomationObject::Arguments arguments) noexcept {
    bool done = false;
    if (const CommandRow* row = FindCommand(command)) {
        Guarded(state, row->control, row->Method(),
                [&](ControlContext& context) { done = context.runner.RunWith(command, arguments); });
    }
    return done;
}

bool PlanView::Run(Command command, Arguments arguments) {
    return RunCommand(state_, command, arguments);
}

CommandState PlanView::StateOf(Command command) const {
    return StatesOf({&command, 1}).front();
}

std::vector<CommandState> PlanView::StatesOf(std::span<const Command> commands) const {
    const std::shared_ptr<detail::ControlState> state = state_;
    AssertOwnThread(*state);
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

ListenerId PlanView::AddCommandListener(std::function<void()> listener) {
    AssertOwnThread(*state_);
    return state_->context.runner.Listeners().Add(std::move(listener));
}

void PlanView::RemoveCommandListener(ListenerId listener) noexcept {
    AssertOwnThread(*state_);
    state_->context.runner.Listeners().Remove(listener);
}

}  // namespace planview
