// SPDX-License-Identifier: MIT
#include "support/ContextOnTables.h"

namespace planview {

using test::Lines;

namespace {

/// A control with two lines in its chart, right-clicked in the chart.
class ChartMenusTest : public test::ContextTest {
protected:
    ChartMenusTest() {
        tables.gridAttr->SetValue(1, "CHART", "X");
        for (int i = 1; i <= 4; ++i) {
            tables.AddColumn(i, "Month");
            tables.AddValue(1, i, i * 10);
            tables.AddValue(2, i, i * 20);
        }
        tables.AddLine(1, "Wages", {{"SHOW_CHART", "X"}});
        tables.AddLine(2, "Sales", {{"SHOW_CHART", "X"}});
        context.shared.settings.chartShown = true;
        Build();
        context.chart.data.Initialize();
        context.chart.data.Update();
        ForgetEntries();
    }

    /// What a click on a place of the chart does: it selects, then opens the popup.
    void RightClick(ChartHitCode code, int series, std::deque<std::string> choices = {}) {
        platform.popups.clear();
        platform.choices = std::move(choices);
        context.chartHandlers.Selected({code, series, 0});
        context.chartHandlers.MouseDown(MouseButton::Right, ShiftState::None, {code, series, 0});
    }
    void GridPopup(const CellKey& place, const char* choice) {
        platform.popups.clear();
        platform.choices = {choice};
        context.gridHandlers.MouseDown(place, MouseButton::Right, ShiftState::None);
    }
    /// The captions that can be chosen, checked ones with a star.
    [[nodiscard]] Lines Offered() const {
        Lines texts;
        Collect(platform.popups.front().entries, texts);
        return texts;
    }
    [[nodiscard]] const ChartSeriesLook& Look(std::size_t series) const {
        return *context.chart.control.State().series[series].look;
    }

private:
    static void Collect(const std::vector<PopupEntry>& entries, Lines& texts) {
        for (const PopupEntry& entry : entries) {
            if (entry.entries.empty() && entry.enabled && !entry.separator) {
                texts.push_back(entry.caption + (entry.checked ? "*" : ""));
            }
            Collect(entry.entries, texts);
        }
    }
};

}  // namespace

TEST_F(ChartMenusTest, ASeriesGetsTheChosenType) {
    const struct {
        const char* entry;
        int code;
        const char* caption;
    } cases[] = {{"mnuChartLine", 23, "Line*"},
                 {"mnuLineStacked", 21, "Line stacked*"},
                 {"mnuLineStacked100", 22, "Line stacked 100%*"},
                 {"mnuChartColumn", 0, "Column*"}};
    for (const auto& row : cases) {
        RightClick(ChartHitCode::Series, 2, {row.entry});
        EXPECT_EQ(platform.popups.front().caption, "Series");
        EXPECT_EQ(tables.lineIndex->Value(2, "CHART_TYPE").AsInt16(), row.code) << row.entry;
        EXPECT_EQ(tables.lineIndex->Value(1, "CHART_TYPE").AsText(), "") << "the other line";
        RightClick(ChartHitCode::Series, 2);
        const Lines offered = Offered();
        EXPECT_EQ(std::count(offered.begin(), offered.end(), row.caption), 1) << row.entry;
    }
}

/// Where the whole chart is stacked a series has no line or columns of its own; a stacked line can come back to the
/// stack.
TEST_F(ChartMenusTest, StackedViewsOfferNoPlainSeries) {
    const struct {
        std::int16_t chartType;
        ChartType lineType;
        bool line;
        bool column;
    } rows[] = {{0, ChartType::Column, true, true},
                {1, ChartType::Column, false, false},
                {2, ChartType::Line, false, false},
                {1, ChartType::StackedLine, false, true},
                {7, ChartType::Column, true, true}};
    for (const auto& row : rows) {
        context.shared.settings.chartType = row.chartType;
        context.chart.settings.stacked = row.chartType == 1;
        context.chart.settings.stacked100 = row.chartType == 2;
        tables.lineIndex->SetValue(2, "CHART_TYPE", static_cast<std::int16_t>(row.lineType));
        context.chart.Step();
        RightClick(ChartHitCode::Series, 2);
        bool line = false;
        bool column = false;
        for (const std::string& caption : Offered()) {
            line |= caption == "Line" || caption == "Line*";
            column |= caption == "Column" || caption == "Column*";
        }
        EXPECT_EQ(line, row.line) << row.chartType;
        EXPECT_EQ(column, row.column) << row.chartType;
    }
}

TEST_F(ChartMenusTest, TrendLinesComeColourAndGo) {
    RightClick(ChartHitCode::Trendline, 1, {"mnuTrendDel"});
    EXPECT_EQ(Offered(), Lines()) << "there is none";
    const struct {
        const char* entry;
        TrendKind kind;
    } cases[] = {{"mnuLinear", TrendKind::Linear},
                 {"mnuLogarithmic", TrendKind::Logarithmic},
                 {"mnuPotential", TrendKind::Power},
                 {"mnuExpotential", TrendKind::Exponential},
                 {"mnuAverage", TrendKind::MovingAverage}};
    for (const auto& row : cases) {
        RightClick(ChartHitCode::Series, 1, {row.entry});
        ASSERT_EQ(Look(0).trends.size(), 1U) << row.entry;
        EXPECT_EQ(Look(0).trends[0]->kind, row.kind) << row.entry;
    }
    RightClick(ChartHitCode::Trendline, 1, {"mnuTrendColor", "mnuColor(1)"});
    EXPECT_EQ(Offered(), (Lines{"Color", "Delete"}));
    EXPECT_EQ(Look(0).trends[0]->borderColorIndex, 10);
    RightClick(ChartHitCode::Trendline, 1, {"mnuTrendDel"});
    EXPECT_EQ(Look(0).trends.size(), 0U);
}

TEST_F(ChartMenusTest, ViewsAreCheckedAndChosen) {
    RightClick(ChartHitCode::None, 0, {"mnuForecast1"});
    EXPECT_EQ(Offered(),
              (Lines{"Arrange/Redraw", "Standard*", "Forecast (Compare)", "Copy to clipboard", "Attributes"}));
    EXPECT_TRUE(context.chart.commands.IsForecastView());
    RightClick(ChartHitCode::None, 0, {"mnuDefault"});
    EXPECT_EQ(Offered()[2], "Forecast (Compare)*");
    EXPECT_FALSE(context.chart.commands.IsForecastView());
    GridPopup({"FLC0", "FTR0"}, "mnuChart");
    EXPECT_FALSE(context.shared.settings.chartShown);
    EXPECT_EQ(tables.gridAttr->Value(1, "CHART").AsText(), "");
}

TEST_F(ChartMenusTest, DialogsOpenFromTheirEntries) {
    context.grid.control.SelectRow(*context.grid.control.FindRow("ROW1"), SelectionMode::Replace);
    GridPopup({"FLC0", "FTR0"}, "mnuGeneral");
    EXPECT_EQ(std::count(platform.formCalls.begin(), platform.formCalls.end(), "show frmGrid"), 1);
    GridPopup({"FLC0", "ROW1"}, "mnuRowAttributes");
    EXPECT_EQ(std::count(platform.formCalls.begin(), platform.formCalls.end(), "show frmRow"), 1);
    RightClick(ChartHitCode::None, 0, {"mnuChartAttribute"});
    EXPECT_EQ(std::count(platform.formCalls.begin(), platform.formCalls.end(), "show frmChart"), 1);
}

}  // namespace planview
