// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/Platform.h>

#include "menus/MenuTree.h"

namespace planview {

/// All popups of one control as a single menu that is never shown as a whole: the entries' state, and what was chosen
/// last. An entry is named as in the tree; entries of a control array go by name and index.
class frmMenu {
public:
    /// What the user chose last.
    struct Pending {
        std::string command;  ///< empty: the popup was closed without a choice
        int slot = 0;         ///< of a host's entry, from 1; else 0
    };

    frmMenu();

    /// Gives the entry at this place in the tree the state of its command.
    void Set(std::size_t line, bool enabled, bool checked);
    /// A submenu is enabled while one of its entries is.
    [[nodiscard]] bool IsEnabled(std::string_view name) const;
    [[nodiscard]] bool IsChecked(std::string_view name) const;
    /// The same of the entry at this place in the tree.
    [[nodiscard]] bool IsEnabled(std::size_t line) const;
    [[nodiscard]] bool IsChecked(std::size_t line) const { return states_[line].checked; }

    /// The entries as they are now.
    [[nodiscard]] PopupMenu PopupOf(MainMenu which) const;

    /// The click handler of all entries: keeps the command of the entry that Popups::Choose() named. No entry of that
    /// name keeps none.
    void Click(std::string_view entryName);
    /// The same for a host's entry.
    void ClickHostEntry(std::string_view command, int slot);
    void ForgetPending() { pending_ = {}; }
    [[nodiscard]] const Pending& PendingCommand() const noexcept { return pending_; }

private:
    struct State {
        bool enabled = true;
        bool checked = false;
    };

    [[nodiscard]] std::vector<PopupEntry> EntriesBelow(std::size_t line) const;
    void Keep(std::string_view command, int slot);

    std::vector<State> states_;  // as the lines of the tree
    Pending pending_;
};

}  // namespace planview
