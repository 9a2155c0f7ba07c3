// SPDX-License-Identifier: MIT
#include "menus/MenuCommands.h"

#include <algorithm>
#include <array>
#include <string>

#include <planview/AutomationObject.h>

#include "trace/ErrorTrap.h"

namespace planview {

namespace {

constexpr auto CommandNames = std::to_array<std::string_view>({
    "MacroTree",
    "Chart",
    "Switch",
    "Zoom",
    "MacroRecStart",
    "MacroRecInter",
    "MacroRecStop",
    "MacroRecUndo",
    "ExcelDn",
    "ExcelUp",
    "General",
    "TestData",
    "Trace",
    "ShowTrace",
    "ColsSelectAll",
    "ColsSelectBlock",
    "ColsDeselect",
    "ColsHide",
    "ColsShow",
    "WidthReset",
    "WidthResetAll",
    "RowsSelectAll",
    "RowsSelectBlock",
    "RowsDeselect",
    "RowsHide",
    "RowsShow",
    "RowBgColor",
    "RowFgColor",
    "HeightReset",
    "HeightResetAll",
    "RowAttributes",
    "CellCut",
    "CellCopy",
    "CellPaste",
    "ChartRedraw",
    "Default",
    "Forecast1",
    "ChartAttribute",
    "ChartCopy",
    "ChartLine",
    "ChartColumn",
    "LineStacked",
    "LineStacked100",
    "Linear",
    "Logarithmic",
    "Potential",
    "Expotential",
    "Average",
    "TrendlineColor",
    "TrendlineDelete",
    "Cols",
    "Rows",
    "Grid",
    "Cell",
});

/// The place of the command, the number of all when there is none of that name.
std::size_t PlaceOf(std::string_view command) noexcept {
    return static_cast<std::size_t>(std::find(CommandNames.begin(), CommandNames.end(), command) -
                                    CommandNames.begin());
}

}  // namespace

MenuCommands::MenuCommands() : operations_(CommandNames.size()) {}

std::span<const std::string_view> MenuCommands::Names() noexcept {
    return CommandNames;
}

void MenuCommands::Bind(std::string_view command, std::function<void()> operation) {
    const std::size_t place = PlaceOf(command);
    if (place == operations_.size()) {
        throw AutomationError(AutomationErrorCode::WrongArguments, "There is no command " + std::string(command));
    }
    operations_[place] = std::move(operation);
}

bool MenuCommands::IsBound(std::string_view command) const {
    const std::size_t place = PlaceOf(command);
    return place < operations_.size() && operations_[place];
}

void MenuCommands::Run(std::string_view command) const {
    const std::size_t place = PlaceOf(command);
    if (place < operations_.size() && operations_[place]) {
        const std::string_view name = CommandNames[place];  // the caller's own text may end meanwhile
        if (ErrorTrap("POPUP", name, operations_[place]) && listener_) {
            listener_(name);
        }
    }
}

}  // namespace planview
