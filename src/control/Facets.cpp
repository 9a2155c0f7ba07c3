// SPDX-License-Identifier: MIT
#include <planview/Diagnostics.h>
#include <planview/PlanView.h>
#include <planview/Trace.h>

#include "control/Guarded.h"

namespace planview {

Facet::Facet(PlanView& control) noexcept : state_(control.state_) {}

bool Diagnostics::TraceIsOn() const noexcept {
    return planview::TraceIsOn();
}

void Diagnostics::ShowTrace() {
    RunCommand(State(), Command::ShowTrace);
}

}  // namespace planview
