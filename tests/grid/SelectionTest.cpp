// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "grid/Selection.h"
#include "support/ContextOnTables.h"

namespace planview {

using test::Lines;
using test::Tables;

namespace {

/// Five columns and five rows.
class SelectionTest : public test::ContextTest {
protected:
    SelectionTest() {
        for (int i = 1; i <= 5; ++i) {
            tables.AddColumn(i, "P", {{"COL_WIDTH", 70}});
            tables.AddLine(i, "Line", {{"ROW_HEIGHT", 24}});
        }
        Build();
        ForgetEntries();
    }

    void SelectColumns(std::initializer_list<int> numbers) {
        context.grid.control.ClearSelection();
        for (const int number : numbers) {
            context.grid.control.SetSelection({"COL" + std::to_string(number), ""}, false);
        }
    }
    /// "X" or "." per row of the table.
    static std::string Flags(const MemoryTable& table, const char* field) {
        std::string flags;
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            flags += table.Value(row, field) == Variant("X") ? 'X' : '.';
        }
        return flags;
    }
    [[nodiscard]] std::string Marked() const { return Flags(*tables.colsIndex, "COL_MARKED"); }
    [[nodiscard]] std::string Widths() const {
        std::string widths;
        for (const ColumnId column : context.grid.control.Columns(ColumnArea::Center)) {
            widths += std::to_string(context.grid.control.Column(column).width) + " ";
        }
        return widths;
    }
};

}  // namespace

TEST_F(SelectionTest, BlocksRunUpToTheNextSelectedHeading) {
    const struct {
        std::initializer_list<int> selected;
        const char* marked;
    } cases[] = {{{2, 4}, ".XX.."}, {{3}, "..XXX"}, {{}, "....."}, {{1, 2}, "X...."}, {{2, 3, 5}, ".X..."}};
    for (const auto& row : cases) {
        EXPECT_TRUE(DeselectAllColumns(context.shared.tables.COLS_INDEX, context.grid.driver));
        SelectColumns(row.selected);
        EXPECT_TRUE(SelectBlockColumns(context.shared.tables.COLS_INDEX, context.grid.driver));
        EXPECT_EQ(Marked(), row.marked);
    }
}

TEST_F(SelectionTest, SelectingAllAndNoneMarksTheTables) {
    EXPECT_TRUE(SelectAllRows(context.shared.tables.LINE_INDEX, context.grid.driver));
    EXPECT_EQ(Flags(*tables.lineIndex, "ROW_MARKED"), "XXXXX");
    EXPECT_TRUE(context.grid.control.IsSelected({"", "ROW5"}));
    EXPECT_EQ(EntriesOf("SelectAllRows").back(), "GRIDCTL | {rid: ROW5} | SelectAllRows | ");
    EXPECT_TRUE(DeselectAllRows(context.shared.tables.LINE_INDEX, context.grid.driver));
    EXPECT_EQ(Flags(*tables.lineIndex, "ROW_MARKED"), ".....");
    EXPECT_TRUE(context.grid.control.Selection().IsEmpty());
}

