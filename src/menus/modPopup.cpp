// SPDX-License-Identifier: MIT
#include "menus/modPopup.h"

#include <string>
#include <vector>

#include "commands/CommandRunner.h"
#include "trace/TraceText.h"

namespace planview::modPopup {

namespace {

/// An entry that leaves a trace entry, in the order in which they do, and what it is called there up to the dash. A
/// name without an entry stands alone in its trace entry.
struct TracedEntry {
    MainMenu popup;
    std::string_view name;
    std::string_view entry = {};
};

constexpr TracedEntry TracedEntries[] = {
    {MainMenu::Grid, "MACROTREE ", "mnuMacroTree"},
    {MainMenu::Grid, "CHART ", "mnuChart"},
    {MainMenu::Grid, "SWITCH ", "mnuSwitch"},
    {MainMenu::Grid, "ZOOM ", "mnuZoom"},
    {MainMenu::Grid, "MACRO-RECORD"},
    {MainMenu::Grid, "EXCEL ", "mnuExcelDn"},
    {MainMenu::Grid, "EXCEL ", "mnuExcelUp"},
    {MainMenu::Grid, "FILL TEST DATA ", "mnuRandom"},
    {MainMenu::Grid, "TRACE ", "mnuTrace"},
    {MainMenu::Grid, "SHOW TRACE ", "mnuShowTrace"},
    {MainMenu::Column, "HIDE ", "mnuColsHide"},
    {MainMenu::Column, "SHOW ", "mnuColsShow"},
    {MainMenu::Column, "WIDTH ", "mnuColWidth"},
    {MainMenu::Row, "HIDE ", "mnuRowsHide"},
    {MainMenu::Row, "SHOW ", "mnuRowsShow"},
    {MainMenu::Row, "HEIGHT ", "mnuRowHeight"},
    {MainMenu::Row, "BACKGROUND COLOR ", "mnuRowBgColor"},
    {MainMenu::Row, "FOREGROUND COLOR ", "mnuRowFgColor"},
    {MainMenu::Cell, "CELL EDIT ", "mnuCellCut"},
    {MainMenu::Cell, "CELL EDIT ", "mnuCellCopy"},
    {MainMenu::Cell, "CELL EDIT ", "mnuCellPaste"},
    {MainMenu::Chart, "CHART VIEWS ", "mnuChartViews"},
    {MainMenu::Series, "SERIES"},
    {MainMenu::Series, "SERIES LINE ", "mnuChartLine"},
    {MainMenu::Series, "SERIES COLUMN ", "mnuChartColumn"},
    // Without the blank before the dash, unlike all others: the text of this trace entry is fixed.
    {MainMenu::Series, "SERIES LINE STACKED", "mnuLineStacked"},
    {MainMenu::Series, "SERIES LINE STACKED 100% ", "mnuLineStacked100"},
    {MainMenu::Macro, "MACRO-RECORD"},
    {MainMenu::Macro, "RENAME ", "mnuNodeRename"},
    {MainMenu::MacroFunction, "MACRO FUNCTION INSERT ", "mnuMacroInsert"},
    {MainMenu::MacroFunction, "MACRO FUNCTION ADD ", "mnuMacroAdd"},
    {MainMenu::MacroFunction, "MACRO FUNCTION NEXT LEVEL ", "mnuNextLevel"},
};

void Trace(const frmMenu& menu, const TracedEntry& traced) {
    if (!modPlan::TraceEnabled) {
        return;
    }
    const std::string state = traced.entry.empty() ? std::string()
                                                   : TraceText("- checked: ", menu.IsChecked(traced.entry),
                                                               " - enabled: ", menu.IsEnabled(traced.entry))
                                                         .Text();
    modPlan::TraceWrite("POPUP", "", "Update", TraceText("{menu: ", traced.name, state, "}"));
}

/// The command that the host's entries of a popup stand for; empty for popups that take none.
std::string_view HostCommand(MainMenu which) {
    switch (which) {
        case MainMenu::Grid:
            return "Grid";
        case MainMenu::Column:
            return "Cols";
        case MainMenu::Row:
            return "Rows";
        case MainMenu::Cell:
            return "Cell";
        default:
            return {};
    }
}

constexpr std::string_view HostEntryPrefix = "User(";

std::string HostEntryName(int slot) {
    return std::string(HostEntryPrefix) + std::to_string(slot) + ")";
}

void AppendHostEntries(PopupMenu& popup, const UserMenu& user) {
    for (int i = 1; i <= user.Loaded(); ++i) {
        if (i == 1) {
            PopupEntry& separator = popup.entries.emplace_back();
            separator.separator = true;
        }
        const UserMenu::Slot& slot = user.At(i);
        PopupEntry& entry = popup.entries.emplace_back();
        entry.name = HostEntryName(i);
        entry.caption = slot.TEXT;
        entry.enabled = slot.ENABLED == "X";
    }
}

int SlotOf(const UserMenu& user, std::string_view name) {
    for (int i = 1; i <= user.Loaded(); ++i) {
        if (HostEntryName(i) == name) {
            return i;
        }
    }
    return 0;
}

}  // namespace

/// Some conditions leave a trace entry themselves; therefore each is asked once, when its entry's turn has come.
void Update(frmMenu& menu, MainMenu which, const CommandSituation& now) {
    const auto tree = MenuTree();
    std::vector<bool> known(tree.size());
    const auto setWithBelow = [&](std::size_t line) {
        std::size_t i = line;
        do {
            if (tree[i].command && !known[i]) {
                known[i] = true;
                const CommandState state = CommandRunner::StateOf(*tree[i].command, now);
                menu.Set(i, state.enabled, state.checked);
            }
            ++i;
        } while (i < tree.size() && tree[i].depth > tree[line].depth);
    };
    for (const TracedEntry& traced : TracedEntries) {
        if (traced.popup == which) {
            if (!traced.entry.empty()) {
                setWithBelow(FindMenuItem(traced.entry));
            }
            Trace(menu, traced);
        }
    }
    setWithBelow(FindMenuItem("mnuMain", static_cast<int>(which)));
}

void Show(Popups& popups, frmMenu& menu, MainMenu which, const UserMenu* user, PopupPlace place) {
    menu.ForgetPending();
    PopupMenu popup = menu.PopupOf(which);
    const std::string_view hostCommand = user ? HostCommand(which) : std::string_view();
    if (!hostCommand.empty()) {
        AppendHostEntries(popup, *user);
    }
    const std::string chosen = popups.Choose(popup, place);
    const int slot = hostCommand.empty() ? 0 : SlotOf(*user, chosen);
    if (slot > 0) {
        menu.ClickHostEntry(hostCommand, slot);
    } else {
        menu.Click(chosen);
    }
}

}  // namespace planview::modPopup
