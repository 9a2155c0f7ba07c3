// SPDX-License-Identifier: MIT
#include "menus/MenuDispatch.h"

#include <array>
#include <string>

#include "automation/BusyScope.h"
#include "grid/modGrid.h"
#include "menus/modPopup.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

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
    LoadHostEntries(*which);
    modPopup::Update(Menu(), *which, parts_.runner.Situation({clicked_}));
    modPopup::Show(parts_.popups, Menu(), *which, &user_, place);
    RunChosen(Menu().PendingCommand());
}

std::optional<Command> MenuDispatch::Ask(MainMenu which, PopupPlace place, const CommandPlace& about) {
    modPopup::Update(Menu(), which, parts_.runner.Situation(about));
    if (open_) {
        return std::nullopt;
    }
    const BusyScope open(open_);
    modPopup::Show(parts_.popups, Menu(), which, nullptr, place);
    const std::string& chosen = Menu().PendingCommand().command;
    return chosen.empty() ? std::nullopt : std::optional(CommandNamed(chosen));
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

void MenuDispatch::LoadHostEntries(MainMenu which) {
    switch (which) {
        case MainMenu::Grid:
            user_.UserGrid(parts_.tables.GRIDMENU);
            break;
        case MainMenu::Column:
            user_.UserCols(parts_.tables.COLMENU);
            break;
        case MainMenu::Row:
            user_.UserRows(parts_.tables.ROWMENU);
            break;
        case MainMenu::Cell:
            user_.UserCell(parts_.tables.CELLMENU);
            break;
        default:
            break;
    }
}

// --- What was chosen

/// By value: the command may open another popup.
void MenuDispatch::RunChosen(frmMenu::Pending chosen) {
    if (chosen.command.empty()) {
        return;
    }
    ErrorTrap("POPUP", chosen.command, [&] {
        if (chosen.slot > 0) {
            RaiseHostEntry(chosen);
        } else {
            CommandCall call;
            call.place.cell = clicked_;
            parts_.runner.Run(CommandNamed(chosen.command), std::move(call));
        }
    });
}

std::optional<int> MenuDispatch::ChooseColor(const ColorQuestion& question) {
    modPopup::ShowColors(parts_.popups, Menu(), question, place_);
    const std::string& command = Menu().PendingCommand().command;
    if (!command.starts_with(ColorChoice)) {
        return std::nullopt;
    }
    return std::stoi(command.substr(ColorChoice.size()));
}

void MenuDispatch::RaiseHostEntry(const frmMenu::Pending& pending) {
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
