// SPDX-License-Identifier: MIT
#include "automation/Texts.h"
#include "dialogs/frmUpload.h"
#include "grid/LineLevels.h"
#include "macro/run/MacroEngineFixture.h"

namespace planview::test {

namespace {

struct RunCase {
    const char* name;
    const char* macro;
    int line;
    const char* expected;
};

class MacroResult : public MacroEngineTest, public testing::WithParamInterface<RunCase> {};

TEST_P(MacroResult, IsInTheLine) {
    const RunCase& run = GetParam();
    const MacroOutcome outcome = Run(run.macro);
    EXPECT_EQ(Texts(outcome.problems), Lines());
    EXPECT_EQ(Line(run.line), run.expected);
}

constexpr RunCase Results[] = {
    // Arithmetic
    {"Product", "ROW1 = ROW1 * 1,05", 1, "10,5 21 31,5 42 52,5 63"},
    {"PointBeforeDash", "ROW3 = ROW1 - ROW2 * 2", 3, "8 16 24 32 40 48"},
    {"LeftToRight", "ROW3 = ROW1 - ROW2 - 1 / 2 / 2", 3, "8,75 17,75 26,75 35,75 44,75 53,75"},
    {"Brackets", "ROW3 = ( ROW1 + ROW2 ) * ( 2 - 1 )", 3, "11 22 33 44 55 66"},
    {"Signs", "ROW3 = - ROW1 - - 2 + ( - 1 )", 3, "-9 -19 -29 -39 -49 -59"},
    {"EmptyCountsAsZero", "ROW6 = ROW3 + 1", 6, "1 1 1 1 1 1"},
    {"ConstantAlone", "ROW3 = 7", 3, "7 7 7 7 7 7"},
    // Functions
    {"SumOfArea", "ROW6 = SUM( ROW1:ROW4 )", 6, "16 27 38 49 60 71"},
    {"SumOfAreaWithoutItsTextLine", "ROW3 = SUM( ROW4:ROW6 )", 3, "105 105 105 105 105 105"},
    {"SumReadsTheValuesFromBefore", "ROW1 = SUM( ROW1:ROW2 ; ROW1 )", 1, "21 42 63 84 105 126"},
    {"SumOfComputedLines", "ROW3 = SUM( ROW1:ROW2 * 2 ; 1 )", 3, "23 45 67 89 111 133"},
    {"SumOfAllCellsOfABlock", "ROW3 = SUM( ROW1:ROW2/COL1:COL2 )", 3, "33 33 33 33 33 33"},
    {"LeastAndGreatest", "ROW3 = MAX( ROW1 ; 25 ) - MIN( ROW2 ; 3 )", 3, "24 23 27 37 47 57"},
    {"AverageLeavesEmptyCellsOut", "ROW6 = AVERAGE( ROW1:ROW3 )", 6, "5,5 11 16,5 22 27,5 33"},
    {"AverageOfNothingLeavesTheCell", "ROW6 = AVERAGE( ROW3 )", 6, "100 100 100 100 100 100"},
    {"AbsoluteAndRounded", "ROW3 = ROUND( ABS( 2 - ROW1 ) / 3 ; 1 )", 3, "2,7 6 9,3 12,7 16 19,3"},
    {"CopyKeepsEmptyCells", "ROW6 = COPY( ROW3 )", 6, "- - - - - -"},
    {"CopyInArithmeticIsZero", "ROW6 = COPY( ROW3 ) + 2", 6, "2 2 2 2 2 2"},
    {"IfFunction", "ROW3 = IF( ROW1 >= 30 AND ROW2 <> 5 ; ROW1 ; - 1 )", 3, "-1 -1 30 40 -1 60"},
    {"IfDoesNotDivideWhereItNeedNot", "ROW6 = IF( ROW3 = 0 ; 9 ; 1 / ROW3 )", 6, "9 9 9 9 9 9"},
    {"AndStopsAtTheFirst", "ROW6 = IF( ROW3 <> 0 AND 1 / ROW3 > 1 ; 1 ; 2 )", 6, "2 2 2 2 2 2"},
    {"OrStopsAtTheFirst", "ROW6 = IF( ROW3 = 0 OR 1 / ROW3 > 1 ; 1 ; 2 )", 6, "1 1 1 1 1 1"},
    {"ProductAndCount", "ROW3 = PRODUCT( ROW1 ; ROW2 ) + COUNT( ROW1:ROW3 )", 3, "12 42 92 162 252 362"},
    {"RemainderAndWholeNumber", "ROW3 = MOD( ROW1 ; 7 ) + INT( ROW2 / 2 )", 3, "3 7 3 7 3 7"},
    {"RunningTotalOverTheChosenPeriods", "periods COL2:COL4\nROW3 = CUMULATE( ROW2 )", 3, "- 2 5 9 - -"},
    {"RunningTotalOfItself", "ROW2 = CUMULATE( ROW2 )", 2, "1 3 6 10 15 21"},
    {"MeanOfThePeriodsBefore", "ROW3 = LAST( ROW1 ; 2 )", 3, "- - 15 25 35 45"},
    {"SumOfThePeriodsBefore", "ROW3 = SUM( LAST( ROW2 ; 3 ) )", 3, "- - - 6 9 12"},
    {"GoesOnFromWhatItHasComputed", "periods COL4:COL6\nROW2 = SUM( LAST( ROW2 ; 3 ) )", 2, "1 2 3 6 11 20"},
    {"GrowthOverTwoPeriods", "ROW3 = GROWTH( LAST( ROW1 ; 2 ) ) * 3", 3, "- - - 6 3 2"},
    // Shifts
    {"ShiftFromEarlier", "ROW3 = SHIFT( ROW1 ; - 2 )", 3, "- - 10 20 30 40"},
    {"ShiftFromLater", "ROW3 = SHIFT( ROW1 ; 1 )", 3, "20 30 40 50 60 -"},
    {"ShiftOutOfTheTableLeavesTheCell", "ROW6 = SHIFT( ROW1 ; - 1 ) * 2", 6, "100 20 40 60 80 100"},
    {"OwnEarlierPeriodsRunForward", "ROW1 = SHIFT( ROW1 ; - 1 ) * 2", 1, "10 20 40 80 160 320"},
    {"OwnLaterPeriodsRunBackward", "ROW1 = SHIFT( ROW1 ; 1 ) + 1", 1, "65 64 63 62 61 60"},
    {"OwnLineOfTheSamePeriodIsFromBefore", "ROW1 = SHIFT( ROW1 ; - 1 ) + ROW1", 1, "10 30 60 100 150 210"},
    {"MovingAverageOfComputedValues", "ROW1 = AVERAGE( SHIFT( ROW1 ; - 1 ) ; SHIFT( ROW1 ; - 2 ) )", 1,
     "10 10 10 10 10 10"},
    {"ShiftOfASumReadsFromBefore", "ROW1 = SHIFT( SUM( ROW1:ROW2 ) ; - 1 )", 1, "10 11 22 33 44 55"},
    {"ShiftsAddUp", "ROW3 = SHIFT( SHIFT( ROW1 ; - 2 ) + 1 ; 1 )", 3, "- 11 21 31 41 51"},
    {"ShiftBackToItselfIsNoCycle", "ROW1 = SHIFT( SHIFT( ROW1 ; - 1 ) ; 1 ) + SHIFT( ROW1 ; 0 )", 1,
     "20 40 60 80 100 120"},
    // Elements and areas
    {"OneCell", "ROW3/COL2 = ROW1 + ROW1/COL1", 3, "- 30 - - - -"},
    {"CellOfTheTargetIsFromBefore", "ROW1 = ROW1/COL1 + ROW1", 1, "20 30 40 50 60 70"},
    {"AreaLineByLine", "ROW1:ROW3 = ROW1:ROW3 + 1", 2, "2 3 4 5 6 7"},
    {"AreaReadsItsOtherLinesFromBefore", "ROW1:ROW2 = ROW1:ROW2 + ROW1", 2, "11 22 33 44 55 66"},
    {"EndsInTheOtherOrder", "periods COL3:COL1\nROW2:ROW1/COL3:COL2 = 0", 1, "10 0 0 40 50 60"},
    {"AreaWithPeriods", "ROW1:ROW2/COL2:COL3 = 0", 1, "10 0 0 40 50 60"},
    {"BlockCopiedToOtherPeriods", "ROW1:ROW2/COL4:COL6 = COPY( ROW1:ROW2/COL1:COL3 )", 1, "10 20 30 10 20 30"},
    {"BlockCopiedOntoItself", "ROW1:ROW2/COL2:COL4 = ROW1:ROW2/COL1:COL3", 1, "10 10 20 30 50 60"},
    {"AreaRunsForwardLineByLine", "ROW1:ROW2 = SHIFT( ROW1:ROW2 ; - 1 ) + 1", 2, "1 2 3 4 5 6"},
    // The macro's own
    {"OwnLine", "$help = ROW1 * 2\nROW3 = $help + SHIFT( $help ; - 1 )", 3, "- 60 100 140 180 220"},
    {"OwnElementSumsUpAllPeriods", "#all = SUM( ROW1 )\nROW3 = ROW1 / #all * 100", 3,
     "4,76190476190476 9,52380952380952 14,2857142857143 19,047619047619 23,8095238095238 28,5714285714286"},
    {"OwnElementOfComputedLines", "#all = SUM( ROW1 * ROW2 ; 1 )\nROW3 = #all", 3, "911 911 911 911 911 911"},
    {"OwnArea", "@a = ROW1:ROW2 * 2\nROW3 = SUM( @a )", 3, "22 44 66 88 110 132"},
    {"OwnLineKeepsWhatItHad", "$a = 1\nif ROW2 > 3\n  $a = 2\nROW3 = $a", 3, "1 1 1 2 2 2"},
    // Periods, decimals, inactive
    {"ChosenPeriods", "periods COL2:COL3\nROW1 = 0", 1, "10 0 0 40 50 60"},
    {"ChosenPeriodsForASum", "periods COL2:COL3\n#all = SUM( ROW1 )\nROW3 = #all", 3, "- 50 50 - - -"},
    {"RecursionReadsFromBeforeTheChosenOnes", "periods COL3:COL4\nROW1 = SHIFT( ROW1 ; - 1 )", 1, "10 20 20 20 50 60"},
    {"Decimals", "decimals 1\nROW1 = ROW1 / 3", 1, "3,3 6,7 10 13,3 16,7 20"},
    {"InactiveStatement", "-- ROW1 = 0\nROW2 = 0", 1, "10 20 30 40 50 60"},
    // Conditions
    {"ConditionPerPeriod", "if ROW1 > 30\n  ROW3 = 1\nelse\n  ROW3 = 2", 3, "2 2 2 1 1 1"},
    {"ConditionInCondition", "if ROW1 > 20\n  if ROW2 < 5\n    ROW3 = 1\n  else\n    ROW3 = 2", 3, "- - 1 1 2 2"},
    {"StatementBehindReadsWhatWasSet", "if ROW1 > 30\n  ROW1 = 0\nROW3 = ROW1", 3, "10 20 30 0 0 0"},
    {"NoDivisionWhereItDoesNotHold", "if ROW3 <> 0\n  ROW1 = 1 / ROW3", 1, "10 20 30 40 50 60"},
    {"NeitherBranchWithoutAValue", "if SHIFT( ROW1 ; - 1 ) > 30\n  ROW3 = 1\nelse\n  ROW3 = 2", 3, "- 2 2 2 1 1"},
    {"OneDecisionForAll", "if ROW1/COL6 > 50\n  #x = 3\nelse\n  #x = 4\nROW3 = #x", 3, "3 3 3 3 3 3"},
    {"CellOutsideTheChosenPeriods", "periods COL1\nif ROW1 > 50\n  ROW3/COL6 = 1\nelse\n  ROW3 = 2", 3, "2 - - - - 1"},
};

INSTANTIATE_TEST_SUITE_P(Macros, MacroResult, testing::ValuesIn(Results),
                         [](const auto& made) { return made.param.name; });

// --- What cannot run

struct FaultCase {
    const char* name;
    const char* macro;
    const char* problem;
};

class MacroRunFault : public MacroEngineTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(MacroRunFault, IsNamedAndChangesNothing) {
    Put(2, 3, "n/a");
    const MacroOutcome outcome = Run(std::string("ROW1 = 0\n") + GetParam().macro);
    EXPECT_EQ(Texts(outcome.problems), Lines{GetParam().problem});
    EXPECT_EQ(Line(1), "10 20 30 40 50 60");
    EXPECT_EQ(tables.tabOld->RowCount(), 0);
    EXPECT_FALSE(context.grid.history.CanUndo());
}

constexpr FaultCase RunFaults[] = {
    {"DivisionByZero", "ROW6 = 1 / ( ROW4 - 5 )", "/: Division by zero in Total, Jan."},
    {"DivisionByZeroInTheOnePeriodThatCounts", "if ROW6/COL1 = 100\n  ROW6/COL4 = 1 / ROW3",
     "/: Division by zero in Total, Apr."},
    {"DivisionByZeroOfAShiftedPeriod", "periods COL2:COL3\nROW6 = SHIFT( 1 / ROW3 ; - 1 )",
     "/: Division by zero in Total, Jan."},
    {"DivisionByZeroInACondition", "if 1 / ROW3 > 1\n  ROW6 = 1", "/: Division by zero in Jan."},
    {"RemainderByZero", "ROW6 = MOD( 7 ; ROW4 - 5 )", "Remainder of 7, Fixed - 5: Division by zero in Total, Jan."},
    {"DivisionByZeroInARunningTotal", "periods COL1:COL2\nROW6 = CUMULATE( 1 / ( ROW2 - 2 ) )",
     "/: Division by zero in Total, Feb."},
    {"DivisionByZeroInAnElement", "#x = 1 / 0", "/: Division by zero."},
    {"TooLarge", "ROW6 = SHIFT( ROW6 ; - 1 ) * 1E300", "*: A number becomes too large in Total, Mar."},
    {"TextCell", "ROW6 = ROW2 + 1", "Trade: Trade, Mar holds a text, not a number."},
    {"TextCellInASum", "ROW6 = SUM( ROW1:ROW2 )", "Retail to Trade: Trade, Mar holds a text, not a number."},
    {"ReadOnlyLine", "ROW4 = 1",
     "Macro: 6 cells may not be changed: Fixed, Jan; Fixed, Feb; Fixed, Mar; Fixed, Apr; Fixed, May; and 1 more."},
    {"ReadOnlyCellThatKeepsItsValue", "ROW4/COL2 = 5", "Macro: A cell may not be changed: Fixed, Feb."},
};

INSTANTIATE_TEST_SUITE_P(Macros, MacroRunFault, testing::ValuesIn(RunFaults),
                         [](const auto& made) { return made.param.name; });

TEST_F(MacroEngineTest, ASpreadsheetsErrorIsNamed) {
    Put(2, 3, "#DIV/0!");
    EXPECT_EQ(Texts(Run("ROW6 = ROW2 + 1").problems), Lines{"Trade: Trade, Mar holds the error #DIV/0!."});
}

TEST_F(MacroEngineTest, LinesBelowALineAreThoseIndentedOneLevel) {
    const auto label = [&](int line, const char* text) {
        context.grid.control.SetAttribute(GridElement::Cell, {LabelColumnKey, "ROW" + std::to_string(line)},
                                          GridAttribute::Contents, text, true);
    };
    label(1, "All");
    label(2, "  Trade");
    label(3, "    Prices");
    label(4, "  Fixed");
    label(5, "  Heading");
    EXPECT_EQ(Texts(Run("ROW1 = SUM( MEMBERS( ) )").problems), Lines());
    EXPECT_EQ(Line(1), "6 7 8 9 10 11");
    EXPECT_EQ(Texts(Run("ROW6 = SUM( MEMBERS( ) )").problems), Lines{"Lines below: No line stands below Total."});
    EXPECT_EQ(Texts(Run("ROW1:ROW2 = SUM( MEMBERS( ) )").problems),
              Lines{"Lines below: The lines below a line are those of the one that gets the value."});
}

TEST_F(MacroEngineTest, LevelsOfTheTableGoBeforeIndents) {
    const auto levels = std::make_shared<MemoryTable>(std::vector<std::string>{"GRID_ID", "LEVEL"});
    for (const auto& [line, level] :
         {std::pair("ROW1", "2"), {"ROW2", "3"}, {"ROW3", "3"}, {"ROW4", ""}, {"ROW6", "1"}}) {
        AddRow(*levels, {{"GRID_ID", line}, {"LEVEL", level}});
    }
    EXPECT_EQ(LineLevels(context.grid.control, HostTable(levels)), (std::vector<int>{2, 3, 3, 0, 0, 1}));
    EXPECT_EQ(LineLevels(context.grid.control, context.shared.tables.LINE_INDEX), (std::vector<int>{2, 0, 0, 0, 0, 0}))
        << "a table without the field";
}

TEST_F(MacroEngineTest, ARunIsOneUndoStepAndAnnouncedOnce) {
    EXPECT_EQ(Run("ROW1 = ROW1 * 2\nROW2:ROW3 = ROW1\nROW3 = COPY( ROW3 )").changed, 18);
    EXPECT_EQ(tables.tabOld->RowCount(), 18);
    context.grid.valueEntry.Undo();
    EXPECT_EQ(Line(1) + " / " + Line(2) + " / " + Line(3), "10 20 30 40 50 60 / 1 2 3 4 5 6 / - - - - - -");
    EXPECT_FALSE(context.grid.history.CanUndo());
}

/// The changes of a preview: "Retail/Feb: 20 -> 30", behind it why a cell refuses it.
Lines PreviewTexts(const std::vector<UploadChange>& changes) {
    Lines texts;
    for (const UploadChange& change : changes) {
        texts.push_back(std::string(Trimmed(change.line)) + "/" + change.period + ": " + change.before + " -> " +
                        change.after + (change.IsRefused() ? " (" + change.refusal + ")" : ""));
    }
    return texts;
}

TEST_F(MacroEngineTest, ChangesAreSeenBeforeAndOnlyTickedOnesHappen) {
    const std::string key =
        macros.Add("Plan", "periods COL2:COL4\nROW1 = MAX( ROW1 ; 35 )\nROW4/COL2 = 1\nROW6 = COPY( ROW3 )");
    BuildTree();
    const Lines expected{"Retail/Feb: 20 -> 35",
                         "Retail/Mar: 30 -> 35",
                         "Fixed/Feb: 5 -> 1 (" + std::string(RefusalText(Refusal::ReadOnly)) + ")",
                         "Total/Feb: 100 -> ",
                         "Total/Mar: 100 -> ",
                         "Total/Apr: 100 -> "};
    int shown = 0;
    bool accepts = false;
    platform.whileShown = [&](Form& form) {
        auto& upload = dynamic_cast<frmUpload&>(form);
        ++shown;
        EXPECT_EQ(upload.lblFile, "Plan");
        EXPECT_EQ(upload.lblSummary, "5 changed values, 1 refused");
        EXPECT_EQ(PreviewTexts(upload.Preview().changes), expected);
        upload.Tick(0, false);
        upload.Tick(2, true);
        Put(6, 3, "99");  // the host changes a cell meanwhile
        accepts ? upload.cmdOk_Click() : upload.cmdCancel_Click();
        Put(6, 3, accepts ? "99" : "100");
    };
    EXPECT_EQ(context.macros.RunPreviewed(key, false).done, "Nothing was changed.");
    EXPECT_EQ(Line(1) + " / " + Line(6), "10 20 30 40 50 60 / 100 100 100 100 100 100");
    accepts = true;
    const MacroOutcome outcome = context.macros.RunPreviewed(key, false);
    EXPECT_EQ(Texts(outcome.problems), Lines());
    EXPECT_EQ(outcome.done, "3 cells changed.\n1 cell left alone: the table was changed since the preview was made.");
    EXPECT_EQ(Line(1) + " / " + Line(4) + " / " + Line(6), "10 20 35 40 50 60 / 5 5 5 5 5 5 / 100 - 99 - 100 100");
    context.grid.valueEntry.Undo();
    EXPECT_EQ(Line(1) + " / " + Line(6), "10 20 30 40 50 60 / 100 100 99 100 100 100");
    EXPECT_FALSE(context.grid.history.CanUndo());
    EXPECT_EQ(shown, 2);
}

TEST_F(MacroEngineTest, APreviewOfNothingAsksNothing) {
    platform.whileShown = [](Form&) { ADD_FAILURE() << "there is nothing to look at"; };
    const std::string same = macros.Add("Same", "ROW1 = ROW1");
    const std::string faulty = macros.Add("Faulty", "ROW6 = 1 / ROW3");
    const std::string recording = macros.AddNode("", MacroNodeType::Recording, "", "Recorded");
    BuildTree();
    EXPECT_EQ(context.macros.RunPreviewed(same, false).done, "The macro changes nothing.");
    EXPECT_EQ(Texts(context.macros.RunPreviewed(faulty, false).problems), Lines{"/: Division by zero in Total, Jan."});
    EXPECT_EQ(Texts(context.macros.RunPreviewed(recording, false).problems),
              Lines{": A recording is replayed step by step and cannot be seen before. Replay it, and undo it where it "
                    "is wrong."});
    EXPECT_FALSE(context.grid.history.CanUndo());
}

TEST_F(MacroEngineTest, WhatKeepsItsValueIsNotWritten) {
    EXPECT_EQ(Run("ROW1 = MAX( ROW1 ; 30 )").changed, 2);
    EXPECT_EQ(tables.tabOld->RowCount(), 2);
}

TEST_F(MacroEngineTest, TheSelectedLineIsEachOfTheSelectedOnes) {
    context.grid.control.SetSelection({"", "ROW1"}, false);
    context.grid.control.SetSelection({"", "ROW2"}, false);
    EXPECT_EQ(Run("periods COL1:COL2\nSELECTED = SELECTED + 1").changed, 4);
    EXPECT_EQ(Line(1) + " / " + Line(2), "11 21 30 40 50 60 / 2 3 3 4 5 6");
}

TEST_F(MacroEngineTest, SelectedPeriodsAreThoseOfTheSelection) {
    context.grid.control.SelectCell(context.grid.control.FindCell({"COL2", "ROW1"}).value(), SelectionMode::Replace);
    context.grid.control.SelectCell(context.grid.control.FindCell({"COL4", "ROW2"}).value(), SelectionMode::Extend);
    Run("periods SELECTED\nROW6 = 1");
    EXPECT_EQ(Line(6), "100 1 1 1 100 100");
}

TEST_F(MacroEngineTest, AFailingTableLeavesNothingHalfApplied) {
    ExpectErrors();
    const std::string key = macros.Add("Macro", "ROW1 = 0");
    BuildTree();
    context.grid.control.SetReadOnly(true);
    EXPECT_EQ(RunMacroNode(Parts(), key).problems.size(), 1U);
    context.grid.control.SetReadOnly(false);
    context.shared.tables.TAB = HostTable();
    const MacroOutcome outcome = RunMacroNode(Parts(), key);
    EXPECT_EQ(Texts(outcome.problems), Lines{"Macro: 6 values could not be stored."});
    EXPECT_EQ(outcome.changed, 0);
}

}  // namespace

}  // namespace planview::test