TEST_F(SelectionTest, CommandsHideAndShowWhatIsSelectedAndTellTheHost) {
    struct Host : PlanViewEvents {
        int updates = 0;
        void GridStartUpdate() override { ++updates; }
    } host;
    context.shared.events.AddSink(host);
    SelectColumns({2, 3});
    context.runner.Run(Command::HideColumns);
    EXPECT_EQ(Flags(*tables.colsIndex, "COL_HIDDEN"), ".XX..");
    EXPECT_TRUE(context.grid.control.Column(*context.grid.control.FindColumn("COL3")).hidden);
    EXPECT_EQ(host.updates, 1);
    EXPECT_EQ(EntriesOf("#HIDE COLUMNS#"), Lines{"GRIDCTL | {} | #HIDE COLUMNS# | BEGIN"});
    EXPECT_EQ(EntriesOf("HideColumn"),
              (Lines{"GRIDCTL | {cid: COL2} | HideColumn | ", "GRIDCTL | {cid: COL3} | HideColumn | "}));
    EXPECT_EQ(Marked(), ".....") << "the selection is the current cell now";
    SelectColumns({1, 2, 3, 4});
    context.runner.Run(Command::ShowColumns);
    EXPECT_EQ(Flags(*tables.colsIndex, "COL_HIDDEN"), ".....");
    tables.colsIndex->SetValue(5, "COL_HIDDEN", "X");
    SelectColumns({2, 3});
    context.runner.Run(Command::HideColumns);
    host.updates = 0;
    ForgetEntries();
    context.grid.control.ReportShowHidden(*context.grid.control.FindColumn("COL4"), HiddenSide::Before);
    EXPECT_EQ(Flags(*tables.colsIndex, "COL_HIDDEN"), "....X") << "only those at the place";
    EXPECT_EQ(EntriesOf("#SHOW COLUMNS#"), Lines{"GRIDCTL | {} | #SHOW COLUMNS# | BEGIN"});
    EXPECT_EQ(EntriesOf("ShowColumn"),
              (Lines{"GRIDCTL | {cid: COL2} | ShowColumn | ", "GRIDCTL | {cid: COL3} | ShowColumn | "}));
    EXPECT_EQ(host.updates, 1);
    context.grid.control.SelectRow(*context.grid.control.FindRow("ROW2"), SelectionMode::Replace);
    context.runner.Run(Command::HideRows);
    context.grid.control.ReportShowHidden(*context.grid.control.FindRow("ROW1"), HiddenSide::Behind);
    EXPECT_EQ(Flags(*tables.lineIndex, "ROW_HIDDEN"), ".....");
    EXPECT_FALSE(context.grid.control.Row(*context.grid.control.FindRow("ROW2")).hidden);
    context.shared.events.RemoveSink(host);
}

TEST_F(SelectionTest, BordersDraggedTogetherHide) {
    const auto drag = [&](const char* column) {
        context.grid.control.PressColumnBorder(*context.grid.control.FindColumn(column), false);
        context.grid.control.DragBorder(3);
        context.grid.control.ReleaseBorder();
    };
    drag("COL2");
    EXPECT_EQ(Flags(*tables.colsIndex, "COL_HIDDEN"), ".X...");
    EXPECT_EQ(Widths(), "70 70 70 70 70 ") << "shown again it has its size";
    SelectColumns({3, 4});
    drag("COL1");
    EXPECT_EQ(Flags(*tables.colsIndex, "COL_HIDDEN"), "XX...") << "the selected ones are others";
    SelectColumns({3, 4});
    drag("COL4");
    EXPECT_EQ(Flags(*tables.colsIndex, "COL_HIDDEN"), "XXXX.");
    EXPECT_EQ(EntriesOf("ColumnResized"), Lines{});
    drag("COL5");
    EXPECT_EQ(Flags(*tables.colsIndex, "COL_HIDDEN"), "XXXX.");
    EXPECT_EQ(tables.colsIndex->Value(5, "COL_WIDTH"), Variant(std::int16_t{8}));
    context.grid.control.PressRowBorder(*context.grid.control.FindRow("ROW3"), false);
    context.grid.control.DragBorder(3);
    context.grid.control.ReleaseBorder();
    EXPECT_EQ(Flags(*tables.lineIndex, "ROW_HIDDEN"), "..X..");
}

TEST_F(SelectionTest, SelectingByKeyTakesAllColumnsOfTheBlock) {
    GridControl& grid = context.grid.control;
    grid.SelectCell(grid.FindCell({"COL4", "ROW3"}).value(), SelectionMode::Replace);
    grid.SelectCell(grid.FindCell({"COL2", "ROW2"}).value(), SelectionMode::Extend);
    context.runner.Run(Command::SelectColumn);
    EXPECT_EQ(Marked(), ".XXX.");
    context.runner.Run(Command::SelectRow);
    EXPECT_EQ(Flags(*tables.lineIndex, "ROW_MARKED"), "..X..");
}

