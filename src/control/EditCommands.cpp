// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "grid/PendingCells.h"

namespace planview {

namespace {

constexpr std::string_view GridControlLabel = "GRIDCTL";
constexpr std::string_view ChartLabel = "CHART";

}  // namespace

void PlanView::LeaveForecastView() {
    Guarded(state_, ChartLabel, "StandardView", [](ControlContext& context) {
        if (context.chartCommands.IsForecastView()) {
            context.chartCommands.StandardView();
        }
    });
}

void PlanView::SetBulkListener(std::function<void(bool running)> listener) {
    state_->context.bulkListener = std::move(listener);
}

void PlanView::SetHintListener(std::function<bool(const CellKey& cell, std::string_view reason)> listener) {
    state_->context.hintListener = std::move(listener);
}

void PlanView::SetLocked(bool locked) noexcept {
    state_->context.grid.SetLocked(locked);
    state_->context.runner.Changed();
}

bool PlanView::IsLocked() const noexcept {
    return state_->context.grid.IsLocked();
}

std::vector<CellKey> PlanView::PendingCells() const {
    std::vector<CellKey> pending;
    Guarded(state_, GridControlLabel, "PendingCells", [&](const ControlContext& context) {
        for (const Cell cell : planview::PendingCells(context.grid, context.tables.TAB_OLD)) {
            pending.push_back(context.grid.KeyOf(cell));
        }
    });
    return pending;
}

}  // namespace planview
