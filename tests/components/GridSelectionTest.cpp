// SPDX-License-Identifier: MIT
#include <algorithm>

#include "support/GridText.h"

namespace planview {
namespace {

using Mode = SelectionMode;

class GridSelectionTest : public GridTest {
protected:
    void SetUp() override {
        CreateSmallGrid();
        grid_.SetEvents(&log_);
    }

    GridStatus Select(CellKeyView keys, Mode mode = Mode::Replace) { return grid_.SelectCell(At(keys), mode); }

    /// The selected cells of the planning area, row by row: "x" selected, "." not.
    std::string Pattern() {
        std::string pattern;
        for (const RowId row : grid_.Rows(RowArea::Center)) {
            for (const ColumnId column : grid_.Columns(ColumnArea::Center)) {
                const CellKey keys = grid_.KeyOf({column, row});
                pattern += grid_.IsSelected(keys) ? 'x' : '.';
            }
            pattern += ' ';
        }
        pattern.pop_back();
        return pattern;
    }

    /// The keys of all whole columns and rows that are selected.
    std::string Whole() {
        std::string keys;
        for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
            for (const ColumnId id : grid_.Columns(area)) {
                const std::string& key = grid_.Column(id).key;
                keys += grid_.IsSelected({key, {}}) ? key + " " : "";
            }
        }
        for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
            for (const RowId id : grid_.Rows(area)) {
                const std::string& key = grid_.Row(id).key;
                keys += grid_.IsSelected({{}, key}) ? key + " " : "";
            }
        }
        return keys;
    }

    ReportLog log_;
};

TEST_F(GridSelectionTest, CellsAloneExtendedAndBesides) {
    EXPECT_EQ(Select({"COL1", "ROW1"}), GridStatus::Ok);
    EXPECT_EQ(Pattern(), "x.. ... ...");
    Select({"COL2", "ROW2"}, Mode::Extend);
    EXPECT_EQ(Pattern(), "xx. xx. ...");
    Select({"COL1", "ROW3"}, Mode::Extend);
    EXPECT_EQ(Pattern(), "x.. x.. x..") << "from the same anchor";
    Select({"COL3", "ROW1"}, Mode::Add);
    EXPECT_EQ(Pattern(), "x.x x.. x..");
    Select({"COL2", "ROW2"}, Mode::Extend);
    EXPECT_EQ(Pattern(), "xxx xxx x..") << "the first block stays";
    Select({"COL2", "ROW2"}, Mode::Add);
    EXPECT_EQ(Pattern(), "xxx x.x x..") << "taken out again";
    Select({"COL3", "ROW3"}, Mode::Extend);
    EXPECT_EQ(Pattern(), "xxx xxx xxx") << "and extended from there";
    EXPECT_EQ(grid_.KeyOf(*grid_.CurrentCell()), (CellKey{"COL2", "ROW2"})) << "where it began";
    EXPECT_EQ(grid_.KeyOf(*grid_.SelectionEnd()), (CellKey{"COL3", "ROW3"}));
    Select({"COL1", "ROW1"});
    Select({"COL3", "ROW3"}, Mode::Add);
    Select({"COL1", "ROW1"}, Mode::Add);
    EXPECT_EQ(Pattern(), "... ... ..x");
    Select({"COL1", "ROW2"}, Mode::Extend);
    EXPECT_EQ(Pattern(), "x.. x.. ..x") << "another cell's block is not the anchor's";
    Select({"COL2", "ROW1"});
    EXPECT_EQ(Pattern(), ".x. ... ...");
    Select({"FRC1", "FBR1"}, Mode::Extend);
    EXPECT_EQ(Pattern(), ".xx .xx .xx") << "across the areas";
    EXPECT_TRUE(grid_.IsSelected({"FRC1", "FBR1"}));
    EXPECT_FALSE(grid_.IsSelected({"FLC1", "ROW1"}));
    grid_.ClearSelection();
    EXPECT_EQ(Pattern(), "... ... ...");
    EXPECT_EQ(grid_.KeyOf(*grid_.CurrentCell()), (CellKey{"COL2", "ROW1"}));
    EXPECT_EQ(grid_.SelectionEnd(), grid_.CurrentCell()) << "the next extension begins anew";
}