TEST_F(SelectionTest, ResetReachesEveryColumnWhateverIsSelected) {
    context.runner.Run(Command::ResetWidths);
    EXPECT_EQ(Widths(), "80 80 80 80 80 ");
    EXPECT_EQ(tables.colsIndex->Value(5, "COL_WIDTH"), Variant(std::int16_t{80}));
    context.runner.Run(Command::ResetHeights);
    EXPECT_EQ(tables.lineIndex->Value(1, "ROW_HEIGHT"), Variant(std::int16_t{22}));
    EXPECT_EQ(EntriesOf("RowHeightReset").back(), "GRIDCTL | {rid: ROW5 - height: 22} | RowHeightReset | ");
}

TEST_F(SelectionTest, AResizeReachesTheMarkedColumns) {
    context.grid.sizeEvents.ColumnResized("COL1", 90);
    EXPECT_EQ(tables.colsIndex->Value(1, "COL_WIDTH"), Variant(std::int16_t{90}));
    EXPECT_EQ(tables.colsIndex->Value(2, "COL_WIDTH"), Variant(70));
    EXPECT_TRUE(SelectAllColumns(context.shared.tables.COLS_INDEX, context.grid.driver));
    tables.colsIndex->SetValue(4, "COL_MARKED", "");
    context.grid.sizeEvents.ColumnResized("COL2", 55);
    EXPECT_EQ(Widths(), "55 70 55 70 55 ") << "the resized one itself has its size from the user's drag";
    EXPECT_EQ(tables.colsIndex->Value(2, "COL_WIDTH"), Variant(std::int16_t{55}));
    context.grid.sizeEvents.ColumnResized("ROW2", 33);
    EXPECT_EQ(tables.lineIndex->Value(2, "ROW_HEIGHT"), Variant(24)) << "no column key";
    context.grid.sizeEvents.SwitchedRowResized("ROW2", 33);
    EXPECT_EQ(tables.lineIndex->Value(2, "ROW_WIDTH"), Variant(std::int16_t{33}));
}

TEST_F(SelectionTest, TheUsersSelectionIsMirroredIntoBothTables) {
    tables.colsIndex->SetValue(5, "COL_MARKED", "X");
    context.grid.control.SelectColumn(*context.grid.control.FindColumn("COL2"), SelectionMode::Replace);
    context.grid.control.SelectColumn(*context.grid.control.FindColumn("COL3"), SelectionMode::Extend);
    EXPECT_EQ(Marked(), ".XX..");
    context.grid.control.SelectRow(*context.grid.control.FindRow("ROW4"), SelectionMode::Add);
    EXPECT_EQ(Flags(*tables.lineIndex, "ROW_MARKED"), "...X.");
    EXPECT_EQ(Marked(), ".XX..");
}

/// Only a line's heading chooses it for the comparison; its cells are there to be edited.
TEST_F(SelectionTest, AClickOnARowHeadingChoosesTheForecastLine) {
    const auto chosen = [&] {
        std::string flags;
        for (std::int32_t row = 1; row <= 3; ++row) {
            flags += tables.lineIndex->Value(row, "SHOW_CHART").AsText() + ".";
        }
        return flags;
    };
    const auto click = [&](CellKeyView keys) {
        context.grid.control.ReportSimpleClick(*context.grid.control.FindCell(keys));
    };
    for (std::int32_t row = 1; row <= 3; ++row) {
        tables.lineIndex->SetValue(row, "SHOW_CHART", "");
    }
    click({"FLC0", "ROW1"});
    EXPECT_EQ(chosen(), "...") << "not in the forecast view";
    context.chart.commands.ForecastView();
    click({"COL1", "ROW1"});
    click({"COL1", "FTR0"});
    EXPECT_EQ(chosen(), "...");
    click({"FLC0", "ROW1"});
    click({"FLC0", "ROW3"});
    EXPECT_EQ(chosen(), "S..F.");
}

TEST_F(SelectionTest, AFailureEndsTheWalkWithItsKey) {
    ExpectErrors();
    EXPECT_FALSE(SelectAllColumns(HostTable(), context.grid.driver));
    EXPECT_EQ(Entries(IsError), Lines{"GRIDCTL | {cid: } | SelectAllColumns | ERROR"});
}

}  // namespace planview
