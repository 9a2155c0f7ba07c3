// SPDX-License-Identifier: MIT
#include "control/ChartHandlers.h"

#include "automation/Numbers.h"
#include "chart/ChartRun.h"
#include "chart/modChart.h"
#include "control/ControlContext.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view ChartLabel = modChart::Label;
void TraceSource(std::string_view event, const std::string& source) {
    if (TraceEnabled) {
        TraceWrite(ChartLabel, "", event, TraceText("{source:", source, "}"));
    }
}

}  // namespace

std::optional<Cell> ChartHandlers::CellOf(int series, int category) const {
    const ChartData& shown = context_.chartData;
    return context_.grid.FindCell({shown.ColumnOf(category), shown.LineOf(series)});
}

void ChartHandlers::MouseDown(MouseButton button, ShiftState shift, const ChartHit& hit) {
    ErrorTrap(ChartLabel, "MouseDown", [&] {
        if (TraceEnabled) {
            TraceWrite(ChartLabel, "", "MouseDown", TraceText("{mousebutton:", button, " - shift: ", shift, "}"));
        }
        if (button == MouseButton::Right) {
            ShowPopup(hit);
            context_.runner.Changed();
        }
    });
}

/// A point stands for its series here: the series' entries are about the line as a whole. What was clicked becomes what
/// the commands are about.
void ChartHandlers::ShowPopup(const ChartHit& hit) {
    if (hit.code == ChartHitCode::Series || hit.code == ChartHitCode::Point) {
        context_.chart.UserSelected({ChartHitCode::Series, hit.series, hit.category});
        SelectLine(hit.series);  // also where selecting in the chart is not allowed
        context_.showChartPopup(PlaceSeries);
    } else if (hit.code == ChartHitCode::Trendline) {
        context_.chart.UserSelected(hit);
        TakeTrendline(hit.series);
        context_.showChartPopup(PlaceTrendline);
    } else {
        context_.showChartPopup(PlaceChart);
    }
}

void ChartHandlers::SelectLine(int series) {
    if (const std::optional<RowId> row = context_.grid.FindRow(context_.chartData.LineOf(series))) {
        context_.grid.SelectRow(*row, SelectionMode::Replace);
    }
}

void ChartHandlers::TakeTrendline(int series) {
    context_.chartCommands.SetCurrentTrendline(
        modChart::GetTrendline(context_.chart.Object(), static_cast<std::int16_t>(series)));
}

void ChartHandlers::Selected(const ChartHit& hit) {
    ErrorTrap(ChartLabel, "Selected", [&] {
        if (TraceEnabled) {
            TraceWrite(ChartLabel, "", "Selected",
                       TraceText("{index: ", hit.series, " - hitcode: ", static_cast<std::int16_t>(hit.code), "}"));
        }
        GridControl& grid = context_.grid;
        if (hit.code == ChartHitCode::Series) {
            SelectLine(hit.series);
        } else if (hit.code == ChartHitCode::Point && hit.category >= 0) {
            if (const std::optional<Cell> cell = CellOf(hit.series, hit.category)) {
                grid.SelectCell(*cell, SelectionMode::Replace);
            }
        } else if (hit.code == ChartHitCode::Trendline) {
            TakeTrendline(hit.series);
        }
        context_.runner.Changed();
    });
}

void ChartHandlers::Drag(const std::string& source) {
    TraceSource("Drag", source);
}

void ChartHandlers::DragDrop(const std::string& source) {
    TraceSource("DragDrop", source);
}

void ChartHandlers::GotFocus() {
    TraceWrite(ChartLabel, "", "GotFocus", "{}");
}

void ChartHandlers::LostFocus() {
    TraceWrite(ChartLabel, "", "LostFocus", "{}");
}

bool ChartHandlers::PointMayChange(int series, int category) {
    bool may = false;
    ErrorTrap(ChartLabel, "PointMayChange", [&] {
        const std::optional<Cell> cell = CellOf(series, category);
        may = !context_.busy && cell && RefusalOf(context_.grid, *cell) == Refusal::None;
    });
    return may;
}

void ChartHandlers::PointValueChanged(int series, int category, double value) {
    ErrorTrap(ChartLabel, "PointValueChanged", [&] {
        if (TraceEnabled) {
            TraceWrite(ChartLabel, "", "PointValueChanged",
                       TraceText("{series: ", series, " - point: ", category, " - value: ", value, "}"));
        }
        const std::optional<Cell> cell = CellOf(series, category);
        if (!cell || RefusalOf(context_.grid, *cell) != Refusal::None) {
            context_.ChartStep();
            return;
        }
        const CellKey keys = context_.grid.KeyOf(*cell);
        const std::string text = modPlan::ReplacePoint(NumberText(value));
        context_.valueEntry.Enter(keys, text, EditKind::Drag);
    });
}

}  // namespace planview
