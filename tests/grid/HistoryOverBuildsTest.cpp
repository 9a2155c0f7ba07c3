// SPDX-License-Identifier: MIT
#include "grid/ValueEntryFixture.h"

// What of the undo history outlives a build.

namespace planview {

namespace {

class HistoryOverBuildsTest : public test::ValueEntryTest {
protected:
    [[nodiscard]] std::string First() { return Grid().Contents(At("COL1", "ROW1")); }
    void UndoAll() {
        while (control->Editing().CanUndo()) {
            control->Editing().Undo();
        }
    }
};

}  // namespace

TEST_F(HistoryOverBuildsTest, ItGoesOnInBothDirections) {
    Type("COL1", "ROW1", "11");
    Type("COL1", "ROW1", "12");
    control->Editing().Undo();
    control->DP_Import_Update();
    EXPECT_EQ(First(), "11");
    control->Editing().Redo();
    EXPECT_EQ(First(), "12");
    control->DP_Import_Update();
    UndoAll();
    EXPECT_EQ(First(), "10");
    EXPECT_EQ(tables.tab->Value(1, "V"), Variant(10));
    control->Editing().Redo();
    control->Editing().Redo();
    EXPECT_EQ(First(), "12");
}

TEST_F(HistoryOverBuildsTest, WhatIsGoneDropsOutAndTheRestStays) {
    const ValueChange block[] = {{{"COL1", "ROW1"}, 1}, {{"COL2", "ROW1"}, 2}, {{"COL1", "ROW2"}, 3}};
    Type("COL2", "ROW2", "7");
    control->Editing().ChangeValues(block, "block");
    Type("COL2", "ROW1", "8");
    tables.colsIndex->RemoveRow(2);
    ExpectErrors();  // values of a column that is not there
    control->DP_Import_Update();
    EXPECT_EQ(First(), "1");
    control->Editing().Undo();
    EXPECT_EQ(First(), "10") << "the last step had nothing left";
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW2")), "30");
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=8 2,1=30 2,2=7") << "what is gone is left alone";
    EXPECT_FALSE(control->Editing().CanUndo());
    control->Editing().Redo();
    EXPECT_EQ(First(), "1");
    EXPECT_FALSE(control->Editing().CanRedo());
}

TEST_F(HistoryOverBuildsTest, AKeyThatStandsForSomethingElseIsNoLongerThere) {
    Type("COL1", "ROW1", "11");
    Type("COL1", "ROW2", "31");
    tables.lineIndex->SetValue(1, "FREET", "Another");
    control->DP_Import_Update();
    UndoAll();
    EXPECT_EQ(First(), "11") << "another line";
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW2")), "30");
}

TEST_F(HistoryOverBuildsTest, EmptyTablesBetweenEndIt) {
    Type("COL1", "ROW1", "11");
    control->PROP_Set_COLS_INDEX(MemoryTable::WithFieldsOf("COLS_INDEX"));
    ExpectErrors();
    control->DP_Import_Update();
    tables.GiveTo(*control);
    control->DP_Import_Update();
    EXPECT_FALSE(control->Editing().CanUndo());
}

TEST_F(HistoryOverBuildsTest, AHostThatBuildsInItsEventsEndsNothing) {
    struct Rebuilding final : PlanViewEvents {
        PlanView* view = nullptr;
        void GridStartUpdate() override { view->DP_Import_Update(); }
    } rebuilding;
    rebuilding.view = control.get();
    control->AddSink(rebuilding);
    const ValueChange block[] = {{{"COL1", "ROW1"}, 1}, {{"COL2", "ROW1"}, 2}};
    control->Editing().ChangeValues(block, "block");
    Grid().SetSelection({"COL2", {}}, true);
    control->View().HideColumns();
    EXPECT_TRUE(Grid().Column(Grid().FindColumn("COL2").value()).hidden);
    control->Editing().Undo();
    EXPECT_FALSE(Grid().Column(Grid().FindColumn("COL2").value()).hidden);
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");
    control->Editing().Redo();
    EXPECT_EQ(Shown(), "[1][2][] | [30][][] | [][][]");
    control->RemoveSink(rebuilding);
}

TEST_F(HistoryOverBuildsTest, AMoveIsUndoneAmongThoseThatAreLeft) {
    const auto order = [&] {
        std::string keys;
        for (const ColumnId column : Grid().Columns(ColumnArea::Center)) {
            keys += Grid().Column(column).key.back();
        }
        return keys;
    };
    tables.AddColumn(4, "P");
    control->DP_Import_Update();
    Grid().MoveColumn("COL4", 1, true);
    Grid().ReportMoved(MovedTracks::Columns, {"COL1", "COL2", "COL3", "COL4"});
    ASSERT_EQ(order(), "4123");
    tables.colsIndex->RemoveRow(2);
    tables.AddColumn(5, "New");
    ExpectErrors();
    control->DP_Import_Update();
    ASSERT_EQ(order(), "1345") << "no field keeps the order";
    control->Editing().Redo();
    control->Editing().Undo();
    EXPECT_EQ(order(), "1345");
    control->Editing().Redo();
    EXPECT_EQ(order(), "4135");
    control->Editing().Undo();
    EXPECT_EQ(order(), "1345");
}

TEST_F(HistoryOverBuildsTest, ARecordingFollowsTheStepsThatAreLeft) {
    control->Recording().Start();
    Type("COL1", "ROW1", "11");
    Type("COL2", "ROW1", "21");
    tables.colsIndex->RemoveRow(2);
    ExpectErrors();
    control->DP_Import_Update();
    ASSERT_EQ(control->Recording().Steps(), 2);
    control->Editing().Undo();
    EXPECT_EQ(First(), "10");
    EXPECT_EQ(control->Recording().Steps(), 1);
    EXPECT_EQ(tables.macroRec->Value(1, "COLUMN"), Variant("COL2")) << "the undone step went, not the other one";
    control->Recording().Stop();
}

}  // namespace planview
