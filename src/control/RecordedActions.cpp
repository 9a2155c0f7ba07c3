// SPDX-License-Identifier: MIT
#include "control/RecordedActions.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "control/ControlContext.h"
#include "grid/LoaderSupport.h"
#include "grid/RowColors.h"
#include "grid/SelectedCells.h"
#include "grid/Selection.h"
#include "grid/modGrid.h"
#include "macro/recording/MacroStep.h"

namespace planview {

namespace {

/// What an action is about, and how it is done again.
enum class ActionKind {
    Plain,       ///< the menu command, on nothing in particular
    Toggle,      ///< the menu command where the state is not yet the recorded one
    OnRows,      ///< the menu command on selected rows
    Mark,        ///< selects headings
    Hide,        ///< of columns or rows
    Show,        ///< of columns or rows
    ChartPlace,  ///< puts columns or rows into the chart
    Size,
    Color
};

struct Action {
    std::string_view command;
    ActionKind kind;
};

constexpr auto Actions = std::to_array<Action>({
    {MacroCommand::Mark, ActionKind::Mark},
    {"ColsHide", ActionKind::Hide},
    {"RowsHide", ActionKind::Hide},
    {"ColsShow", ActionKind::Show},
    {"RowsShow", ActionKind::Show},
    {"ColsInChart", ActionKind::ChartPlace},
    {"RowsInChart", ActionKind::ChartPlace},
    {"COL_WIDTH", ActionKind::Size},
    {"COL_HEIGHT", ActionKind::Size},
    {"ROW_WIDTH", ActionKind::Size},
    {"ROW_HEIGHT", ActionKind::Size},
    {"RowBgColor", ActionKind::Color},
    {"RowFgColor", ActionKind::Color},
    {"WidthReset", ActionKind::Plain},
    {"WidthResetAll", ActionKind::Plain},
    {"HeightReset", ActionKind::Plain},
    {"HeightResetAll", ActionKind::Plain},
    {"ChartRedraw", ActionKind::Plain},
    {"Default", ActionKind::Plain},
    {"Forecast1", ActionKind::Plain},
    {"Chart", ActionKind::Toggle},
    {"Switch", ActionKind::Toggle},
    {"Zoom", ActionKind::Toggle},
    {"MacroTree", ActionKind::Toggle},
    {"ChartLine", ActionKind::OnRows},
    {"ChartColumn", ActionKind::OnRows},
    {"LineStacked", ActionKind::OnRows},
    {"LineStacked100", ActionKind::OnRows},
    {"Linear", ActionKind::OnRows},
    {"Logarithmic", ActionKind::OnRows},
    {"Potential", ActionKind::OnRows},
    {"Expotential", ActionKind::OnRows},
    {"Average", ActionKind::OnRows},
});

/// Commands that select headings by themselves, without the grid reporting it.
constexpr std::array<std::string_view, 6> Selecting = {"ColsSelectAll", "ColsSelectBlock", "ColsDeselect",
                                                       "RowsSelectAll", "RowsSelectBlock", "RowsDeselect"};

const Action* Find(std::string_view command) {
    const auto* found =
        std::find_if(Actions.begin(), Actions.end(), [&](const Action& each) { return each.command == command; });
    return found == Actions.end() ? nullptr : found;
}

bool StateOf(const ControlContext& context, std::string_view toggle) {
    return toggle == "Chart"    ? context.settings.chartShown
           : toggle == "Switch" ? context.settings.switched
           : toggle == "Zoom"   ? context.settings.zoomed
                                : context.settings.treeShown;
}

/// No value for a text that is no whole number from `least` to `most`.
std::optional<std::int16_t> NumberFrom(const std::string& text, int least, int most) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && number >= least && number <= most ? std::optional(static_cast<std::int16_t>(number)) : std::nullopt;
}

bool HasPlaces(const ViewAction& action) {
    return !action.columns.empty() || !action.rows.empty();
}

/// With all of them hidden there would be no heading left to show them again from.
bool LeavesNone(const GridControl& grid, const ViewAction& action) {
    const auto named = [](const std::vector<std::string>& keys, const std::string& key) {
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    };
    const auto columns = grid.Columns(ColumnArea::Center);
    const auto rows = grid.Rows(RowArea::Center);
    return action.rows.empty()
               ? std::all_of(
                     columns.begin(), columns.end(),
                     [&](ColumnId id) { return grid.Column(id).hidden || named(action.columns, grid.Column(id).key); })
               : std::all_of(rows.begin(), rows.end(),
                             [&](RowId id) { return grid.Row(id).hidden || named(action.rows, grid.Row(id).key); });
}

void SelectHeadings(ControlContext& context, const ViewAction& action) {
    modGrid& driver = context.driver;
    driver.DeleteSelection({LabelColumnKey, HeadingRowKey}, NoRedraw);
    for (const std::string& key : action.columns) {
        driver.SetSelection({key, {}}, NoRedraw);
    }
    for (const std::string& key : action.rows) {
        driver.SetSelection({{}, key}, NoRedraw);
    }
    MirrorSelection(context.tables.COLS_INDEX, context.tables.LINE_INDEX, driver);
    context.grid.Redraw();
}

struct SizeField {
    std::string_view field;
    GridStatus (modGrid::*set)(std::string_view key, std::int16_t size, bool redraw);
    void (SizeEvents::*tell)(const std::string& key, int size);
};

constexpr std::array<SizeField, 4> SizeFields = {
    {{"COL_WIDTH", &modGrid::ColumnWidth, &SizeEvents::ColumnResized},
     {"COL_HEIGHT", &modGrid::ColumnHeight, &SizeEvents::SwitchedColumnResized},
     {"ROW_WIDTH", &modGrid::RowWidth, &SizeEvents::SwitchedRowResized},
     {"ROW_HEIGHT", &modGrid::RowHeight, &SizeEvents::RowResized}}};

/// The first one as if the user had dragged it; the others are marked and follow.
void Resize(ControlContext& context, const ViewAction& action) {
    const auto* field = std::find_if(SizeFields.begin(), SizeFields.end(),
                                     [&](const SizeField& each) { return each.field == action.command; });
    const std::optional<std::int16_t> size = NumberFrom(action.value, 1, MaxTrackSize);
    const std::vector<std::string>& keys = action.columns.empty() ? action.rows : action.columns;
    if (field == SizeFields.end() || !size || keys.empty()) {
        return;
    }
    SelectHeadings(context, action);
    (context.driver.*field->set)(keys.front(), *size, NoRedraw);
    (context.sizeEvents.*field->tell)(keys.front(), *size);
}

void Color(ControlContext& context, const ViewAction& action) {
    SelectHeadings(context, action);
    const std::optional<std::int16_t> color = NumberFrom(action.value, 0, modGrid::PaletteSize - 1);
    if (color) {
        ColorSelectedRows(context.tables.LINE_INDEX, context.driver,
                          action.command == "RowBgColor" ? RowColor::Background : RowColor::Foreground, *color);
        context.hostUpdate.StartUpdate();
        context.recording.Did(action);
    }
}

}  // namespace

