// SPDX-License-Identifier: MIT
#include "control/MenuWiring.h"

#include "control/ControlContext.h"
#include "control/RecordedActions.h"
#include "control/ViewCommands.h"
#include "grid/CellRules.h"
#include "grid/RowColors.h"
#include "grid/SelectedCells.h"
#include "grid/Selection.h"
#include "grid/TestData.h"
#include "grid/modGrid.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

/// Selecting by command is no change of the user's that the grid reports: it marks the tables itself.
template <class Operation>
void Select(ControlContext& context, const HostTable& table, const Operation& operation) {
    operation(table, context.driver);
    MirrorSelection(context.tables.COLS_INDEX, context.tables.LINE_INDEX, context.driver);
    context.grid.Redraw();
}

template <class Operation>
void Deselect(ControlContext& context, const HostTable& table, const Operation& operation) {
    Select(context, table, operation);
    context.hostUpdate.StartUpdate();
}

void ColorRows(ControlContext& context, RowColor which) {
    const std::optional<int> position = context.chooseColor();
    if (position) {
        const std::int16_t color = modGrid::PaletteIndexOf(*position);
        ColorSelectedRows(context.tables.LINE_INDEX, context.driver, which, color);
        context.hostUpdate.StartUpdate();
        context.recording.Did({which == RowColor::Background ? "RowBgColor" : "RowFgColor",
                               {},
                               SelectedRowKeys(context.grid),
                               std::to_string(color)});
    }
}

void ToggleTrace(ControlContext& context) {
    if (modPlan::TraceEnabled) {
        modPlan::Trace_Disable(context.platform);
    } else {
        modPlan::Trace_Enable(context.platform);
    }
}

void BindGridCommands(ControlContext& context) {
    MenuCommands& commands = context.menus.Commands();
    commands.Bind("MacroTree", [&] { ToggleMacroTree(context); });
    commands.Bind("Switch", [&] { SwitchGrid(context); });
    commands.Bind("Zoom", [&] { ZoomGrid(context); });
    commands.Bind("ExcelDn", [&] { context.download.Run(); });
    commands.Bind("ExcelUp", [&] { context.upload.Run(); });
    commands.Bind("TestData",
                  [&] { FillWithTestData(context.grid, context.valueEntry, context.platform.messageBoxes); });
    commands.Bind("Trace", [&] { ToggleTrace(context); });
    commands.Bind("ShowTrace", [&] { modPlan::Trace_Show(context.platform); });
    commands.Bind("CellCut", [&] { context.clipboard.Cut(); });
    commands.Bind("CellCopy", [&] { context.clipboard.Copy(); });
    commands.Bind("CellPaste", [&] { context.clipboard.Paste(); });
}

void BindColumnCommands(ControlContext& context) {
    MenuCommands& commands = context.menus.Commands();
    const HostTable& table = context.tables.COLS_INDEX;
    commands.Bind("ColsSelectAll", [&] { Select(context, table, SelectAllColumns); });
    commands.Bind("ColsSelectBlock", [&] { Select(context, table, SelectBlockColumns); });
    commands.Bind("ColsDeselect", [&] { Deselect(context, table, DeselectAllColumns); });
    commands.Bind("ColsHide", [&] { context.commands.HideColumns(); });
    commands.Bind("ColsShow", [&] { context.commands.ShowColumns(); });
    for (const std::string_view command : {"WidthReset", "WidthResetAll"}) {
        commands.Bind(command, [&] { context.commands.ResetWidths(); });
    }
}

void BindRowCommands(ControlContext& context) {
    MenuCommands& commands = context.menus.Commands();
    const HostTable& table = context.tables.LINE_INDEX;
    commands.Bind("RowsSelectAll", [&] { Select(context, table, SelectAllRows); });
    commands.Bind("RowsSelectBlock", [&] { Select(context, table, SelectBlockRows); });
    commands.Bind("RowsDeselect", [&] { Deselect(context, table, DeselectAllRows); });
    commands.Bind("RowsHide", [&] { context.commands.HideRows(); });
    commands.Bind("RowsShow", [&] { context.commands.ShowRows(); });
    commands.Bind("RowBgColor", [&] { ColorRows(context, RowColor::Background); });
    commands.Bind("RowFgColor", [&] { ColorRows(context, RowColor::Foreground); });
    for (const std::string_view command : {"HeightReset", "HeightResetAll"}) {
        commands.Bind(command, [&] { context.commands.ResetHeights(); });
    }
}

