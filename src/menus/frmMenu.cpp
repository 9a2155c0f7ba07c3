// SPDX-License-Identifier: MIT
#include "menus/frmMenu.h"

#include "commands/CommandTable.h"
#include "grid/modGrid.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

/// "mnuChart", or "mnuColor(3)" within a control array.
std::string EntryName(const MenuItem& line) {
    return line.index < 0 ? std::string(line.name) : std::string(line.name) + "(" + std::to_string(line.index) + ")";
}

PopupEntry MakeEntry(const MenuItem& line) {
    PopupEntry entry;
    if (line.IsSeparator()) {
        entry.separator = true;
        return entry;
    }
    entry.name = EntryName(line);
    entry.caption = line.caption;
    if (line.command) {
        const CommandRow& row = RowOf(*line.command);
        entry.caption = row.PopupCaption();
        entry.shortcut = row.key;
    } else if (line.index >= 0) {
        entry.swatch = modGrid::PaletteColorOf(modGrid::PaletteIndexOf(line.index));
    }
    return entry;
}

}  // namespace

frmMenu::frmMenu() : states_(MenuTree().size()) {}

void frmMenu::Set(std::size_t line, bool enabled, bool checked) {
    states_[line] = {enabled, checked};
}

bool frmMenu::IsEnabled(std::string_view name) const {
    return IsEnabled(FindMenuItem(name));
}

bool frmMenu::IsEnabled(std::size_t line) const {
    const auto tree = MenuTree();
    if (!tree[line].Choice().empty()) {
        return states_[line].enabled;
    }
    for (std::size_t i = line + 1; i < tree.size() && tree[i].depth > tree[line].depth; ++i) {
        if (!tree[i].Choice().empty() && states_[i].enabled) {
            return true;
        }
    }
    return false;
}

bool frmMenu::IsChecked(std::string_view name) const {
    return states_[FindMenuItem(name)].checked;
}

std::vector<PopupEntry> frmMenu::EntriesBelow(std::size_t line) const {
    const auto tree = MenuTree();
    const int depth = tree[line].depth;
    std::vector<PopupEntry> entries;
    for (std::size_t i = line + 1; i < tree.size() && tree[i].depth > depth; ++i) {
        if (tree[i].depth != depth + 1) {
            continue;  // stands below one of the entries
        }
        PopupEntry entry = MakeEntry(tree[i]);
        entry.enabled = entry.separator || IsEnabled(i);
        entry.checked = states_[i].checked;
        if (!entry.separator && tree[i].Choice().empty()) {
            entry.name.clear();
            entry.entries = EntriesBelow(i);
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

/// The popups of the grid stand one level deeper than those of the chart and the macro tree.
PopupMenu frmMenu::PopupOf(MainMenu which) const {
    const auto index = static_cast<int>(which);
    const std::size_t top = FindMenuItem("mnuMain", index);
    return {std::string(MenuTree()[top].caption), EntriesBelow(which <= MainMenu::Cell ? top + 1 : top)};
}

void frmMenu::Click(std::string_view entryName) {
    for (const MenuItem& line : MenuTree()) {
        const std::string choice = line.Choice();
        if (!choice.empty() && EntryName(line) == entryName) {
            Keep(choice, 0);
            return;
        }
    }
}

void frmMenu::ClickHostEntry(std::string_view command, int slot) {
    Keep(command, slot);
}

void frmMenu::Keep(std::string_view command, int slot) {
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite("POPUP", TraceText("{menu: ", command, "}"), "Selected", "");
    }
    pending_ = {std::string(command), slot};
}

}  // namespace planview
