// SPDX-License-Identifier: MIT
#include "chart/ChartData.h"

#include "automation/CheckedInt.h"
#include "automation/Late.h"
#include "automation/Numbers.h"
#include "chart/ChartColors.h"
#include "chart/ChartMarks.h"
#include "chart/ChartRun.h"
#include "chart/ChartTexts.h"
#include "chart/modChart.h"
#include "grid/LineCaption.h"

namespace planview {

namespace {

constexpr std::int16_t CodeOf(ChartType type) noexcept {
    return static_cast<std::int16_t>(type);
}

void TraceMarker(std::string_view marker) {
    modPlan::TraceWrite(modChart::Label, "{}", marker, "BEGIN");
}

/// The value of a grid text; nothing counts as 0. Throws TypeMismatch for what is no number.
double ValueOf(const std::string& text) {
    return text.empty() ? 0.0 : ParseNumber(std::string_view(modPlan::ReplacePoint(text)));
}

/// Says which number a row has in the chart. A host that keeps its tables on disk is not bothered with what stands
/// there already.
void PutChartId(const HostTable& table, HostTable::Row row, std::int16_t id) {
    const Variant now = table.Value(row, "CHART_ID");
    const bool isNumber = now.GetKind() == Variant::Kind::Int16 || now.GetKind() == Variant::Kind::Int32;
    if (!isNumber || now.AsInt32() != id) {
        table.Put(row, "CHART_ID", id);
    }
}

/// `number` from 1; empty for one that is not there.
std::string_view KeyAt(const std::vector<std::string>& keys, int number) noexcept {
    return number >= 1 && number <= static_cast<int>(keys.size()) ? keys[static_cast<std::size_t>(number) - 1]
                                                                  : std::string_view();
}

}  // namespace

void ChartData::Initialize() const {
    TraceMarker("#INITIALIZE#");
    const GridSettings& grid = parts_.gridSettings;
    const ChartSettings& settings = parts_.chartSettings;
    const ObjectRef& chart = Chart();
    constexpr std::int16_t OwnBackground = 0;
    modChart::Redraw(chart, false);
    modChart::ChartType(chart, grid.chartType);
    modChart::AllowContextMenus(chart, settings.ownMenusAndDialogs);
    modChart::AllowDialogs(chart, settings.ownMenusAndDialogs);
    modChart::AllowSelection(chart, settings.selectionAllowed);
    modChart::AllowValueChange(chart, settings.valueChangeAllowed);
    modChart::AreaBgColor(chart, OwnBackground);
    modChart::PlotBgColor(chart, OwnBackground);
    modChart::LegendBgColor(chart, OwnBackground);
    modChart::LegendBorderColor(chart, OwnBackground);
    modChart::LegendFont(chart, settings.fontName);
    modChart::HasLegend(chart, settings.legendShown);
    modChart::LegendPosition(chart, static_cast<std::int16_t>(settings.legendPosition));
    modChart::MinValue(chart, grid.minimum);
    modChart::MaxValue(chart, grid.maximum);
    modChart::AutoScale(chart, grid.autoMinimum, grid.autoMaximum);
    modChart::MinRange(chart, grid.rangeMinimum);
    modChart::MaxRange(chart, grid.rangeMaximum);
    modChart::Optimum(chart, grid.optimum);
    modChart::XaxisOrientation(chart, static_cast<std::int16_t>(settings.categoryOrientation));
    modChart::LabelX(chart, settings.categoryLabels);
    modChart::LabelY(chart, settings.valueLabels);
    modChart::XScrollBar(chart, settings.scrollBar);
    modChart::Caterogies(chart, settings.visibleCategories);
    modChart::StackView(chart, settings.stacked);
    modChart::StackView100(chart, settings.stacked100);
    ApplyColors();
    modChart::Redraw(chart, true);
}

/// The grounds that the user has chosen; the chart's own ones stand already.
void ChartData::ApplyColors() const {
    const ChartSettings& settings = parts_.chartSettings;
    if (settings.areaColor != 0) {
        modChart::AreaBgColor(Chart(), ChartColorOfPalette(settings.areaColor));
    }
    if (settings.plotColor != 0) {
        modChart::PlotBgColor(Chart(), ChartColorOfPalette(settings.plotColor));
    }
    if (settings.legendColor != 0) {
        modChart::LegendBgColor(Chart(), ChartColorOfPalette(settings.legendColor));
    }
}

void ChartData::Update() {
    TraceMarker("#UPDATE#");
    modChart::Redraw(Chart(), false);
    shown_ = {};
    const int firstVisible = parts_.chart.State().FirstVisible();
    parts_.chart.SetComparison(0);
    parts_.chart.SetGuidance({});
    if (parts_.chartSettings.viewMode == ChartViewMode::Forecast) {
        UpdateForecastView();
    } else {
        told_.reset();
        parts_.chart.NameComparedLines({}, {});
        UpdateNormalView();
    }
    parts_.chart.UserScrolledTo(firstVisible);  // the user goes on where he was
    modChart::Redraw(Chart(), true);
}

/// All categories, or as many as the scroll bar leaves.
void ChartData::ApplyVisibleCategories(std::int16_t columns) const {
    const ChartSettings& settings = parts_.chartSettings;
    if (settings.visibleCategories < columns) {
        modChart::Caterogies(Chart(), columns);
    }
    if (settings.scrollBar) {
        modChart::Caterogies(Chart(), settings.visibleCategories);
    }
}

void ChartData::UpdateNormalView() {
    const HostTable colsIndex = parts_.tables.COLS_INDEX;
    const HostTable lineIndex = parts_.tables.LINE_INDEX;
    const ChartSettings& settings = parts_.chartSettings;
    std::int16_t cols = modChart::GetColumns(colsIndex);
    std::int16_t lines = modChart::GetLines(lineIndex);
    if (cols == 0) {
        cols = modChart::SetAllColumns(colsIndex);
    }
    if (lines < 1) {
        lines = modChart::SetAllLines(lineIndex);
    }
    modChart::DeleteContents(Chart());
    modChart::CreateDataRows(Chart(), cols, lines, settings.dataRows);
    Fill();
    ApplyVisibleCategories(cols);
    modChart::StackView(Chart(), settings.stacked);
    modChart::StackView100(Chart(), settings.stacked100);
    ErrorTrap(modChart::Label, "Update", [&] {
        ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
            const std::optional<ChartType> type = ChartTypeIn(lineIndex, row);
            if ((type == ChartType::StackedLine || type == ChartType::StackedLine100) && IsInChart(row)) {
                modChart::SeriesCollection(Chart(), CodeIn(lineIndex, row, "CHART_ID"), CodeOf(*type));
            }
        });
    });
}

