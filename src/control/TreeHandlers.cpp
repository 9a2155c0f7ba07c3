// SPDX-License-Identifier: MIT
#include "control/TreeHandlers.h"

#include <array>
#include <string>

#include "commands/TreeCommands.h"
#include "control/MacroPart.h"
#include "menus/MenuDispatch.h"
#include "trace/TraceText.h"

namespace planview {

using modMacro::Label;
using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

/// While a popup of the tree is open.
constexpr std::string_view PopupState = "TRE";

}  // namespace

std::string TreeHandlers::TextOf(const std::string& key) const {
    const TreeNode node = parts_.macros.tree.Nodes().Find(key);
    return node ? node.Text() : std::string();
}

void TreeHandlers::TraceNode(std::string_view method, const std::string& key) const {
    if (TraceEnabled) {
        TraceWrite(Label, "", method, TraceText("{node: ", TextOf(key), "}"));
    }
}

void TreeHandlers::Raise(EventId event, const std::string& key) {
    const std::array<Variant, 2> arguments{key, parts_.shared.settings.switched ? "X" : ""};
    parts_.shared.events.Raise(event, arguments);
}

// --- Label

bool TreeHandlers::BeforeLabelEdit(const std::string& key) {
    bool may = false;
    Trapped(parts_.shared, Label, "BeforeLabelEdit", [&] {
        const TreeNode node = parts_.macros.tree.Nodes().Find(key);
        may = node && parts_.macros.popupState.empty() && parts_.macros.editor.MayChange();
        if (TraceEnabled) {
            const std::string named = node ? "node: " + key + " - " : std::string();
            TraceWrite(Label, "", "BeforeLabelEdit", TraceText("{", named, "status: ", may, "}"));
        }
    });
    return may;
}

void TreeHandlers::AfterLabelEdit(const std::string& key, const std::string& text, const std::string& before) {
    std::string fault;
    const bool ended = Trapped(parts_.shared, Label, "AfterLabelEdit", [&] {
        modMacro::ChangeLabels(parts_.macros.nodes, [&] { fault = parts_.macros.editor.RenameNode(key, text); });
        if (TraceEnabled && fault.empty()) {
            TraceWrite(Label, "", "AfterLabelEdit", TraceText("{node: ", key, " - new: ", text, "}"));
        }
    });
    if (!ended || !fault.empty()) {
        // The table does not have the new text; the tree shows what the table has.
        if (const TreeNode node = parts_.macros.tree.Nodes().Find(key)) {
            node.SetText(before);
        }
        if (!fault.empty()) {
            parts_.macros.editor.Tell(fault);
        }
        return;
    }
    // Not an event of its own: this one is how hosts hear that the tree has changed.
    Trapped(parts_.shared, Label, "AfterLabelEdit", [&] { parts_.shared.events.Raise(EventId::MacroTreeExpand); });
}

// --- Nodes

void TreeHandlers::Fire(EventId event, std::string_view method, const std::string& key) {
    if (parts_.macros.popupState.empty() && !parts_.macros.tree.EditedNode()) {
        TraceNode(method, key);
        Raise(event, key);
    }
}

void TreeHandlers::Collapse(const std::string& key) {
    Trapped(parts_.shared, Label, "Collapse", [&] {
        modMacro::PutExpanded(parts_.macros.nodes, key, false);
        Fire(EventId::GridTreeMacroCollapse, "Collapse fired", key);
    });
}

void TreeHandlers::Expand(const std::string& key) {
    Trapped(parts_.shared, Label, "Expand", [&] {
        modMacro::PutExpanded(parts_.macros.nodes, key, true);
        Fire(EventId::GridTreeMacroExpand, "Expand fired", key);
    });
}

void TreeHandlers::DblClick(const std::string& key) {
    Trapped(parts_.shared, Label, "DblClick", [&] { Fire(EventId::GridTreeMacroClick, "DblClick fired", key); });
}

void TreeHandlers::NodeDropped(const std::string& key, const std::string& target, TreeDrop place) {
    Trapped(parts_.shared, Label, "NodeDropped", [&] {
        const DropAction action = place == TreeDrop::Before  ? DropAction::MovedBefore
                                  : place == TreeDrop::After ? DropAction::MovedAfter
                                                             : DropAction::MovedBelow;
        if (TraceEnabled) {
            TraceWrite(Label, "", "NodeDropped fired",
                       TraceText("{node: ", TextOf(target), " - dropped: ", TextOf(key), " - action: ", action, "}"));
        }
        RaiseMacroTreeNodeDropped(parts_.shared.events, target, key, action);
    });
}

// --- Popups

void TreeHandlers::RunFromPopup(MainMenu which, PopupPlace place, const std::string& key) {
    CommandCall call;
    call.place.node = key;
    if (const std::optional<Command> command = Ask(which, place, call.place)) {
        parts_.runner.Run(*command, std::move(call));
    }
}

std::optional<Command> TreeHandlers::Ask(MainMenu which, PopupPlace place, const CommandPlace& about) {
    struct State {
        std::string& text;
        explicit State(std::string& state) : text(state) { text = PopupState; }
        ~State() { text.clear(); }
        State(const State&) = delete;
        State& operator=(const State&) = delete;
    } const state(parts_.macros.popupState);
    return parts_.menus.Ask(which, place, about);
}

void TreeHandlers::MouseDown(const std::string& key, MouseButton button, ShiftState shift) {
    Trapped(parts_.shared, Label, "MouseDown", [&] {
        if (TraceEnabled) {
            TraceWrite(Label, "", "MouseDown", TraceText("{mousebutton: ", button, " - shift: ", shift, "}"));
        }
        if (button == MouseButton::Right) {
            RunFromPopup(MainMenu::Macro, PopupPlace::Mouse, key);
        }
        TraceNode("MouseDown fired", key);
        Raise(EventId::MacroTreeMouseDown, key);
    });
}

void TreeHandlers::MenuKey(const std::string& key) {
    Trapped(parts_.shared, Label, "MenuKey", [&] { RunFromPopup(MainMenu::Macro, PopupPlace::CurrentCell, key); });
}

void TreeHandlers::NodeClick(const std::string& key, bool again) {
    Trapped(parts_.shared, Label, "NodeClick", [&] {
        TraceNode("NodeClick fired", key);
        static_cast<void>(modMacro::RowOf(parts_.macros.nodes, key));
        parts_.runner.Changed();
        if (again) {
            RunFromPopup(MainMenu::MacroFunction, PopupPlace::CurrentCell, key);
        }
    });
}

void TreeHandlers::GotFocus() {
    TraceWrite(Label, "", "GotFocus", "{}");
}

void TreeHandlers::LostFocus() {
    TraceWrite(Label, "", "LostFocus", "{}");
}

// --- The toolbar

void TreeHandlers::ButtonPressed(ToolbarButton button) {
    parts_.macros.editor.AddElement(button);
}

void TreeHandlers::SelectionDragged(const std::string& selection) {
    const Variant argument(selection);
    parts_.shared.events.Raise(EventId::MacroDragSelection, {&argument, 1});
}

}  // namespace planview