void BindDialogCommands(ControlContext& context) {
    MenuCommands& commands = context.menus.Commands();
    commands.Bind("General", [&] { context.generalOptions.Run(); });
    commands.Bind("RowAttributes", [&] { context.rowAttributes.Run(); });
    commands.Bind("ChartAttribute", [&] { context.chartOptions.Run(); });
}

void BindRecordingCommands(ControlContext& context) {
    MenuCommands& commands = context.menus.Commands();
    commands.Bind("MacroRecStart", [&] { context.recording.StartRecord(); });
    commands.Bind("MacroRecInter", [&] { context.recording.InterruptRecord(); });
    commands.Bind("MacroRecStop", [&] { context.recording.StopRecord(); });
    commands.Bind("MacroRecUndo", [&] { context.recording.UndoRecord(); });
    commands.SetListener([&context](std::string_view command) { RecordMenuCommand(context, command); });
}

void BindChartCommands(ControlContext& context) {
    MenuCommands& commands = context.menus.Commands();
    ChartCommands& chart = context.chartCommands;
    commands.Bind("Chart", [&] { chart.SwitchDisplay(); });
    commands.Bind("ChartRedraw", [&] { chart.AutoArrange(); });
    commands.Bind("Default", [&] { chart.StandardView(); });
    commands.Bind("Forecast1", [&] { chart.ForecastView(); });
    commands.Bind("ChartCopy", [&] { chart.CopyToClipboard(); });
    constexpr std::pair<std::string_view, ChartType> Types[] = {{"ChartLine", ChartType::Line},
                                                                {"ChartColumn", ChartType::Column},
                                                                {"LineStacked", ChartType::StackedLine},
                                                                {"LineStacked100", ChartType::StackedLine100}};
    for (const auto& [command, type] : Types) {
        commands.Bind(command, [&chart, type = type] { chart.SerieType(static_cast<std::int16_t>(type)); });
    }
    constexpr std::pair<std::string_view, TrendKind> Trends[] = {{"Linear", TrendKind::Linear},
                                                                 {"Logarithmic", TrendKind::Logarithmic},
                                                                 {"Potential", TrendKind::Power},
                                                                 {"Expotential", TrendKind::Exponential},
                                                                 {"Average", TrendKind::MovingAverage}};
    for (const auto& [command, kind] : Trends) {
        commands.Bind(command, [&chart, kind = kind] { chart.TrendlineAdd(static_cast<std::int16_t>(kind)); });
    }
    commands.Bind("TrendlineColor", [&] { chart.TrendlineColor(); });
    commands.Bind("TrendlineDelete", [&] { chart.TrendlineDelete(); });
}

}  // namespace

void BindMenuCommands(ControlContext& context) {
    BindGridCommands(context);
    BindColumnCommands(context);
    BindRowCommands(context);
    BindDialogCommands(context);
    BindChartCommands(context);
    BindRecordingCommands(context);
    context.chooseColor = [&context] { return context.menus.ChooseColor(); };
    context.showChartPopup = [&context](std::string_view place) { context.menus.Open(place, {}, PopupPlace::Mouse); };
}

MenuState MenuStateOf(const ControlContext& context, const CellKey& clicked) {
    MenuState state;
    state.layoutMode = context.settings.layoutMode;
    state.treeShown = context.settings.treeShown;
    state.chartShown = context.settings.chartShown;
    state.switched = context.settings.switched;
    state.zoomed = context.settings.zoomed;
    state.traceOn = modPlan::TraceEnabled;
    state.record = context.recording.State();
    state.canUndoRecord = context.recording.CanUndoRecord();
    state.columns = ColumnState(context.grid);
    state.rows = RowState(context.grid);
    state.forecastView = context.chartCommands.IsForecastView();
    state.hasTrendline = context.chartCommands.HasTrendline();
    const ChartState& chart = context.chart.State();
    if (const int series = chart.selected.series; series > 0 && series <= chart.SeriesCount()) {
        state.seriesType = static_cast<std::int16_t>(chart.series[static_cast<std::size_t>(series) - 1].type);
    }
    const std::optional<Cell> cell = context.grid.FindCell(clicked);
    state.editable = cell && RefusalOf(context.grid, *cell) == Refusal::None;
    return state;
}

}  // namespace planview
