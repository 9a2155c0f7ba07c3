// SPDX-License-Identifier: MIT
#include "control/ControlParts.h"

#include "control/Guarded.h"
#include "grid/PendingCells.h"

namespace planview {

GridControl& ControlParts::Grid() const noexcept {
    return State()->context.grid.control;
}

ChartControl& ControlParts::Chart() const noexcept {
    return State()->context.chart.control;
}

TreeControl& ControlParts::Tree() const noexcept {
    return State()->context.macros.tree;
}

MacroToolbar& ControlParts::Toolbar() const noexcept {
    return State()->context.macros.toolbar;
}

MacroEditor& ControlParts::Editor() const noexcept {
    return State()->context.macros.editor;
}

PaneLayout& ControlParts::Panes() const noexcept {
    return State()->context.shared.layout;
}

std::uint64_t ControlParts::Updates() const noexcept {
    return State()->context.grid.updates;
}

std::vector<Cell> ControlParts::PendingCells() const {
    std::vector<Cell> pending;
    Asked(State(), "GRIDCTL", "PendingCells", [&](const ControlContext& context) {
        pending = planview::PendingCells(context.grid.control, context.shared.tables.TAB_OLD);
    });
    return pending;
}

}  // namespace planview