TEST_F(GridSelectionTest, WholeColumnsAndRows) {
    EXPECT_EQ(grid_.SelectColumn(ColumnAt("COL1"), Mode::Replace), GridStatus::Ok);
    EXPECT_EQ(Whole(), "COL1 ");
    EXPECT_EQ(Pattern(), "x.. x.. x..");
    grid_.SelectColumn(ColumnAt("FRC1"), Mode::Extend);
    EXPECT_EQ(Whole(), "COL1 COL2 COL3 FRC1 ");
    grid_.SelectColumn(ColumnAt("COL2"), Mode::Extend);
    EXPECT_EQ(Whole(), "COL1 COL2 ");
    grid_.SelectRow(RowAt("ROW2"), Mode::Add);
    EXPECT_EQ(Whole(), "COL1 COL2 ROW2 ");
    grid_.SelectColumn(ColumnAt("COL1"), Mode::Add);
    EXPECT_EQ(Whole(), "COL2 ROW2 ");
    Select({"COL2", "ROW2"}, Mode::Add);
    EXPECT_EQ(Pattern(), ".x. x.x .x.") << "one cell out of a whole column and row";
    EXPECT_EQ(Whole(), "");
    grid_.SelectRow(RowAt("ROW3"), Mode::Extend);
    EXPECT_EQ(Whole(), "ROW2 ROW3 ") << "from the cell's row";
    grid_.SelectAll();
    EXPECT_EQ(Whole(), "FLC1 COL1 COL2 COL3 FRC1 FTR1 ROW1 ROW2 ROW3 FBR1 ");
    Select({"COL1", "ROW1"}, Mode::Extend);
    EXPECT_EQ(Whole(), "");
}

TEST_F(GridSelectionTest, WholeColumnsAreExtendedFromTheCurrentCell) {
    Select({"COL1", "ROW2"});
    grid_.SelectColumn(ColumnAt("COL3"), Mode::Replace);
    grid_.SelectColumn(ColumnAt("COL1"), Mode::Extend);
    EXPECT_EQ(grid_.KeyOf(*grid_.CurrentCell()), (CellKey{"COL3", "ROW2"}));
    EXPECT_EQ(grid_.KeyOf(*grid_.SelectionEnd()), (CellKey{"COL1", "ROW2"}));
    SetColumn("COL1", GridAttribute::Hidden, true);
    EXPECT_EQ(grid_.KeyOf(*grid_.SelectionEnd()), (CellKey{"COL2", "ROW2"})) << "keys never go on from a hidden one";
    grid_.DeleteSelection({LabelColumnKey, HeadingRowKey}, false);
    EXPECT_EQ(grid_.SelectionEnd(), grid_.CurrentCell());
}

TEST_F(GridSelectionTest, HiddenOnesBesideAreNamedToTheListener) {
    const struct {
        std::vector<const char*> hidden;
        const char* beside;
        HiddenSide side;
        const char* named;
    } cases[] = {{{"COL2"}, "COL3", HiddenSide::Before, "ShowHiddenColumns COL2"},
                 {{"COL1", "COL2"}, "COL3", HiddenSide::Before, "ShowHiddenColumns COL1 COL2"},
                 {{"COL1", "COL3"}, "COL2", HiddenSide::Behind, "ShowHiddenColumns COL3"},
                 {{"COL1", "COL2", "COL3"}, "FLC1", HiddenSide::Behind, "ShowHiddenColumns COL1 COL2 COL3"},
                 {{}, "COL2", HiddenSide::Behind, ""}};
    for (const auto& row : cases) {
        for (const char* key : {"COL1", "COL2", "COL3"}) {
            const bool hides = std::count_if(row.hidden.begin(), row.hidden.end(),
                                             [&](std::string_view hidden) { return hidden == key; }) > 0;
            SetColumn(key, GridAttribute::Hidden, hides);
        }
        log_.actions.clear();
        const GridStatus status = grid_.ReportShowHidden(ColumnAt(row.beside), row.side);
        EXPECT_EQ(status == GridStatus::Ok, *row.named != 0) << row.beside;
        EXPECT_EQ(log_.actions.empty() ? "" : log_.actions.back(), row.named);
    }
}