void ChartData::UpdateForecastView() {
    const HostTable lineIndex = parts_.tables.LINE_INDEX;
    const std::int16_t cols = modChart::SetAllColumns(parts_.tables.COLS_INDEX);
    const std::int16_t lines = modChart::ResetAllLines(lineIndex);
    modChart::DeleteContents(Chart());
    modChart::CreateDataRows(Chart(), cols, lines, parts_.chartSettings.dataRows);
    ErrorTrap(modChart::Label, "Update", [&] {
        const HostTable::Row sales = VisibleLine(lineIndex, SalesLine);
        const HostTable::Row forecast = VisibleLine(lineIndex, ForecastLine);
        const auto keyOf = [&](HostTable::Row row) {
            return row == 0 ? std::string() : lineIndex.Text(row, "GRID_ID");
        };
        parts_.chart.NameComparedLines(keyOf(sales), keyOf(forecast));
        if (!modChart::CheckSetSales(sales)) {
            LeaveEmpty(ChartText::NoSalesLine, "Sales");
        } else if (!modChart::CheckSetForecast(forecast)) {
            LeaveEmpty(ChartText::NoForecastLine, "Forecast");
        } else {
            told_.reset();
            FillForecast(sales, forecast);
            ApplyVisibleCategories(cols);
        }
    });
}

/// Nothing is drawn but what the user is to do, and no point of what was drawn before can be changed. He is told once,
/// not at every change of a value.
void ChartData::LeaveEmpty(ChartText why, const char* caption) {
    modChart::DeleteContents(Chart());
    parts_.chart.SetGuidance(TextOf(parts_.tables.TEXTS, why));
    ForgetNumbers();
    if (told_ != why) {
        told_ = why;
        parts_.messageBoxes.Show({TextOf(parts_.tables.TEXTS, why), caption, MessageButtons::Ok,
                                  MessageIcon::Information, MessageAnswer::Ok});
    }
}

/// Nothing of the tables is in the chart: no point of it leads back to a cell.
void ChartData::ForgetNumbers() {
    shown_ = {};
    for (const HostTable& table : {parts_.tables.COLS_INDEX, parts_.tables.LINE_INDEX}) {
        ErrorTrap(modChart::Label, "Update",
                  [&] { ForEachIndexRow(table, [&](HostTable::Row row) { PutChartId(table, row, 0); }); });
    }
}

std::string_view ChartData::LineOf(int series) const noexcept {
    return KeyAt(shown_.lines, series);
}

std::string_view ChartData::ColumnOf(int category) const noexcept {
    return KeyAt(shown_.columns, category);
}

bool ChartData::IsInChart(HostTable::Row line) const {
    const HostTable& lineIndex = parts_.tables.LINE_INDEX;
    return FieldIs(lineIndex, line, ShowChart, InChart) && !FieldIs(lineIndex, line, "ROW_HIDDEN", "X");
}

void ChartData::Fill() {
    const auto isLine = [&](HostTable::Row line) { return IsInChart(line); };
    const bool filled = ErrorTrap(modChart::Label, "Fill", [&] {
        FillSheet(isLine);
        ApplyLineTypes(isLine);
        ApplyTitle();
    });
    if (!filled) {
        ForgetNumbers();  // what is drawn is not whole
    }
}

