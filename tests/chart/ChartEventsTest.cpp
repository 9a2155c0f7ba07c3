// SPDX-License-Identifier: MIT
#include <planview/Events.h>

#include "chart/ChartBook.h"
#include "control/ControlParts.h"
#include "layout/PaneLayout.h"

namespace planview {

using test::Lines;

namespace {

class Listener : public PlanViewEvents {
public:
    void GridValueChanged(std::int16_t column, const std::string& columnKey, std::int16_t row,
                          const std::string& rowKey, const Variant& value) override {
        heard.push_back(std::to_string(column) + columnKey + " " + std::to_string(row) + rowKey + " = " +
                        value.AsText());
    }
    void GridStartUpdate() override { ++updates; }

    Lines heard;
    int updates = 0;
};

class ChartEventsTest : public test::ChartBook {
protected:
    ChartEventsTest() { control.AddSink(listener); }
    ~ChartEventsTest() override { control.RemoveSink(listener); }

    [[nodiscard]] std::string Contents(const char* column, const char* row) {
        return Grid().Contents(*Grid().FindCell({column, row}));
    }

    Listener listener;
};

TEST_F(ChartEventsTest, ADraggedPointGoesTheWayOfATypedValue) {
    ChartPart().UserChangedPoint(2, 3, 4.5);
    EXPECT_EQ(listener.heard, (Lines{"3COL3 3ROW3 = 4,5"}));
    EXPECT_EQ(Contents("COL3", "ROW3"), "4,5");
    EXPECT_EQ(tables.tab->Value(4, "V").AsDouble(), 4.5);
    EXPECT_EQ(tables.tabOld->RowCount(), 1);
    EXPECT_EQ(Chart().series[1].values[2], 4.5);
    control.Editing().Undo();
    EXPECT_EQ(Chart().series[1].values[2], -3);
}

TEST_F(ChartEventsTest, AReadOnlyPointRefuses) {
    EXPECT_TRUE(ChartPart().UserMayChange(1, 1));
    tables.lineIndex->SetValue(1, "READONLY", "X");
    control.DP_Import_Create();
    EXPECT_FALSE(ChartPart().UserMayChange(1, 1));
    ForgetEntries();
    ChartPart().UserChangedPoint(1, 1, 99);
    EXPECT_TRUE(listener.heard.empty());
    EXPECT_EQ(Contents("COL1", "ROW1"), "10");
    EXPECT_FALSE(EntriesOf("#UPDATE#").empty()) << "the chart shows the old value again";
    EXPECT_FALSE(ChartPart().UserMayChange(7, 1)) << "no such series";
}

TEST_F(ChartEventsTest, WhatIsSelectedInTheChartIsSelectedInTheGrid) {
    ChartPart().UserSelected({ChartHitCode::Series, 2, 0});
    EXPECT_EQ(EntriesOf("Selected").front(), "CHART |  | Selected | {index: 2 - hitcode: 7}");
    EXPECT_TRUE(Grid().IsSelected({{}, "ROW3"}));
    EXPECT_EQ(tables.lineIndex->Value(3, "ROW_MARKED").AsText(), "X");
    ChartPart().UserSelected({ChartHitCode::Point, 1, 2});
    EXPECT_EQ(Grid().KeyOf(*Grid().CurrentCell()), (CellKey{"COL2", "ROW1"}));
    EXPECT_FALSE(Grid().IsSelected({{}, "ROW3"}));
}

TEST_F(ChartEventsTest, APointKeepsItsCellWhateverTheHostDoesWithItsNumbers) {
    for (const test::TableRef& table : {tables.lineIndex, tables.colsIndex}) {
        for (int row = 1; row <= table->RowCount(); ++row) {
            table->SetValue(row, "CHART_ID", std::int16_t{1});
        }
    }
    ChartPart().UserChangedPoint(2, 3, 4.5);
    EXPECT_EQ(listener.heard, (Lines{"3COL3 3ROW3 = 4,5"}));
    const struct {
        const char* why;
        int series;
        int category;
    } strangers[] = {
        {"before the first", 0, 1}, {"before the first", 1, 0}, {"behind the last", 3, 1}, {"behind the last", 1, 4}};
    for (const auto& point : strangers) {
        EXPECT_FALSE(ChartPart().UserMayChange(point.series, point.category)) << point.why;
    }
}

TEST_F(ChartEventsTest, APointOfAColumnThatTheGridHasNoMoreRefuses) {
    Grid().Destroy(false);
    Grid().CreateLabelled(false);
    EXPECT_FALSE(ChartPart().UserMayChange(1, 1));
}

TEST_F(ChartEventsTest, MouseAndDragLeaveTheirEntries) {
    ForgetEntries();
    ChartPart().UserPressed(MouseButton::Left, ShiftState::Alt, {ChartHitCode::PlotArea, 0, 0});
    ChartPart().UserPressed(MouseButton::Right, ShiftState::None, {});
    ChartPart().UserDragged("GridView", false);
    ChartPart().UserDragged("GridView", true);
    ChartPart().UserFocus(true);
    ChartPart().UserFocus(false);
    EXPECT_EQ(
        Entries([](const ListItem& item) { return item.text == "CHART"; }),
        (Lines{"CHART |  | MouseDown | {mousebutton:1 - shift: 4}", "CHART |  | MouseDown | {mousebutton:2 - shift: 0}",
               "CHART |  | Drag | {source:GridView}", "CHART |  | DragDrop | {source:GridView}",
               "CHART |  | GotFocus | {}", "CHART |  | LostFocus | {}"}));
}

TEST_F(ChartEventsTest, SelectedRowsAndColumnsGoIntoTheChart) {
    SelectRow("ROW2");
    ForgetEntries();
    control.View().ShowSelectedRowsInChart();
    EXPECT_EQ(EntriesOf("RowsShowInChart").size(), 4u);
    EXPECT_EQ(EntriesOf("RowsShowInChart").front(), "CHART |  | RowsShowInChart | {column:ROW1}");
    EXPECT_EQ(Captions(), (Lines{"Rent"}));
    EXPECT_EQ(Mark(tables.lineIndex, 1), "");
    Grid().SelectColumn(*Grid().FindColumn("COL3"), SelectionMode::Replace);
    control.View().ShowSelectedColumnsInChart();
    EXPECT_EQ(Chart().categories, (std::vector<std::string>{"Mar"}));
    EXPECT_EQ(listener.updates, 2);
    control.PROP_Set_LINE_INDEX(nullptr);
    ForgetEntries();
    control.View().ShowSelectedRowsInChart();
    EXPECT_EQ(Entries(), Lines{}) << "nothing without the table";
}

TEST_F(ChartEventsTest, SwitchingTheChartWritesTheTable) {
    control.View().SwitchChart();
    EXPECT_FALSE(control.View().ChartShown());
    EXPECT_EQ(tables.gridAttr->Value(1, "CHART").AsText(), "");
    tables.lineIndex->SetValue(2, "SHOW_CHART", "X");
    tables.gridAttr->SetValue(1, "ZOOMED", "X");
    control.DP_Import_Attribute();
    control.View().SwitchChart();
    EXPECT_TRUE(ControlParts(control).Panes().ChartPaneVisible()) << "a zoomed grid gives way";
    EXPECT_EQ(tables.gridAttr->Value(1, "ZOOMED").AsText(), "");
    EXPECT_EQ(Captions().size(), 3u);
}

}  // namespace

}  // namespace planview
