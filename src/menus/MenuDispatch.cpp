// SPDX-License-Identifier: MIT
#include "menus/MenuDispatch.h"

#include <array>
#include <string>

#include "grid/BusyScope.h"
#include "grid/modGrid.h"
#include "menus/modPopup.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

constexpr std::string_view ColorCommand = "Color ";

}  // namespace

MenuDispatch::MenuDispatch(Parts parts) : parts_(std::move(parts)) {
    for (const std::string_view command : {"Cols", "Rows", "Grid", "Cell"}) {
        commands_.Bind(command, [this] { RaiseHostEntry(); });
    }
}

frmMenu& MenuDispatch::Menu() {
    if (!menu_) {
        menu_ = std::make_unique<frmMenu>();
    }
    return *menu_;
}

void MenuDispatch::Open(std::string_view column, std::string_view row, PopupPlace place) {
    if (open_) {
        return;
    }
    const BusyScope open(open_);
    clicked_ = {std::string(column), std::string(row)};
    place_ = place;
    const std::optional<MainMenu> which = PopupFor(column, row);
    if (!which) {
        return;
    }
    shown_ = *which;
    Prepare(*which);
    modPopup::Show(parts_.popups, Menu(), *which, &user_, place);
    const std::string command = Menu().PendingCommand().command;
    commands_.Run(command);
}

std::string MenuDispatch::Ask(MainMenu which, PopupPlace place) {
    if (open_) {
        return {};
    }
    const BusyScope open(open_);
    modPopup::Show(parts_.popups, Menu(), which, nullptr, place);
    return Menu().PendingCommand().command;
}

std::optional<MainMenu> MenuDispatch::PopupFor(std::string_view column, std::string_view row) const {
    const bool heading = row.starts_with("FTR");
    const bool label = column.starts_with("FLC");
    const bool planningColumn = column.starts_with("COL");
    const bool planningRow = row.starts_with("ROW");
    const bool corner = column == LabelColumnKey && row == HeadingRowKey;
    if (corner || (planningColumn && heading) || (label && planningRow) || (planningColumn && planningRow)) {
        if (parts_.busy) {
            return std::nullopt;
        }
        return corner ? MainMenu::Grid : heading ? MainMenu::Column : label ? MainMenu::Row : MainMenu::Cell;
    }
    return column == PlaceChart       ? std::optional(MainMenu::Chart)
           : column == PlaceSeries    ? std::optional(MainMenu::Series)
           : column == PlaceTrendline ? std::optional(MainMenu::Trendline)
                                      : std::nullopt;
}

// --- What can be chosen

bool MenuDispatch::Can(std::string_view command, bool possible) const {
    return possible && commands_.IsBound(command);
}

void MenuDispatch::Allow(std::string_view command, bool possible) {
    Menu().EnableCommand(command, Can(command, possible));
}

void MenuDispatch::Prepare(MainMenu which) {
    for (const std::string_view command : MenuCommands::Names()) {
        Allow(command, true);
    }
    const MenuState state = parts_.state(clicked_);
    switch (which) {
        case MainMenu::Grid:
            user_.UserGrid(parts_.tables.GRIDMENU);
            PrepareGrid(state);
            break;
        case MainMenu::Column:
            user_.UserCols(parts_.tables.COLMENU);
            PrepareColumns(state);
            break;
        case MainMenu::Row:
            user_.UserRows(parts_.tables.ROWMENU);
            PrepareRows(state);
            break;
        case MainMenu::Cell:
            user_.UserCell(parts_.tables.CELLMENU);
            PrepareCell(state);
            break;
        case MainMenu::Chart:
            modPopup::ChartViews(Menu(), state.chartShown, state.forecastView);
            break;
        case MainMenu::Series:
            PrepareSeries(state);
            break;
        case MainMenu::Trendline:
            Allow("TrendlineColor", state.hasTrendline);
            Allow("TrendlineDelete", state.hasTrendline);
            break;
        default:
            break;
    }
}

void MenuDispatch::PrepareGrid(const MenuState& state) {
    frmMenu& menu = Menu();
    const bool hasCells = state.columns.any && state.rows.any;
    modPopup::MacroTree(menu, Can("MacroTree", state.layoutMode), state.treeShown);
    modPopup::Chart(menu, Can("Chart"), state.chartShown);
    modPopup::Switch(menu, Can("Switch"), state.switched ? -1 : 0);
    modPopup::Zoom(menu, Can("Zoom"), state.zoomed);
    modPopup::MacroRecord(menu, Can("MacroRecStart"), state.record, state.canUndoRecord);
    modPopup::Excel(menu, Can("ExcelDn", hasCells), Can("ExcelUp", hasCells));
    modPopup::FillTestData(menu, Can("TestData", hasCells));
    modPopup::Trace(menu, Can("Trace"), state.traceOn);
    modPopup::ShowTrace(menu, Can("ShowTrace", state.traceOn));
}

void MenuDispatch::PrepareColumns(const MenuState& state) {
    const HeadingState& columns = state.columns;
    Allow("ColsSelectAll", columns.any);
    Allow("ColsSelectBlock", columns.selected);
    Allow("ColsDeselect", columns.selected);
    modPopup::Columns(
        Menu(), {Can("ColsHide", columns.canHide), Can("ColsShow", columns.canShow), Can("WidthReset", columns.any)});
}

void MenuDispatch::PrepareRows(const MenuState& state) {
    const HeadingState& rows = state.rows;
    Allow("RowsSelectAll", rows.any);
    Allow("RowsSelectBlock", rows.selected);
    Allow("RowsDeselect", rows.selected);
    Allow("RowAttributes", rows.selected);
    modPopup::Rows(Menu(), {Can("RowsHide", rows.canHide), Can("RowsShow", rows.canShow), Can("HeightReset", rows.any),
                            Can("RowBgColor", rows.selected), Can("RowFgColor", rows.selected)});
}

void MenuDispatch::PrepareCell(const MenuState& state) {
    modPopup::CellEdit(Menu(), {Can("CellCut", state.editable), Can("CellCopy"), Can("CellPaste", state.editable)});
}

void MenuDispatch::PrepareSeries(const MenuState& state) {
    modPopup::Series(Menu(), Can("ChartLine", state.chartShown), state.seriesType);
}

// --- What was chosen

std::optional<int> MenuDispatch::ChooseColor() {
    modPopup::Show(parts_.popups, Menu(), MainMenu::Colors, nullptr, place_);
    const std::string& command = Menu().PendingCommand().command;
    if (!command.starts_with(ColorCommand)) {
        return std::nullopt;
    }
    return std::stoi(command.substr(ColorCommand.size()));
}

void MenuDispatch::RaiseHostEntry() {
    const frmMenu::Pending pending = Menu().PendingCommand();
    const UserMenu::Slot slot = user_.At(pending.slot);
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite("POPUP",
                            TraceText("{cid: ", clicked_.column, " - rid: ", clicked_.row, " - menu: ", pending.command,
                                      " - index:", pending.slot, "}"),
                            "Usermenu pressed fired", "");
    }
    const CellKey clicked = clicked_;
    const std::array<Variant, 6> arguments{static_cast<std::int16_t>(shown_),   std::to_string(slot.PFID),
                                           modGrid::PositionOf(clicked.column), clicked.column,
                                           modGrid::PositionOf(clicked.row),    clicked.row};
    parts_.events.Raise(EventId::GridPopupMenuPressed, arguments);
}

}  // namespace planview
