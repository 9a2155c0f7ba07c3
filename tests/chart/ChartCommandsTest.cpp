// SPDX-License-Identifier: MIT
#include "automation/TableSlots.h"
#include "chart/ChartBook.h"
#include "support/ContextOnTables.h"

namespace planview {

using test::Lines;

namespace {

/// The commands on a control of their own, as the menus call them.
class ChartCommandsTest : public test::ContextTest {
protected:
    ChartCommandsTest() {
        tables.gridAttr->SetValue(1, "CHART", "X");
        tables.AddColumn(1, "Jan");
        tables.AddColumn(2, "Feb");
        tables.AddLine(1, "Wages", {{"SHOW_CHART", "X"}});
        tables.AddLine(2, "Sales", {{"SHOW_CHART", "X"}});
        tables.AddLine(3, "Rent");
        tables.AddValue(1, 1, 4.0);
        tables.AddValue(1, 2, 8.0);
        tables.AddValue(2, 1, 1.0);
        tables.AddValue(2, 2, -1.0);
        context.settings.chartShown = true;
        Build();
        context.chartData.Initialize();
        context.chartData.Update();
        ForgetEntries();
    }

    [[nodiscard]] const ChartState& Chart() const { return context.chart.State(); }
    void SelectRow(const char* key) {
        context.grid.SelectRow(*context.grid.FindRow(key), SelectionMode::Replace);
        ForgetEntries();
    }
};

TEST_F(ChartCommandsTest, ASeriesTypeGoesToTheSelectedLines) {
    SelectRow("ROW2");
    context.chartCommands.SerieType(22);
    EXPECT_EQ(tables.lineIndex->Value(2, "CHART_TYPE").AsInt16(), 22);
    EXPECT_EQ(Chart().series[1].type, ChartType::StackedLine100);
    EXPECT_EQ(Chart().series[0].type, ChartType::Column);
    EXPECT_EQ(EntriesOf("SerieType"), (Lines{"CHART |  | SerieType | {type:22}"}));
    SelectRow("ROW3");
    context.chartCommands.SerieType(23);
    EXPECT_TRUE(tables.lineIndex->Value(3, "CHART_TYPE").IsEmpty()) << "a line that is not in the chart";
}

TEST_F(ChartCommandsTest, ATrendLineBelongsToTheSelectedLine) {
    SelectRow("ROW1");
    context.chartCommands.TrendlineAdd(1);
    EXPECT_EQ(Entries(), (Lines{"CHART |  | GetTrendline | {index:1}", "CHART |  | AddTrendline | {index:1}",
                                "CHART |  | TrendlineAdd | {type:1 - index:1}"}));
    ForgetEntries();
    context.chartCommands.TrendlineAdd(4);
    EXPECT_EQ(Entries(), (Lines{"CHART |  | GetTrendline | {index:1}", "CHART |  | GetTrendline | {index:1}",
                                "CHART |  | TrendlineAdd | {type:4 - index:1}"}));
    ASSERT_EQ(Chart().series[0].look->trends.size(), 1u) << "reused, never a second one";
    EXPECT_EQ(Chart().series[0].look->trends[0]->kind, TrendKind::MovingAverage);
    EXPECT_TRUE(platform.messages.empty());

    context.chooseColor = [] { return std::optional(1); };
    context.chartCommands.TrendlineColor();
    EXPECT_EQ(Chart().series[0].look->trends[0]->borderColorIndex, 10);
    context.chooseColor = [] { return std::optional<int>(); };
    context.chartCommands.TrendlineColor();
    EXPECT_EQ(EntriesOf("TrendlineColor"), (Lines{"CHART |  | TrendlineColor | {color:10}"}));

    context.ChartStep();
    ForgetEntries();
    context.chartCommands.TrendlineDelete();
    EXPECT_EQ(Entries(), (Lines{"CHART |  | TrendlineDelete | {trendline:ROW1}"}));
    EXPECT_FALSE(context.chartCommands.HasTrendline());
    EXPECT_TRUE(Chart().series[0].look->trends.empty());
}

TEST_F(ChartCommandsTest, AnImpossibleTrendIsSaid) {
    SelectRow("ROW2");
    context.chartCommands.TrendlineAdd(3);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_NE(platform.messages[0].text.find("Sales"), std::string::npos);
    EXPECT_NE(platform.messages[0].text.find("-1"), std::string::npos) << platform.messages[0].text;
}

TEST_F(ChartCommandsTest, WithoutAQualifyingLineNoTrendIsAdded) {
    ExpectErrors();
    SelectRow("ROW3");
    context.chartCommands.TrendlineAdd(0);
    EXPECT_FALSE(context.chartCommands.HasTrendline());
    EXPECT_EQ(Entries(IsError).size(), 1u);
}

TEST_F(ChartCommandsTest, TheForecastViewComparesTwoLinesAndGivesTheMarksBack) {
    context.chartCommands.ForecastView();
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Sales");
    EXPECT_EQ(platform.messages[0].icon, MessageIcon::Information);
    context.gridHandlers.SimpleClick({"FLC0", "ROW2"});
    EXPECT_EQ(tables.lineIndex->Value(2, "SHOW_CHART").AsText(), "S");
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].title, "Forecast");
    context.gridHandlers.SimpleClick({"FLC0", "ROW3"});
    EXPECT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(Chart().comparisonBase, 1);
    ASSERT_EQ(Chart().SeriesCount(), 2);
    EXPECT_EQ(Chart().series[0].caption, "Sales");
    EXPECT_EQ(Chart().series[1].caption, "Rent");
    EXPECT_EQ(tables.lineIndex->Value(1, "SHOW_CHART").AsText(), "");

