// SPDX-License-Identifier: MIT
#include "support/GridText.h"

namespace planview {
namespace {

class GridTracksTest : public GridTest {
protected:
    void SetUp() override { CreateSmallGrid(); }

    std::string FirstColumnKey() { return grid_.Column(grid_.FirstColumn().value()).key; }
    std::string FirstRowKey() { return grid_.Row(grid_.FirstRow().value()).key; }
    CellKey Current() { return grid_.KeyOf(grid_.CurrentCell().value()); }
};

TEST_F(GridTracksTest, PutsNewOnesInTheirPlaces) {
    EXPECT_EQ(grid_.CreateColumn("COL10", 2, false), GridStatus::Ok);
    EXPECT_EQ(grid_.CreateColumn("FLC5", 1, false), GridStatus::Ok) << "behind the label column all the same";
    EXPECT_EQ(grid_.CreateColumn("FRC123456789", 2, false), GridStatus::Ok);
    EXPECT_EQ(grid_.CreateRow("FTR5", 1, false), GridStatus::Ok);
    EXPECT_EQ(grid_.CreateRow("ROW4", 4, false), GridStatus::Ok);
    SetCell({"COL10", "ROW4"}, GridAttribute::Contents, "4");
    SetCell({"FLC0", "ROW4"}, GridAttribute::Contents, "sum");
    SetCell({"FRC1", "FBR1"}, GridAttribute::Contents, "end");
    EXPECT_EQ(GridText(grid_), R"(     | FLC0 FLC5 FLC1 | COL1 COL10 COL2 COL3 | FRC1 FRC123456789
----------------------------------------------------------------
FTR5 |                |                      |
FTR1 |                |                      |
FTR0 |                |                      |
----------------------------------------------------------------
ROW1 |                | <>                   |
ROW2 |                |                      |
ROW3 |                |                      |
ROW4 | sum            |      4               |
----------------------------------------------------------------
FBR1 |                |                      | end
)");
}

TEST_F(GridTracksTest, AnIdFromBeforeARebuildReadsAsNothing) {
    SetCell({"COL3", "ROW3"}, GridAttribute::Contents, "1");
    const Cell gone = At({"COL3", "ROW3"});
    grid_.SelectCell(gone, SelectionMode::Replace);
    grid_.PressColumnBorder(gone.column, false);
    grid_.Destroy(false);
    grid_.CreateLabelled(false);
    grid_.CreateColumn("COL1", 0, false);
    grid_.CreateRow("ROW1", 0, false);
    EXPECT_EQ(grid_.Column(gone.column).key, "");
    EXPECT_TRUE(grid_.Column(gone.column).hidden);
    EXPECT_TRUE(grid_.Row(gone.row).hidden);
    EXPECT_EQ(grid_.KeyOf(gone), CellKey());
    EXPECT_EQ(grid_.OrderOf(gone.column), -1);
    EXPECT_EQ(grid_.DisplayText(gone), "");
    EXPECT_FALSE(grid_.Selection().HasCell(gone, grid_.OrderOf(gone.column), grid_.OrderOf(gone.row)));
    EXPECT_EQ(Current(), (CellKey{"COL1", "ROW1"}));
    EXPECT_EQ(grid_.SelectCell(gone, SelectionMode::Extend), GridStatus::UnknownColumn);
    EXPECT_EQ(grid_.EnterText(gone, "2"), GridStatus::UnknownColumn);
    EXPECT_EQ(grid_.DragBorder(50), GridStatus::NoRegisterPress);
}

TEST_F(GridTracksTest, MovesWithContentsAndAttributes) {
    SetCell({"COL1", "ROW1"}, GridAttribute::Contents, "a");
    SetCell({"COL2", "ROW1"}, GridAttribute::Contents, "b");
    SetCell({"COL3", "ROW3"}, GridAttribute::Contents, "c");
    EXPECT_EQ(grid_.MoveColumn("COL1", 3, false), GridStatus::Ok);
    EXPECT_EQ(grid_.MoveRow("ROW3", 1, false), GridStatus::Ok);
    EXPECT_EQ(GridText(grid_), R"(     | FLC0 FLC1 | COL2 COL3 COL1 | FRC1
----------------------------------------
FTR1 |           |                |
FTR0 |           |                |
----------------------------------------
ROW3 |           | <>   c         |
ROW1 |           | b         a    |
ROW2 |           |                |
----------------------------------------
FBR1 |           |                |
)");
}

TEST_F(GridTracksTest, TheScrollPositionSkipsHiddenOnes) {
    EXPECT_EQ(FirstColumnKey(), "COL1");
    EXPECT_EQ(grid_.SetFirstColumn("COL2", false), GridStatus::Ok);
    SetColumn("COL2", GridAttribute::Hidden, "X");
    EXPECT_EQ(FirstColumnKey(), "COL3");
    SetColumn("COL3", GridAttribute::Hidden, true);
    EXPECT_EQ(FirstColumnKey(), "COL1") << "none behind it";
    SetColumn("COL1", GridAttribute::Hidden, true);
    EXPECT_FALSE(grid_.FirstColumn());
    EXPECT_FALSE(grid_.CurrentCell());
    SetColumn("COL2", GridAttribute::Hidden, "");
    EXPECT_EQ(FirstColumnKey(), "COL2");
    EXPECT_EQ(Current(), (CellKey{"COL2", "ROW1"}));

    EXPECT_EQ(grid_.ScrollToRow(RowAt("ROW2")), GridStatus::Ok);
    EXPECT_EQ(grid_.MoveRow("ROW1", 3, false), GridStatus::Ok);
    EXPECT_EQ(FirstRowKey(), "ROW2") << "stays on screen";
    EXPECT_EQ(grid_.MoveRow("ROW2", 3, false), GridStatus::Ok);
    EXPECT_EQ(FirstRowKey(), "ROW3") << "the one that stands there now";
    EXPECT_EQ(grid_.ScrollToRow(RowAt("FBR1")), GridStatus::NoItemAtLocation);
    EXPECT_EQ(grid_.ScrollToRow(RowId{99}), GridStatus::UnknownRow);
}

TEST_F(GridTracksTest, TheCurrentCellIsNeverHidden) {
    EXPECT_EQ(Current(), (CellKey{"COL1", "ROW1"}));
    grid_.SelectCell(At({"COL2", "ROW3"}), SelectionMode::Replace);
    SetColumn("COL2", GridAttribute::Hidden, true);
    EXPECT_EQ(Current(), (CellKey{"COL3", "ROW3"}));
    SetColumn("COL2", GridAttribute::Hidden, false);
    EXPECT_EQ(Current(), (CellKey{"COL3", "ROW3"})) << "does not jump back";
    SetRow("ROW3", GridAttribute::Hidden, true);
    EXPECT_EQ(Current(), (CellKey{"COL3", "ROW2"}));
    grid_.SelectCell(At({"FRC1", "FBR1"}), SelectionMode::Replace);
    EXPECT_EQ(Current(), (CellKey{"FRC1", "FBR1"}));
    SetColumn("FRC1", GridAttribute::Hidden, true);
    EXPECT_EQ(Current(), (CellKey{"COL1", "FBR1"}));
}

TEST_F(GridTracksTest, FindsAmongManyKeys) {
    constexpr int Count = 5000;
    for (int i = 10; i < Count; ++i) {
        ASSERT_EQ(grid_.CreateRow("ROW" + std::to_string(i), i % 3 == 0 ? 1 : 0, false), GridStatus::Ok);
    }
    for (int i = Count - 1; i >= 10; i -= 7) {
        const std::string key = "ROW" + std::to_string(i);
        ASSERT_TRUE(grid_.FindRow(key)) << key;
        EXPECT_EQ(grid_.Row(*grid_.FindRow(key)).key, key);
        EXPECT_EQ(grid_.Rows(RowArea::Center)[static_cast<std::size_t>(grid_.OrderOf(RowAt(key)) - 2)], RowAt(key));
    }
    EXPECT_FALSE(grid_.FindRow("ROW010"));
    EXPECT_FALSE(grid_.FindRow("ROW5000"));
    EXPECT_FALSE(grid_.FindRow(""));
}

TEST_F(GridTracksTest, DestroyEndsEverything) {
    SetCell({"COL1", "ROW1"}, GridAttribute::Contents, "old");
    SetCell({"COL1", "ROW1"}, GridAttribute::Tooltip, "old");
    SetCell({"COL1", "ROW1"}, GridAttribute::BackgroundColor, "red");
    SetColumn("COL1", GridAttribute::Hidden, true);
    grid_.SelectAll();
    EXPECT_EQ(grid_.Destroy(false), GridStatus::Ok);
    EXPECT_FALSE(grid_.FindRow("FTR0"));
    EXPECT_FALSE(grid_.CurrentCell());
    CreateSmallGrid();
    const Cell cell = At({"COL1", "ROW1"});
    EXPECT_EQ(grid_.Contents(cell) + grid_.Tooltip(cell), "");
    EXPECT_EQ(grid_.Look(cell).background, -1);
    EXPECT_TRUE(grid_.Selection().IsEmpty());
    EXPECT_FALSE(grid_.Column(cell.column).hidden);
}

}  // namespace
}  // namespace planview
