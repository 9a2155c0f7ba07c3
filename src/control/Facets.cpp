// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/Diagnostics.h>
#include <planview/PlanView.h>
#include <planview/Trace.h>

#include "control/Guarded.h"

namespace planview {

Facet::Facet(PlanView& control) noexcept : state_(control.state_) {}

const std::shared_ptr<detail::ControlState>& Facet::State() const noexcept {
    AssertOwnThread(*state_);
    return state_;
}

bool Diagnostics::TraceIsOn() const noexcept {
    return planview::TraceIsOn();
}

void Diagnostics::ShowTrace() {
    RunCommand(State(), Command::ShowTrace);
}

std::vector<TableReport> Diagnostics::LastBuild() const {
    std::vector<TableReport> report;
    Asked(State(), "GRIDCTL", "LastBuild",
          [&](const ControlContext& context) { report = context.grid.construction.Report(); });
    return report;
}

ListenerId Diagnostics::AddFailureListener(std::function<void(const Failure& failure)> listener) {
    return State()->terminated ? ListenerId() : State()->context.shared.failures->Listeners().Add(std::move(listener));
}

void Diagnostics::RemoveFailureListener(ListenerId listener) noexcept {
    State()->context.shared.failures->Listeners().Remove(listener);
}

}  // namespace planview
