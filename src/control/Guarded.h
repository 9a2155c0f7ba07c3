// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include "control/ControlContext.h"
#include "trace/ErrorTrap.h"

namespace planview {

/// The frame of a question: keeps the control's state alive while the body runs (the host may destroy the control from
/// inside an event, or from a table that is read), does nothing on a control that has ended, and traps errors.
template <class Body>
void Asked(std::shared_ptr<detail::ControlState> state, std::string_view control, std::string_view method,
           Body&& body) noexcept {
    AssertOwnThread(*state);
    if (!state->terminated) {
        const FailureScope failures(state->context.shared.failures);
        ErrorTrap(control, method, [&] { body(state->context); });
    }
}

/// The frame of every public method that does something: the same, and afterwards commands may be enabled otherwise
/// than before. Answers the status.
template <class Body>
PlanView::Status Guarded(std::shared_ptr<detail::ControlState> state, std::string_view control, std::string_view method,
                         Body&& body) noexcept {
    AssertOwnThread(*state);
    if (!state->terminated) {
        {
            const FailureScope failures(state->context.shared.failures);
            ErrorTrap(control, method, [&] { body(state->context); });
        }
        state->context.runner.Changed();
    }
    return 0;
}

/// Runs a command as PlanView::Run() does.
bool RunCommand(const std::shared_ptr<detail::ControlState>& state, Command command,
                AutomationObject::Arguments arguments = {}) noexcept;

/// What `DP_Import_MacroTree` does.
void ImportMacroTree(const std::shared_ptr<detail::ControlState>& state) noexcept;

}  // namespace planview
