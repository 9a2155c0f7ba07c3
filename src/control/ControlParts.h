// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <planview/Export.h>
#include <planview/Facet.h>

#include "components/GridTypes.h"

namespace planview {

class ChartControl;
class GridControl;
class MacroEditor;
class MacroToolbar;
class PaneLayout;
class TreeControl;

/// The parts of a control, for the layer that puts it on the screen and for tests. Valid as long as the control.
class PLANVIEW_EXPORT ControlParts : public Facet {
public:
    explicit ControlParts(PlanView& control) noexcept : Facet(control) {}

    [[nodiscard]] GridControl& Grid() const noexcept;
    [[nodiscard]] ChartControl& Chart() const noexcept;
    [[nodiscard]] TreeControl& Tree() const noexcept;
    /// That of the macro tree.
    [[nodiscard]] MacroToolbar& Toolbar() const noexcept;
    [[nodiscard]] MacroEditor& Editor() const noexcept;
    [[nodiscard]] PaneLayout& Panes() const noexcept;
    /// Counts up when the host has had parts of the grid read again (View::UpdateCells ...).
    [[nodiscard]] std::uint64_t Updates() const noexcept;
    /// As Editing::PendingCells(), without a key for each.
    [[nodiscard]] std::vector<Cell> PendingCells() const;
};

}  // namespace planview