TEST_F(GridSelectionTest, HeadingsThatCannotBeSelectedAreSkipped) {
    grid_.SelectRow(RowAt("ROW2"), Mode::Replace);
    SetRow("ROW2", GridAttribute::Selectable, "");
    EXPECT_EQ(Whole(), "") << "not any longer";
    EXPECT_EQ(grid_.SelectRow(RowAt("ROW2"), Mode::Replace), GridStatus::NoItemAtLocation);
    EXPECT_EQ(grid_.SetSelection({"", "ROW2"}, false), GridStatus::NoItemAtLocation);
    grid_.SelectRow(RowAt("ROW1"), Mode::Replace);
    grid_.SelectRow(RowAt("ROW3"), Mode::Extend);
    EXPECT_EQ(Whole(), "ROW1 ROW3 ");
    SetColumn("COL2", GridAttribute::Hidden, true);
    EXPECT_EQ(grid_.SelectColumn(ColumnAt("COL2"), Mode::Replace), GridStatus::NoItemAtLocation);
    EXPECT_EQ(Select({"COL2", "ROW1"}), GridStatus::NoItemAtLocation);
    grid_.SelectColumn(ColumnAt("COL1"), Mode::Replace);
    grid_.SelectColumn(ColumnAt("COL3"), Mode::Extend);
    EXPECT_EQ(Whole(), "COL1 COL2 COL3 ") << "a hidden one between them, so that it can be shown";

    struct Row {
        CellKeyView keys;
        int kind;
    };
    for (const Row& row : {Row{{"COL1", ""}, 19},
                           {{"COL2", "FTR0"}, 19},
                           {{"FRC1", ""}, 19},
                           {{"FLC0", "ROW1"}, 20},
                           {{"", "FBR1"}, 20},
                           {{"", "ROW2"}, 0},
                           {{"FLC0", "FTR0"}, 0},
                           {{"FLC0", ""}, 0},
                           {{"COL1", "ROW1"}, 0},
                           {{"COL9", ""}, 0},
                           {{"", ""}, 0}}) {
        EXPECT_EQ(grid_.HeadingKind(row.keys), row.kind) << row.keys.column << "/" << row.keys.row;
    }
}

TEST_F(GridSelectionTest, ByKeyWithoutEvents) {
    SetColumn("COL2", GridAttribute::Hidden, true);
    EXPECT_EQ(grid_.SetSelection({"COL2", "FTR0"}, false), GridStatus::Ok) << "hidden, so that it can be shown";
    EXPECT_EQ(grid_.SetSelection({"FLC0", "ROW3"}, false), GridStatus::Ok);
    EXPECT_EQ(grid_.SetSelection({"COL1", "ROW1"}, false), GridStatus::Ok);
    EXPECT_EQ(grid_.SetSelection({"COL1", "ROW1"}, false), GridStatus::Ok);
    EXPECT_EQ(Whole(), "COL2 ROW3 ");
    EXPECT_EQ(Pattern(), "xx. .x. xxx");
    EXPECT_EQ(grid_.Selection().Ranges().size(), 1U);
    EXPECT_EQ(grid_.DeleteSelection({"COL2", "ROW3"}, false), GridStatus::Ok);
    EXPECT_EQ(Pattern(), "xx. .x. x.x");
    EXPECT_EQ(grid_.DeleteSelection({"COL3", "ROW1"}, false), GridStatus::Ok) << "was not selected";
    EXPECT_EQ(grid_.DeleteSelection({"FLC0", "FTR0"}, false), GridStatus::Ok);
    EXPECT_TRUE(grid_.Selection().IsEmpty());
    EXPECT_TRUE(log_.events.empty());
}

