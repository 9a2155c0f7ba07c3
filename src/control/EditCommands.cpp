// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "control/RecordedActions.h"
#include "control/ViewCommands.h"
#include "grid/PendingCells.h"
#include "grid/SelectedCells.h"

namespace planview {

namespace {

constexpr std::string_view GridControlLabel = "GRIDCTL";
constexpr std::string_view ChartLabel = "CHART";

}  // namespace

void PlanView::Undo() {
    Guarded(state_, GridControlLabel, "Undo", [](ControlContext& context) { context.valueEntry.Undo(); });
}

void PlanView::Redo() {
    Guarded(state_, GridControlLabel, "Redo", [](ControlContext& context) { context.valueEntry.Redo(); });
}

bool PlanView::CanUndo() const noexcept {
    return state_->context.history.CanUndo();
}

bool PlanView::CanRedo() const noexcept {
    return state_->context.history.CanRedo();
}

void PlanView::Copy() {
    Guarded(state_, GridControlLabel, "Copy", [](ControlContext& context) { context.clipboard.Copy(); });
}

void PlanView::Cut() {
    Guarded(state_, GridControlLabel, "Cut", [](ControlContext& context) { context.clipboard.Cut(); });
}

void PlanView::Paste() {
    Guarded(state_, GridControlLabel, "Paste", [](ControlContext& context) { context.clipboard.Paste(); });
}

void PlanView::Fill() {
    Guarded(state_, GridControlLabel, "Fill", [](ControlContext& context) { context.clipboard.Fill(); });
}

void PlanView::Delete() {
    Guarded(state_, GridControlLabel, "DeleteCellContents",
            [](ControlContext& context) { context.clipboard.DeleteCellContents(); });
}

void PlanView::RaiseSelected(double percent) {
    Guarded(state_, GridControlLabel, "Raise", [&](ControlContext& context) { context.clipboard.Raise(percent); });
}

void PlanView::SwitchChart() {
    Guarded(state_, ChartLabel, "SwitchDisplay", [](ControlContext& context) {
        context.chartCommands.SwitchDisplay();
        RecordMenuCommand(context, "Chart");
    });
}

void PlanView::SwitchMacroTree() {
    Guarded(state_, "USERCONTROL", "SwitchMacroTree", [](ControlContext& context) {
        if (context.settings.layoutMode) {
            ToggleMacroTree(context);
            RecordMenuCommand(context, "MacroTree");
        }
    });
}

bool PlanView::MacroTreeShown() const noexcept {
    return state_->context.settings.treeShown;
}

bool PlanView::ChartShown() const noexcept {
    return state_->context.settings.chartShown;
}

void PlanView::ShowSelectedColumnsInChart() {
    Guarded(state_, ChartLabel, "ColsShowInChart", [](ControlContext& context) {
        context.chartCommands.ColsShowInChart();
        context.recording.Did({"ColsInChart", SelectedColumnKeys(context.grid), {}, {}});
    });
}

void PlanView::ShowSelectedRowsInChart() {
    Guarded(state_, ChartLabel, "RowsShowInChart", [](ControlContext& context) {
        context.chartCommands.RowsShowInChart();
        context.recording.Did({"RowsInChart", {}, SelectedRowKeys(context.grid), {}});
    });
}

void PlanView::LeaveForecastView() {
    Guarded(state_, ChartLabel, "StandardView", [](ControlContext& context) {
        if (context.chartCommands.IsForecastView()) {
            context.chartCommands.StandardView();
        }
    });
}

void PlanView::HideColumns() {
    Guarded(state_, GridControlLabel, "#HIDE COLUMNS#",
            [](ControlContext& context) { context.commands.HideColumns(); });
}

void PlanView::ShowColumns() {
    Guarded(state_, GridControlLabel, "#SHOW COLUMNS#",
            [](ControlContext& context) { context.commands.ShowColumns(); });
}

void PlanView::HideRows() {
    Guarded(state_, GridControlLabel, "#HIDE ROWS#", [](ControlContext& context) { context.commands.HideRows(); });
}

void PlanView::ShowRows() {
    Guarded(state_, GridControlLabel, "#SHOW ROWS#", [](ControlContext& context) { context.commands.ShowRows(); });
}

void PlanView::SetBulkListener(std::function<void(bool running)> listener) {
    state_->context.bulkListener = std::move(listener);
}

void PlanView::SetHintListener(std::function<bool(const Cell& cell, std::string_view reason)> listener) {
    state_->context.hintListener = std::move(listener);
}

void PlanView::SetLocked(bool locked) noexcept {
    state_->context.grid.SetLocked(locked);
}

bool PlanView::IsLocked() const noexcept {
    return state_->context.grid.IsLocked();
}

std::vector<Cell> PlanView::PendingCells() const {
    std::vector<Cell> pending;
    Guarded(state_, GridControlLabel, "PendingCells", [&](const ControlContext& context) {
        pending = planview::PendingCells(context.grid, context.tables.TAB_OLD);
    });
    return pending;
}

}  // namespace planview