void ChartData::FillForecast(HostTable::Row sales, HostTable::Row forecast) {
    const auto isLine = [=](HostTable::Row line) { return line == sales || line == forecast; };
    const bool filled = ErrorTrap(modChart::Label, "FillForecast", [&] {
        FillSheet(isLine);
        parts_.chart.SetComparison(sales < forecast ? 1 : 2);
        ApplyLineTypes(isLine);
        const GridSettings& grid = parts_.gridSettings;
        const ChartSettings& settings = parts_.chartSettings;
        modChart::MinValue(Chart(), grid.minimum);
        modChart::MaxValue(Chart(), grid.maximum);
        modChart::AutoScale(Chart(), grid.autoMinimum, grid.autoMaximum);
        modChart::LabelY(Chart(), settings.valueLabels);
        modChart::AllowSelection(Chart(), settings.selectionAllowed);
        modChart::AllowValueChange(Chart(), settings.valueChangeAllowed);
        ApplyTitle();
    });
    if (!filled) {
        ForgetNumbers();
    }
}

template <class IsLine>
void ChartData::FillSheet(const IsLine& isLine) {
    const HostTable colsIndex = parts_.tables.COLS_INDEX;
    std::vector<Line> lines = NumberLines(isLine);
    modChart::DataSheet dataSheet(Late(Chart()).Get("DataSheet").Value().AsObject());
    ShownKeys shown;
    std::int16_t category = 0;
    ForEachIndexRow(colsIndex, [&](HostTable::Row row) {
        if (!FieldIs(colsIndex, row, ShowChart, InChart) || FieldIs(colsIndex, row, "COL_HIDDEN", "X")) {
            PutChartId(colsIndex, row, 0);
            return;
        }
        category = CheckedAdd(category, std::int16_t{1});
        PutChartId(colsIndex, row, category);
        if (const std::string period = colsIndex.Text(row, "PERDY"); !period.empty()) {
            modChart::CellTextY(dataSheet, category, period);
        }
        FillCategory(dataSheet, category, shown.columns.emplace_back(colsIndex.Text(row, "GRID_ID")), lines);
    });
    for (Line& line : lines) {
        shown.lines.push_back(std::move(line.key));
    }
    shown_ = std::move(shown);
}

/// Which line is which series is the same for every column, so the line table is walked but once.
template <class IsLine>
std::vector<ChartData::Line> ChartData::NumberLines(const IsLine& isLine) const {
    const HostTable lineIndex = parts_.tables.LINE_INDEX;
    std::vector<Line> lines;
    std::int16_t series = 0;
    ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
        if (!isLine(row)) {
            PutChartId(lineIndex, row, 0);
            return;
        }
        series = CheckedAdd(series, std::int16_t{1});
        PutChartId(lineIndex, row, series);
        Line line{lineIndex.Text(row, "GRID_ID"), LineCaption(lineIndex, row), std::nullopt};
        line.gridRow = parts_.grid.FindRow(line.key);
        parts_.chart.NameSeries(series, line.key, lineIndex.Text(row, "ROW_FORMAT"));
        lines.push_back(std::move(line));
    });
    return lines;
}

/// A caption stands from the first category on. The trace lists it with every category: only for its entry it is
/// written again.
void ChartData::FillCategory(modChart::DataSheet& dataSheet, std::int16_t category, std::string_view columnKey,
                             const std::vector<Line>& lines) const {
    const std::optional<ColumnId> column = parts_.grid.FindColumn(columnKey);
    const bool withCaptions = category == 1 || modPlan::TraceEnabled;
    std::int16_t series = 0;
    for (const Line& line : lines) {
        ++series;
        if (withCaptions) {
            modChart::CellTextX(dataSheet, series, line.caption);
        }
        const double value = column && line.gridRow ? ValueOf(parts_.grid.Contents({*column, *line.gridRow})) : 0.0;
        modChart::CellValue(dataSheet, category, series, value);
    }
}

/// Columns or lines for now; the stacked kinds are put back when the rest of the chart stands.
template <class IsLine>
void ChartData::ApplyLineTypes(const IsLine& isLine) const {
    const HostTable lineIndex = parts_.tables.LINE_INDEX;
    ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
        if (isLine(row)) {
            const bool plain = FieldIs(lineIndex, row, "CHART_TYPE", "0") || FieldIs(lineIndex, row, "CHART_TYPE", "");
            modChart::SeriesCollection(Chart(), CodeIn(lineIndex, row, "CHART_ID"),
                                       CodeOf(plain ? ChartType::Column : ChartType::Line));
        }
    });
}

void ChartData::ApplyTitle() const {
    const HostTable texts = parts_.tables.TEXTS;
    const std::string title = TextOf(texts, ChartText::Title) + ": ";
    modChart::ChartTitle(Chart(), title + TextOf(texts, ChartText::StandardView));
    if (parts_.chartSettings.stacked) {
        modChart::ChartTitle(Chart(), title + TextOf(texts, ChartText::StackedView));
    }
    if (parts_.chartSettings.stacked100) {
        modChart::ChartTitle(Chart(), title + TextOf(texts, ChartText::StackedView100));
    }
    if (!parts_.gridSettings.titleText.empty()) {
        modChart::ChartTitle(Chart(), parts_.gridSettings.titleText);
    }
}

}  // namespace planview
