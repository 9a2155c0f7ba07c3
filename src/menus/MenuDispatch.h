// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/GridTypes.h"
#include "menus/MenuCommands.h"
#include "menus/MenuState.h"
#include "menus/UserMenu.h"
#include "menus/frmMenu.h"

namespace planview {

/// Places of the chart that have a popup.
inline constexpr std::string_view PlaceChart = "CHART";
inline constexpr std::string_view PlaceSeries = "SERIES";
inline constexpr std::string_view PlaceTrendline = "TRENDLINE";

/// Decides which popup fits the place that the user clicked, shows it, and carries out the entry that he chose: by a
/// bound command, or as the host's event for an entry of the host.
class MenuDispatch {
public:
    struct Parts {
        const TableSlots& tables;
        EventSource& events;
        Popups& popups;
        /// While it is set the control is changing the grid, and no popup of the grid opens.
        const bool& busy;
        /// What is true now; asked each time before a popup opens, with the place that was clicked.
        std::function<MenuState(const CellKey& clicked)> state;
    };

    explicit MenuDispatch(Parts parts);

    [[nodiscard]] MenuCommands& Commands() noexcept { return commands_; }

    /// `column` and `row` are the keys of the clicked place, or `column` is one of the chart's places. Nothing opens
    /// where no popup fits, and none while another one is open. Returns when the chosen command has ended.
    void Open(std::string_view column, std::string_view row, PopupPlace place);

    /// Shows one of the popups whose entries somebody else prepares and carries out; answers the chosen command, the
    /// empty text when none was chosen or another popup is open.
    [[nodiscard]] std::string Ask(MainMenu which, PopupPlace place);

    /// Shows the colours, where the popup of the command under way was; the position of the chosen one (0 .. 15), no
    /// value when none was chosen. The pending command is "Color N" then.
    [[nodiscard]] std::optional<int> ChooseColor();

    /// The place that the command under way is about.
    [[nodiscard]] const CellKey& Clicked() const noexcept { return clicked_; }
    /// The control's menu, made on first use.
    [[nodiscard]] frmMenu& Menu();

private:
    [[nodiscard]] std::optional<MainMenu> PopupFor(std::string_view column, std::string_view row) const;
    /// Loads the host's table and sets the entries' state for the popup.
    void Prepare(MainMenu which);
    void PrepareGrid(const MenuState& state);
    void PrepareColumns(const MenuState& state);
    void PrepareRows(const MenuState& state);
    void PrepareCell(const MenuState& state);
    void PrepareSeries(const MenuState& state);
    /// Enables the entries of a command by whether it is bound and `possible`.
    void Allow(std::string_view command, bool possible);
    [[nodiscard]] bool Can(std::string_view command, bool possible = true) const;
    void RaiseHostEntry();

    Parts parts_;
    MenuCommands commands_;
    UserMenu user_;
    std::unique_ptr<frmMenu> menu_;
    CellKey clicked_;
    PopupPlace place_ = PopupPlace::Mouse;
    MainMenu shown_ = MainMenu::Grid;
    bool open_ = false;
};

}  // namespace planview