void RecordMenuCommand(ControlContext& context, std::string_view command) {
    MacroRecording& recording = context.recording;
    if (recording.State() != RecordState::Running) {
        return;
    }
    if (std::find(Selecting.begin(), Selecting.end(), command) != Selecting.end()) {
        recording.Marked();
        return;
    }
    const Action* action = Find(command);
    if (!action) {
        return;
    }
    const std::string name(command);
    switch (action->kind) {
        case ActionKind::Plain:
            recording.Did({name, {}, {}, {}});
            break;
        case ActionKind::Toggle:
            recording.Did({name, {}, {}, StateOf(context, command) ? "X" : ""});
            break;
        case ActionKind::OnRows:
            recording.Did({name, {}, SelectedRowKeys(context.grid), {}});
            break;
        default:
            break;  // told where it is carried out
    }
}

std::optional<std::string> ActionRefusal(const ControlContext& context, const ViewAction& action) {
    const Action* known = Find(action.command);
    if (!known) {
        return "there is no command \"" + action.command + "\" that can be replayed";
    }
    switch (known->kind) {
        case ActionKind::Hide:
            if (!HasPlaces(action) || LeavesNone(context.grid, action)) {
                return "nothing would be left to see";
            }
            break;
        case ActionKind::Size:
            if (!HasPlaces(action) || !NumberFrom(action.value, 1, MaxTrackSize)) {
                return "\"" + action.value + "\" is no size";
            }
            break;
        case ActionKind::Color:
            if (action.rows.empty() || !NumberFrom(action.value, 0, modGrid::PaletteSize - 1)) {
                return "\"" + action.value + "\" is no colour";
            }
            break;
        case ActionKind::Toggle:
            if (action.command == "MacroTree" && !context.settings.layoutMode) {
                return "the macro tree cannot be shown here";
            }
            break;
        default:
            break;
    }
    return std::nullopt;
}

void PerformAction(ControlContext& context, const ViewAction& action) {
    const Action* known = Find(action.command);
    if (!known) {
        return;
    }
    const MenuCommands& commands = context.menus.Commands();
    switch (known->kind) {
        case ActionKind::Toggle:
            if (StateOf(context, action.command) != (action.value == "X")) {
                commands.Run(action.command);
            }
            break;
        case ActionKind::Mark:
            SelectHeadings(context, action);
            context.recording.Marked();
            break;
        case ActionKind::Hide:
            SelectHeadings(context, action);
            action.rows.empty() ? context.commands.HideColumns() : context.commands.HideRows();
            break;
        case ActionKind::Show:
            action.rows.empty() ? context.commands.ShowColumns(action.columns) : context.commands.ShowRows(action.rows);
            break;
        case ActionKind::ChartPlace:
            SelectHeadings(context, action);
            action.command == "RowsInChart" ? context.chartCommands.RowsShowInChart()
                                            : context.chartCommands.ColsShowInChart();
            context.recording.Did(action);
            break;
        case ActionKind::Size:
            Resize(context, action);
            break;
        case ActionKind::Color:
            Color(context, action);
            break;
        case ActionKind::OnRows:
            SelectHeadings(context, action);
            commands.Run(action.command);
            break;
        case ActionKind::Plain:
            commands.Run(action.command);
            break;
    }
}

}  // namespace planview
