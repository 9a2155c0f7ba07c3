// SPDX-License-Identifier: MIT
#include "grid/ValueEntryFixture.h"
#include "support/StubbornTable.h"

namespace planview {

using test::Lines;
using test::StubbornTable;
using test::ValueEntryTest;

TEST_F(ValueEntryTest, AnEditTakesItsSteps) {
    Type("COL2", "ROW1", "12.5");
    EXPECT_EQ(host.heard, Lines{"2/COL2 1/ROW1 = 12.5"});
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=12.5 2,1=30") << "the value stays as it was entered";
    EXPECT_EQ(Rows(*tables.tabOld), "1,2=20");
    EXPECT_EQ(Grid().Contents(At("COL2", "ROW1")), "12,5") << "the grid shows the control's form";
    const Lines entries = Entries([](const ListItem& item) {
        return item.subItems[1] == "ContentsChanged" || item.subItems[1] == "ValueChanged fired";
    });
    EXPECT_EQ(entries, (Lines{"GRIDCTL |  | ContentsChanged | {cid: COL2 - rid: ROW1 - value: 12.5}",
                              "GRIDCTL |  | ValueChanged fired | {cid: COL2 - rid: ROW1 - value: 12.5}",
                              "GRIDCTL |  | ContentsChanged | {TAB: entry found - oldvalue:20}",
                              "GRIDCTL |  | ContentsChanged | {TAB_OLD: no entry found}"}));
    ForgetEntries();
    Type("COL2", "ROW1", "7");
    EXPECT_EQ(Rows(*tables.tabOld), "1,2=20") << "the first value stays";
    EXPECT_EQ(EntriesOf("ContentsChanged").back(),
              "GRIDCTL |  | ContentsChanged | {TAB_OLD: entry found - oldvalue:20}");
}

TEST_F(ValueEntryTest, ACellWithoutARowGetsOneAndThenKeepsIt) {
    Type("COL3", "ROW2", "5");
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30 2,3=5");
    EXPECT_EQ(Rows(*tables.tabOld), "2,3=");
    Type("COL3", "ROW2", "6");
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30 2,3=6");
}

TEST_F(ValueEntryTest, OnlyTheFirstMatchingRowIsTouched) {
    tables.AddValue(1, 1, 99);
    Type("COL1", "ROW1", "11");
    EXPECT_EQ(Rows(*tables.tab), "1,1=11 1,2=20 2,1=30 1,1=99");
}

TEST_F(ValueEntryTest, FixedCellsAreTakenOverByTheirKeyAlone) {
    Type("FRC1", "ROW2", "8");
    EXPECT_EQ(host.heard, Lines{"0/FRC1 2/ROW2 = 8"});
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30 2,0=8");
}

TEST_F(ValueEntryTest, AKeyThatTheTablesLostIsNotTakenOver) {
    tables.colsIndex->SetValue(2, "GRID_ID", "");
    Type("COL2", "ROW1", "1");
    EXPECT_EQ(host.heard, Lines{});
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30");
}

TEST_F(ValueEntryTest, ATableThatFailsLeavesTheGridWithWhatItHolds) {
    ExpectErrors();
    class Refusing final : public AutomationObject {
    public:
        explicit Refusing(std::shared_ptr<MemoryTable> inner) : inner_(std::move(inner)) {}
        DispatchId IdOf(std::string_view name) const override { return inner_->IdOf(name); }
        Variant Get(DispatchId member, Arguments a) override { return inner_->Get(member, a); }
        void Put(DispatchId, Arguments, const Variant&) override { throw std::runtime_error("disk full"); }
        Variant Call(DispatchId member, Arguments a) override { return inner_->Call(member, a); }

    private:
        std::shared_ptr<MemoryTable> inner_;
    };
    control->PROP_Set_TAB(std::make_shared<Refusing>(tables.tab));
    Type("COL2", "ROW1", "12");
    EXPECT_EQ(Grid().Contents(At("COL2", "ROW1")), "20");
    EXPECT_FALSE(control->Editing().CanUndo());
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_NE(platform.messages[0].text.find("disk full"), std::string::npos) << platform.messages[0].text;
    control->PROP_Set_TAB(nullptr);
    Type("COL2", "ROW1", "13");
    EXPECT_EQ(Entries(IsError).back(), "GRIDCTL | ERROR | ContentsChanged | {error: The table is not set}");
}

TEST_F(ValueEntryTest, DeleteEmptiesWritablePlanningCellsOnly) {
    const struct {
        const char* why;
        const char* column;
        const char* row;
        Lines heard;
    } cases[] = {
        {"a fixed cell", "FRC1", "ROW1", {}},
        {"a heading", "COL1", "FTR0", {}},
        {"a read-only line", "COL1", "ROW3", {}},
        {"a planning cell", "COL2", "ROW1", {"2/COL2 1/ROW1 = "}},
    };
    for (const auto& row : cases) {
        host.heard.clear();
        Grid().SelectCell(At(row.column, row.row), SelectionMode::Replace);
        EXPECT_TRUE(Grid().ReportKeyDown(0, 46));
        EXPECT_EQ(host.heard, row.heard) << row.why;
    }
    EXPECT_EQ(Shown(), "[10][][] | [30][][] | [][][]");
    EXPECT_EQ(EntriesOf("DeleteCellContents").size(), 1U);
}

TEST_F(ValueEntryTest, BlocksArePastedFromTheCurrentCellToTheEdge) {
    Grid().SelectCell(At("COL2", "ROW1"), SelectionMode::Replace);
    platform.onClipboard.text = "1,5\t2.5\t3\n4\tx\n";
    control->Editing().Paste();
    EXPECT_EQ(Shown(), "[10][1,5][2,5] | [30][4][] | [][][]") << "the third column does not exist";
    EXPECT_EQ(host.heard, Lines{"update"}) << "several cells are announced as one";
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_NE(platform.messages[0].text.find("1 cell would have got a text that is not a number"), std::string::npos);
    EXPECT_EQ(Rows(*tables.tabOld), "1,2=20 1,3= 2,2=");
}

TEST_F(ValueEntryTest, ASelectionIsTheTargetFromItsFirstCellOn) {
    Select("COL1", "ROW1", "COL3", "ROW2");
    platform.onClipboard.text = "1\t2\n3\t4";
    control->Editing().Paste();
    EXPECT_EQ(Shown(), "[1][2][] | [3][4][] | [][][]") << "two columns do not fit into three";
    Select("COL2", "ROW1", "COL3", "ROW2");
    control->Editing().Fill();
    EXPECT_EQ(Shown(), "[1][2][2] | [3][2][2] | [][][]");
}

TEST_F(ValueEntryTest, SingleValueModeAnnouncesEachCell) {
    tables.gridAttr->SetValue(1, "SINGLEVALUE", "X");
    control->DP_Import_Attribute();
    platform.onClipboard.text = "1\t2";
    Grid().SelectCell(At("COL1", "ROW2"), SelectionMode::Replace);
    control->Editing().Paste();
    EXPECT_EQ(host.heard, (Lines{"1/COL1 2/ROW2 = 1", "2/COL2 2/ROW2 = 2"}));
}

TEST_F(ValueEntryTest, SeveralAnnouncedValuesAreBracketed) {
    control->Editing().AddBulkListener([&](bool running) { host.heard.emplace_back(running ? "begin" : "end"); });
    platform.onClipboard.text = "1\t2";
    Grid().SelectCell(At("COL1", "ROW2"), SelectionMode::Replace);
    control->Editing().Paste();
    EXPECT_EQ(host.heard, Lines{"update"}) << "one event says it all";
    tables.gridAttr->SetValue(1, "SINGLEVALUE", "X");
    control->DP_Import_Attribute();
    host.heard.clear();
    Type("COL1", "ROW1", "5");
    EXPECT_EQ(host.heard, Lines{"1/COL1 1/ROW1 = 5"}) << "nor is there anything to gather";
    host.heard.clear();
    control->Editing().Paste();
    control->Editing().Undo();
    EXPECT_EQ(host.heard, (Lines{"begin", "1/COL1 2/ROW2 = 1", "2/COL2 2/ROW2 = 2", "end", "begin", "2/COL2 2/ROW2 = 2",
                                 "1/COL1 2/ROW2 = 1", "end"}));
    host.heard.clear();
    control->PROP_Set_TAB_OLD(nullptr);
    ExpectErrors();
    control->Editing().Paste();
    EXPECT_EQ(host.heard.back(), "end") << "an action that fails ends, too";
}

TEST_F(ValueEntryTest, AHostChangesValuesAsTheUserDoes) {
    const ValueChange changes[] = {
        {{"COL1", "ROW1"}, 1.5}, {{"COL2", "ROW1"}, "2,5"}, {{"COL99", "ROW1"}, 3}, {{"COL3", "ROW1"}, "no number"}};
    const ChangeResult result = control->Editing().ChangeValues(changes, "Round up");
    EXPECT_EQ(result.changed, 2);
    EXPECT_EQ(result.refused, 2);
    EXPECT_EQ(result.firstRefused, (CellKey{"COL99", "ROW1"}));
    EXPECT_EQ(EntriesOf("ChangeValues"), Lines{"GRIDCTL |  | ChangeValues | {name: Round up - cells: 4}"});
    EXPECT_EQ(host.heard, Lines{"update"});
    EXPECT_EQ(Rows(*tables.tab), "1,1=1.5 1,2=2,5 2,1=30");
    EXPECT_EQ(Rows(*tables.tabOld), "1,1=10 1,2=20");
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW1")), "1,5");
    control->Editing().Undo();
    EXPECT_EQ(Rows(*tables.tab), "1,1=10 1,2=20 2,1=30");
    EXPECT_FALSE(control->Editing().CanUndo());

    control->Editing().SetReadOnly(true);
    EXPECT_EQ(control->Editing().ChangeValues(changes, "Round up").changed, 0);
    control->Editing().SetReadOnly(false);
    ExpectErrors();
    host.onValue = [&] { EXPECT_EQ(control->Editing().ChangeValues(changes, "In between").changed, 0); };
    Type("COL1", "ROW1", "7");
    EXPECT_EQ(Rows(*tables.tab), "1,1=7 1,2=20 2,1=30");
}

TEST_F(ValueEntryTest, TheRowsOfTabMayMoveWithinAnAction) {
    tables.gridAttr->SetValue(1, "SINGLEVALUE", "X");
    control->DP_Import_Attribute();
    host.onValue = [&] {
        host.onValue = nullptr;
        tables.tab->RemoveRow(2);
        tables.tab->AddRow({1, 2, 99});
    };
    Grid().SelectCell(At("COL1", "ROW1"), SelectionMode::Replace);
    platform.onClipboard.text = "1\t2\n4\t5";
    control->Editing().Paste();
    EXPECT_EQ(Rows(*tables.tab), "1,1=1 2,1=4 1,2=2 2,2=5");
}

TEST_F(ValueEntryTest, OneValueOrOneRowFillsASelection) {
    Select("COL1", "ROW1", "COL3", "ROW3");
    platform.onClipboard.text = "7";
    control->Editing().Paste();
    EXPECT_EQ(Shown(), "[7][7][7] | [7][7][7] | [][][]");
    EXPECT_NE(platform.messages[0].text.find("3 cells cannot be edited"), std::string::npos);
    Select("COL1", "ROW1", "COL3", "ROW2");
    platform.onClipboard.text = "1\t2\t3\r\n";
    control->Editing().Paste();
    EXPECT_EQ(Shown(), "[1][2][3] | [1][2][3] | [][][]");
    control->Editing().Undo();
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");
}

/// As in a spreadsheet: else what is pasted would come out beside the places that it was copied from.
TEST_F(ValueEntryTest, HiddenCellsArePartOfTheBlockAndCounted) {
    tables.colsIndex->SetValue(2, "COL_HIDDEN", "X");
    control->DP_Import_Update();
    Type("COL3", "ROW1", "1234.5");
    Select("COL1", "ROW1", "COL3", "ROW2");
    EXPECT_TRUE(Grid().ReportKeyDown(2, 'C'));
    EXPECT_EQ(platform.onClipboard.text, "10\t20\t1234,5\n30\t\t\n");
    EXPECT_NE(platform.onClipboard.html.find("sdval=\"1234.5\""), std::string::npos);
    EXPECT_EQ(platform.messages.size(), 0U);
    EXPECT_TRUE(Grid().ReportKeyDown(2, 'X'));
    EXPECT_EQ(Shown(), "[][][] | [][][] | [][][]");
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(platform.messages[0].text, "6 cells emptied, 2 of them hidden.");
    Grid().SelectCell(At("COL1", "ROW1"), SelectionMode::Replace);
    platform.onClipboard = {"1\t2\t3\t4", ""};
    control->Editing().Paste();
    EXPECT_EQ(Shown(), "[1][2][3] | [][][] | [][][]");
    EXPECT_EQ(platform.messages.back().text,
              "3 cells pasted, 1 of them hidden.\n1 value would have gone beyond the edge of the table.");
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[][][] | [][][] | [][][]");
    EXPECT_TRUE(Grid().Selection().HasCell(At("COL3", "ROW1"), 3, 1)) << "they are selected as one block again";
}

TEST_F(ValueEntryTest, HiddenCellsAloneAreNoSelection) {
    const struct {
        const char* what;
        std::function<void()> hide;
    } cases[] = {
        {"by command",
         [&] {
             Grid().SelectColumn(At("COL2", "ROW1").column, SelectionMode::Replace);
             control->View().HideColumns();
             EXPECT_TRUE(Grid().Selection().IsEmpty());
             EXPECT_EQ(tables.colsIndex->Value(2, "COL_MARKED"), Variant(""));
         }},
        {"rows by command",
         [&] {
             Grid().SelectRow(At("COL1", "ROW1").row, SelectionMode::Replace);
             control->View().HideRows();
             EXPECT_TRUE(Grid().Selection().IsEmpty());
         }},
        {"by the host's call",
         [&] {
             Grid().SelectRow(At("COL1", "ROW1").row, SelectionMode::Replace);
             control->plv_MarkedRowsHide();
             EXPECT_EQ(tables.lineIndex->Value(1, "ROW_MARKED"), Variant("X")) << "to be shown again by them";
         }},
        {"a block of cells",
         [&] {
             Select("COL2", "ROW1", "COL2", "ROW2");
             Grid().SetAttribute(GridElement::Column, {"COL2", {}}, GridAttribute::Hidden, true, true);
         }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        for (const char* field : {"ROW_HIDDEN", "ROW_MARKED"}) {
            tables.lineIndex->SetValue(1, field, "");
        }
        for (const char* field : {"COL_HIDDEN", "COL_MARKED"}) {
            tables.colsIndex->SetValue(2, field, "");
        }
        control->DP_Import_Update();
        row.hide();
        const Cell current = Grid().CurrentCell().value();
        const std::string before = Shown();
        EXPECT_TRUE(Grid().ReportKeyDown(2, 'C'));
        EXPECT_EQ(platform.onClipboard.text, Grid().Contents(current)) << "the cell that the user sees";
        EXPECT_TRUE(Grid().ReportKeyDown(2, 'V'));
        EXPECT_EQ(Shown(), before);
    }
}

TEST_F(ValueEntryTest, InTheSwitchedViewBlocksAreAsTheScreenShowsThem) {
    tables.gridAttr->SetValue(1, "SWITCHED", "X");
    control->DP_Import_Attribute();
    control->DP_Import_Update();
    Select("COL1", "ROW1", "COL3", "ROW2");
    control->Editing().Copy();
    EXPECT_EQ(platform.onClipboard.text, "10\t30\n20\t\n\t\n") << "a period is a line of the screen";
    Grid().SelectCell(At("COL1", "ROW1"), SelectionMode::Replace);
    platform.onClipboard = {"1\t2\n3\n4\t5\n6", ""};
    control->Editing().Paste();
    EXPECT_EQ(Shown(), "[1][3][4] | [2][][5] | [][][]") << "short lines leave their last places alone";
    EXPECT_EQ(platform.messages.back().text, "5 cells pasted.\n1 value would have gone beyond the edge of the table.");
    Select("COL1", "ROW1", "COL3", "ROW2");
    platform.onClipboard.text = "7\t8";
    control->Editing().Paste();
    EXPECT_EQ(Shown(), "[7][7][7] | [8][8][8] | [][][]") << "one line of the screen fills the others";
}

TEST_F(ValueEntryTest, TheHostHearsWhateverGridAttrDoesWithThePosition) {
    ExpectErrors();
    const struct {
        const char* why;
        std::function<void()> spoil;
    } cases[] = {
        {"it refuses the field",
         [&] { control->PROP_Set_GRID_ATTR(std::make_shared<StubbornTable>(tables.gridAttr, 1, "FIRST_COL")); }},
        {"it has no row", [&] { control->PROP_Set_GRID_ATTR(MemoryTable::WithFieldsOf("GRID_ATTR")); }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        row.spoil();
        host.heard.clear();
        Grid().SelectCell(At("COL1", "ROW1"), SelectionMode::Replace);
        platform.onClipboard.text = "1\t2";
        control->Editing().Paste();
        Grid().ReportKeyPress(13);
        control->Run(Command::SwitchGrid);
        control->Run(Command::SwitchChart);
        EXPECT_EQ(host.heard, (Lines{"update", "return", "update", "update"}));
        EXPECT_FALSE(EntriesOf("FIRST_COL").empty()) << "the refusal can be seen";
        control->Run(Command::SwitchGrid);
        control->Run(Command::SwitchChart);
    }
    EXPECT_EQ(tables.gridAttr->Value(1, "FIRST_ROW"), Variant(std::int16_t{1}))
        << "one refusal does not take the other";
}

TEST_F(ValueEntryTest, UndoAndRedoFollowTheUsersActions) {
    Type("COL1", "ROW1", "11");
    Type("COL1", "ROW1", "12");
    Select("COL1", "ROW1", "COL2", "ROW2");
    EXPECT_TRUE(Grid().ReportKeyDown(0, 46));
    EXPECT_EQ(Shown(), "[][][] | [][][] | [][][]");
    host.heard.clear();
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[12][20][] | [30][][] | [][][]");
    EXPECT_EQ(host.heard, Lines{"update"});
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[11][20][] | [30][][] | [][][]");
    EXPECT_EQ(host.heard.back(), "1/COL1 1/ROW1 = 11");
    EXPECT_EQ(tables.tabOld->Value(1, "V"), Variant(10)) << "the first value stays";
    control->Editing().Redo();
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW1")), "12");
    Type("COL3", "ROW2", "1");
    EXPECT_FALSE(control->Editing().CanRedo()) << "a new action ends what could be repeated";
    control->DP_Import_Update();
    EXPECT_TRUE(control->Editing().CanUndo()) << "a rebuild keeps the history";
}

TEST_F(ValueEntryTest, TheHostMayRebuildFromItsOwnEvent) {
    host.onValue = [&] {
        host.onValue = nullptr;
        control->DP_Import_Update();
    };
    Type("COL1", "ROW1", "77");
    EXPECT_EQ(tables.tab->Value(1, "V"), Variant("77"));
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW1")), "77");
}

TEST_F(ValueEntryTest, TheTraceShortcutIsArmedFirst) {
    Grid().SelectCell(At("COL1", "ROW2"), SelectionMode::Replace);
    ForgetEntries();
    EXPECT_TRUE(Grid().ReportKeyDown(2, 'D'));
    EXPECT_EQ(platform.formCalls.back(), "load frmTrace");
    EXPECT_TRUE(Grid().ReportKeyDown(6, 'D'));
    EXPECT_TRUE(Grid().ReportKeyDown(2, 'D'));
    EXPECT_EQ(platform.formCalls.back(), "show frmTrace");
    EXPECT_EQ(Entries(), (Lines{"GRIDCTL |  | GridKeyDown | {cid: COL1 - rid: ROW2 - modifier:2 - key:68}",
                                "GRIDCTL |  | GridKeyDown | {cid: COL1 - rid: ROW2 - modifier:6 - key:68}",
                                "GRIDCTL |  | GridKeyDown | {cid: COL1 - rid: ROW2 - modifier:2 - key:68}"}));
    EXPECT_FALSE(Grid().ReportKeyDown(0, 'D'));
}

TEST_F(ValueEntryTest, ReturnTellsTheHost) {
    Grid().ReportKeyPress(13);
    Grid().ReportKeyPress('a');
    EXPECT_EQ(host.heard, Lines{"return"});
    EXPECT_EQ(tables.gridAttr->Value(1, "FIRST_COL"), Variant(std::int16_t{1}));
}

}  // namespace planview