    context.chartCommands.StandardView();
    EXPECT_FALSE(Chart().IsComparison());
    EXPECT_EQ(tables.lineIndex->Value(1, "SHOW_CHART").AsText(), "X");
    EXPECT_EQ(tables.lineIndex->Value(2, "SHOW_CHART").AsText(), "X");
    EXPECT_EQ(tables.lineIndex->Value(3, "SHOW_CHART").AsText(), "");
}

TEST_F(ChartCommandsTest, TheForecastViewShowsTheHostsTexts) {
    test::AddRow(*tables.texts, {{"ENTRY", std::int16_t{184}}, {"TEXT", "Choose the sales."}});
    context.chartCommands.ForecastView();
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Choose the sales.");
}

TEST_F(ChartCommandsTest, AForecastViewWithoutLinesHoldsNothingThatCouldBeChanged) {
    context.chartCommands.ForecastView();
    EXPECT_EQ(Chart().SeriesCount(), 0);
    EXPECT_FALSE(context.chart.UserMayChange(1, 1));
    EXPECT_EQ(tables.lineIndex->Value(1, "CHART_ID").AsInt32(), 0);
    EXPECT_EQ(tables.colsIndex->Value(1, "CHART_ID").AsInt32(), 0);
    context.ChartStep();
    EXPECT_EQ(platform.messages.size(), 1u) << "said once, not at every change";
}

TEST_F(ChartCommandsTest, TheTwoMarksStandOnce) {
    const auto marks = [&] {
        Lines all;
        for (int row = 1; row <= 3; ++row) {
            all.push_back(tables.lineIndex->Value(row, "SHOW_CHART").AsText());
        }
        return all;
    };
    const auto click = [&](const char* row) { context.gridHandlers.SimpleClick({"FLC0", row}); };
    context.chartCommands.ForecastView();
    click("ROW1");
    click("ROW2");
    EXPECT_EQ(marks(), (Lines{"S", "F", ""}));
    click("ROW3");
    EXPECT_EQ(marks(), (Lines{"S", "", "F"}));
    EXPECT_EQ(Chart().series[1].caption, "Rent");
    click("ROW3");
    EXPECT_EQ(marks(), (Lines{"F", "", "S"}));
    EXPECT_EQ(Chart().comparisonBase, 2) << "measured by the sales line, wherever it stands";
    click("ROW3");
    EXPECT_EQ(marks(), (Lines{"S", "", "F"}));
    tables.lineIndex->SetValue(3, "ROW_HIDDEN", "X");
    context.ChartStep();
    EXPECT_EQ(Chart().SeriesCount(), 0) << "a hidden line is in no chart";
}

TEST_F(ChartCommandsTest, TheForecastViewIsPlainAndLeavesColumnsAsTheyWere) {
    tables.colsIndex->SetValue(2, "SHOW_CHART", "");
    tables.lineIndex->SetValue(1, "CHART_TYPE", std::int16_t{23});
    context.settings.chartType = 2;
    FollowChartType(context.settings, context.chartSettings);
    context.chartCommands.Rebuild();
    context.chartCommands.ForecastView();
    context.gridHandlers.SimpleClick({"FLC0", "ROW1"});
    context.gridHandlers.SimpleClick({"FLC0", "ROW2"});
    EXPECT_EQ(Chart().series[0].type, ChartType::Line);
    EXPECT_EQ(Chart().series[1].type, ChartType::Column);
    EXPECT_EQ(Chart().CategoryCount(), 2);
    context.chartCommands.StandardView();
    EXPECT_EQ(Chart().CategoryCount(), 1);
    context.chartCommands.ForecastView();
    EXPECT_EQ(Chart().SeriesCount(), 2) << "the two lines are remembered";
    SelectRow("ROW3");
    context.chartCommands.RowsShowInChart();
    EXPECT_FALSE(context.chartCommands.IsForecastView());
    EXPECT_EQ(Chart().series[0].caption, "Rent");
}

TEST_F(ChartCommandsTest, ARightClickIsAboutWhatWasHitEvenWhereNothingCanBeSelected) {
    context.chartSettings.selectionAllowed = false;
    context.chartCommands.Rebuild();
    SelectRow("ROW2");
    platform.choices = {"mnuChartLine"};
    context.chart.UserPressed(MouseButton::Right, ShiftState::None, {ChartHitCode::Series, 1, 0});
    EXPECT_EQ(tables.lineIndex->Value(1, "CHART_TYPE").AsInt16(), 23);
    EXPECT_NE(tables.lineIndex->Value(2, "CHART_TYPE").AsText(), "23");
}

TEST_F(ChartCommandsTest, ARebuildStaysWhereTheUserIs) {
    context.chartSettings.scrollBar = true;
    context.chartSettings.visibleCategories = 0;  // one is visible
    context.chartCommands.Rebuild();
    context.chart.UserScrolledTo(2);
    context.ChartStep();
    EXPECT_EQ(Chart().FirstVisible(), 2);
}

}  // namespace

}  // namespace planview
