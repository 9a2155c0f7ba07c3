// SPDX-License-Identifier: MIT
#include "macro/run/MacroEngineFixture.h"
#include "macro/run/MacroSentences.h"

namespace planview::test {

namespace {

struct CheckCase {
    const char* name;
    const char* macro;
    const char* problem;  ///< of the first one
};

class MacroFaultFound : public MacroEngineTest, public testing::WithParamInterface<CheckCase> {};

TEST_P(MacroFaultFound, WithItsNode) {
    const Lines problems = Check(GetParam().macro);
    ASSERT_FALSE(problems.empty());
    EXPECT_EQ(problems.front(), GetParam().problem);
}

constexpr CheckCase Faults[] = {
    {"NoStatement", "periods ALL", "Macro: The macro has no statement yet."},
    {"NoValue", "ROW1 =", "Retail = …: It has no value yet."},
    {"OperandMissing", "ROW1 = ROW2 *", "*: Something is missing behind it."},
    {"OperandMissingInFront", "ROW1 = * ROW2", "*: Something is missing in front of it."},
    {"OperatorMissing", "ROW1 = ROW2 ROW3", "Prices: An operator is missing before it."},
    {"BracketNotClosed", "ROW1 = ( ROW2 + 1", "(: This bracket is not closed."},
    {"BracketNotOpened", "ROW1 = ROW2 )", "): No bracket is open that it could close."},
    {"ArgumentMark", "ROW1 = ROW2 ; 1", ";: It stands between the arguments of a function only."},
    {"UnknownOperator", "ROW1 = ROW2 % 1", "%: There is no operator \"%\"."},
    {"UnknownFunction", "ROW1 = SINUS( ROW2 )", "SINUS of Trade: There is no function \"SINUS\"."},
    {"TooFewArguments", "ROW1 = SUM( )", "Sum of …: It has 0 arguments."},
    {"TooManyArguments", "ROW1 = ABS( 1 ; 2 )", "Absolute value of 1, 2: It has 2 arguments."},
    {"ComparisonAsValue", "ROW1 = ROW2 > 1", ">: A comparison is not a number."},
    {"ValueAsComparison", "if ROW2 + 1\n  ROW1 = 1", "Trade + 1: It is no comparison."},
    {"ValueInsideAnd", "if ROW2 > 1 AND ROW1\n  ROW1 = 1", "Retail: A comparison is needed here."},
    {"BadNumber", "ROW1 = 1,2,3x", "1,2,3x: \"1,2,3x\" is not a number."},
    {"UnknownLine", "ROW1 = ROW77", "ROW77: The grid has no \"ROW77\"."},
    {"UnknownPeriod", "ROW1 = ROW2/COL77", "COL77: The grid has no \"COL77\"."},
    {"UnknownChosenPeriods", "periods COL1:COL9\nROW1 = 1", "For Jan to COL9: The grid has no period \"COL9\"."},
    {"TextLine", "ROW5 = 1", "Heading = 1: It carries text and no values."},
    {"OwnLineNotSet", "ROW1 = $help", "help: Nothing has given it a value before it is read."},
    {"OwnElementSetTooLate", "ROW1 = #x\n#x = 1", "x: Nothing has given it a value before it is read."},
    {"ElementOfALine", "#x = ROW1 + 1", "Retail: It has a value for each period, where one value is needed."},
    {"ElementInAConditionPerPeriod", "if ROW1 > 1\n  #x = 1",
     "x = 1: It has one value, but its condition decides for each period."},
    {"AreaIntoALine", "ROW3 = ROW1:ROW2 + 1", "Prices = Retail to Trade + 1: It has 1 line, its value 2."},
    {"AreasOfTwoSizes", "ROW1:ROW2 = ROW1:ROW2 + ROW1:ROW3", "+: Areas of 2 and of 3 lines do not fit each other."},
    {"AreaOfOtherPeriods", "ROW1:ROW2 = ROW1:ROW2/COL1:COL2",
     "Retail to Trade = Retail to Trade, Jan to Feb: It has 6 periods, the area in its value 2."},
    {"AreaCompared", "if ROW1:ROW2 > 1\n  ROW1 = 1", ">: An area cannot be compared."},
    {"ShiftOfAConstant", "ROW1 = SHIFT( 1 ; 1 )", "1 1 period later: What it shifts has no periods."},
    {"ShiftByALine", "ROW1 = SHIFT( ROW2 ; ROW3 )",
     "Trade shifted by Prices periods: The number of periods is no whole number."},
    {"ShiftByAHalf", "ROW1 = SHIFT( ROW2 ; 0,5 )",
     "Trade 0,5 periods later: The number of periods is no whole number."},
    {"Cycle", "ROW1 = SHIFT( ROW1 ; - 1 ) + SHIFT( ROW1 ; 2 )",
     "Retail = (Retail 1 period earlier) + (Retail 2 periods later): "
     "Retail needs both its earlier and its later periods: a cycle, in Jan first."},
    {"CycleOfAnOwnLine", "$a = ROW1\n$a = SHIFT( $a ; 1 ) + SHIFT( $a ; - 1 )",
     "a = (a 1 period later) + (a 1 period earlier): "
     "a needs both its earlier and its later periods: a cycle, in Jan first."},
    {"ElseAlone", "ROW1 = 1\nelse\n  ROW1 = 2", "Otherwise: There is no condition right before it."},
    {"ElseOfAnInactiveCondition", "-- if ROW1 > 1\n  ROW1 = 1\nelse\n  ROW1 = 2",
     "Otherwise: There is no condition right before it."},
    {"WrongDecimals", "decimals 99\nROW1 = 1",
     "Results rounded to 99 decimals: The number of decimals is not 0 to 15."},
    {"AttributeInACondition", "if ROW1 > 1\n  periods ALL", "For all periods: It is no statement."},
};

INSTANTIATE_TEST_SUITE_P(Macros, MacroFaultFound, testing::ValuesIn(Faults),
                         [](const auto& made) { return made.param.name; });

TEST_F(MacroEngineTest, EveryFaultyStatementIsTold) {
    const Lines problems = Check("ROW1 = ROW77\n$a = ROW78\nROW2 = $a\nif ROW1 = 1 + \n  ROW3 = )\nelse\n  ROW1 = 1");
    EXPECT_EQ(problems, (Lines{"ROW77: The grid has no \"ROW77\".", "ROW78: The grid has no \"ROW78\".",
                               "+: Something is missing behind it.", "): Something is missing in front of it."}));
}

TEST_F(MacroEngineTest, OnlyOneDirectionIsNoCycleWhereTheChosenPeriodsDoNotMeet) {
    EXPECT_EQ(Check("periods COL3:COL4\nROW1 = SHIFT( ROW1 ; - 1 ) + SHIFT( ROW1 ; 2 )"), Lines());
}

// --- Lines that have moved

struct MovedCase {
    const char* name;
    const char* value;
    const char* captions;
    const char* expected;  ///< the statement as a sentence, or the problem
};

class MovedLine : public MacroEngineTest, public testing::WithParamInterface<MovedCase> {};

TEST_P(MovedLine, IsFoundByKeyThenByCaption) {
    tables.AddLine(7, "Twice");
    tables.AddLine(8, "Twice");
    context.grid.construction.CreateFromTables();
    const std::string key = macros.Add("Macro", "ROW6 = ROW1");
    macros.SetField("M3", "NODEVALUE", GetParam().value);
    macros.SetField("M3", "NODENAME", GetParam().captions);
    BuildTree();
    const MacroProblems problems = CheckMacroNode(Parts(), key);
    const MacroOutline outline = MacroOutline::Read(context.macros.tree, context.shared.tables.MACRO_TREE, key);
    const MacroGrid grid(context.grid.control);
    EXPECT_EQ(problems.empty() ? MacroSentences(outline, grid).Of(1) : Texts(problems).front(), GetParam().expected);
}

constexpr MovedCase Moved[] = {
    {"KeyAndCaption", "ROW2", "Trade", "Total = Trade"},
    {"KeyAlone", "ROW2", "", "Total = Trade"},
    {"OtherKey", "ROW9", "Trade", "Total = Trade"},
    {"KeyOfAnotherLine", "ROW1", "Trade", "Total = Trade"},
    {"KeyAmongEqualCaptions", "ROW8", "Twice", "Total = Twice"},
    {"EqualCaptions", "ROW9", "Twice", "Twice: The grid has no \"Twice\"."},
    {"Gone", "ROW1", "Sold out", "Sold out: The grid has no \"Sold out\"."},
};

INSTANTIATE_TEST_SUITE_P(Macros, MovedLine, testing::ValuesIn(Moved), [](const auto& made) { return made.param.name; });

// --- Sentences

TEST_F(MacroEngineTest, SentencesReadAsTheMacroRuns) {
    const std::string key =
        macros.Add("Plan",
                   "periods COL1:COL3\ndecimals 2\nif SUM( ROW1:ROW3 ) > 100 AND ROW2 <> 0\n"
                   "  ROW1 = ROW1 * 1,05\nelse\n  $help = SHIFT( ROW1 ; - 12 ) + SUM( ROW2 ; 1 )\n"
                   "ROW6/COL2 = IF( ROW1 > 1 ; ROUND( ROW2 ; 1 ) ; AVERAGE( ROW1:ROW2/COL1:COL2 ) )\n"
                   "SELECTED = COPY( $help )");
    BuildTree();
    const MacroOutline outline = MacroOutline::Read(context.macros.tree, context.shared.tables.MACRO_TREE, key);
    const MacroGrid grid(context.grid.control);
    Lines sentences;
    for (int i = 1; i < outline.Count(); ++i) {
        const MacroNodeType type = outline.At(i).type;
        if (outline.IsTarget(i) || type == MacroNodeType::Condition || type == MacroNodeType::Attribute) {
            sentences.push_back(MacroSentences(outline, grid).Of(i));
        }
    }
    EXPECT_EQ(
        sentences,
        (Lines{
            "For Jan to Mar", "Results rounded to 2 decimals", "If (Sum of Retail to Prices) > 100 AND Trade <> 0",
            "Retail = Retail * 1,05", "Otherwise", "help = (Retail 12 periods earlier) + (Sum of Trade, 1)",
            "Total, Feb = Trade rounded to 1 decimal if Retail > 1, otherwise Average of Retail to Trade, Jan to Feb",
            "Selected line = Copy of help"}));
}

// --- What a host may hand over

TEST_F(MacroEngineTest, NonsenseIsToldNotRun) {
    std::string brackets;
    std::string chain = "ROW1";
    for (int i = 0; i < 5000; ++i) {
        brackets += "( ";
        chain += " + 1";
    }
    EXPECT_EQ(Check("ROW1 = " + brackets).size(), 1U);
    EXPECT_EQ(Check("ROW1 = " + chain).size(), 1U);
    EXPECT_EQ(CheckMacroNode(Parts(), "M99999").size(), 1U);
    std::string parent = macros.AddNode("", MacroNodeType::Macro, "", "Deep");
    const std::string deep = parent;
    for (int i = 0; i < 9000; ++i) {
        parent = macros.AddNode(parent, i % 2 == 0 ? MacroNodeType::Condition : MacroNodeType::Function, "IF");
    }
    BuildTree();
    EXPECT_EQ(CheckMacroNode(Parts(), deep).size(), 1U);
}

}  // namespace

}  // namespace planview::test
