// SPDX-License-Identifier: MIT
#include <functional>

#include "macro/recording/RecordingFixture.h"

namespace planview::test {

namespace {

using ::testing::Test;

TEST_F(RecordingTest, WritesARowForEachStep) {
    struct Row {
        const char* name;
        std::function<void()> action;
        Lines steps;
    };
    const std::vector<Row> rows = {
        {"a typed value", [&] { Grid().EnterText(At("COL2", "ROW1"), "7,5"); }, {"VALUE COL2[Feb] ROW1[Retail] 7,5"}},
        {"a paste is one step, line by line",
         [&] {
             platform.onClipboard = {"1\t2\n3\t4\n", ""};
             Select("COL2", "ROW1", "COL2", "ROW1");
             control->Editing().Paste();
         },
         {"PASTE COL2:COL3[Feb|Mar] ROW1:ROW2[Retail|Wholesale] 1;2|3;4"}},
        {"a fill with the same value everywhere names it once; the first cell is not filled",
         [&] {
             Select("COL1", "ROW3", "COL4", "ROW3");
             control->Editing().Fill();
         },
         {"FILL COL2:COL4[Feb|Apr] ROW3[Utilities] 301"}},
        {"emptied cells; the read-only line is none of them",
         [&] {
             Select("COL5", "ROW3", "COL6", "ROW4");
             control->Editing().DeleteContents();
         },
         {"DELETE COL5:COL6[May|Jun] ROW3[Utilities] "}},
        {"raised cells keep the percentage and not the values",
         [&] {
             Select("COL1", "ROW2", "COL6", "ROW2");
             control->Editing().RaiseSelected(-2.5);
         },
         {"RAISE COL1:COL6[Jan|Jun] ROW2[Wholesale] -2,5"}},
        {"selected headings alone",
         [&] {
             SelectRows({"ROW2", "ROW3"});
         },
         {"MARK [] ROW2:ROW3[Wholesale|Utilities] "}},
        {"a selection that is taken away again is none",
         [&] {
             SelectRows({"ROW2"});
             Select("COL1", "ROW1", "COL1", "ROW1");
         },
         {}},
        {"a dragged width, with the marked ones",
         [&] {
             Grid().SelectColumn(*Grid().FindColumn("COL2"), SelectionMode::Replace);
             Grid().SelectColumn(*Grid().FindColumn("COL3"), SelectionMode::Extend);
             Grid().PressColumnBorder(*Grid().FindColumn("COL3"), false);
             Grid().DragBorder(120);
             Grid().ReleaseBorder();
         },
         {"COL_WIDTH COL2:COL3[Feb|Mar] [] 120"}},
        {"a menu command that switches says what it came to",
         [&] {
             platform.choices = {"mnuZoom"};
             Grid().ReportMouseDown(At("FLC0", "FTR0"), MouseButton::Right, ShiftState::None);
         },
         {"Zoom [] [] X"}},
        {"a colour is kept by its number",
         [&] {
             SelectRows({"ROW3"});
             platform.choices = {"mnuRowBgColor", "mnuColor(4)"};
             Grid().ReportMouseDown(At("FLC0", "ROW3"), MouseButton::Right, ShiftState::None);
         },
         {"RowBgColor [] ROW3[Utilities] 5"}},
        {"what a dialog does is not recorded, nor what only copies",
         [&] {
             platform.choices = {"mnuGeneral"};
             Grid().ReportMouseDown(At("FLC0", "FTR0"), MouseButton::Right, ShiftState::None);
             control->Editing().Copy();
         },
         {}},
        {"rows hidden by their headings: selecting them is part of it",
         [&] {
             SelectRows({"ROW1", "ROW3"});
             control->View().HideRows();
         },
         {"RowsHide [] ROW1,ROW3[Retail|Utilities] "}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        control->Recording().Start();
        row.action();
        EXPECT_EQ(Steps(), row.steps);
        EXPECT_EQ(control->Recording().Steps(), static_cast<int>(row.steps.size()));
        control->Recording().Stop();
    }
    EXPECT_EQ(saves, static_cast<int>(rows.size()));
}

TEST_F(RecordingTest, UndoneChangesOfTheViewAreDropped) {
    control->Recording().Start();
    SelectRows({"ROW3"});
    control->View().HideRows();
    Grid().EnterText(At("COL1", "ROW1"), "5");
    const test::Lines both = Steps();
    ASSERT_EQ(both.size(), 2U);
    control->Editing().Undo();
    EXPECT_EQ(Steps(), test::Lines{both[0]});
    control->Editing().Undo();
    EXPECT_EQ(Steps(), test::Lines{});
    control->Editing().Redo();
    control->Editing().Redo();
    EXPECT_EQ(Steps(), both);
    Grid().ReportMoved(MovedTracks::Rows, {"ROW2", "ROW1", "ROW3", "ROW4"});
    control->View().SwitchChart();
    control->Editing().Undo();
    EXPECT_EQ(Steps().size(), 3U) << "a move is no step, and what was done after it stays";
    control->Recording().Stop();
}

TEST_F(RecordingTest, InterruptsGoesOnAndDropsTheLastStep) {
    control->Recording().Start();
    Grid().EnterText(At("COL1", "ROW1"), "1");
    control->Recording().Pause();
    EXPECT_TRUE(control->Recording().IsPaused());
    Grid().EnterText(At("COL2", "ROW1"), "2");
    control->Recording().Start();
    Grid().EnterText(At("COL3", "ROW1"), "3");
    EXPECT_EQ(Steps(), (Lines{"VALUE COL1[Jan] ROW1[Retail] 1", "VALUE COL3[Mar] ROW1[Retail] 3"}));
    control->Recording().UndoStep();
    EXPECT_EQ(Steps(), (Lines{"VALUE COL1[Jan] ROW1[Retail] 1"}));
    EXPECT_EQ(Grid().Contents(At("COL3", "ROW1")), "3") << "what a dropped step did stays done";
    control->Recording().UndoStep();
    control->Recording().UndoStep();
    EXPECT_EQ(Steps(), Lines{});
    control->Recording().Stop();
    Grid().EnterText(At("COL4", "ROW1"), "4");
    EXPECT_EQ(Steps(), Lines{}) << "nothing is recorded after the end";
    EXPECT_EQ(saves, 1);
    control->Recording().Stop();
    EXPECT_EQ(saves, 1) << "there was nothing to stop";
}

TEST_F(RecordingTest, AnUndoneEditIsNoStep) {
    Grid().EnterText(At("COL1", "ROW2"), "5");
    control->Recording().Start();
    Grid().EnterText(At("COL1", "ROW1"), "1");
    Grid().EnterText(At("COL2", "ROW1"), "2");
    control->View().SwitchChart();
    control->Editing().Undo();
    EXPECT_EQ(Steps(), (Lines{"VALUE COL1[Jan] ROW1[Retail] 1", "Chart [] [] X"}));
    control->Editing().Undo();
    control->Editing().Undo();  // of an edit from before the recording: what it brought back is a step
    EXPECT_EQ(Steps(), (Lines{"Chart [] [] X", "VALUE COL1[Jan] ROW2[Wholesale] 201"}));
    control->Editing().Redo();
    control->Editing().Redo();
    EXPECT_EQ(Steps().back(), "VALUE COL1[Jan] ROW1[Retail] 1");
}

TEST_F(RecordingTest, ANewRecordingLeavesNothingOfALongerOne) {
    control->Recording().Start();
    Grid().EnterText(At("COL1", "ROW1"), "1");
    Grid().EnterText(At("COL2", "ROW1"), "2");
    control->Recording().Stop();
    control->Recording().Start();
    EXPECT_EQ(Steps(), Lines{});
    Grid().EnterText(At("COL3", "ROW1"), "3");
    EXPECT_EQ(Steps(), (Lines{"VALUE COL3[Mar] ROW1[Retail] 3"}));
    EXPECT_EQ(tables.macroRec->RowCount(), 2) << "a host's table can only grow";
}

TEST_F(RecordingTest, ATableThatTheHostSetsAnewGetsAllSteps) {
    control->Recording().Start();
    Grid().EnterText(At("COL1", "ROW1"), "1");
    Grid().EnterText(At("COL2", "ROW1"), "2");
    tables.macroRec = MemoryTable::WithFieldsOf("MACROREC");
    control->PROP_Set_MACROREC(tables.macroRec);
    Grid().EnterText(At("COL3", "ROW1"), "3");
    EXPECT_EQ(Steps(), (Lines{"VALUE COL1[Jan] ROW1[Retail] 1", "VALUE COL2[Feb] ROW1[Retail] 2",
                              "VALUE COL3[Mar] ROW1[Retail] 3"}));
}

TEST_F(RecordingTest, SaysWhyItCannotRecord) {
    ExpectErrors();
    control->PROP_Set_MACROREC(nullptr);
    control->Recording().Start();
    EXPECT_FALSE(control->Recording().IsOn());
    control->PROP_Set_MACROREC(std::make_shared<MemoryTable>(std::vector<std::string>{"STEP"}));
    control->Recording().Start();
    EXPECT_FALSE(control->Recording().IsOn());
    ASSERT_EQ(platform.messages.size(), 2U);
    EXPECT_NE(platform.messages[0].text.find("MACROREC"), std::string::npos);
    EXPECT_NE(platform.messages[1].text.find("COMMAND"), std::string::npos) << "the field that is missing is named";
}

TEST_F(RecordingTest, ATableThatFailsInterruptsOnceAndLosesNoEdit) {
    ExpectErrors();
    control->Recording().Start();
    Grid().EnterText(At("COL1", "ROW1"), "1");
    control->PROP_Set_MACROREC(nullptr);
    Grid().EnterText(At("COL2", "ROW1"), "2");
    Grid().EnterText(At("COL3", "ROW1"), "3");
    EXPECT_TRUE(control->Recording().IsPaused());
    EXPECT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(Line("ROW1"), "1 2 3 104 105 106");
    control->PROP_Set_MACROREC(tables.macroRec);
    control->Recording().Start();
    Grid().EnterText(At("COL4", "ROW1"), "4");
    EXPECT_EQ(Steps(), (Lines{"VALUE COL1[Jan] ROW1[Retail] 1", "VALUE COL4[Apr] ROW1[Retail] 4"}));
}

TEST_F(RecordingTest, TheMenusEntriesFollowTheState) {
    const auto choose = [&](const char* entry) {
        platform.choices = {entry};
        Grid().ReportMouseDown(At("FLC0", "FTR0"), MouseButton::Right, ShiftState::None);
        return control->Recording().IsOn() ? control->Recording().IsPaused() ? "paused" : "runs" : "off";
    };
    EXPECT_STREQ(choose("mnuMacroRecStop"), "off");
    EXPECT_STREQ(choose("mnuMacroRecStart"), "runs");
    EXPECT_STREQ(choose("mnuMacroRecInterrupt"), "paused");
    EXPECT_STREQ(choose("mnuMacroRecStart"), "runs");
    Grid().EnterText(At("COL1", "ROW1"), "1");
    choose("mnuMacroRecUndo");
    EXPECT_EQ(control->Recording().Steps(), 0);
    EXPECT_STREQ(choose("mnuMacroRecStop"), "off");
    EXPECT_EQ(saves, 1);
}

}  // namespace

}  // namespace planview::test
