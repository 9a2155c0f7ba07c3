// SPDX-License-Identifier: MIT
#include "grid/CellRules.h"
#include "grid/ValueEntryFixture.h"
#include "support/StubbornTable.h"

namespace planview {

using test::AddRow;
using test::Lines;

namespace {

/// What goes wrong while values are entered, and what the user could lose by it.
class ValueEntryFaultsTest : public test::ValueEntryTest {
protected:
    /// Gives the fixed cells of the first two lines texts of their own.
    void NameUnits() {
        for (const auto& [line, unit] : {std::pair(1, "tons"), std::pair(2, "kilos")}) {
            AddRow(*tables.fixedTab,
                   {{"COLUMN", 1}, {"FLG_COL_FIX", "R"}, {"LINE", line}, {"VALUE", unit}, {"FGCOLOR", 1}});
        }
        control->DP_Import_Update();
    }
    void AnnounceEach() {
        tables.gridAttr->SetValue(1, "SINGLEVALUE", "X");
        control->DP_Import_Attribute();
    }
    void Paste(const char* text, const char* html = "") {
        platform.onClipboard = {text, html};
        control->Editing().Paste();
    }
    void Current(const char* column, const char* row) { Grid().SelectCell(At(column, row), SelectionMode::Replace); }
    [[nodiscard]] std::string LastMessage() const {
        return platform.messages.empty() ? std::string() : platform.messages.back().text;
    }
    [[nodiscard]] bool Told(const char* part) const { return LastMessage().find(part) != std::string::npos; }

