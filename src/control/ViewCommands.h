// SPDX-License-Identifier: MIT
#pragma once

namespace planview {

struct ControlContext;

// Commands that change what the control shows. Each writes its flag into GRID_ATTR, where that is set, and ends by
// telling the host.

/// Exchanges columns and rows on the screen: "#SWITCH GRID#".
void SwitchGrid(ControlContext& context);
/// Gives the grid the whole control, or its place among the panes again.
void ZoomGrid(ControlContext& context);
/// Shows or hides the macro tree pane.
void ToggleMacroTree(ControlContext& context);

}  // namespace planview
