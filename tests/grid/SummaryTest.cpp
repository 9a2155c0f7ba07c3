// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "grid/CellCaption.h"
#include "grid/PendingCells.h"
#include "grid/SelectionSummary.h"
#include "support/GridText.h"
#include "support/SampleTables.h"

namespace planview {

namespace {

using SelectionSummaryTest = GridTest;
using PendingCellsTest = GridTest;

}  // namespace

TEST_F(SelectionSummaryTest, AddsUpWhatIsSelectedAndVisible) {
    CreateSmallGrid();
    const char* const rows[] = {"ROW1", "ROW2", "ROW3"};
    const char* const values[][3] = {
        {"0,1", "0,2", "text"}, {"1000000000000000", "1", ""}, {"-1000000000000000", "7", "5"}};
    for (std::size_t r = 0; r < 3; ++r) {
        for (std::size_t c = 0; c < 3; ++c) {
            SetCell({"COL" + std::to_string(c + 1), rows[r]}, GridAttribute::Contents, values[r][c]);
        }
    }
    grid_.SelectCell(At({"COL2", "ROW1"}), SelectionMode::Replace);
    EXPECT_EQ(SummaryOfSelection(grid_), (SelectionSummary{1, 1, 0.2}));
    grid_.ClearSelection();
    EXPECT_EQ(SummaryOfSelection(grid_), (SelectionSummary{1, 1, 0.2})) << "the current cell stands in";
    grid_.SelectCell(At({"COL1", "ROW1"}), SelectionMode::Replace);
    grid_.SelectCell(At({"COL3", "ROW1"}), SelectionMode::Extend);
    const SelectionSummary line = SummaryOfSelection(grid_);
    EXPECT_EQ(line.cells, 3);
    EXPECT_EQ(line.numbers, 2) << "a text is no number";
    EXPECT_DOUBLE_EQ(line.Mean().value_or(0), 0.15);
    grid_.SelectColumn(ColumnAt("COL1"), SelectionMode::Replace);
    grid_.SelectColumn(ColumnAt("COL2"), SelectionMode::Add);
    EXPECT_DOUBLE_EQ(SummaryOfSelection(grid_).sum, 8.3) << "small numbers are not lost among large ones";
    SetRow("ROW3", GridAttribute::Hidden, true);
    SetColumn("COL1", GridAttribute::Hidden, true);
    EXPECT_EQ(SummaryOfSelection(grid_), (SelectionSummary{2, 2, 1.2})) << "hidden cells are left out";
    SetRow("ROW1", GridAttribute::TextLine, true);
    EXPECT_EQ(SummaryOfSelection(grid_).numbers, 1) << "a text line carries no numbers";
}

TEST_F(SelectionSummaryTest, AnEmptyGridComesToNothing) {
    EXPECT_EQ(SummaryOfSelection(grid_), SelectionSummary());
    EXPECT_FALSE(SummaryOfSelection(grid_).Mean());
}

TEST_F(SelectionSummaryTest, CellsAreNamedByTheirHeadings) {
    CreateSmallGrid();
    SetCell({LabelColumnKey, "ROW2"}, GridAttribute::Contents, "   Construction ");
    EXPECT_EQ(CellCaption(grid_, At({"COL3", "ROW2"})), "Construction, COL3");
    SetCell({"COL3", HeadingRowKey}, GridAttribute::Contents, "May 08");
    EXPECT_EQ(CellCaption(grid_, At({"COL3", "ROW2"}), " \u00B7 "), "Construction \u00B7 May 08");
    EXPECT_EQ(CellCaption(grid_, CellKey{"COL3", "ROW2"}), "Construction, May 08");
    EXPECT_EQ(CellCaption(grid_, CellKey{"COL99", "ROW2"}), "ROW2, COL99") << "the grid has no such cell any more";
}

TEST_F(PendingCellsTest, AreThoseThatShowAnotherValueThanTheyHad) {
    CreateSmallGrid();
    SetCell({"COL1", "ROW1"}, GridAttribute::Contents, "12,5");
    SetCell({"COL2", "ROW1"}, GridAttribute::Contents, "7");
    SetCell({"COL3", "ROW3"}, GridAttribute::Contents, "3");
    const test::Tables tables;
    const auto pending = [&] {
        std::string text;
        for (const Cell cell : PendingCells(grid_, HostTable(tables.tabOld))) {
            text += grid_.KeyOf(cell).column + "/" + grid_.KeyOf(cell).row + " ";
        }
        return text;
    };
    EXPECT_EQ(pending(), "");
    const struct {
        int z, c;
        Variant value;
    } rows[] = {
        {1, 1, "12.50"},    // the same number
        {1, 2, 6},          // changed
        {1, 2, 7},          // a second row of the same cell
        {2, 2, Variant()},  // nothing then, nothing now
        {3, 3, Variant()},  // a value where none was
        {9, 9, 1},          // a cell that the grid does not have
        {2, 0, 4},          // a fixed cell
    };
    for (const auto& row : rows) {
        tables.tabOld->AddRow({row.z, row.c, row.value});
    }
    EXPECT_EQ(pending(), "COL2/ROW1 COL3/ROW3 ");
    EXPECT_TRUE(PendingCells(grid_, HostTable()).empty());
}

}  // namespace planview
