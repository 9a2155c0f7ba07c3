// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "commands/CommandRunner.h"
#include "components/GridTypes.h"
#include "menus/UserMenu.h"
#include "menus/frmMenu.h"

namespace planview {

/// Places of the chart that have a popup.
inline constexpr std::string_view PlaceChart = "CHART";
inline constexpr std::string_view PlaceSeries = "SERIES";
inline constexpr std::string_view PlaceTrendline = "TRENDLINE";

/// Decides which popup fits the place that the user clicked, shows it, and carries out the entry that he chose: its
/// command, or the host's event for an entry of the host.
class MenuDispatch {
public:
    struct Parts {
        const TableSlots& tables;
        EventSource& events;
        Popups& popups;
        /// While it is set the control is changing the grid, and no popup of the grid opens.
        const bool& busy;
        CommandRunner& runner;
    };

    explicit MenuDispatch(Parts parts) : parts_(parts) {}

    /// `column` and `row` are the keys of the clicked place, or `column` is one of the chart's places. Nothing opens
    /// where no popup fits, and none while another one is open. Returns when the chosen command has ended.
    void Open(std::string_view column, std::string_view row, PopupPlace place);

    /// Shows a popup about this place whose commands somebody else carries out; answers the chosen one, no value when
    /// none was chosen or another popup is open.
    [[nodiscard]] std::optional<Command> Ask(MainMenu which, PopupPlace place, const CommandPlace& about);

    /// Shows the colours, where the popup of the command under way was; the position of the chosen one (0 .. 15), no
    /// value when none was chosen. The pending command is "Color N" then.
    [[nodiscard]] std::optional<int> ChooseColor(const ColorQuestion& question);

    /// The control's menu, made on first use.
    [[nodiscard]] frmMenu& Menu();

private:
    [[nodiscard]] std::optional<MainMenu> PopupFor(std::string_view column, std::string_view row) const;
    /// Where the popup takes entries of the host.
    void LoadHostEntries(MainMenu which);
    void RunChosen(frmMenu::Pending chosen);
    void RaiseHostEntry(const frmMenu::Pending& pending);

    Parts parts_;
    UserMenu user_;
    std::unique_ptr<frmMenu> menu_;
    CellKey clicked_;
    PopupPlace place_ = PopupPlace::Mouse;
    MainMenu shown_ = MainMenu::Grid;
    bool open_ = false;
};

}  // namespace planview
