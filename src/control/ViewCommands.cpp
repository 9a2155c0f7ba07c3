#include "control/ViewCommands.h"

#include "control/ControlContext.h"
#include "grid/BusyScope.h"
#include "grid/modGrid.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

void TellHost(ControlContext& context, std::string_view field, bool set) {
    const HostTable gridAttr = context.tables.GRID_ATTR;
    if (gridAttr.IsSet()) {
        gridAttr.PutFlag(1, field, set);
    }
    context.hostUpdate.StartUpdate();
}

}  // namespace

void SwitchGrid(ControlContext& context) {
    modPlan::TraceWrite("GRIDCTL", "{}", "#SWITCH GRID#", "BEGIN");
    context.settings.switched = !context.settings.switched;
    {
        const BusyScope busy(context.busy);
        modGrid::Switch(context.grid, context.settings.switched, true);
    }
    TellHost(context, "SWITCHED", context.settings.switched);
}

void ZoomGrid(ControlContext& context) {
    context.settings.zoomed = !context.settings.zoomed;
    context.layout.SetZoomed(context.settings.zoomed);
    TellHost(context, "ZOOMED", context.settings.zoomed);
}

void ToggleMacroTree(ControlContext& context) {
    context.settings.treeShown = !context.settings.treeShown;
    context.layout.ShowTree(context.settings.treeShown);
    if (context.settings.treeShown) {
        context.layout.LayOutTreeSplitter();
    }
    TellHost(context, "HIDDEN_LIST", context.settings.treeShown);
}

}  // namespace planview