TEST_F(GridSelectionTest, BlocksStayOnTheirCells) {
    Select({"COL2", "ROW2"});
    Select({"COL3", "ROW3"}, Mode::Extend);
    EXPECT_EQ(grid_.CreateColumn("COL4", 1, false), GridStatus::Ok);
    EXPECT_EQ(grid_.CreateRow("ROW4", 3, false), GridStatus::Ok);
    EXPECT_EQ(Pattern(), ".... ..xx ..xx ..xx") << "a new row inside joins, a new column before does not";
    EXPECT_EQ(grid_.CreateRow("FTR9", 0, false), GridStatus::Ok);
    EXPECT_EQ(grid_.CreateColumn("FRC9", 0, false), GridStatus::Ok);
    EXPECT_EQ(Pattern(), ".... ..xx ..xx ..xx");
    grid_.SelectColumn(ColumnAt("COL1"), Mode::Add);
    EXPECT_EQ(grid_.MoveColumn("COL1", 4, false), GridStatus::Ok);
    EXPECT_EQ(Pattern(), "...x ...x ...x ...x") << "whole columns move along, blocks end";
    Select({"COL2", "ROW2"}, Mode::Extend);
    EXPECT_EQ(Whole(), "");
}

TEST_F(GridSelectionTest, TheUserIsHeardOncePerChange) {
    Select({"COL1", "ROW1"});
    Select({"COL1", "ROW1"});
    Select({"COL2", "ROW1"}, Mode::Extend);
    Select({"COL2", "ROW1"}, Mode::Extend);
    Select({"COL1", "ROW1"}, Mode::Add);
    grid_.SelectColumn(ColumnAt("COL3"), Mode::Replace);
    grid_.SelectRow(RowAt("ROW2"), Mode::Add);
    grid_.SelectRow(RowAt("ROW2"), Mode::Add);
    grid_.SelectAll();
    grid_.SelectAll();
    grid_.ClearSelection();
    grid_.ClearSelection();
    EXPECT_EQ(log_.events, (std::vector<std::string>{"SelectionChanged COL1/ROW1 1", "SelectionChanged COL2/ROW1 1",
                                                     "SelectionChanged COL1/ROW1 0", "SelectionChanged COL3/FTR0 1",
                                                     "SelectionChanged FLC0/ROW2 1", "SelectionChanged FLC0/ROW2 0",
                                                     "SelectionChanged FLC0/FTR0 1", "SelectionChanged FLC0/FTR0 0"}));
}

TEST_F(GridSelectionTest, HeadingsStandOutForBlocks) {
    Select({"COL2", "ROW2"});
    const GridSelection& selection = grid_.Selection();
    EXPECT_TRUE(selection.TouchesColumn(ColumnAt("COL2"), grid_.OrderOf(ColumnAt("COL2"))));
    EXPECT_FALSE(selection.TouchesColumn(ColumnAt("COL3"), grid_.OrderOf(ColumnAt("COL3"))));
    EXPECT_TRUE(selection.TouchesRow(RowAt("ROW2"), grid_.OrderOf(RowAt("ROW2"))));
    EXPECT_FALSE(selection.HasWholeColumns() || selection.HasWholeRows());
}

/// Builds the grid anew when it hears of a selection.
class RebuildingListener : public ReportLog {
public:
    explicit RebuildingListener(GridControl& grid) : grid_(grid) {}
    void SelectionChanged(const CellKey& cell, bool selected) override {
        EXPECT_EQ(grid_.Destroy(true), GridStatus::Ok);
        EXPECT_EQ(grid_.CreateLabelled(true), GridStatus::Ok);
        ReportLog::SelectionChanged(cell, selected);  // the keys outlive their grid
    }

private:
    GridControl& grid_;
};

TEST_F(GridSelectionTest, TheListenerMayBuildTheGridAnew) {
    RebuildingListener listener(grid_);
    grid_.SetEvents(&listener);
    EXPECT_EQ(Select({"COL1", "ROW1"}), GridStatus::Ok);
    EXPECT_EQ(listener.events, (std::vector<std::string>{"SelectionChanged COL1/ROW1 1"}));
    EXPECT_FALSE(grid_.FindColumn("COL1"));
}

}  // namespace
}  // namespace planview
