// SPDX-License-Identifier: MIT
#pragma once

#include "commands/CommandCall.h"
#include "commands/CommandParts.h"

/// What the commands run that change what the control shows. Each writes its flag into GRID_ATTR, where that is set,
/// and ends by telling the host.
namespace planview::commands {

/// Exchanges columns and rows on the screen: "#SWITCH GRID#".
void SwitchGrid(CommandParts& on, CommandCall& call);
/// Gives the grid the whole control, or its place among the panes again.
void ZoomGrid(CommandParts& on, CommandCall& call);
/// Shows or hides the macro tree pane; nothing without layout mode.
void SwitchMacroTree(CommandParts& on, CommandCall& call);
/// Shows the pane where it is not on screen; false without layout mode.
bool ShowMacroTree(CommandParts& on);

}  // namespace planview::commands
