// SPDX-License-Identifier: MIT
#include <planview/View.h>

#include "control/Guarded.h"
#include "grid/SelectedCells.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view UserControl = "USERCONTROL";

/// A focus event has its entry and nothing else.
void TraceFocus(const std::shared_ptr<detail::ControlState>& state, std::string_view event) {
    Asked(state, UserControl, event, [&](ControlContext&) { TraceWrite(UserControl, "", event, "{}"); });
}

void Update(const std::shared_ptr<detail::ControlState>& state, std::string_view method, std::size_t count,
            const std::function<void(TableUpdate& update)>& add) {
    Guarded(state, "GRIDCTL", method, [&](ControlContext& context) {
        if (TraceEnabled) {
            TraceWrite("GRIDCTL", "", method, TraceText("{count: ", count, "}"));
        }
        context.grid.Update(add);
        context.chart.Step();
    });
}

}  // namespace

void View::SwitchChart() {
    RunCommand(State(), Command::SwitchChart);
}

bool View::ChartShown() const noexcept {
    return State()->context.shared.settings.chartShown;
}

void View::SwitchMacroTree() {
    RunCommand(State(), Command::SwitchMacroTree);
}

bool View::MacroTreeShown() const noexcept {
    return State()->context.shared.settings.treeShown;
}

void View::ShowSelectedColumnsInChart() {
    RunCommand(State(), Command::ShowColumnsInChart);
}

void View::ShowSelectedRowsInChart() {
    RunCommand(State(), Command::ShowRowsInChart);
}

void View::LeaveForecastView() {
    Guarded(State(), "CHART", "StandardView", [](ControlContext& context) {
        if (context.chart.commands.IsForecastView()) {
            context.chart.commands.StandardView();
        }
    });
}

void View::HideColumns() {
    RunCommand(State(), Command::HideColumns);
}

void View::ShowColumns() {
    RunCommand(State(), Command::ShowColumns);
}

void View::HideRows() {
    RunCommand(State(), Command::HideRows);
}

void View::ShowRows() {
    RunCommand(State(), Command::ShowRows);
}

void View::UpdateCells(std::span<const CellKey> cells) {
    Update(State(), "UpdateCells", cells.size(), [&](TableUpdate& update) { update.AddCells(cells); });
}

void View::UpdateColumns(std::span<const std::string> columns) {
    Update(State(), "UpdateColumns", columns.size(), [&](TableUpdate& update) { update.AddColumns(columns); });
}

void View::UpdateRows(std::span<const std::string> rows) {
    Update(State(), "UpdateRows", rows.size(), [&](TableUpdate& update) { update.AddRows(rows); });
}

std::string View::TextOf(const CellKey& cell) const {
    std::string text;
    Asked(State(), "GRIDCTL", "TextOf", [&](const ControlContext& context) {
        if (const std::optional<Cell> found = context.grid.control.FindCell(cell)) {
            text = context.grid.control.DisplayText(*found);
        }
    });
    return text;
}

Variant View::ValueOf(const CellKey& cell) const {
    Variant value;
    Asked(State(), "GRIDCTL", "ValueOf", [&](const ControlContext& context) {
        const GridControl& grid = context.grid.control;
        const std::optional<Cell> found = grid.FindCell(cell);
        if (!found || grid.Contents(*found).empty()) {
            return;
        }
        const std::optional<double> number = grid.Number(*found, grid.Look(*found));
        value = number ? Variant(*number) : Variant(grid.Contents(*found));
    });
    return value;
}

std::vector<CellKey> View::SelectedCells() const {
    std::vector<CellKey> selected;
    Asked(State(), "GRIDCTL", "SelectedCells", [&](const ControlContext& context) {
        for (const Cell cell : CellsOfSelection(context.grid.control, HiddenCells::LeftOut)) {
            selected.push_back(context.grid.control.KeyOf(cell));
        }
    });
    return selected;
}

std::optional<CellKey> View::CurrentCell() const {
    std::optional<CellKey> current;
    Asked(State(), "GRIDCTL", "CurrentCell", [&](const ControlContext& context) {
        if (const std::optional<Cell> cell = context.grid.control.CurrentCell()) {
            current = context.grid.control.KeyOf(*cell);
        }
    });
    return current;
}

void View::EnterFocus() {
    TraceFocus(State(), "EnterFocus");
}

void View::ExitFocus() {
    TraceFocus(State(), "ExitFocus");
}

void View::GotFocus() {
    TraceFocus(State(), "GotFocus");
}

void View::LostFocus() {
    TraceFocus(State(), "LostFocus");
}

void View::Resize(int width, int height) {
    Guarded(State(), UserControl, "Resize", [&](ControlContext& context) {
        if (TraceEnabled) {
            TraceWrite(UserControl, "", "Resize", TraceText("{width:", width, " height:", height, "}"));
        }
        context.shared.layout.Resize(width, height);
    });
}

}  // namespace planview
