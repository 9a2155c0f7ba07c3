// SPDX-License-Identifier: MIT
#include <string>

#include <planview/PlanView.h>

#include "automation/BusyScope.h"
#include "control/Guarded.h"
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
    modPlan::TraceDecimalMark = state_->context.shared.desktop.system.DecimalMark();
    TraceWrite(UserControl, "CONSTRUCTOR", "Initialize", "{}");
    Guarded(state_, UserControl, "Initialize", [](ControlContext& context) {
        context.shared.layout.LayOut();
        context.grid.construction.CreateEmpty();
    });
}

PlanView::~PlanView() {
    Terminate();
}

// --- Trace ----------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_EnableTrace() {
    return Guarded(state_, UserControl, "plv_EnableTrace",
                   [](ControlContext& context) { modPlan::Trace_Enable(context.shared.desktop); });
}

PlanView::Status PlanView::plv_DisableTrace() {
    return Guarded(state_, UserControl, "plv_DisableTrace",
                   [](ControlContext& context) { modPlan::Trace_Disable(context.shared.desktop); });
}

// --- Panes ----------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_LayoutShow() {
    return Guarded(state_, UserControl, "plv_LayoutShow", [](ControlContext& context) {
        TraceCall("plv_LayoutShow");
        if (!context.shared.tables.MACRO_TREE.IsSet()) {
            context.shared.desktop.messageBoxes.Show(
                {"NOTHING", "", MessageButtons::Ok, MessageIcon::None, MessageAnswer::Ok});
        }
        if (context.shared.settings.layoutMode) {
            context.shared.settings.treeShown = true;
            context.shared.layout.LayOut(Splitter::CtrlSplit);
            context.shared.layout.LayOut(Splitter::TreeSplit);
        }
    });
}

PlanView::Status PlanView::plv_LayoutHide() {
    return Guarded(state_, UserControl, "plv_LayoutHide", [](ControlContext& context) {
        TraceCall("plv_LayoutHide");
        if (context.shared.tables.MACRO_TREE.IsSet() && context.shared.settings.layoutMode) {
            context.shared.settings.treeShown = false;
            context.shared.layout.LayOut(Splitter::CtrlSplit);
        }
    });
}

PlanView::Status PlanView::plv_LayoutMode() {
    return Guarded(state_, UserControl, "plv_LayoutMode", [](ControlContext& context) {
        context.shared.settings.layoutMode = true;
        TraceWrite("GRIDCTL", "", "LayoutMode", "{Enabled}");
    });
}

PlanView::Status PlanView::plv_LayoutModeDisable() {
    return Guarded(state_, UserControl, "plv_LayoutModeDisable", [](ControlContext& context) {
        context.shared.settings.layoutMode = false;
        TraceWrite("GRIDCTL", "", "LayoutMode", "{Disabled}");
    });
}

// --- Macro tree -----------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_ActiveNode(const std::string& vNode) {
    return Guarded(state_, UserControl, "plv_ActiveNode", [&](ControlContext& context) {
        if (TraceEnabled) {
            TraceWrite("MACROTREE", "", "ActiveNode", TraceText("{node: ", vNode, "}"));
        }
        if (context.macros.popupState.empty()) {
            const TreeNode node = context.macros.tree.Nodes().Item(vNode);
            node.SetSelected(true);
            node.EnsureVisible();
        }
    });
}

// --- Rows -----------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::plv_MarkedRowsHide() {
    return Guarded(state_, UserControl, "plv_MarkedRowsHide", [](ControlContext& context) {
        TraceCall("plv_MarkedRowsHide");
        HideMarkedRows(context.shared.tables.LINE_INDEX, context.grid.driver, context.grid.keys);
        context.chart.Step();
    });
}

PlanView::Status PlanView::plv_MarkedRowsShow() {
    return Guarded(state_, UserControl, "plv_MarkedRowsShow", [](ControlContext& context) {
        TraceCall("plv_MarkedRowsShow");
        ShowMarkedRows(context.shared.tables.LINE_INDEX, context.grid.driver, context.grid.keys);
        context.chart.Step();
    });
}

// --- Import ---------------------------------------------------------------------------------------------------------

PlanView::Status PlanView::DP_Import_Texts() {
    return Guarded(state_, UserControl, "DP_Import_Texts", [](ControlContext& context) {
        TraceCall("DP_Import_Texts");
        context.macros.toolbar.TooltipTexts(context.shared.tables.TEXTS);
    });
}

PlanView::Status PlanView::DP_Import_Attribute() {
    return Guarded(state_, UserControl, "DP_Import_Attribute", [](ControlContext& context) {
        TraceCall("DP_Import_Attribute");
        ReadGridAttributes(context.shared.tables.GRID_ATTR, context.shared.settings);
        FollowChartType(context.shared.settings, context.chart.settings);
        context.shared.layout.LayOut();
    });
}

PlanView::Status PlanView::DP_Import_Create() {
    return Guarded(state_, UserControl, "DP_Import_Create", [](ControlContext& context) {
        TraceCall("DP_Import_Create");
        const BusyScope busy(context.shared.busy);
        context.grid.Build();
        if (context.shared.settings.chartShown) {
            context.chart.data.Initialize();
            context.chart.data.Update();
        }
    });
}

PlanView::Status PlanView::DP_Import_Update() {
    return Guarded(state_, UserControl, "DP_Import_Update", [this](ControlContext&) {
        TraceCall("DP_Import_Update");
        static_cast<void>(Call(IdOf("DP_Import_Create"), {}));
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
    AssertOwnThread(*state_);
    state_->context.shared.events.AddSink(sink);
}

void PlanView::RemoveSink(EventSink& sink) noexcept {
    AssertOwnThread(*state_);
    state_->context.shared.events.RemoveSink(sink);
}

}  // namespace planview
