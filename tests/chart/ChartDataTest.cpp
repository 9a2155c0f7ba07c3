// SPDX-License-Identifier: MIT
#include "chart/ChartBook.h"

namespace planview {

using test::Lines;

namespace {

class ChartDataTest : public test::ChartBook {
protected:
    void Rebuild() { control.plv_MarkedRowsShow(); }
};

TEST_F(ChartDataTest, MarkedLinesAndAllColumnsBecomeTheChart) {
    EXPECT_EQ(Chart().categories, (std::vector<std::string>{"Jan", "Feb", "Mar"}));
    EXPECT_EQ(Captions(), (Lines{"Wages", "Sales"}));
    EXPECT_EQ(Chart().series[0].values, (std::vector<double>{10, 11.5, 0})) << "an empty cell is 0";
    EXPECT_EQ(Chart().series[1].values, (std::vector<double>{30, 0, -3}));
    EXPECT_EQ(Chart().series[0].type, ChartType::Column);
    EXPECT_EQ(Chart().series[1].type, ChartType::Line);
    EXPECT_EQ(ChartId(tables.lineIndex, 1), 1);
    EXPECT_EQ(ChartId(tables.lineIndex, 2), 0);
    EXPECT_EQ(ChartId(tables.lineIndex, 3), 2);
    EXPECT_EQ(ChartId(tables.colsIndex, 3), 3);
    EXPECT_EQ(Mark(tables.colsIndex, 2), "X") << "no column was marked, so all of them are";
}

TEST_F(ChartDataTest, HiddenRowsAndColumnsLeaveTheChart) {
    tables.lineIndex->SetValue(1, "ROW_HIDDEN", "X");
    tables.colsIndex->SetValue(1, "COL_HIDDEN", "X");
    Rebuild();
    EXPECT_EQ(Captions(), (Lines{"Sales"}));
    EXPECT_EQ(Chart().categories, (std::vector<std::string>{"Feb", "Mar"}));
    EXPECT_EQ(ChartId(tables.lineIndex, 1), 0);
    EXPECT_EQ(ChartId(tables.lineIndex, 3), 1);
    EXPECT_EQ(ChartId(tables.colsIndex, 1), 0);
    EXPECT_EQ(ChartId(tables.colsIndex, 2), 1);
}

TEST_F(ChartDataTest, WithoutMarksAllPlanningLinesAreShown) {
    tables.lineIndex->SetValue(1, "SHOW_CHART", "");
    tables.lineIndex->SetValue(3, "SHOW_CHART", Variant());
    Rebuild();
    EXPECT_EQ(Captions(), (Lines{"Wages", "Rent", "Sales"}));
    EXPECT_EQ(Mark(tables.lineIndex, 4), "") << "a help line";
}

TEST_F(ChartDataTest, CaptionsFollowTheTextKind) {
    tables.lineIndex->SetValue(1, "LTEXT", "P");
    tables.lineIndex->SetValue(1, "PLOBT", "object");
    tables.lineIndex->SetValue(3, "LTEXT", "Q");
    tables.lineIndex->SetValue(3, "DDICT", "dictionary");
    Rebuild();
    EXPECT_EQ(Captions(), (Lines{"object", "dictionary"}));
}

TEST_F(ChartDataTest, TheRebuildLeavesItsEntriesInOrder) {
    tables.lineIndex->SetValue(3, "CHART_TYPE", std::int16_t{21});
    tables.colsIndex->SetValue(2, "SHOW_CHART", "");
    tables.colsIndex->SetValue(3, "SHOW_CHART", "");
    ForgetEntries();
    Rebuild();
    const Lines chart = Entries([](const ListItem& item) { return item.text == "CHART"; });
    EXPECT_EQ(
        chart,
        (Lines{"CHART | {} | #UPDATE# | BEGIN", "CHART |  | Redraw | {redraw:False}",
               "CHART |  | GetColumns | {count:1}", "CHART |  | GetLines | {count:2}", "CHART |  | Delete | {}",
               "CHART |  | Create | {}", "CHART |  | CellTextY | {column:1 - value: Jan}",
               "CHART |  | CellTextX | {row:1 - value: Wages}", "CHART |  | CellValue | {column:1 - row:1 - value:10}",
               "CHART |  | CellTextX | {row:2 - value: Sales}", "CHART |  | CellValue | {column:1 - row:2 - value:30}",
               "CHART |  | SeriesCollection | {id:1 - charttype:0}",
               "CHART |  | SeriesCollection | {id:2 - charttype:23}",
               "CHART |  | ChartTitle | {value:Chart: values by period}", "CHART |  | StackView | {value:False}",
               "CHART |  | StackView100 | {value:False}", "CHART |  | SeriesCollection | {id:2 - charttype:21}",
               "CHART |  | Redraw | {redraw:True}"}));
    EXPECT_EQ(Chart().series[1].type, ChartType::StackedLine);
}

TEST_F(ChartDataTest, TheStackedViewsFollowTheTable) {
    tables.gridAttr->SetValue(1, "CHART_TYPE", std::int16_t{2});
    test::AddRow(*tables.texts, {{"ENTRY", std::int16_t{180}}, {"TEXT", "Plan"}});
    test::AddRow(*tables.texts, {{"ENTRY", "98"}, {"TEXT", "shares"}});
    control.DP_Import_Attribute();
    Rebuild();
    EXPECT_EQ(Chart().series[0].type, ChartType::StackedColumn100);
    EXPECT_EQ(Chart().series[1].type, ChartType::StackedColumn100);
    EXPECT_EQ(Chart().title, "Plan: shares");
    tables.gridAttr->SetValue(1, "TITELTEXT", "My chart");
    control.DP_Import_Attribute();
    Rebuild();
    EXPECT_EQ(Chart().title, "My chart");
}

TEST_F(ChartDataTest, ATextThatIsNoNumberStopsTheFill) {
    ExpectErrors();
    Grid().SetAttribute(GridElement::Cell, {"COL2", "ROW1"}, GridAttribute::Contents, "soon", true);
    ForgetEntries();
    Rebuild();
    EXPECT_EQ(Chart().series[1].values[0], 30) << "the column before it";
    EXPECT_EQ(Chart().series[1].values[2], 0) << "the column behind it";
    const Lines errors = Entries(IsError);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].find("CHART"), 0u);
    EXPECT_FALSE(ChartPart().UserMayChange(1, 1)) << "no point of a chart that is not whole leads to a cell";
    Grid().SetAttribute(GridElement::Cell, {"COL2", "ROW1"}, GridAttribute::Contents, "7", true);
    Rebuild();
    EXPECT_TRUE(ChartPart().UserMayChange(1, 1));
}

