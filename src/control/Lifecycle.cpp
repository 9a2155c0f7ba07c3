// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

#include "control/Guarded.h"

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
    const std::shared_ptr<detail::ControlState> state = state_;
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

}  // namespace planview
