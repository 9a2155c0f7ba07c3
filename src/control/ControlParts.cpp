// SPDX-License-Identifier: MIT
#include "control/ControlParts.h"

#include "control/Guarded.h"
#include "grid/PendingCells.h"

namespace planview {

GridControl& ControlParts::Grid() const noexcept {
    return State()->context.grid;
}

ChartControl& ControlParts::Chart() const noexcept {
    return State()->context.chart;
}

TreeControl& ControlParts::Tree() const noexcept {
    return State()->context.tree;
}

MacroToolbar& ControlParts::Toolbar() const noexcept {
    return State()->context.toolbar;
}

MacroEditor& ControlParts::Editor() const noexcept {
    return State()->context.macroEditor;
}

PaneLayout& ControlParts::Panes() const noexcept {
    return State()->context.layout;
}

std::vector<Cell> ControlParts::PendingCells() const {
    std::vector<Cell> pending;
    Asked(State(), "GRIDCTL", "PendingCells", [&](const ControlContext& context) {
        pending = planview::PendingCells(context.grid, context.tables.TAB_OLD);
    });
    return pending;
}

}  // namespace planview
