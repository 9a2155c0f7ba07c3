// SPDX-License-Identifier: MIT
#include <planview/View.h>

#include "control/Guarded.h"
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
