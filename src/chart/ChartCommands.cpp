// SPDX-License-Identifier: MIT
#include "chart/ChartCommands.h"

#include <algorithm>
#include <utility>

#include "automation/Late.h"
#include "chart/ChartColors.h"
#include "chart/ChartMarks.h"
#include "chart/ChartRun.h"
#include "chart/modChart.h"
#include "components/chart/ChartStacking.h"
#include "components/chart/TrendFit.h"
#include "trace/ErrorTrap.h"

namespace planview {

namespace {

void TraceCommand(std::string_view method) {
    modPlan::TraceWrite(modChart::Label, "", method, "{}");
}

/// The keys of the rows that are marked for the chart.
std::vector<std::string> MarkedKeys(const HostTable& table) {
    std::vector<std::string> keys;
    ForEachIndexRow(table, [&](HostTable::Row row) {
        if (FieldIs(table, row, ShowChart, InChart)) {
            keys.push_back(table.Text(row, "GRID_ID"));
        }
    });
    return keys;
}

}  // namespace

void ChartCommands::ChartStep() {
    if (parts_.gridSettings.chartShown) {
        parts_.chartData.Update();
    }
}

void ChartCommands::SwitchDisplay() {
    GridSettings& settings = parts_.gridSettings;
    const bool shown = !settings.chartShown;
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(modChart::Label, "", "SwitchDisplay", TraceText("{value:", shown, "}"));
    }
    const bool endZoom = shown && settings.zoomed;  // the zoomed grid would hide the chart
    const HostTable gridAttr = parts_.tables.GRID_ATTR;
    PutGridFlag(gridAttr, "CHART", shown);
    if (endZoom) {
        PutGridFlag(gridAttr, "ZOOMED", false);
    }
    settings.chartShown = shown;
    settings.zoomed = settings.zoomed && !endZoom;
    parts_.layOutPanes();
    Rebuild();
    parts_.hostUpdate.StartUpdate();
}

void ChartCommands::SerieType(ChartType type) {
    const auto code = static_cast<std::int16_t>(type);
    const HostTable lineIndex = parts_.tables.LINE_INDEX;
    ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
        const std::string key = lineIndex.Text(row, "GRID_ID");
        const std::int16_t series = CodeIn(lineIndex, row, "CHART_ID");
        if (series != 0 && parts_.driver.HeadingSelected({{}, key})) {
            lineIndex.Put(row, "CHART_TYPE", code);
            modChart::SeriesCollection(parts_.chart.Object(), series, code);
        }
    });
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(modChart::Label, "", "SerieType", TraceText("{type:", code, "}"));
    }
    ChartStep();
    parts_.driver.Grid().Redraw();
    parts_.hostUpdate.StartUpdate();
}

void ChartCommands::ChooseType(ChartType type) {
    const HostTable lineIndex = parts_.tables.LINE_INDEX;
    parts_.gridSettings.chartType = static_cast<std::int16_t>(type);
    FollowChartType(parts_.gridSettings, parts_.chartSettings);
    if (type == ChartType::StackedColumn || type == ChartType::StackedColumn100) {
        modChart::ResetTypes(lineIndex);
        return;
    }
    ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
        if (FieldIs(lineIndex, row, ShowChart, InChart)) {
            lineIndex.Put(row, "CHART_TYPE", static_cast<std::int16_t>(type));
        }
    });
}

std::optional<ChartType> ChartCommands::CommonType() const {
    const std::vector<ChartSeries>& series = parts_.chart.State().series;
    const auto other = std::find_if(series.begin(), series.end(),
                                    [&](const ChartSeries& each) { return each.type != series.front().type; });
    return series.empty() || other != series.end() ? std::nullopt : std::optional(series.front().type);
}

void ChartCommands::Rebuild() {
    if (parts_.gridSettings.chartShown) {
        parts_.chartData.Initialize();
        parts_.chartData.Update();
    }
}

void ChartCommands::ColsShowInChart() {
    ShowInChart(parts_.tables.COLS_INDEX, true);
}

void ChartCommands::RowsShowInChart() {
    ShowInChart(parts_.tables.LINE_INDEX, false);
}

void ChartCommands::ShowInChart(const HostTable& slot, bool columns) {
    const HostTable table = slot;
    if (!table.IsSet()) {
        return;
    }
    LeaveForecastView();  // it has no room for a choice of lines
    ForEachIndexRow(table, [&](HostTable::Row row) {
        const std::string key = table.Text(row, "GRID_ID");
        const CellKeyView keys = columns ? CellKeyView{key, {}} : CellKeyView{{}, key};
        table.PutFlag(row, ShowChart, parts_.driver.HeadingSelected(keys));
        if (modPlan::TraceEnabled) {
            modPlan::TraceWrite(modChart::Label, "", columns ? "ColsShowInChart" : "RowsShowInChart",
                                TraceText("{column:", key, "}"));
        }
    });
    parts_.driver.Grid().Redraw();
    ChartStep();
    parts_.hostUpdate.StartUpdate();
}