TEST_F(ChartDataTest, CaptionsStandWithAndWithoutTheTraceWhichListsThemWithEveryColumn) {
    ForgetEntries();
    Rebuild();
    EXPECT_EQ(EntriesOf("CellTextX").size(), 2u * 3u);
    EXPECT_EQ(Captions(), (Lines{"Wages", "Sales"}));
    modPlan::TraceEnabled = false;
    Rebuild();
    modPlan::TraceEnabled = true;
    EXPECT_EQ(Captions(), (Lines{"Wages", "Sales"}));
}

TEST_F(ChartDataTest, SettingTheChartUpGoesThroughEverySettingInOrder) {
    control.DP_Import_Create();
    Lines methods;
    for (const std::string& entry : Entries([](const ListItem& item) { return item.text == "CHART"; })) {
        const std::size_t start = entry.find(" | ", entry.find(" | ") + 1) + 3;
        methods.push_back(entry.substr(start, entry.find(" | ", start) - start));
    }
    const Lines expected{"#INITIALIZE#",
                         "Redraw",
                         "ChartType",
                         "AllowContextMenus",
                         "AllowDialogs",
                         "AllowSelection",
                         "AllowValueChange",
                         "AreaBgColor",
                         "PlotBgColor",
                         "LegendBgColor",
                         "LegendBorderColor",
                         "HasLegend",
                         "LegendPosition",
                         "MinValue",
                         "MaxValue",
                         "AutoScale",
                         "MinRange",
                         "MaxRange",
                         "Optimum",
                         "XaxisOrientation",
                         "LabelX",
                         "LabelY",
                         "XScrollBar",
                         "Caterogies",
                         "StackView",
                         "StackView100",
                         "Redraw",
                         "#UPDATE#"};
    ASSERT_GE(methods.size(), expected.size());
    methods.resize(expected.size());
    EXPECT_EQ(methods, expected);
}

TEST_F(ChartDataTest, WithoutChartNothingIsBuilt) {
    tables.gridAttr->SetValue(1, "CHART", "");
    control.DP_Import_Attribute();
    ForgetEntries();
    control.DP_Import_Create();
    Rebuild();
    EXPECT_EQ(Entries([](const ListItem& item) { return item.text == "CHART"; }), Lines{});
}

TEST_F(ChartDataTest, TheScrollBarLimitsTheVisibleCategories) {
    EXPECT_EQ(Chart().VisibleCount(), 3);
    for (int period = 4; period <= 40; ++period) {
        tables.AddColumn(period, "P");
    }
    control.DP_Import_Create();
    EXPECT_EQ(Chart().CategoryCount(), 3) << "only the marked columns";
    for (int row = 1; row <= 40; ++row) {
        tables.colsIndex->SetValue(row, "SHOW_CHART", "");
    }
    control.DP_Import_Create();
    EXPECT_EQ(Chart().VisibleCount(), 40);
}

}  // namespace

}  // namespace planview
