// SPDX-License-Identifier: MIT
#include <string>

#include <planview/PlanView.h>

#include "automation/BusyScope.h"
#include "control/Guarded.h"
#include "control/MacroCommands.h"
#include "grid/MarkedRows.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view UserControl = "USERCONTROL";

void TraceCall(std::string_view method) noexcept {
    TraceWrite(UserControl, "", method, "{}");
}

}  // namespace

PlanView::PlanView(const Platform& platform) : state_(std::make_shared<detail::ControlState>(platform)) {
    modPlan::TraceDecimalMark = state_->context.platform.system.DecimalMark();
    TraceWrite(UserControl, "CONSTRUCTOR", "Initialize", "{}");
    Guarded(state_, UserControl, "Initialize", [](ControlContext& context) {
        context.layout.LayOut();
        context.construction.CreateEmpty();
    });
}

PlanView::~PlanView() {
    Terminate();
}

// --- Trace ----------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_EnableTrace() {
    return Guarded(state_, UserControl, "plv_EnableTrace",
                   [](ControlContext& context) { modPlan::Trace_Enable(context.platform); });
}

PlanView::Status PlanView::plv_DisableTrace() {
    return Guarded(state_, UserControl, "plv_DisableTrace",
                   [](ControlContext& context) { modPlan::Trace_Disable(context.platform); });
}

// --- Panes ----------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_LayoutShow() {
    return Guarded(state_, UserControl, "plv_LayoutShow", [](ControlContext& context) {
        TraceCall("plv_LayoutShow");
        if (!context.tables.MACRO_TREE.IsSet()) {
            context.platform.messageBoxes.Show(
                {"NOTHING", "", MessageButtons::Ok, MessageIcon::None, MessageAnswer::Ok});
        }
        if (context.settings.layoutMode) {
            context.settings.treeShown = true;
            context.layout.LayOut(Splitter::CtrlSplit);
            context.layout.LayOut(Splitter::TreeSplit);
        }
    });
}

PlanView::Status PlanView::plv_LayoutHide() {
    return Guarded(state_, UserControl, "plv_LayoutHide", [](ControlContext& context) {
        TraceCall("plv_LayoutHide");
        if (context.tables.MACRO_TREE.IsSet() && context.settings.layoutMode) {
            context.settings.treeShown = false;
            context.layout.LayOut(Splitter::CtrlSplit);
        }
    });
}

PlanView::Status PlanView::plv_LayoutMode() {
    return Guarded(state_, UserControl, "plv_LayoutMode", [](ControlContext& context) {
        context.settings.layoutMode = true;
        TraceWrite("GRIDCTL", "", "LayoutMode", "{Enabled}");
    });
}

PlanView::Status PlanView::plv_LayoutModeDisable() {
    return Guarded(state_, UserControl, "plv_LayoutModeDisable", [](ControlContext& context) {
        context.settings.layoutMode = false;
        TraceWrite("GRIDCTL", "", "LayoutMode", "{Disabled}");
    });
}

// --- Macro tree -----------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_ActiveNode(const std::string& vNode) {
    return Guarded(state_, UserControl, "plv_ActiveNode", [&](ControlContext& context) {
        if (TraceEnabled) {
            TraceWrite("MACROTREE", "", "ActiveNode", TraceText("{node: ", vNode, "}"));
        }
        if (context.macroTreeState.empty()) {
            const TreeNode node = context.tree.Nodes().Item(vNode);
            node.SetSelected(true);
            node.EnsureVisible();
        }
    });
}

// --- Rows -----------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_MarkedRowsHide() {
    return Guarded(state_, UserControl, "plv_MarkedRowsHide", [](ControlContext& context) {
        TraceCall("plv_MarkedRowsHide");
        HideMarkedRows(context.tables.LINE_INDEX, context.driver, context.keys);
        context.ChartStep();
    });
}

PlanView::Status PlanView::plv_MarkedRowsShow() {
    return Guarded(state_, UserControl, "plv_MarkedRowsShow", [](ControlContext& context) {
        TraceCall("plv_MarkedRowsShow");
        ShowMarkedRows(context.tables.LINE_INDEX, context.driver, context.keys);
        context.ChartStep();
    });
}

// --- Import ---------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::DP_Import_Texts() {
    return Guarded(state_, UserControl, "DP_Import_Texts", [](ControlContext& context) {
        TraceCall("DP_Import_Texts");
        context.toolbar.TooltipTexts(context.tables.TEXTS);
    });
}

PlanView::Status PlanView::DP_Import_Attribute() {
    return Guarded(state_, UserControl, "DP_Import_Attribute", [](ControlContext& context) {
        TraceCall("DP_Import_Attribute");
        ReadGridAttributes(context.tables.GRID_ATTR, context.settings);
        FollowChartType(context.settings, context.chartSettings);
        context.layout.LayOut();
    });
}

PlanView::Status PlanView::DP_Import_Create() {
    return Guarded(state_, UserControl, "DP_Import_Create", [](ControlContext& context) {
        TraceCall("DP_Import_Create");
        context.history.Clear();
        const BusyScope busy(context.busy);
        context.construction.CreateFromTables();
        if (context.settings.chartShown) {
            context.chartData.Initialize();
            context.chartData.Update();
        }
    });
}

PlanView::Status PlanView::DP_Import_Update() {
    return Guarded(state_, UserControl, "DP_Import_Update", [this](ControlContext&) {
        TraceCall("DP_Import_Update");
        if (Call(IdOf("DP_Import_Create"), {}).AsInt16() != 0) {
            throw AutomationError(AutomationErrorCode::Failed, "The grid could not be built again");
        }
    });
}

PlanView::Status PlanView::DP_Import_PopupMenu() {
    return Guarded(state_, UserControl, "DP_Import_PopupMenu",
                   [](ControlContext&) { TraceCall("DP_Import_PopupMenu"); });
}

PlanView::Status PlanView::DP_Import_MacroTree() {
    ImportMacroTree(state_);
    return 0;
}

// --- Events ---------------------------------------------------------------------------------------------------------

void PlanView::AddSink(EventSink& sink) {
    state_->context.events.AddSink(sink);
}

void PlanView::RemoveSink(EventSink& sink) noexcept {
    state_->context.events.RemoveSink(sink);
}

}  // namespace planview
