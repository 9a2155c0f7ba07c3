// SPDX-License-Identifier: MIT
#include "menus/modPopup.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "commands/CommandRunner.h"
#include "grid/modGrid.h"
#include "menus/MenuItems.h"
#include "trace/TraceText.h"

namespace planview::modPopup {

using MenuItems::PlaceOf;

namespace {

/// An entry that leaves a trace entry, in the order in which they do, and what it is called there up to the dash. A
/// name without an entry stands alone in its trace entry.
struct TracedEntry {
    MainMenu popup;
    std::string_view name;
    std::optional<std::size_t> entry = {};  ///< its place in the tree
};

constexpr TracedEntry TracedEntries[] = {
    {MainMenu::Grid, "MACROTREE ", PlaceOf("mnuMacroTree")},
    {MainMenu::Grid, "CHART ", PlaceOf("mnuChart")},
    {MainMenu::Grid, "SWITCH ", PlaceOf("mnuSwitch")},
    {MainMenu::Grid, "ZOOM ", PlaceOf("mnuZoom")},
    {MainMenu::Grid, "MACRO-RECORD"},
    {MainMenu::Grid, "EXCEL ", PlaceOf("mnuExcelDn")},
    {MainMenu::Grid, "EXCEL ", PlaceOf("mnuExcelUp")},
    {MainMenu::Grid, "FILL TEST DATA ", PlaceOf("mnuRandom")},
    {MainMenu::Grid, "TRACE ", PlaceOf("mnuTrace")},
    {MainMenu::Grid, "SHOW TRACE ", PlaceOf("mnuShowTrace")},
    {MainMenu::Column, "HIDE ", PlaceOf("mnuColsHide")},
    {MainMenu::Column, "SHOW ", PlaceOf("mnuColsShow")},
    {MainMenu::Column, "WIDTH ", PlaceOf("mnuColWidth")},
    {MainMenu::Row, "HIDE ", PlaceOf("mnuRowsHide")},
    {MainMenu::Row, "SHOW ", PlaceOf("mnuRowsShow")},
    {MainMenu::Row, "HEIGHT ", PlaceOf("mnuRowHeight")},
    {MainMenu::Row, "BACKGROUND COLOR ", PlaceOf("mnuRowBgColor")},
    {MainMenu::Row, "FOREGROUND COLOR ", PlaceOf("mnuRowFgColor")},
    {MainMenu::Cell, "CELL EDIT ", PlaceOf("mnuCellCut")},
    {MainMenu::Cell, "CELL EDIT ", PlaceOf("mnuCellCopy")},
    {MainMenu::Cell, "CELL EDIT ", PlaceOf("mnuCellPaste")},
    {MainMenu::Chart, "CHART VIEWS ", PlaceOf("mnuChartViews")},
    {MainMenu::Series, "SERIES"},
    {MainMenu::Series, "SERIES LINE ", PlaceOf("mnuChartLine")},
    {MainMenu::Series, "SERIES COLUMN ", PlaceOf("mnuChartColumn")},
    // Without the blank before the dash, unlike all others: the text of this trace entry is fixed.
    {MainMenu::Series, "SERIES LINE STACKED", PlaceOf("mnuLineStacked")},
    {MainMenu::Series, "SERIES LINE STACKED 100% ", PlaceOf("mnuLineStacked100")},
    {MainMenu::Macro, "MACRO-RECORD"},
    {MainMenu::Macro, "RENAME ", PlaceOf("mnuNodeRename")},
    {MainMenu::MacroFunction, "MACRO FUNCTION INSERT ", PlaceOf("mnuMacroInsert")},
    {MainMenu::MacroFunction, "MACRO FUNCTION ADD ", PlaceOf("mnuMacroAdd")},
    {MainMenu::MacroFunction, "MACRO FUNCTION NEXT LEVEL ", PlaceOf("mnuNextLevel")},
};

void Trace(const frmMenu& menu, const TracedEntry& traced) {
    if (!modPlan::TraceEnabled) {
        return;
    }
    const std::string state = !traced.entry ? std::string()
                                            : TraceText("- checked: ", menu.IsChecked(*traced.entry),
                                                        " - enabled: ", menu.IsEnabled(*traced.entry))
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

constexpr std::string_view OwnColorName = "mnuColorOwn";
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
            if (traced.entry) {
                setWithBelow(*traced.entry);
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

void ShowColors(Popups& popups, frmMenu& menu, const ColorQuestion& question, PopupPlace place) {
    menu.ForgetPending();
    PopupMenu popup = menu.PopupOf(MainMenu::Colors);
    constexpr std::int16_t NoEntry = -1;
    const std::int16_t own = question.own ? PaletteIndexOf(*question.own) : NoEntry;
    const bool isOwn = question.own && question.present == own;
    std::string ownName;
    for (std::size_t i = 0; i < popup.entries.size(); ++i) {
        const std::int16_t index = modGrid::PaletteIndexOf(static_cast<int>(i));
        popup.entries[i].checked = question.present == index && !isOwn;
        ownName = own == index ? popup.entries[i].name : ownName;
    }
    if (question.own) {
        PopupEntry entry;
        entry.name = OwnColorName;
        entry.caption = "As the view";
        entry.checked = isOwn;
        entry.viewColor = question.own;
        PopupEntry separator;
        separator.separator = true;
        popup.entries.insert(popup.entries.begin(), {std::move(entry), std::move(separator)});
    }
    const std::string chosen = popups.Choose(popup, place);
    menu.Click(chosen == OwnColorName ? ownName : chosen);
}

}  // namespace planview::modPopup
