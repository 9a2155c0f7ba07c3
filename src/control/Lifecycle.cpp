// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view UserControl = "USERCONTROL";

void ReleaseTables(TableSlots& tables) {
    for (const TableDescription& table : DescribeTables()) {
        ResumeNext([&] { tables.*table.slot = HostTable(); },
                   [&] {
                       if (!table.releasedAs.empty()) {
                           TraceWrite("Q/7-OBJECT", "", table.releasedAs, "{=Nothing}");
                       }
                   });
    }
}

}  // namespace

void PlanView::Terminate() {
    const std::shared_ptr<State> state = state_;
    if (state->terminated) {
        return;
    }
    state->terminated = true;
    ControlContext& context = state->context;
    context.recording.Abandon();
    ResumeNext([&] { context.driver.Destructor(false); }, [&] { ReleaseTables(context.tables); },
               [&] { TraceWrite(UserControl, "DESTRUCTOR", "Terminate", "{}"); },
               [&] { modPlan::MemoryCheck(context.platform.system); },
               [&] { modPlan::Trace_Disable(context.platform); }, [&] { modPlan::Trace_Leave(context.platform); });
}

namespace {

/// A focus event has its entry and nothing else.
template <class State>
void TraceFocus(const std::shared_ptr<State>& state, std::string_view event) {
    Guarded(state, UserControl, event, [&](ControlContext&) { TraceWrite(UserControl, "", event, "{}"); });
}

}  // namespace

void PlanView::EnterFocus() {
    TraceFocus(state_, "EnterFocus");
}

void PlanView::ExitFocus() {
    TraceFocus(state_, "ExitFocus");
}

void PlanView::GotFocus() {
    TraceFocus(state_, "GotFocus");
}

void PlanView::LostFocus() {
    TraceFocus(state_, "LostFocus");
}

void PlanView::Resize(int width, int height) {
    Guarded(state_, UserControl, "Resize", [&](ControlContext& context) {
        if (TraceEnabled) {
            TraceWrite(UserControl, "", "Resize", TraceText("{width:", width, " height:", height, "}"));
        }
        context.layout.Resize(width, height);
    });
}

}  // namespace planview
