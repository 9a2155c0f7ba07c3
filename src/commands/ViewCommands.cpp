// SPDX-License-Identifier: MIT
#include "commands/ViewCommands.h"

#include "automation/BusyScope.h"
#include "trace/modPlan.h"

namespace planview::commands {

namespace {

void PutFlag(const CommandParts& on, std::string_view field, bool set) {
    const HostTable gridAttr = on.tables.GRID_ATTR;  // the host may take the table back while it is written
    PutGridFlag(gridAttr, field, set);
}

void SetZoomed(CommandParts& on, bool zoomed) {
    PutFlag(on, "ZOOMED", zoomed);
    on.settings.zoomed = zoomed;
    on.layout.LayOut(Splitter::GridSplit);
}

}  // namespace

void SwitchGrid(CommandParts& on, CommandCall& /*call*/) {
    modPlan::TraceWrite("GRIDCTL", "{}", "#SWITCH GRID#", "BEGIN");
    const bool switched = !on.settings.switched;
    PutFlag(on, "SWITCHED", switched);
    on.settings.switched = switched;
    {
        const BusyScope busy(on.busy);
        on.driver.Switch(switched, true);
    }
    on.hostUpdate.StartUpdate();
}

void ZoomGrid(CommandParts& on, CommandCall& /*call*/) {
    SetZoomed(on, !on.settings.zoomed);
    on.hostUpdate.StartUpdate();
}

void SwitchMacroTree(CommandParts& on, CommandCall& call) {
    call.done = on.settings.layoutMode;
    if (!call.done) {
        return;
    }
    const bool shown = !on.settings.treeShown;
    PutFlag(on, "HIDDEN_LIST", shown);
    on.settings.treeShown = shown;
    if (shown && on.settings.zoomed) {
        SetZoomed(on, false);  // the zoomed grid would hide the tree
    }
    on.layout.LayOut(Splitter::CtrlSplit);
    if (shown) {
        on.layout.LayOut(Splitter::TreeSplit);
    }
    on.hostUpdate.StartUpdate();
}

}  // namespace planview::commands
