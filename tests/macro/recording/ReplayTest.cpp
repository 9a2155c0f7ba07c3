// SPDX-License-Identifier: MIT
#include <cmath>
#include <functional>

#include "macro/recording/RecordingFixture.h"

namespace planview::test {

namespace {

class ReplayTest : public RecordingTest {
protected:
    /// Records the action and keeps it; answers the node's key.
    std::string Recorded(const std::function<void()>& action) {
        control->Recording().Start();
        action();
        control->Recording().Stop();
        return control->Recording().Keep("Test");
    }
    std::string RecordRaise() {
        return Recorded([&] {
            Select("COL1", "ROW1", "COL6", "ROW1");
            control->Editing().RaiseSelected(10);
        });
    }
    /// The book as another day brings it: a line before the others, another month in front.
    void Shift() {
        tables.colsIndex->Clear();
        tables.lineIndex->Clear();
        tables.tab->Clear();
        constexpr const char* Months[] = {"Dec", "Jan", "Feb", "Mar", "Apr", "May", "Jun"};
        for (int column = 1; column <= 7; ++column) {
            tables.AddColumn(column, Months[column - 1]);
            tables.AddValue(2, column, 1000);
        }
        tables.AddLine(1, "Mining");
        tables.AddLine(2, "Retail");
        control->DP_Import_Update();
    }
};

TEST_F(ReplayTest, ComputesRaisesAnewAndIsOneUndoStep) {
    const std::string key = Recorded([&] {
        Grid().EnterText(At("COL1", "ROW1"), "1000");
        Select("COL1", "ROW1", "COL3", "ROW1");
        control->Editing().RaiseSelected(10);
    });
    EXPECT_EQ(Line("ROW1"), "1100 112,2 113,3 104 105 106");
    const MacroResult result = control->Macros().Replay(key);
    EXPECT_TRUE(result.done) << result.message;
    EXPECT_EQ(result.cells, 2) << "the first one has its value already";
    EXPECT_EQ(Line("ROW1"), "1100 123,42 124,63 104 105 106") << "the typed value first, then raised";
    control->Editing().Undo();
    EXPECT_EQ(Line("ROW1"), "1100 112,2 113,3 104 105 106") << "the whole replay is one change";
}

TEST_F(ReplayTest, ReplaysOnTheSelectedLine) {
    const std::string key = RecordRaise();
    SelectRows({"ROW3"});
    const MacroResult result = control->Macros().Replay(key, true);
    EXPECT_TRUE(result.done) << result.message;
    EXPECT_EQ(Line("ROW3"), "331,1 332,2 333,3 334,4 335,5 336,6");
    EXPECT_EQ(Line("ROW1"), "111,1 112,2 113,3 114,4 115,5 116,6") << "raised once, by the recording";
    Select("COL1", "ROW2", "COL1", "ROW3");
    EXPECT_FALSE(control->Macros().Replay(key, true).done) << "two lines are selected";
}

TEST_F(ReplayTest, FindsLinesAndPeriodsAgainByTheirCaptions) {
    const std::string key = RecordRaise();
    Shift();
    const MacroResult result = control->Macros().Replay(key);
    EXPECT_TRUE(result.done) << result.message;
    EXPECT_EQ(Line("ROW2"), "1000 1100 1100 1100 1100 1100 1100");
}

TEST_F(ReplayTest, ValuesStayWithTheirPeriodsWhereTheseHaveTurnedRound) {
    const std::string key = Recorded([&] {
        platform.onClipboard = {"1\t2\t3", ""};
        Grid().SelectCell(At("COL2", "ROW1"), SelectionMode::Replace);
        control->Editing().Paste();
    });
    tables.colsIndex->Clear();
    constexpr const char* Months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun"};
    for (int column = 6; column >= 1; --column) {
        tables.AddColumn(column, Months[column - 1]);
        tables.tab->SetValue(column, "V", 0);
    }
    control->DP_Import_Update();
    ASSERT_EQ(Line("ROW1"), "0 0 0 0 0 0");
    const MacroResult result = control->Macros().Replay(key);
    EXPECT_TRUE(result.done) << result.message;
    EXPECT_EQ(Line("ROW1"), "0 0 3 2 1 0") << "June stands first";
}

TEST_F(ReplayTest, AStepThatDoesNotFitStopsBeforeAnythingChanges) {
    struct Row {
        const char* name;
        std::function<void()> change;
        const char* said;
    };
    const std::string key = Recorded([&] {
        Grid().EnterText(At("COL1", "ROW2"), "5");
        Select("COL1", "ROW1", "COL2", "ROW1");
        control->Editing().RaiseSelected(10);
    });
    const auto& line = tables.lineIndex;
    const std::vector<Row> rows = {
        {"the line has another name", [&] { line->SetValue(1, "FREET", "Sales"); }, "line \"Retail\" is not there"},
        {"two lines have the name",
         [&] {
             line->SetValue(2, "FREET", "Wholesale");
             line->SetValue(3, "FREET", "Retail");
             line->SetValue(4, "FREET", "Retail");
         },
         "2 are called so"},
        {"the line cannot be edited any more",
         [&] {
             line->SetValue(1, "FREET", "Retail");
             line->SetValue(1, "READONLY", "X");
         },
         "Retail, Jan: This cell is read-only"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        row.change();
        control->DP_Import_Update();
        const std::string before = Line("ROW1") + Line("ROW2");
        const MacroResult result = control->Macros().Replay(key);
        EXPECT_FALSE(result.done);
        EXPECT_NE(result.message.find("Step 2 (Raise Retail by 10 % from Jan to Feb)"), std::string::npos)
            << result.message;
        EXPECT_NE(result.message.find(row.said), std::string::npos) << result.message;
        EXPECT_EQ(Line("ROW1") + Line("ROW2"), before);
    }
}

TEST_F(ReplayTest, DoesTheChangesOfTheViewAgain) {
    const std::string key = Recorded([&] {
        SelectRows({"ROW3"});
        control->View().HideRows();
        Grid().PressColumnBorder(*Grid().FindColumn("COL3"), false);
        Grid().DragBorder(120);
        Grid().ReleaseBorder();
        control->View().SwitchChart();
        SelectRows({"ROW1"});
    });
    for (int row = 1; row <= 4; ++row) {
        tables.lineIndex->SetValue(row, "ROW_HIDDEN", "");
        tables.lineIndex->SetValue(row, "ROW_MARKED", "");
    }
    tables.colsIndex->SetValue(3, "COL_WIDTH", 80);
    control->View().SwitchChart();
    control->DP_Import_Update();
    const MacroResult result = control->Macros().Replay(key);
    EXPECT_TRUE(result.done) << result.message;
    EXPECT_EQ(tables.lineIndex->Value(3, "ROW_HIDDEN").AsText(), "X");
    EXPECT_EQ(tables.colsIndex->Value(3, "COL_WIDTH").AsText(), "120");
    EXPECT_EQ(Grid().Column(*Grid().FindColumn("COL3")).width, 120);
    EXPECT_TRUE(control->View().ChartShown());
    EXPECT_EQ(tables.lineIndex->Value(1, "ROW_MARKED").AsText(), "X");
    EXPECT_TRUE(control->Macros().Replay(key).done);
    EXPECT_TRUE(control->View().ChartShown()) << "a switch is set, not turned again";
}

TEST_F(ReplayTest, KeepsARecordingAsNodesThatCanBeRead) {
    AddRow(*tables.macroTree, {{"NODEKEY", "REC1"}, {"NODETEXT", "Recorded"}});
    control->Recording().Start();
    Select("COL1", "ROW1", "COL6", "ROW1");
    control->Editing().RaiseSelected(5);
    Grid().EnterText(At("COL1", "ROW3"), "2");
    control->Recording().Stop();
    EXPECT_EQ(control->Recording().Keep("Plan", "REC1"), "REC2") << "the key must be a new one";
    const MemoryTable& tree = *tables.macroTree;
    ASSERT_EQ(tree.RowCount(), 4);
    const auto node = [&](int row) {
        return tree.Value(row, "NODEREF").AsText() + " " + tree.Value(row, "RELATION").AsText() + " " +
               tree.Value(row, "NODETYPE").AsText() + " " + tree.Value(row, "NODETEXT").AsText();
    };
    EXPECT_EQ(node(2), "REC1 4 M_RECORD Plan");
    EXPECT_EQ(node(3), "REC2 4 M_STEP 1. Raise Retail by 5 % from Jan to Jun");
    EXPECT_EQ(node(4), "REC2 4 M_STEP 2. Set Utilities in Jan to 2");
    EXPECT_EQ(control->Recording().Keep("Plan", "NOWHERE"), "");
    EXPECT_EQ(tree.RowCount(), 4) << "nothing is added below a node that is not there";
    EXPECT_EQ(platform.messages.size(), 1U);
    ExpectErrors();
}

TEST_F(ReplayTest, SaysWhatIsNoRecording) {
    struct Row {
        const char* name;
        const char* key;
        const char* said;
    };
    AddRow(*tables.macroTree, {{"NODEKEY", "F"}, {"NODETEXT", "Folder"}});
    AddRow(*tables.macroTree, {{"NODEKEY", "E"}, {"NODETEXT", "Nothing"}, {"NODETYPE", "M_RECORD"}});
    AddRow(*tables.macroTree, {{"NODEKEY", "B"}, {"NODETEXT", "Broken"}, {"NODETYPE", "M_RECORD"}});
    AddRow(*tables.macroTree,
           {{"NODEKEY", "B1"}, {"NODEREF", "B"}, {"NODETEXT", "1. ?"}, {"NODETYPE", "M_STEP"}, {"NODEVALUE", "VALUE"}});
    AddRow(*tables.macroTree, {{"NODEKEY", "D"}, {"NODETEXT", "Dialog"}, {"NODETYPE", "M_RECORD"}});
    AddRow(*tables.macroTree, {{"NODEKEY", "D1"},
                               {"NODEREF", "D"},
                               {"NODETEXT", "1."},
                               {"NODETYPE", "M_STEP"},
                               {"NODEVALUE", "General\t\t\t"}});
    for (int row = 1; row <= tables.macroTree->RowCount(); ++row) {
        tables.macroTree->SetValue(row, "RELATION", tables.macroTree->Value(row, "NODEREF").IsEmpty() ? 1 : 4);
    }
    control->DP_Import_MacroTree();
    for (const Row& row : {Row{"a folder", "F", "is no recording"}, Row{"no node", "X", "no macro with the key"},
                           Row{"no steps", "E", "has no steps"}, Row{"a step without fields", "B", "cannot be read"},
                           Row{"a command that opens a dialog", "D", "no command \"General\""}}) {
        SCOPED_TRACE(row.name);
        const MacroResult result = control->Macros().Replay(row.key);
        EXPECT_FALSE(result.done);
        EXPECT_NE(result.message.find(row.said), std::string::npos) << result.message;
    }
}

TEST_F(ReplayTest, RaisesWhatCanBeRaised) {
    Grid().EnterText(At("COL2", "ROW3"), "");
    Select("COL1", "ROW3", "COL3", "ROW4");
    control->Editing().RaiseSelected(5);
    EXPECT_EQ(Line("ROW3"), "316,05  318,15 304 305 306") << "an empty cell stays empty";
    EXPECT_EQ(Line("ROW4"), "401 402 403 404 405 406");
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_NE(platform.messages[0].text.find("2 cells raised, 3 cells left alone"), std::string::npos)
        << platform.messages[0].text;
    control->Editing().Undo();
    EXPECT_EQ(Line("ROW3"), "301  303 304 305 306");
    for (const double none : {std::nan(""), 1e7}) {
        control->Editing().RaiseSelected(none);
    }
    EXPECT_EQ(platform.messages.size(), 3U);
    EXPECT_EQ(Line("ROW3"), "301  303 304 305 306");
}

}  // namespace

}  // namespace planview::test
