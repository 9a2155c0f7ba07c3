// SPDX-License-Identifier: MIT
#include "control/ControlParts.h"

#include "control/Guarded.h"
#include "grid/PendingCells.h"

namespace planview {

ControlParts::ControlParts(PlanView& control) noexcept : state_(control.state_) {}

GridControl& ControlParts::Grid() const noexcept {
    return state_->context.grid;
}

ChartControl& ControlParts::Chart() const noexcept {
    return state_->context.chart;
}

TreeControl& ControlParts::Tree() const noexcept {
    return state_->context.tree;
}

MacroToolbar& ControlParts::Toolbar() const noexcept {
    return state_->context.toolbar;
}

MacroEditor& ControlParts::Editor() const noexcept {
    return state_->context.macroEditor;
}

PaneLayout& ControlParts::Panes() const noexcept {
    return state_->context.layout;
}

std::vector<Cell> ControlParts::PendingCells() const {
    std::vector<Cell> pending;
    Guarded(state_, "GRIDCTL", "PendingCells", [&](const ControlContext& context) {
        pending = planview::PendingCells(context.grid, context.tables.TAB_OLD);
    });
    return pending;
}

}  // namespace planview
