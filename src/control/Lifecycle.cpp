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
        ResumeNext([&] { tables.*table.slot = HostTable(nullptr, table.name); },
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
    AssertOwnThread(*state);
    if (state->terminated) {
        return;
    }
    state->terminated = true;
    ControlContext& context = state->context;
    context.macros.recording.Abandon();
    context.shared.failures->Abandon();
    ResumeNext([&] { context.grid.driver.Destructor(false); }, [&] { ReleaseTables(context.shared.tables); },
               [&] { TraceWrite(UserControl, "DESTRUCTOR", "Terminate", "{}"); },
               [&] { modPlan::MemoryCheck(context.shared.desktop.system); },
               [&] { modPlan::Trace_Disable(context.shared.desktop); },
               [&] { modPlan::Trace_Leave(context.shared.desktop); });
}

}  // namespace planview
