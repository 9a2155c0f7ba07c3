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
        context.shared.settings.chartShown = true;
        Build();
        context.chart.data.Initialize();
        context.chart.data.Update();
        ForgetEntries();
    }

    [[nodiscard]] const ChartState& Chart() const { return context.chart.control.State(); }
    void SelectRow(const char* key) {
        context.grid.control.SelectRow(*context.grid.control.FindRow(key), SelectionMode::Replace);
        ForgetEntries();
    }
};

TEST_F(ChartCommandsTest, ASeriesTypeGoesToTheSelectedLines) {
    SelectRow("ROW2");
    context.chart.commands.SerieType(ChartType::StackedLine100);
    EXPECT_EQ(tables.lineIndex->Value(2, "CHART_TYPE").AsInt16(), 22);
    EXPECT_EQ(Chart().series[1].type, ChartType::StackedLine100);
    EXPECT_EQ(Chart().series[0].type, ChartType::Column);
    EXPECT_EQ(EntriesOf("SerieType"), (Lines{"CHART |  | SerieType | {type:22}"}));
    SelectRow("ROW3");
    context.chart.commands.SerieType(ChartType::Line);
    EXPECT_TRUE(tables.lineIndex->Value(3, "CHART_TYPE").IsEmpty()) << "a line that is not in the chart";
}

TEST_F(ChartCommandsTest, ATrendLineBelongsToTheSelectedLine) {
    SelectRow("ROW1");
    context.chart.commands.TrendlineAdd(TrendKind::Logarithmic);
    EXPECT_EQ(Entries(), (Lines{"CHART |  | GetTrendline | {index:1}", "CHART |  | AddTrendline | {index:1}",
                                "CHART |  | TrendlineAdd | {type:1 - index:1}"}));
    ForgetEntries();
    context.chart.commands.TrendlineAdd(TrendKind::MovingAverage);
    EXPECT_EQ(Entries(), (Lines{"CHART |  | GetTrendline | {index:1}", "CHART |  | GetTrendline | {index:1}",
                                "CHART |  | TrendlineAdd | {type:4 - index:1}"}));
    ASSERT_EQ(Chart().series[0].look->trends.size(), 1u) << "reused, never a second one";
    EXPECT_EQ(Chart().series[0].look->trends[0]->kind, TrendKind::MovingAverage);
    EXPECT_TRUE(platform.messages.empty());

    context.shared.chooseColor = [](const ColorQuestion&) { return std::optional(1); };
    context.chart.commands.TrendlineColor();
    EXPECT_EQ(Chart().series[0].look->trends[0]->borderColorIndex, 10);
    ColorQuestion asked;
    context.shared.chooseColor = [&asked](const ColorQuestion& question) {
        asked = question;
        return std::optional<int>();
    };
    context.chart.commands.TrendlineColor();
    EXPECT_EQ(asked.present, modGrid::PaletteIndexOf(1)) << "it can be marked";
    EXPECT_FALSE(asked.own);
    EXPECT_EQ(EntriesOf("TrendlineColor"), (Lines{"CHART |  | TrendlineColor | {color:10}"}));

    context.chart.Step();
    ForgetEntries();
    context.chart.commands.TrendlineDelete();
    EXPECT_EQ(Entries(), (Lines{"CHART |  | TrendlineDelete | {trendline:ROW1}"}));
    EXPECT_FALSE(context.chart.commands.HasTrendline());
    EXPECT_TRUE(Chart().series[0].look->trends.empty());
}

TEST_F(ChartCommandsTest, AnImpossibleTrendIsSaid) {
    SelectRow("ROW2");
    context.chart.commands.TrendlineAdd(TrendKind::Exponential);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_NE(platform.messages[0].text.find("Sales"), std::string::npos);
    EXPECT_NE(platform.messages[0].text.find("-1"), std::string::npos) << platform.messages[0].text;
    // What counts is where the line is drawn: stacked on the one below it stands above zero.
    for (const int row : {1, 2}) {
        tables.lineIndex->SetValue(row, "CHART_TYPE", std::int16_t{21});
    }
    context.chart.Step();
    SelectRow("ROW2");
    context.chart.commands.TrendlineAdd(TrendKind::Exponential);
    EXPECT_EQ(platform.messages.size(), 1u);
}

TEST_F(ChartCommandsTest, WithoutAQualifyingLineNoTrendIsAdded) {
    ExpectErrors();
    SelectRow("ROW3");
    context.chart.commands.TrendlineAdd(TrendKind::Linear);
    EXPECT_FALSE(context.chart.commands.HasTrendline());
    EXPECT_EQ(Entries(IsError).size(), 1u);
}

