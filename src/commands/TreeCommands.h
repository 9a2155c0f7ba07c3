// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "automation/EventSource.h"
#include "commands/CommandCall.h"
#include "commands/CommandParts.h"

namespace planview {

void RaiseMacroTreeNodeDropped(EventSource& events, const std::string& target, const std::string& type,
                               DropAction action);

/// What the commands of the macro tree run.
namespace commands {

/// Makes a macro beside the active one and shows it in the macro editor.
void NewMacro(CommandParts& on, CommandCall& call);
/// Shows the macro editor at the node and gives it the keyboard.
void EditMacro(CommandParts& on, CommandCall& call);

/// Lets the user edit the node's text.
void RenameMacroNode(CommandParts& on, CommandCall& call);

// Where the macro editor puts the next element, seen from the node; the host hears of it by `MacroTreeNodeDropped`.
void InsertMacroNode(CommandParts& on, CommandCall& call);
void AddMacroNode(CommandParts& on, CommandCall& call);
void NestMacroNode(CommandParts& on, CommandCall& call);

}  // namespace commands

}  // namespace planview
