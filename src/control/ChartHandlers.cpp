// SPDX-License-Identifier: MIT
#include "control/ChartHandlers.h"

#include "automation/Numbers.h"
#include "chart/ChartRun.h"
#include "chart/modChart.h"
#include "commands/CommandRunner.h"
#include "control/ChartPart.h"
#include "menus/MenuDispatch.h"

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
    const ChartData& shown = parts_.chart.data;
    return parts_.grid.control.FindCell({shown.ColumnOf(category), shown.LineOf(series)});
}

void ChartHandlers::MouseDown(MouseButton button, ShiftState shift, const ChartHit& hit) {
    Trapped(parts_.shared, ChartLabel, "MouseDown", [&] {
        if (TraceEnabled) {
            TraceWrite(ChartLabel, "", "MouseDown", TraceText("{mousebutton:", button, " - shift: ", shift, "}"));
        }
        if (button == MouseButton::Right) {
            ShowPopup(hit);
            parts_.runner.Changed();
        }
    });
}

/// A point stands for its series here: the series' entries are about the line as a whole. What was clicked becomes what
/// the commands are about.
void ChartHandlers::ShowPopup(const ChartHit& hit) {
    if (hit.code == ChartHitCode::Series || hit.code == ChartHitCode::Point) {
        parts_.chart.control.UserSelected({ChartHitCode::Series, hit.series, hit.category});
        SelectLine(hit.series);  // also where selecting in the chart is not allowed
        parts_.menus.Open(PlaceSeries, {}, PopupPlace::Mouse);
    } else if (hit.code == ChartHitCode::Trendline) {
        parts_.chart.control.UserSelected(hit);
        TakeTrendline(hit.series);
        parts_.menus.Open(PlaceTrendline, {}, PopupPlace::Mouse);
    } else {
        parts_.menus.Open(PlaceChart, {}, PopupPlace::Mouse);
    }
}

void ChartHandlers::SelectLine(int series) {
    if (const std::optional<RowId> row = parts_.grid.control.FindRow(parts_.chart.data.LineOf(series))) {
        parts_.grid.control.SelectRow(*row, SelectionMode::Replace);
    }
}

void ChartHandlers::TakeTrendline(int series) {
    parts_.chart.commands.SetCurrentTrendline(
        modChart::GetTrendline(parts_.chart.control.Object(), static_cast<std::int16_t>(series)));
}

void ChartHandlers::Selected(const ChartHit& hit) {
    Trapped(parts_.shared, ChartLabel, "Selected", [&] {
        if (TraceEnabled) {
            TraceWrite(ChartLabel, "", "Selected",
                       TraceText("{index: ", hit.series, " - hitcode: ", static_cast<std::int16_t>(hit.code), "}"));
        }
        GridControl& grid = parts_.grid.control;
        if (hit.code == ChartHitCode::Series) {
            SelectLine(hit.series);
        } else if (hit.code == ChartHitCode::Point && hit.category >= 0) {
            if (const std::optional<Cell> cell = CellOf(hit.series, hit.category)) {
                grid.SelectCell(*cell, SelectionMode::Replace);
            }
        } else if (hit.code == ChartHitCode::Trendline) {
            TakeTrendline(hit.series);
        }
        parts_.runner.Changed();
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
    Trapped(parts_.shared, ChartLabel, "PointMayChange", [&] {
        const std::optional<Cell> cell = CellOf(series, category);
        may = !parts_.shared.busy && cell && RefusalOf(parts_.grid.control, *cell) == Refusal::None;
    });
    return may;
}

void ChartHandlers::PointValueChanged(int series, int category, double value) {
    Trapped(parts_.shared, ChartLabel, "PointValueChanged", [&] {
        if (TraceEnabled) {
            TraceWrite(ChartLabel, "", "PointValueChanged",
                       TraceText("{series: ", series, " - point: ", category, " - value: ", value, "}"));
        }
        const std::optional<Cell> cell = CellOf(series, category);
        if (!cell || RefusalOf(parts_.grid.control, *cell) != Refusal::None) {
            parts_.chart.Step();
            return;
        }
        const CellKey keys = parts_.grid.control.KeyOf(*cell);
        const std::string text = modPlan::ReplacePoint(NumberText(value));
        parts_.grid.valueEntry.Enter(keys, text, EditKind::Drag);
    });
}

}  // namespace planview