TEST_F(ChartCommandsTest, TheForecastViewComparesTwoLinesAndGivesTheMarksBack) {
    context.chart.commands.ForecastView();
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Sales");
    EXPECT_EQ(platform.messages[0].icon, MessageIcon::Information);
    context.gridHandlers.SimpleClick({"FLC0", "ROW2"});
    EXPECT_EQ(tables.lineIndex->Value(2, "SHOW_CHART").AsText(), "S");
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].title, "Forecast");
    context.gridHandlers.SimpleClick({"FLC0", "ROW3"});
    EXPECT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(Chart().guidance, "");
    EXPECT_EQ(Chart().comparisonBase, 1);
    ASSERT_EQ(Chart().SeriesCount(), 2);
    EXPECT_EQ(Chart().series[0].caption, "Sales");
    EXPECT_EQ(Chart().series[1].caption, "Rent");
    EXPECT_EQ(tables.lineIndex->Value(1, "SHOW_CHART").AsText(), "");

    context.chart.commands.StandardView();
    EXPECT_FALSE(Chart().IsComparison());
    EXPECT_EQ(tables.lineIndex->Value(1, "SHOW_CHART").AsText(), "X");
    EXPECT_EQ(tables.lineIndex->Value(2, "SHOW_CHART").AsText(), "X");
    EXPECT_EQ(tables.lineIndex->Value(3, "SHOW_CHART").AsText(), "");
}

TEST_F(ChartCommandsTest, TheForecastViewShowsTheHostsTexts) {
    test::AddRow(*tables.texts, {{"ENTRY", std::int16_t{184}}, {"TEXT", "Choose the sales."}});
    context.chart.commands.ForecastView();
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Choose the sales.");
}

TEST_F(ChartCommandsTest, AForecastViewWithoutLinesHoldsNothingThatCouldBeChanged) {
    context.chart.commands.ForecastView();
    EXPECT_EQ(Chart().SeriesCount(), 0);
    EXPECT_EQ(Chart().guidance, platform.messages[0].text) << "the empty chart goes on saying what to do";
    EXPECT_FALSE(context.chart.control.UserMayChange(1, 1));
    EXPECT_EQ(tables.lineIndex->Value(1, "CHART_ID").AsInt32(), 0);
    EXPECT_EQ(tables.colsIndex->Value(1, "CHART_ID").AsInt32(), 0);
    context.chart.Step();
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
    context.chart.commands.ForecastView();
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
    context.chart.Step();
    EXPECT_EQ(Chart().SeriesCount(), 0) << "a hidden line is in no chart";
}

TEST_F(ChartCommandsTest, TheForecastViewIsPlainAndLeavesColumnsAsTheyWere) {
    tables.colsIndex->SetValue(2, "SHOW_CHART", "");
    tables.lineIndex->SetValue(1, "CHART_TYPE", std::int16_t{23});
    context.shared.settings.chartType = 2;
    FollowChartType(context.shared.settings, context.chart.settings);
    context.chart.commands.Rebuild();
    context.chart.commands.ForecastView();
    context.gridHandlers.SimpleClick({"FLC0", "ROW1"});
    context.gridHandlers.SimpleClick({"FLC0", "ROW2"});
    EXPECT_EQ(Chart().series[0].type, ChartType::Line);
    EXPECT_EQ(Chart().series[1].type, ChartType::Column);
    EXPECT_EQ(Chart().CategoryCount(), 2);
    context.chart.commands.StandardView();
    EXPECT_EQ(Chart().CategoryCount(), 1);
    context.chart.commands.ForecastView();
    EXPECT_EQ(Chart().SeriesCount(), 2) << "the two lines are remembered";
    SelectRow("ROW3");
    context.chart.commands.RowsShowInChart();
    EXPECT_FALSE(context.chart.commands.IsForecastView());
    EXPECT_EQ(Chart().series[0].caption, "Rent");
}

TEST_F(ChartCommandsTest, ARightClickIsAboutWhatWasHitEvenWhereNothingCanBeSelected) {
    context.chart.settings.selectionAllowed = false;
    context.chart.commands.Rebuild();
    SelectRow("ROW2");
    platform.choices = {"mnuChartLine"};
    context.chart.control.UserPressed(MouseButton::Right, ShiftState::None, {ChartHitCode::Series, 1, 0});
    EXPECT_EQ(tables.lineIndex->Value(1, "CHART_TYPE").AsInt16(), 23);
    EXPECT_NE(tables.lineIndex->Value(2, "CHART_TYPE").AsText(), "23");
}

TEST_F(ChartCommandsTest, ARebuildStaysWhereTheUserIs) {
    context.chart.settings.scrollBar = true;
    context.chart.settings.visibleCategories = 0;  // one is visible
    context.chart.commands.Rebuild();
    context.chart.control.UserScrolledTo(2);
    context.chart.Step();
    EXPECT_EQ(Chart().FirstVisible(), 2);
}

}  // namespace

}  // namespace planview
