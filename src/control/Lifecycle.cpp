// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view UserControl = "USERCONTROL";

/// Empties a slot. `name` is what the entry calls it; TAB is released without one.
void Release(HostTable& slot, std::string_view name) {
    ResumeNext([&] { slot = HostTable(); },
               [&] {
                   if (!name.empty()) {
                       TraceWrite("Q/7-OBJECT", "", name, "{=Nothing}");
                   }
               });
}

void ReleaseTables(TableSlots& tables) {
    Release(tables.GRID_ATTR, "GRID_ATTR");
    Release(tables.COLS_INDEX, "COLS_INDEX");
    Release(tables.LINE_INDEX, "LINE_INDEX");
    Release(tables.TAB, "");
    Release(tables.TAB_OLD, "TAB_OLD");
    Release(tables.FIXED_COLS, "FIXED_COLS");
    Release(tables.FIXED_LINES, "FIXED_LINES");
    Release(tables.FIXED_TAB, "FIXED_TAB");
    Release(tables.CELL_ATTR, "CELL_ATTR");
    Release(tables.GRID_TREE, "GRID_TREE");
    Release(tables.MACRO_TREE, "MACRO_TREE");
    Release(tables.TEXTS, "TEXTS");
    // The names of the menu and recording slots carry an underscore here, unlike their properties.
    Release(tables.COLMENU, "COL_MENU");
    Release(tables.ROWMENU, "ROW_MENU");
    Release(tables.GRIDMENU, "GRID_MENU");
    Release(tables.CELLMENU, "CELL_MENU");
    Release(tables.MACROREC, "MACRO_REC");
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
               [&] {
                   if (TraceEnabled) {
                       modPlan::Trace_Disable(context.platform);
                   }
               },
               [&] { modPlan::Trace_Leave(context.platform); });
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
