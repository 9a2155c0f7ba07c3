// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/AxisLayout.h"
#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "grid/HostUpdate.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

namespace {

class BuildFlow : public test::TracedTest {};

}  // namespace

/// One number on its way from a row of TAB to the place where it is painted; docs/flows/build-from-tables.md tells the
/// same story.
TEST_F(BuildFlow, FromATableRowToAPaintedCell) {
    test::Tables tables;
    tables.AddColumn(1, "Jan 08", {{"COL_WIDTH", 70}});
    tables.AddColumn(2, "Feb 08", {{"COL_WIDTH", 76}});
    tables.AddColumn(3, "Mar 08", {{"COL_WIDTH", 76}});
    tables.AddLine(1, "Construction", {{"ROW_HEIGHT", 24}});
    tables.AddLine(2, "Retail trade", {{"ROW_HEIGHT", 24}, {"ROW_FORMAT", "#,##0.0"}});
    tables.AddValue(2, 3, "15284.7");
    tables.gridAttr->SetValue(1, "LABELCOL_WIDTH", 185);

    PlanView control(platform.Interfaces());
    tables.GiveTo(control);
    control.DP_Import_Attribute();
    control.DP_Import_Create();

    // The loaders gave the column and the row their keys and wrote them back to the host.
    EXPECT_EQ(tables.colsIndex->Value(3, "GRID_ID"), Variant("COL3"));
    EXPECT_EQ(tables.lineIndex->Value(2, "GRID_ID"), Variant("ROW2"));
    EXPECT_EQ(EntriesOf("Contents").back(),
              "GRIDCTL |  | Contents | {cid: COL3 - rid: ROW2 - contents:15284,7 - redraw:False}");

    // The grid keeps the number in the control's form and shows it by the row's format.
    const GridControl& grid = ControlParts(control).Grid();
    const std::optional<Cell> cell = grid.FindCell({"COL3", "ROW2"});
    ASSERT_TRUE(cell);
    EXPECT_EQ(grid.Contents(*cell), "15284,7");
    EXPECT_EQ(grid.DisplayText(*cell), "15.284,7");

    // The layout tells the painter where: behind the two columns before it, below the row above it.
    AxisLayout horizontal;
    horizontal.Update(grid, AxisLayout::Axis::Horizontal, grid.Settings().labelColumnWidth);
    AxisLayout vertical;
    vertical.Update(grid, AxisLayout::Axis::Vertical, grid.Settings().labelColumnWidth);
    EXPECT_EQ(horizontal.Extent(AxisLayout::Area::Leading), 185);
    const int column = horizontal.IndexOf(AxisLayout::Area::Center, cell->column.value);
    const int row = vertical.IndexOf(AxisLayout::Area::Center, cell->row.value);
    ASSERT_EQ(column, 2);
    ASSERT_EQ(row, 1);
    EXPECT_EQ(horizontal.Items(AxisLayout::Area::Center)[2].start, 70 + 76);
    EXPECT_EQ(vertical.Items(AxisLayout::Area::Center)[1].start, 24);
}

TEST_F(BuildFlow, TheHostHearsOfTheScrollPositionBeforeItsEvents) {
    test::Tables tables;
    for (int i = 1; i <= 9; ++i) {
        tables.AddColumn(i * 10, "p");
        tables.AddLine(i, "line");
    }
    PlanView control(platform.Interfaces());
    tables.GiveTo(control);
    control.DP_Import_Create();
    GridControl& grid = ControlParts(control).Grid();
    grid.ScrollToColumn(*grid.FindColumn("COL30"));
    grid.ScrollToRow(*grid.FindRow("ROW4"));

    EventSource events([](std::string_view, std::string_view) {});
    struct Host : PlanViewEvents {
        explicit Host(const test::Tables& t) : tables(t) {}
        const test::Tables& tables;
        std::string seen;
        void GridStartUpdate() override { Note("update "); }
        void GridReturnKeyPressed() override { Note("return "); }
        void Note(const char* event) {
            seen += event + tables.gridAttr->Value(1, "FIRST_COL").AsText() + "/" +
                    tables.gridAttr->Value(1, "FIRST_ROW").AsText() + " ";
        }
    } host(tables);
    events.AddSink(host);
    TableSlots slots;
    slots.GRID_ATTR = HostTable(tables.gridAttr);
    HostUpdate update(grid, slots, events);
    ForgetEntries();
    update.StartUpdate();
    grid.ScrollToColumn(*grid.FindColumn("COL50"));
    update.ReturnKeyPressed();
    EXPECT_EQ(host.seen, "update 30/4 return 50/4 ");
    EXPECT_EQ(Entries(),
              (test::Lines{"GRIDCTL |  | Update Q/7 tables fired | {}", "GRIDCTL |  | Update Q/7 tables fired | {}"}));
    slots.GRID_ATTR = HostTable();
    update.StartUpdate();
    EXPECT_EQ(host.seen, "update 30/4 return 50/4 update 50/4 ") << "without the table the event comes all the same";
}

}  // namespace planview
