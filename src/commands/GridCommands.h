// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "commands/CommandCall.h"
#include "commands/CommandParts.h"

/// What the commands on columns and rows run. A command that has failed repaints what it has changed until then, and
/// does not tell the host.
namespace planview::commands {

void SelectAllColumns(CommandParts& on, CommandCall& call);
void SelectColumnBlock(CommandParts& on, CommandCall& call);
void DeselectColumns(CommandParts& on, CommandCall& call);
void SelectAllRows(CommandParts& on, CommandCall& call);
void SelectRowBlock(CommandParts& on, CommandCall& call);
void DeselectRows(CommandParts& on, CommandCall& call);
// That of the current cell, as a whole.
void SelectRow(CommandParts& on, CommandCall& call);
void SelectColumn(CommandParts& on, CommandCall& call);
/// Those with the keys of the call, and nothing else.
void SelectHeadings(CommandParts& on, CommandCall& call);

void HideColumns(CommandParts& on, CommandCall& call);
void HideRows(CommandParts& on, CommandCall& call);
/// Those with the keys of the call; without any, the selected ones.
void ShowColumns(CommandParts& on, CommandCall& call);
void ShowRows(CommandParts& on, CommandCall& call);

void ResetWidths(CommandParts& on, CommandCall& call);
void ResetHeights(CommandParts& on, CommandCall& call);

// The first heading of the call gets the size that is its value, as if the user had dragged it; marked ones follow. The
// call then names them all.
void SetColumnWidth(CommandParts& on, CommandCall& call);
void SetColumnHeight(CommandParts& on, CommandCall& call);
void SetRowWidth(CommandParts& on, CommandCall& call);
void SetRowHeight(CommandParts& on, CommandCall& call);

// The selected rows get the palette index that is the call's value; without one the user is asked.
void ColorRowBackground(CommandParts& on, CommandCall& call);
void ColorRowText(CommandParts& on, CommandCall& call);

// Why a recorded step does not fit.
[[nodiscard]] std::optional<std::string> NothingRemains(const CommandParts& on, const CommandCall& call);
[[nodiscard]] std::optional<std::string> NoSize(const CommandParts& on, const CommandCall& call);
[[nodiscard]] std::optional<std::string> NoColor(const CommandParts& on, const CommandCall& call);

}  // namespace planview::commands