void ChartCommands::StandardView() {
    TraceCommand("StandardView");
    LeaveForecastView();
    ChartStep();
    parts_.hostUpdate.StartUpdate();
}

/// Puts the marks back that the forecast view has taken from the tables or given to them.
void ChartCommands::LeaveForecastView() {
    if (!IsForecastView()) {
        return;
    }
    parts_.chartSettings.viewMode = ChartViewMode::Normal;
    const ForecastMemory before = std::exchange(memory_, {});
    const auto holds = [](const std::vector<std::string>& keys, const std::string& key) {
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    };
    const HostTable lineIndex = parts_.tables.LINE_INDEX;
    ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
        const std::string key = lineIndex.Text(row, "GRID_ID");
        if (FieldIs(lineIndex, row, ShowChart, SalesLine)) {
            memory_.sales = key;
        } else if (FieldIs(lineIndex, row, ShowChart, ForecastLine)) {
            memory_.forecast = key;
        }
        lineIndex.PutFlag(row, ShowChart, holds(before.lines, key));
    });
    const HostTable colsIndex = parts_.tables.COLS_INDEX;
    ForEachIndexRow(colsIndex, [&](HostTable::Row row) {
        colsIndex.PutFlag(row, ShowChart, holds(before.columns, colsIndex.Text(row, "GRID_ID")));
    });
}

void ChartCommands::ForecastView() {
    TraceCommand("ForecastView");
    if (!IsForecastView()) {
        const HostTable lineIndex = parts_.tables.LINE_INDEX;
        memory_.lines = MarkedKeys(lineIndex);
        memory_.columns = MarkedKeys(parts_.tables.COLS_INDEX);
        const auto markAgain = [&](const std::string& key, std::string_view mark) {
            if (const HostTable::Row row = key.empty() ? HostTable::Row{0} : lineIndex.FindRow("GRID_ID", key);
                row != 0 && VisibleLine(lineIndex, mark) == 0) {
                lineIndex.Put(row, ShowChart, mark);
            }
        };
        markAgain(memory_.sales, SalesLine);
        markAgain(memory_.forecast, ForecastLine);
    }
    parts_.chartSettings.viewMode = ChartViewMode::Forecast;
    ChartStep();
    parts_.hostUpdate.StartUpdate();
}

void ChartCommands::AutoArrange() const {
    modChart::AutoArrange(parts_.chart.Object());
}

void ChartCommands::CopyToClipboard() const {
    TraceCommand("CopyToClipboard");
    parts_.chart.CopyPicture();
}

void ChartCommands::TrendlineAdd(TrendKind kind) {
    ObjectRef trendline = modChart::TrendlineAdd(parts_.chart.Object(), parts_.driver, parts_.tables.LINE_INDEX,
                                                 static_cast<std::int16_t>(kind));
    if (trendline) {
        currentTrendline_ = std::move(trendline);
        TellTrendLimit();
    }
}

/// A kind of trend line may be impossible for the values of its line.
void ChartCommands::TellTrendLimit() const {
    const std::string key = Late(currentTrendline_).Get("Name").Value().AsText();
    const ChartState& state = parts_.chart.State();
    for (std::size_t i = 0; i < state.series.size(); ++i) {
        const ChartSeries& series = state.series[i];
        if (series.key != key || series.look->trends.empty()) {
            continue;
        }
        const ChartTrend& trend = *series.look->trends.front();
        const TrendFit fit(trend.kind, TrendValues(state, StackSeries(state), i), trend.period);
        if (!fit.IsValid()) {
            parts_.messageBoxes.Show({series.caption + ": " + fit.Limit(state.categories), "Trend line",
                                      MessageButtons::Ok, MessageIcon::Information, MessageAnswer::Ok});
        }
        return;
    }
}

std::optional<std::int16_t> ChartCommands::PresentTrendColor() const {
    std::optional<std::int16_t> present;
    ResumeNext([&] {
        const std::int16_t color = Late(currentTrendline_).Get("Border").Get("ColorIndex").Value().AsInt16();
        for (int position = 0; position < modGrid::PaletteSize && !present; ++position) {
            if (ChartColorAt(position) == color) {
                present = modGrid::PaletteIndexOf(position);
            }
        }
    });
    return present;
}

void ChartCommands::TrendlineColor() {
    if (!currentTrendline_) {
        return;
    }
    const std::optional<int> position = parts_.chooseColor({PresentTrendColor(), {}});
    const std::int16_t color = position ? ChartColorAt(*position) : NoChartColor;
    if (color == NoChartColor) {
        return;
    }
    Late(currentTrendline_).Get("Border").Put("ColorIndex", color);
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(modChart::Label, "", "TrendlineColor", TraceText("{color:", color, "}"));
    }
}

void ChartCommands::TrendlineDelete() {
    if (currentTrendline_) {
        modChart::TrendlineDelete(currentTrendline_);
    }
}

}  // namespace planview
