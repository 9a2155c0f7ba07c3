// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <planview/Commands.h>
#include <planview/Events.h>
#include <planview/Platform.h>

#include "commands/CommandCall.h"
#include "components/TreeEvents.h"
#include "macro/tree/MacroToolbar.h"
#include "menus/MenuTree.h"

namespace planview {

class CommandRunner;
class MenuDispatch;
struct ControlShared;
struct MacroPart;

/// Hears what the user does in the macro tree and its toolbar and carries it out, each under an error trap.
///
/// A right press opens the tree's popup. A click selects; a click on the node that is selected already asks where a new
/// node goes. `MacroTreeNodeDropped` carries the answer, or where the user has dragged a node to.
class TreeHandlers final : public TreeEvents, public ToolbarEvents {
public:
    /// What it hands events to.
    struct Parts {
        ControlShared& shared;
        MacroPart& macros;
        CommandRunner& runner;
        MenuDispatch& menus;
    };

    explicit TreeHandlers(const Parts& parts) : parts_(parts) {}

    bool BeforeLabelEdit(const std::string& key) override;
    void AfterLabelEdit(const std::string& key, const std::string& text, const std::string& before) override;
    void Collapse(const std::string& key) override;
    void Expand(const std::string& key) override;
    void DblClick(const std::string& key) override;
    void MouseDown(const std::string& key, MouseButton button, ShiftState shift) override;
    void MenuKey(const std::string& key) override;
    void NodeClick(const std::string& key, bool again) override;
    void NodeDropped(const std::string& key, const std::string& target, TreeDrop place) override;
    void GotFocus() override;
    void LostFocus() override;
    void ButtonPressed(ToolbarButton button) override;
    void SelectionDragged(const std::string& selection) override;

private:
    [[nodiscard]] std::string TextOf(const std::string& key) const;
    /// "{node: ...}" with the text of the node.
    void TraceNode(std::string_view method, const std::string& key) const;
    /// The entry, and the event where no command is under way.
    void Fire(EventId event, std::string_view method, const std::string& key);
    void Raise(EventId event, const std::string& key);
    /// Shows a popup about the node and runs what was chosen.
    void RunFromPopup(MainMenu which, PopupPlace place, const std::string& key);
    /// Shows a popup; meanwhile the host cannot choose another node.
    [[nodiscard]] std::optional<Command> Ask(MainMenu which, PopupPlace place, const CommandPlace& about);

    Parts parts_;
};

}  // namespace planview
