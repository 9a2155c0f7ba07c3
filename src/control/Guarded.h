// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include "control/ControlContext.h"
#include "trace/ErrorTrap.h"

namespace planview {

/// The frame of every public method: keeps the control's state alive while the body runs (the host may destroy the
/// control from inside an event), does nothing on a control that has ended, and traps errors. Afterwards commands may
/// be enabled otherwise than before. Answers the status.
template <class State, class Body>
PlanView::Status Guarded(std::shared_ptr<State> state, std::string_view control, std::string_view method,
                         Body&& body) noexcept {
    if (!state->terminated) {
        ErrorTrap(control, method, [&] { body(state->context); });
        state->context.runner.Changed();
    }
    return 0;
}

}  // namespace planview
