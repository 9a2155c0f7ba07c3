// SPDX-License-Identifier: MIT
#include "menus/modPopup.h"

#include <array>
#include <string>

#include "components/chart/ChartTypes.h"
#include "trace/TraceText.h"

namespace planview::modPopup {

namespace {

/// `label` is the menu name as it stands in the trace, up to the dash.
void Update(frmMenu& menu, std::string_view entry, std::string_view label, bool enabled, bool checked = false) {
    menu.Enable(entry, enabled);
    menu.Check(entry, checked);
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite("POPUP", "", "Update",
                            TraceText("{menu: ", label, "- checked: ", checked, " - enabled: ", enabled, "}"));
    }
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

void MacroTree(frmMenu& menu, bool enabled, bool shown) {
    Update(menu, "mnuMacroTree", "MACROTREE ", enabled, shown);
}

void Chart(frmMenu& menu, bool enabled, bool shown) {
    Update(menu, "mnuChart", "CHART ", enabled, shown);
}

void Switch(frmMenu& menu, bool enabled, std::int16_t flag) {
    Update(menu, "mnuSwitch", "SWITCH ", enabled, flag == -1);
}

void Zoom(frmMenu& menu, bool enabled, bool zoomed) {
    Update(menu, "mnuZoom", "ZOOM ", enabled, zoomed);
}

void FillTestData(frmMenu& menu, bool enabled) {
    Update(menu, "mnuRandom", "FILL TEST DATA ", enabled);
}

void MacroRecord(frmMenu& menu, bool possible, RecordState record, bool canUndo) {
    const bool recording = record != RecordState::Off;
    menu.Enable("mnuMacroRecStart", possible && record != RecordState::Running);
    menu.Enable("mnuRecord", possible && record != RecordState::Running);
    menu.Enable("mnuMacroRecInterrupt", possible && record == RecordState::Running);
    menu.Enable("mnuMacroRecStop", possible && recording);
    menu.Enable("mnuMacroRecUndo", possible && recording && canUndo);
    modPlan::TraceWrite("POPUP", "", "Update", "{menu: MACRO-RECORD}");
}

void Excel(frmMenu& menu, bool download, bool upload) {
    Update(menu, "mnuExcelDn", "EXCEL ", download);
    Update(menu, "mnuExcelUp", "EXCEL ", upload);
}

void Trace(frmMenu& menu, bool enabled, bool on) {
    Update(menu, "mnuTrace", "TRACE ", enabled, on);
}

void ShowTrace(frmMenu& menu, bool enabled) {
    Update(menu, "mnuShowTrace", "SHOW TRACE ", enabled);
}

void Columns(frmMenu& menu, const ColumnEntries& enabled) {
    Update(menu, "mnuColsHide", "HIDE ", enabled.hide);
    Update(menu, "mnuColsShow", "SHOW ", enabled.show);
    Update(menu, "mnuColWidth", "WIDTH ", enabled.width);
}

void Rows(frmMenu& menu, const RowEntries& enabled) {
    Update(menu, "mnuRowsHide", "HIDE ", enabled.hide);
    Update(menu, "mnuRowsShow", "SHOW ", enabled.show);
    Update(menu, "mnuRowHeight", "HEIGHT ", enabled.height);
    Update(menu, "mnuRowBgColor", "BACKGROUND COLOR ", enabled.background);
    Update(menu, "mnuRowFgColor", "FOREGROUND COLOR ", enabled.foreground);
}

void CellEdit(frmMenu& menu, const CellEntries& enabled) {
    Update(menu, "mnuCellCut", "CELL EDIT ", enabled.cut);
    Update(menu, "mnuCellCopy", "CELL EDIT ", enabled.copy);
    Update(menu, "mnuCellPaste", "CELL EDIT ", enabled.paste);
}

void ChartViews(frmMenu& menu, bool enabled, bool forecast) {
    Update(menu, "mnuChartViews", "CHART VIEWS ", enabled);
    menu.Check("mnuDefault", !forecast);
    menu.Check("mnuForecast1", forecast);
}

void Series(frmMenu& menu, bool enabled, std::optional<std::int16_t> type) {
    modPlan::TraceWrite("POPUP", "", "Update", "{menu: SERIES}");
    const auto is = [&](ChartType wanted) { return type == static_cast<std::int16_t>(wanted); };
    Update(menu, "mnuChartLine", "SERIES LINE ", enabled, is(ChartType::Line));
    Update(menu, "mnuChartColumn", "SERIES COLUMN ", enabled, is(ChartType::Column));
    // Without the blank before the dash, unlike all others; log readers know it so.
    Update(menu, "mnuLineStacked", "SERIES LINE STACKED", enabled, is(ChartType::StackedLine));
    Update(menu, "mnuLineStacked100", "SERIES LINE STACKED 100% ", enabled, is(ChartType::StackedLine100));
}

void Rename(frmMenu& menu, bool enabled) {
    Update(menu, "mnuNodeRename", "RENAME ", enabled);
}

void MacroFunction(frmMenu& menu, const MacroFunctionEntries& enabled) {
    Update(menu, "mnuMacroInsert", "MACRO FUNCTION INSERT ", enabled.insert);
    Update(menu, "mnuMacroAdd", "MACRO FUNCTION ADD ", enabled.add);
    Update(menu, "mnuNextLevel", "MACRO FUNCTION NEXT LEVEL ", enabled.nextLevel);
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
