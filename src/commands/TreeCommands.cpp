// SPDX-License-Identifier: MIT
#include "commands/TreeCommands.h"

#include <array>

#include "commands/CommandSituation.h"
#include "commands/ViewCommands.h"

namespace planview {

void RaiseMacroTreeNodeDropped(EventSource& events, const std::string& target, const std::string& type,
                               DropAction action) {
    const std::array<Variant, 3> arguments{target, type, static_cast<std::int16_t>(action)};
    events.Raise(EventId::MacroTreeNodeDropped, arguments);
}

namespace commands {

namespace {

/// What `MacroTreeNodeDropped` says of a new node: beside the clicked one, or below it.
constexpr const char* InsertType = "INSERT";
constexpr const char* CreateType = "CREATE";

std::string NodeOf(const CommandParts& on, const CommandCall& call) {
    return CommandSituation(on, call.place).Node();
}

void PlaceNewNode(CommandParts& on, const CommandCall& call, MacroSpot spot, const char* type, DropAction action) {
    on.macroEditor.SetSpot(spot);
    RaiseMacroTreeNodeDropped(on.events, NodeOf(on, call), type, action);
}

}  // namespace

void NewMacro(CommandParts& on, CommandCall& call) {
    call.done = ShowMacroTree(on);
    if (call.done) {
        on.macroEditor.NewMacro();
        on.macroEditor.Open({});
    }
}

void EditMacro(CommandParts& on, CommandCall& call) {
    call.done = ShowMacroTree(on);
    if (call.done) {
        on.macroEditor.Open(NodeOf(on, call));
    }
}

void RenameMacroNode(CommandParts& on, CommandCall& call) {
    if (const TreeNode node = on.macroTree.control.Nodes().Find(NodeOf(on, call))) {
        node.StartLabelEdit();
    }
}

void InsertMacroNode(CommandParts& on, CommandCall& call) {
    PlaceNewNode(on, call, MacroSpot::Before, InsertType, DropAction::NewBefore);
}

void AddMacroNode(CommandParts& on, CommandCall& call) {
    PlaceNewNode(on, call, MacroSpot::After, InsertType, DropAction::NewAfter);
}

void NestMacroNode(CommandParts& on, CommandCall& call) {
    PlaceNewNode(on, call, MacroSpot::Inside, CreateType, DropAction::NewBelow);
}

}  // namespace commands

}  // namespace planview
