// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "automation/Late.h"
#include "chart/modChart.h"
#include "components/chart/ChartControl.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;

namespace {

constexpr std::int16_t One = 1;

class ModChartTest : public test::TracedTest {
protected:
    ModChartTest() { Late(chart.Object()).Call("CreateDataRows", One, One, One, One, std::int16_t{2}, One); }

    [[nodiscard]] const ChartState& State() const { return chart.State(); }
    [[nodiscard]] const ObjectRef& Object() const { return chart.Object(); }

    ChartControl chart;
};

TEST_F(ModChartTest, EveryProcedureLeavesItsEntry) {
    modChart::DataSheet sheet(Late(Object()).Get("DataSheet").Value().AsObject());
    const struct {
        std::function<void()> call;
        Lines entries;
    } rows[] = {
        {[&] { modChart::Redraw(Object(), false); }, {"CHART |  | Redraw | {redraw:False}"}},
        {[&] { modChart::AllowContextMenus(Object(), true); }, {"CHART |  | AllowContextMenus | {value:True}"}},
        {[&] { modChart::AllowDialogs(Object(), true); }, {"CHART |  | AllowDialogs | {value:True}"}},
        {[&] { modChart::AllowSelection(Object(), true); }, {"CHART |  | AllowSelection | {value:True}"}},
        {[&] { modChart::AllowValueChange(Object(), false); }, {"CHART |  | AllowValueChange | {value:False}"}},
        {[&] { modChart::HasLegend(Object(), true); }, {"CHART |  | HasLegend | {value:True}"}},
        {[&] { modChart::LegendPosition(Object(), 2); }, {"CHART |  | LegendPosition | {value:2}"}},
        {[&] { modChart::MinValue(Object(), 1.5); }, {"CHART |  | MinValue | {value:1.5}"}},
        {[&] { modChart::MaxValue(Object(), 9); }, {"CHART |  | MaxValue | {value:9}"}},
        {[&] { modChart::XaxisOrientation(Object(), 1); }, {"CHART |  | XaxisOrientation | {value:1}"}},
        {[&] { modChart::LabelX(Object(), false); }, {"CHART |  | LabelX | {value:False}"}},
        {[&] { modChart::LabelY(Object(), false); }, {"CHART |  | LabelY | {value:False}"}},
        {[&] { modChart::XScrollBar(Object(), true); }, {"CHART |  | XScrollBar | {value:True}"}},
        {[&] { modChart::AutoArrange(Object()); }, {"CHART |  | Arrange | {}"}},
        {[&] { modChart::ChartTitle(Object(), "A"); }, {"CHART |  | ChartTitle | {value:A}"}},
        {[&] { modChart::LegendFont(Object(), "Serif"); }, {"CHART |  | LegendFont | {value:Serif}"}},
        {[&] { modChart::LegendFont(Object(), ""); }, {}},
        {[&] { modChart::AutoScale(Object(), true, false); },
         {"CHART |  | AutoScale | {min value:True - max value:False}"}},
        {[&] { modChart::MinRange(Object(), 0.5); }, {"CHART |  | MinRange | {value:0.5}"}},
        {[&] { modChart::MaxRange(Object(), 0); }, {"CHART |  | MaxRange | {value:0}"}},
        {[&] { modChart::Optimum(Object(), -2); }, {"CHART |  | Optimum | {value:-2}"}},
        {[&] { modChart::Caterogies(Object(), 5); }, {"CHART |  | Caterogies | {value:5}"}},
        {[&] { modChart::ChartType(Object(), 23); }, {"CHART |  | ChartType | {value:23}"}},
        {[&] { modChart::StackView(Object(), false); }, {"CHART |  | StackView | {value:False}"}},
        {[&] { modChart::StackView(Object(), true); },
         {"CHART |  | ChartType | {value:1}", "CHART |  | StackView | {value:True}"}},
        {[&] { modChart::StackView100(Object(), true); },
         {"CHART |  | ChartType | {value:2}", "CHART |  | StackView100 | {value:True}"}},
        {[&] { modChart::AreaBgColor(Object(), 3); }, {"CHART |  | AreaBgColor | {color:3}"}},
        {[&] { modChart::PlotBgColor(Object(), -1); }, {}},
        {[&] { modChart::PlotBgColor(Object(), 4); }, {"CHART |  | PlotBgColor | {color:4}"}},
        {[&] { modChart::LegendBgColor(Object(), 5); }, {"CHART |  | LegendBgColor | {color:5}"}},
        {[&] { modChart::LegendBorderColor(Object(), 6); }, {"CHART |  | LegendBorderColor | {color:6}"}},
        {[&] { modChart::LegendBorderColor(Object(), -1); }, {}},
        {[&] { modChart::SeriesCollection(Object(), 2, 21); }, {"CHART |  | SeriesCollection | {id:2 - charttype:21}"}},
        {[&] { modChart::CellTextY(sheet, 1, "Jan"); }, {"CHART |  | CellTextY | {column:1 - value: Jan}"}},
        {[&] { modChart::CellTextX(sheet, 2, "Retail"); }, {"CHART |  | CellTextX | {row:2 - value: Retail}"}},
        {[&] { modChart::CellValue(sheet, 1, 2, 3.5); }, {"CHART |  | CellValue | {column:1 - row:2 - value:3.5}"}},
        {[&] { EXPECT_EQ(modChart::GetTrendline(Object(), 1), nullptr); }, {"CHART |  | GetTrendline | {index:1}"}},
        {[&] { EXPECT_NE(modChart::AddTrendline(Object(), 1), nullptr); }, {"CHART |  | AddTrendline | {index:1}"}},
        {[&] { EXPECT_TRUE(modChart::CheckSetSales(1)); }, {"CHART |  | CheckSetSales | {}"}},
        {[&] { EXPECT_FALSE(modChart::CheckSetForecast(0)); }, {"CHART |  | CheckSetForecast | {}"}},
        {[&] { modChart::CreateDataRows(Object(), 2, 2, 1); }, {"CHART |  | Create | {}"}},
        {[&] { modChart::DeleteContents(Object()); }, {"CHART |  | Delete | {}"}},
    };
    for (const auto& row : rows) {
        ForgetEntries();
        row.call();
        EXPECT_EQ(Entries(), row.entries);
    }
}

TEST_F(ModChartTest, SettingsReachTheChart) {
    modChart::Caterogies(Object(), 5);
    EXPECT_EQ(State().categoryAxis.visibleCategories, 6);
    EXPECT_EQ(State().categoryAxis.startAtCategory, 1);
    modChart::MinRange(Object(), 0);
    EXPECT_FALSE(State().valueAxis.rangeMinimum.IsShown());
    modChart::MinRange(Object(), 0.5);
    EXPECT_TRUE(State().valueAxis.rangeMinimum.IsShown());
    EXPECT_EQ(State().valueAxis.rangeMinimum.value, 0.5);
    modChart::MaxRange(Object(), -3);
    EXPECT_EQ(State().valueAxis.rangeMaximum.value, -3) << "written although it is not shown";
    modChart::Optimum(Object(), 7);
    EXPECT_EQ(State().valueAxis.optimum.value, 7);
    modChart::LegendFont(Object(), "Serif");
    EXPECT_EQ(State().titleFont.name, "Serif");
    EXPECT_EQ(State().legend.font.name, "Serif");
    modChart::ChartTitle(Object(), "Sales");
    EXPECT_EQ(State().titleFont.size, 10);
    modChart::AllowSelection(Object(), false);
    EXPECT_FALSE(State().allowSelect);
    modChart::LegendBgColor(Object(), 3);
    EXPECT_EQ(State().legend.interior.colorIndex, 3);
}

TEST_F(ModChartTest, ATypeKeepsTheColourAndEndsTheGradient) {
    const ChartColor color{1, 2, 3};
    State().series[1].look->color = color;
    State().series[1].look->gradient = 0;
    modChart::ChartType(Object(), 23);
    EXPECT_EQ(State().series[1].look->color, color);
    EXPECT_EQ(State().series[1].look->gradient, 1);
    State().series[1].look->gradient = 0;
    modChart::SeriesCollection(Object(), 2, 0);
    EXPECT_EQ(State().series[1].look->color, color);
    EXPECT_EQ(State().series[1].look->gradient, 1);
    EXPECT_EQ(State().series[0].type, ChartType::Line);
    EXPECT_EQ(State().series[1].type, ChartType::Column);
}

TEST_F(ModChartTest, AFailingCallEndsItsProcedureOnly) {
    ExpectErrors();
    ForgetEntries();
    modChart::Caterogies(Object(), 32767);
    EXPECT_EQ(Entries().size(), 1u);
    EXPECT_TRUE(IsError(frmTrace::Share()->TraceView.Item(0)));
    EXPECT_EQ(State().categoryAxis.visibleCategories, 0);
    modChart::SeriesCollection(Object(), 9, 0);
    modChart::Redraw(nullptr, true);
    EXPECT_EQ(Entries(IsError).size(), 3u);
}

TEST_F(ModChartTest, PassesCountAndMarkTheVisibleRows) {
    const test::Tables tables;
    test::AddRow(*tables.colsIndex, {{"SHOW_CHART", "X"}});
    test::AddRow(*tables.colsIndex, {{"SHOW_CHART", "X"}, {"COL_HIDDEN", "X"}});
    test::AddRow(*tables.colsIndex, {{"SHOW_CHART", ""}});
    const HostTable cols(tables.colsIndex);
    EXPECT_EQ(modChart::GetColumns(cols), 1);
    EXPECT_EQ(modChart::SetAllColumns(cols), 2);
    EXPECT_EQ(modChart::GetColumns(cols), 2);

    test::AddRow(*tables.lineIndex, {{"CHART_TYPE", std::int16_t{21}}, {"GRID_ID", "ROW1"}});
    test::AddRow(*tables.lineIndex, {{"LINETYPE", "H"}, {"GRID_ID", "ROW2"}});
    test::AddRow(*tables.lineIndex, {{"ROW_TEXT", "X"}, {"GRID_ID", "ROW3"}});
    test::AddRow(*tables.lineIndex, {{"ROW_HIDDEN", "X"}, {"CHART_TYPE", "22"}, {"GRID_ID", "ROW4"}});
    test::AddRow(*tables.lineIndex, {{"SHOW_CHART", "S"}, {"CHART_TYPE", std::int16_t{0}}, {"GRID_ID", "ROW5"}});
    test::AddRow(*tables.lineIndex, {{"SHOW_CHART", "F"}, {"GRID_ID", "ROW6"}});
    const HostTable lines(tables.lineIndex);
    EXPECT_EQ(modChart::GetLines(lines), 0);
    ForgetEntries();
    EXPECT_EQ(modChart::ResetAllLines(lines), 2);
    EXPECT_EQ(Entries(), (Lines{"CHART |  | ResetAllLines | {count:1}", "CHART |  | ResetAllLines | {count:2}",
                                "CHART |  | ResetAllLines | {count:3}", "CHART |  | ResetAllLines | {count:4}"}));
    EXPECT_EQ(lines.Text(5, "SHOW_CHART"), "S");
    EXPECT_EQ(modChart::SetAllLines(lines), 3) << "neither help line, text line nor hidden line";
    EXPECT_EQ(modChart::GetLines(lines), 3);
    ForgetEntries();
    modChart::ResetTypes(lines);
    EXPECT_EQ(Entries().size(), 6u);
    EXPECT_EQ(Entries().front(), "CHART |  | ResetTypes | {row:ROW1}");
    EXPECT_EQ(lines.Int16(1, "CHART_TYPE"), 23);
    EXPECT_EQ(lines.Int16(4, "CHART_TYPE"), 23);
    EXPECT_EQ(lines.Int16(5, "CHART_TYPE"), 0);
}

TEST_F(ModChartTest, PassesTakeMissingFieldsAsUnequal) {
    const auto bare = MemoryTable::WithFieldsOf("TAB");
    bare->AddRow();
    EXPECT_EQ(modChart::GetColumns(HostTable(bare)), 0);
    EXPECT_EQ(modChart::ResetAllLines(HostTable(MemoryTable::WithFieldsOf("LINE_INDEX"))), 2) << "an empty table, too";
}

}  // namespace

}  // namespace planview