    static void FillUp(MemoryTable& table) {
        while (table.RowCount() < 32767) {
            table.AddRow({Variant(30000), Variant(30000)});
        }
    }
};

}  // namespace

// --- Tables that fail

TEST_F(ValueEntryFaultsTest, WhatFitsIntoAFullTableIsKeptAnnouncedAndUndone) {
    ExpectErrors();
    FillUp(*tables.tab);
    for (const bool each : {false, true}) {
        if (each) {
            AnnounceEach();
        }
        host.heard.clear();
        Current("COL1", "ROW1");
        Paste("1\t2\t3\n4\t5\t6");  // three of the cells have rows
        EXPECT_EQ(Shown(), "[1][2][] | [4][][] | [][][]");
        EXPECT_EQ(tables.tab->RowCount(), 32767);
        EXPECT_EQ(tables.tab->Value(3, "V"), Variant("4"));
        EXPECT_EQ(host.heard.size(), each ? 6U : 1U);
        EXPECT_TRUE(Told("3 values could not be stored")) << LastMessage();
        EXPECT_TRUE(Told("32,767 rows")) << LastMessage();
        EXPECT_FALSE(Told("What a cell held before")) << "every old value was kept: " << LastMessage();
        EXPECT_EQ(platform.messages.size(), 1U) << "told once";
        EXPECT_EQ(Entries(IsError).size(), 1U);
        control->Editing().Undo();
        EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");
        EXPECT_EQ(tables.tab->Value(3, "V"), Variant(30));
        EXPECT_FALSE(control->Editing().CanUndo());
        platform.messages.clear();
        ForgetEntries();
    }
}

TEST_F(ValueEntryFaultsTest, OneValueThatDoesNotFitIsToldOnce) {
    ExpectErrors();
    FillUp(*tables.tab);
    Type("COL3", "ROW1", "7");
    EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");
    EXPECT_EQ(platform.messages.size(), 1U);
    EXPECT_TRUE(Told("32,767 rows")) << LastMessage();
    Type("COL1", "ROW1", "7");
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW1")), "7") << "the table can still be read";
}

TEST_F(ValueEntryFaultsTest, WithoutTabOldTheValueIsStoredAndCanBeUndone) {
    ExpectErrors();
    control->PROP_Set_TAB_OLD(nullptr);
    Type("COL1", "ROW1", "7");
    EXPECT_EQ(tables.tab->Value(1, "V"), Variant("7"));
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW1")), "7") << "the grid shows what TAB holds";
    EXPECT_TRUE(Told("the new value is stored")) << LastMessage();
    EXPECT_FALSE(Told("could not be stored"));
    control->Editing().Undo();
    EXPECT_EQ(tables.tab->Value(1, "V"), Variant(10));
}

TEST_F(ValueEntryFaultsTest, AnUndoThatFailsInPartCanBeGoneOnWith) {
    /// Lets no value be put into one of its rows.
    ExpectErrors();
    const auto tab = std::make_shared<test::StubbornTable>(tables.tab);
    control->PROP_Set_TAB(tab);
    Current("COL1", "ROW1");
    Paste("1\t2\n3");
    tab->row = 2;
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[10][2][] | [30][][] | [][][]");
    tab->row = 1;
    control->Editing().Redo();
    EXPECT_EQ(Shown(), "[10][2][] | [3][][] | [][][]");
    tab->row = 0;
    control->Editing().Redo();
    EXPECT_EQ(Shown(), "[1][2][] | [3][][] | [][][]");
    EXPECT_FALSE(control->Editing().CanRedo());
    while (control->Editing().CanUndo()) {
        control->Editing().Undo();
    }
    EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");
    EXPECT_TRUE(control->Editing().CanRedo());
}

TEST_F(ValueEntryFaultsTest, AHostThatRebuildsWithinAnActionGetsEveryValueInItsCell) {
    AnnounceEach();
    host.onValue = [&] {
        host.onValue = nullptr;
        tables.colsIndex->SetValue(1, "COLUMN", 2);  // the columns change places
        tables.colsIndex->SetValue(2, "COLUMN", 1);
        control->DP_Import_Update();
    };
    Current("COL1", "ROW1");
    Paste("1\t2\n3\t4");
    EXPECT_EQ(Rows(*tables.tab), "1,1=1 1,2=2 2,1=3 2,2=4");
    control->Editing().Undo();
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30 2,2=") << "the step has outlived it";
    Type("COL1", "ROW2", "5");
    tables.colsIndex->SetValue(1, "PERDY", "Another");
    host.onValue = [&] {
        host.onValue = nullptr;
        control->DP_Import_Update();
    };
    Paste("1\t2\n3\t4");
    EXPECT_FALSE(control->Editing().CanUndo()) << "not one whose cells are no longer the same";
}

// --- Fixed cells

TEST_F(ValueEntryFaultsTest, AFixedCellGetsItsTextBack) {
    NameUnits();
    Type("FRC1", "ROW1", "barrels");
    control->Editing().Undo();
    EXPECT_EQ(Grid().Contents(At("FRC1", "ROW1")), "tons");
    EXPECT_EQ(host.heard.back(), "0/FRC1 1/ROW1 = tons");
    control->Editing().Redo();
    EXPECT_EQ(Grid().Contents(At("FRC1", "ROW1")), "barrels");
    host.heard.clear();
    Current("FRC1", "ROW1");
    Paste("a\nb");
    EXPECT_EQ(host.heard, (Lines{"0/FRC1 1/ROW1 = a", "0/FRC1 2/ROW2 = b", "update"}))
        << "only the event says which fixed cell it was";
    control->Editing().Undo();
    EXPECT_EQ(Grid().Contents(At("FRC1", "ROW2")), "kilos");
    ExpectErrors();
    control->PROP_Set_TAB(nullptr);
    Type("FRC1", "ROW1", "litres");
    EXPECT_EQ(Grid().Contents(At("FRC1", "ROW1")), "barrels") << "what could not be stored is not shown";
}

TEST_F(ValueEntryFaultsTest, ARebuildTakesTheRecordOfAnEditedFixedCellForNothingElse) {
    NameUnits();
    Type("FRC1", "ROW1", "barrels");
    control->DP_Import_Update();
    EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");
}

TEST_F(ValueEntryFaultsTest, DeleteAndCutLeaveFixedCellsInASelectionAlone) {
    NameUnits();
    for (const bool cut : {false, true}) {
        Select("COL2", "ROW1", "FRC1", "ROW2");
        if (cut) {
            control->Editing().Cut();
            EXPECT_EQ(platform.onClipboard.text, "20\t\ttons\n\t\tkilos\n");
        } else {
            control->Editing().DeleteContents();
        }
        EXPECT_EQ(Shown(), "[10][][] | [30][][] | [][][]");
        EXPECT_EQ(Grid().Contents(At("FRC1", "ROW1")), "tons");
        EXPECT_TRUE(platform.messages.empty()) << LastMessage();
        control->Editing().Undo();
    }
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30 1,3= 2,2= 2,3=");
}

// --- What is pasted where

TEST_F(ValueEntryFaultsTest, CellsThatFormNoBlockAreNotTakenForOne) {
    Current("COL1", "ROW1");
    Grid().SelectCell(At("COL3", "ROW2"), SelectionMode::Add);
    Paste("7");
    EXPECT_EQ(Shown(), "[7][20][] | [30][][7] | [][][]") << "one value goes to the selected cells alone";
    platform.onClipboard.text = "as it was";
    control->Editing().Copy();
    control->Editing().Cut();
    EXPECT_EQ(platform.onClipboard.text, "as it was");
    EXPECT_EQ(platform.messages.size(), 2U);
    Paste("1\t2");
    EXPECT_EQ(platform.messages.size(), 3U);
    EXPECT_EQ(Shown(), "[7][20][] | [30][][7] | [][][]");
    Grid().SelectColumn(At("COL1", "ROW1").column, SelectionMode::Replace);
    Grid().SelectColumn(At("COL3", "ROW1").column, SelectionMode::Add);
    control->Editing().Copy();
    EXPECT_EQ(platform.onClipboard.text, "7\t\n30\t7\n\t\n") << "columns apart are a block all the same";
}

TEST_F(ValueEntryFaultsTest, ARaggedBlockKeepsItsShape) {
    Current("COL1", "ROW1");
    Paste("1\n2\t3");
    EXPECT_EQ(Shown(), "[1][20][] | [2][3][] | [][][]");
    Select("COL1", "ROW1", "COL1", "ROW2");
    Paste("4\n5\t6");
    EXPECT_EQ(Shown(), "[4][20][] | [5][6][] | [][][]");
    Select("COL1", "ROW1", "COL2", "ROW2");
    Paste("7\n8\t9");
    EXPECT_EQ(Shown(), "[7][20][] | [8][9][] | [][][]") << "a cell that has no value gets none";
}

TEST_F(ValueEntryFaultsTest, ValuesBeyondTheEdgeAreCounted) {
    tables.lineIndex->SetValue(1, "FREET", "   Durable goods ");
    tables.lineIndex->SetValue(1, "LTEXT", "F");
    control->DP_Import_Update();
    Current("COL3", "ROW1");
    Paste("1\t2\t\n3\t4\t");
    EXPECT_EQ(Shown(), "[10][20][1] | [30][][3] | [][][]");
    EXPECT_TRUE(Told("2 values would have gone beyond the edge")) << LastMessage();
    Paste("x\ty\nz");
    EXPECT_TRUE(Told("The first one is Durable goods, ")) << LastMessage();
}

TEST_F(ValueEntryFaultsTest, ASpreadsheetsOwnNumbersAreTakenInThePlaceOfTheirTexts) {
    Current("COL1", "ROW1");
    Paste("12,345\t0.33\t5%\n",
          "<html><body><table cellspacing=0><tr><td sdval=\"12345\" sdnum=\"1033;0;#,##0\"><font>12,345</font></td>"
          "<td sdval=\"0.333333333333333\" sdnum=\"1033;0;0.00\">0.33</td>"
          "<td sdval=\"0.05\" sdnum=\"1033;0;0%\">5%</td></tr></table></body></html>");
    EXPECT_EQ(Shown(), "[12345][0,333333333333333][0,05] | [30][][] | [][][]");
    EXPECT_TRUE(platform.messages.empty()) << LastMessage();
}

// --- Being told, and where the user is led

TEST_F(ValueEntryFaultsTest, ASingleCellIsAnsweredBesideIt) {
    Lines told;
    const ListenerId listener = control->Editing().AddHintListener([&](const CellKey& cell, std::string_view reason) {
        told.push_back(cell.column + "/" + cell.row + " " + std::string(reason));
        return true;
    });
    const std::string readOnly(RefusalText(Refusal::ReadOnly));
    const std::string noNumber(RefusalText(Refusal::NoNumber));
    Current("COL1", "ROW3");
    control->Editing().DeleteContents();
    control->Editing().Cut();
    Paste("1");
    Current("COL1", "ROW1");
    Paste("x");
    EXPECT_EQ(told, (Lines{"COL1/ROW3 " + readOnly, "COL1/ROW3 " + readOnly, "COL1/ROW3 " + readOnly,
                           "COL1/ROW1 " + noNumber}));
    EXPECT_TRUE(platform.messages.empty());
    control->Editing().RemoveHintListener(listener);
    Paste("x");
    EXPECT_EQ(platform.messages.size(), 1U) << "without anybody to show it a box says it";
}

TEST_F(ValueEntryFaultsTest, ALockedGridTakesNothing) {
    control->Editing().SetReadOnly(true);
    control->DP_Import_Update();
    EXPECT_EQ(RefusalOf(Grid(), At("COL1", "ROW1")), Refusal::TableReadOnly);
    EXPECT_EQ(RefusalOf(Grid(), At("FRC1", "ROW1")), Refusal::TableReadOnly);
    Select("COL1", "ROW1", "COL2", "ROW2");
    control->Editing().DeleteContents();
    Paste("1\t2");
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30");
    control->Editing().SetReadOnly(false);
    Paste("1\t2");
    EXPECT_EQ(Grid().Contents(At("COL2", "ROW1")), "2");
}

TEST_F(ValueEntryFaultsTest, UndoGoesToWhatItChanged) {
    Type("COL2", "ROW1", "5");
    Select("COL1", "ROW1", "COL3", "ROW2");
    control->Editing().DeleteContents();
    Current("COL3", "ROW3");
    control->Editing().Undo();
    EXPECT_EQ(Grid().KeyOf(*Grid().CurrentCell()), (CellKey{"COL1", "ROW1"}));
    EXPECT_TRUE(Grid().IsSelected({"COL3", "ROW2"}));
    EXPECT_FALSE(Grid().IsSelected({"COL3", "ROW3"}));
    control->Editing().Undo();
    EXPECT_EQ(Grid().KeyOf(*Grid().CurrentCell()), (CellKey{"COL2", "ROW1"}));
    EXPECT_FALSE(Grid().IsSelected({"COL1", "ROW1"}));
    Current("COL3", "ROW3");
    control->Editing().Redo();
    EXPECT_EQ(Grid().KeyOf(*Grid().CurrentCell()), (CellKey{"COL2", "ROW1"}));
}

// --- Pending cells

TEST_F(ValueEntryFaultsTest, CountingPendingCellsLeavesNoTraceAndGetsOverAnyValue) {
    for (int column = 1; column <= 3; ++column) {
        AddRow(*tables.tabOld, {{"Z", 1}, {"C", column}, {"V", column == 2 ? Variant("text") : Variant("10,0")}});
    }
    ForgetEntries();
    EXPECT_EQ(control->Editing().PendingCells(), (std::vector<CellKey>{{"COL2", "ROW1"}, {"COL3", "ROW1"}}));
    EXPECT_EQ(Entries(), Lines{});
}

}  // namespace planview
