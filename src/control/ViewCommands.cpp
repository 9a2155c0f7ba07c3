// SPDX-License-Identifier: MIT
#include "control/ViewCommands.h"

#include "control/ControlContext.h"
#include "grid/BusyScope.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

void PutFlag(const ControlContext& context, std::string_view field, bool set) {
    const HostTable gridAttr = context.tables.GRID_ATTR;
    if (gridAttr.IsSet()) {
        gridAttr.PutFlag(1, field, set);
    }
}

void SetZoomed(ControlContext& context, bool zoomed) {
    context.settings.zoomed = zoomed;
    PutFlag(context, "ZOOMED", zoomed);
    context.layout.LayOut(Splitter::GridSplit);
}

}  // namespace

void SwitchGrid(ControlContext& context) {
    modPlan::TraceWrite("GRIDCTL", "{}", "#SWITCH GRID#", "BEGIN");
    context.settings.switched = !context.settings.switched;
    {
        const BusyScope busy(context.busy);
        context.driver.Switch(context.settings.switched, true);
    }
    PutFlag(context, "SWITCHED", context.settings.switched);
    context.hostUpdate.StartUpdate();
}

void ZoomGrid(ControlContext& context) {
    SetZoomed(context, !context.settings.zoomed);
    context.hostUpdate.StartUpdate();
}

void ToggleMacroTree(ControlContext& context) {
    const bool shown = !context.settings.treeShown;
    context.settings.treeShown = shown;
    if (shown && context.settings.zoomed) {
        SetZoomed(context, false);  // the zoomed grid would hide the tree
    }
    context.layout.LayOut(Splitter::CtrlSplit);
    if (shown) {
        context.layout.LayOut(Splitter::TreeSplit);
    }
    PutFlag(context, "HIDDEN_LIST", shown);
    context.hostUpdate.StartUpdate();
}

}  // namespace planview
