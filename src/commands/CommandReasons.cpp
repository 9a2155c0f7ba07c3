// SPDX-License-Identifier: MIT
#include "commands/CommandReasons.h"

#include "grid/CellRules.h"
#include "trace/modPlan.h"

namespace planview::commands {

namespace {

std::string Unless(bool possible, const char* reason) {
    return possible ? std::string() : std::string(reason);
}

/// `one` is a column or a row.
std::string NoneSelected(const HeadingState& headings, const std::string& one) {
    return headings.selected ? std::string() : "Select a " + one + " by its heading first.";
}

std::string NoneToHide(const HeadingState& headings, const std::string& one) {
    if (!headings.selected) {
        return NoneSelected(headings, one);
    }
    if (!headings.selectedVisible) {
        return "Every selected " + one + " is hidden already.";
    }
    // With every one hidden there would be no heading left to show them again from.
    return headings.remainsVisible ? std::string() : "One " + one + " has to stay visible.";
}

std::string NoneToShow(const HeadingState& headings, const std::string& one) {
    return headings.selectedHidden ? std::string() : "Select the headings on both sides of a hidden " + one + " first.";
}

}  // namespace

// --- Values

std::string NothingToUndo(const CommandSituation& now) {
    return Unless(now.on.history.CanUndo(), "There is no change to take back.");
}

std::string NothingToRedo(const CommandSituation& now) {
    return Unless(now.on.history.CanRedo(), "There is no change to make again.");
}

std::string NoCell(const CommandSituation& now) {
    return Unless(now.AskedCell().has_value(), "There is no cell.");
}

std::string NoCells(const CommandSituation& now) {
    return Unless(now.Columns().any && now.Rows().any, "The table has no cells.");
}

std::string CannotEdit(const CommandSituation& now) {
    const GridControl& grid = now.on.Grid();
    const std::optional<Cell> cell = now.AskedCell();
    if (!cell) {
        return NoCell(now);
    }
    const bool ofSelection =
        !now.IsClicked() || grid.Selection().HasCell(*cell, grid.OrderOf(cell->column), grid.OrderOf(cell->row));
    if (ofSelection && now.SeveralCellsSelected()) {
        // Some of them may take values; the command counts those that do not.
        return grid.IsReadOnly() ? std::string(RefusalText(Refusal::TableReadOnly)) : std::string();
    }
    return std::string(RefusalText(RefusalOf(grid, *cell)));
}

std::string NoOtherReading(const CommandSituation& now) {
    return Unless(now.on.otherReading.IsOffered(), "No number was entered last that could have meant another one.");
}

std::string NothingToFill(const CommandSituation& now) {
    return now.SeveralCellsSelected() ? CannotEdit(now) : "Select several cells first; the first one gives the value.";
}

// --- Columns and rows

std::string NoColumns(const CommandSituation& now) {
    return Unless(now.Columns().any, "There are no columns.");
}

std::string NoColumnSelected(const CommandSituation& now) {
    return NoneSelected(now.Columns(), "column");
}

std::string NoColumnToHide(const CommandSituation& now) {
    return NoneToHide(now.Columns(), "column");
}

std::string NoColumnToShow(const CommandSituation& now) {
    return NoneToShow(now.Columns(), "column");
}

std::string NoRows(const CommandSituation& now) {
    return Unless(now.Rows().any, "There are no rows.");
}

std::string NoRowSelected(const CommandSituation& now) {
    return NoneSelected(now.Rows(), "row");
}

std::string NoRowToHide(const CommandSituation& now) {
    return NoneToHide(now.Rows(), "row");
}

std::string NoRowToShow(const CommandSituation& now) {
    return NoneToShow(now.Rows(), "row");
}

// --- Panes

std::string NoChart(const CommandSituation& now) {
    return Unless(now.on.settings.chartShown, "Show the chart first.");
}

std::string NoPlainLine(const CommandSituation& now) {
    const std::int16_t type = now.on.settings.chartType;
    const bool stacked = IsChartType(type) && IsStackedType(static_cast<ChartType>(type));
    return !now.on.settings.chartShown ? NoChart(now)
                                       : Unless(!stacked || now.on.chartCommands.IsForecastView(),
                                                "The whole chart is stacked; its type is in the chart options.");
}

std::string NoPlainColumns(const CommandSituation& now) {
    const std::optional<ChartType> type = now.SeriesType();
    const bool isStackedLine = type && IsStackedType(*type) && !IsColumnType(*type);
    return isStackedLine ? NoChart(now) : NoPlainLine(now);
}

std::string NoTrendLine(const CommandSituation& now) {
    return Unless(now.on.chartCommands.HasTrendline(), "Click a trend line in the chart first.");
}

std::string NoLayoutMode(const CommandSituation& now) {
    return Unless(now.on.settings.layoutMode, "The macro tree cannot be shown here.");
}

std::optional<std::string> NoMacroTree(const CommandParts& on, const CommandCall& /*call*/) {
    return on.settings.layoutMode ? std::nullopt : std::optional<std::string>("the macro tree cannot be shown here");
}

std::string NoTrace(const CommandSituation& /*now*/) {
    return Unless(modPlan::TraceEnabled, "Switch the trace on first.");
}

// --- Macros

std::string IsRecording(const CommandSituation& now) {
    return Unless(now.on.recording.State() != RecordState::Running, "A recording is running.");
}

std::string IsNotRecording(const CommandSituation& now) {
    return Unless(now.on.recording.State() == RecordState::Running, "No recording is running.");
}

std::string NoRecording(const CommandSituation& now) {
    return Unless(now.on.recording.State() != RecordState::Off, "There is no recording.");
}

std::string NoRecordedStep(const CommandSituation& now) {
    return now.on.recording.CanUndoRecord() ? std::string() : "The recording has no step.";
}

std::string NoNodes(const CommandSituation& now) {
    return Unless(now.on.macroTree.control.Nodes().Count() > 0, "There are no macros.");
}

std::string NoNode(const CommandSituation& now) {
    return Unless(!now.Node().empty(), "Select a node of the macro tree first.");
}

std::string NoMacroToPreview(const CommandSituation& now) {
    const MacroEditor& editor = now.on.macroEditor;
    return editor.IsRecording() ? "A recording is replayed step by step and cannot be seen before."
                                : Unless(!editor.MacroKey().empty(), "Select a macro in the macro tree first.");
}

std::string NoNodeToRename(const CommandSituation& now) {
    const std::string node = now.Node();
    if (node.empty()) {
        return NoNode(now);
    }
    // The table decides, and says so in the trace; who only asks how things stand leaves no entry.
    const bool notRoot = now.place.node ? modMacro::NotRoot(now.on.macroTree, node)
                                        : static_cast<bool>(now.on.macroTree.control.Nodes().Item(node).Parent());
    return Unless(notRoot, "The first level of the macro tree keeps its names.");
}

}  // namespace planview::commands
