// SPDX-License-Identifier: MIT
#include "macro/editor/MacroEditorFixture.h"

namespace planview::test {

namespace {

TEST_F(MacroEditorTest, AMacroIsBuiltAndRunWithTheMouseAlone) {
    editor.NewMacro();
    TakeLine("ROW1");
    TakeLine("ROW1");
    editor.AddOperator("*");
    editor.SetOperandText("1,05");  // the keypad
    editor.NextStatement();
    EXPECT_EQ(Shown(), (Lines{"  Macro 1", ">   Retail = Retail * 1,05", "      Retail", "      *", "      1,05"}));
    EXPECT_GE(heard.count, 4);
    editor.Run();
    EXPECT_EQ(editor.Message(), "6 cells changed.");
    EXPECT_EQ(Line(1), "10,5 21 31,5 42 52,5 63");
}

TEST_F(MacroEditorTest, TheSignBehindTheTargetIsTheOneThatTheListShows) {
    editor.NewMacro();
    editor.SetOperandText("Prices");
    editor.AddOperator("=");
    editor.SetOperandText("3");
    editor.AddOperator("=");
    EXPECT_EQ(Statements(), Lines{"Prices = 3 ="}) << "only the first one is no element";
    editor.Undo();
    editor.SetOperandText("");
    EXPECT_EQ(Shown(), (Lines{"  Macro 1", ">   Prices = …"})) << "number and sign are one step";
}

TEST_F(MacroEditorTest, AYearAboveItsMonthsIsTakenAsTheyAre) {
    AddRow(*tables.fixedLines, {{"LINE_FIX", 1}, {"FLG_POSITION", "T"}});
    Build();
    Label("FTR1", "COL2", "2006");
    Label("FTR1", "COL5", "2007");
    const struct {
        const char* name;
        const char* from;
        const char* to;
        Lines shown;
    } cases[] = {
        {"its text", "COL2", "COL2", {"For Feb to Apr"}},
        {"beside its text", "COL4", "COL3", {"For Feb to Apr"}},
        {"the last one", "COL5", "COL5", {"For May to Jun"}},
        {"two of them", "COL3", "COL6", {"For Feb to Jun"}},
        {"under none", "COL1", "COL1", {}},
    };
    for (const auto& row : cases) {
        editor.NewMacro();
        PointAt(row.from, "FTR1");
        PointAt(row.to, "FTR1", SelectionMode::Extend);
        editor.TakeOperand();
        EXPECT_EQ(Statements(), row.shown) << row.name << ": " << editor.Message();
    }
}

TEST_F(MacroEditorTest, AFormulaIsTypedIntoTheSameElements) {
    const struct {
        const char* name;
        const char* text;
        Lines shown;          ///< behind the macro itself
        const char* message;  ///< empty where it is taken
    } cases[] = {
        {"line by line", "Retail = Retail * 1,05", {"Retail = Retail * 1,05", "  Retail", "  *", "  1,05"}, ""},
        {"any case, no blanks",
         "retail=trade+2*( PRICES-1 )",
         {"Retail = Trade + 2 * (Prices - 1)", "  Trade", "  +", "  2", "  *", "  (", "  Prices", "  -", "  1", "  )"},
         ""},
        {"a function",
         "Total = Sum(Retail; Trade, Feb) / 2",
         {"Total = (Sum of Retail, Trade, Feb) / 2", "  Sum of Retail, Trade, Feb", "    Retail", "    ;",
          "    Trade, Feb", "  /", "  2"},
         ""},
        {"the lines below",
         "Total = Sum(members)",
         {"Total = Sum of Lines below", "  Sum of Lines below", "    Lines below"},
         ""},
        {"a negative number", "Trade = -Retail", {"Trade = -Retail", "  -", "  Retail"}, ""},
        {"a name in marks", "\"Retail\" = 1", {"Retail = 1", "  1"}, ""},
        {"one period", "Retail = 1; Feb", {"For Feb", "Retail = 1", "  1"}, ""},
        {"several periods", "Retail = 1; Feb to Apr", {"For Feb to Apr", "Retail = 1", "  1"}, ""},
        {"an unknown line",
         "Retail = Nobody * 2",
         {},
         "There is no line \"Nobody\". Enter a number, the caption of a line, or one of a line and a period: \"Retail, "
         "Jan\"."},
        {"unknown periods",
         "Retail = 1; 2015",
         {},
         "There are no periods \"2015\" that stand together. Enter one, \"Jan to Mar\", or a word that all of them "
         "have."},
        {"no value", "Retail =", {}, "Behind the \"=\" there is no value. Enter a line, a cell or a number."},
    };
    for (const auto& row : cases) {
        editor.NewMacro();
        const std::string macro = editor.MacroKey();
        editor.SetOperandText(row.text);
        editor.TakeOperand();
        EXPECT_EQ(editor.Message(), row.message[0] == '\0' ? editor.Message() : row.message) << row.name;
        EXPECT_EQ(editor.OperandText().empty(), row.message[0] == '\0') << row.name << ": " << editor.Message();
        Lines shown;
        for (std::size_t i = 1; i < editor.Elements().size(); ++i) {
            const MacroElement& element = editor.Elements()[i];
            shown.push_back(std::string(static_cast<std::size_t>(element.depth - 1) * 2, ' ') + element.text);
        }
        EXPECT_EQ(shown, row.shown) << row.name;
        if (!shown.empty()) {
            editor.Undo();
            EXPECT_EQ(editor.Elements().size(), 1U) << row.name << ": one step";
        }
    }
}

TEST_F(MacroEditorTest, TypedFormulasFollowOneAnother) {
    editor.NewMacro();
    for (const char* text : {"Retail = Retail * 2; Feb to Mar", "Trade = Retail", "* 3"}) {
        editor.SetOperandText(text);
        editor.TakeOperand();
    }
    EXPECT_EQ(Statements(), (Lines{"For Feb to Mar", "Retail = Retail * 2", "Trade = Retail * 3"}));
    editor.SetOperandText("Prices = 1; Jan");
    editor.TakeOperand();
    EXPECT_TRUE(editor.MessageIsProblem()) << "the others would get other periods";
    editor.SetOperandText("");
    editor.Run();
    EXPECT_EQ(editor.Message(), "4 cells changed.");
    EXPECT_EQ(Line(2), "1 120 180 4 5 6");
    GoTo("Retail = Retail * 2");
    editor.SetSpot(MacroSpot::Inside);
    editor.SetOperandText("+ Trade / 2");
    editor.TakeOperand();
    EXPECT_EQ(Statements()[1], "Retail = Retail * 2 + Trade / 2");
}

TEST_F(MacroEditorTest, OperatorsTakeWhatStandsInTheField) {
    editor.NewMacro();
    TakeLine("ROW3");
    editor.SetOperandText(" retail ");
    editor.AddOperator("+");
    editor.SetOperandText("Trade, Feb");
    editor.TakeOperand();
    editor.AddOperator("-");
    editor.SetOperandText("nobody");
    editor.TakeOperand();
    EXPECT_EQ(editor.Message().substr(0, 25), "There is no line \"nobody\"");
    EXPECT_EQ(editor.OperandText(), "nobody");
    editor.SetOperandText("ROW2:ROW3/COL1:COL2");
    editor.TakeOperand();
    EXPECT_EQ(Statements(), Lines{"Prices = Retail + Trade, Feb - Trade to Prices, Jan to Feb"});
}

TEST_F(MacroEditorTest, FunctionsAreFilledAndLeft) {
    editor.NewMacro();
    TakeLine("ROW3");
    editor.AddFunction("SUM");
    PointAtLine("ROW1");
    context.grid.control.SelectRow(*context.grid.control.FindRow("ROW2"), SelectionMode::Extend);
    editor.TakeOperand();
    editor.AddOperator(";");
    editor.AddOperator("(");
    editor.SetOperandText("1");
    editor.AddOperator(")");
    editor.AddOperator(")");
    editor.AddOperator("*");
    editor.SetOperandText("2");
    editor.TakeOperand();
    EXPECT_EQ(Statements(), Lines{"Prices = (Sum of Retail to Trade, (1)) * 2"});
    editor.Check();
    EXPECT_EQ(editor.Message(), "The macro can run.");
}

TEST_F(MacroEditorTest, ConditionsTakeTheirComparisonThenTheirStatements) {
    editor.NewMacro();
    editor.AddCondition(false);
    TakeLine("ROW1");
    editor.AddOperator(">");
    editor.SetOperandText("20");
    editor.NextStatement();
    TakeLine("ROW3");
    editor.SetOperandText("1");
    editor.TakeOperand();
    editor.AddCondition(true);
    TakeLine("ROW3");
    editor.SetOperandText("2");
    editor.NextStatement();
    EXPECT_EQ(Statements(), (Lines{"If Retail > 20", "Otherwise"}));
    editor.Run();
    EXPECT_EQ(Line(3), "2 2 1 1 1 1");
}

TEST_F(MacroEditorTest, WholeColumnsAreThePeriodsOfTheMacro) {
    editor.NewMacro();
    TakeLine("ROW3");
    const auto select = [&](const char* first, const char* last) {
        context.grid.control.SelectColumn(*context.grid.control.FindColumn(first), SelectionMode::Replace);
        context.grid.control.SelectColumn(*context.grid.control.FindColumn(last), SelectionMode::Extend);
        editor.TakeOperand();
    };
    select("COL1", "COL2");
    select("COL3", "COL5");
    EXPECT_EQ(Statements(), (Lines{"For Mar to May", "Prices = …"}));
}

TEST_F(MacroEditorTest, SpotsSayWhereTheNextElementGoes) {
    editor.NewMacro();
    TakeLine("ROW1");
    editor.SetSpot(MacroSpot::After);
    TakeLine("ROW2");
    editor.SetSpot(MacroSpot::Before);
    TakeLine("ROW3");
    EXPECT_EQ(Statements(), (Lines{"Retail = …", "Prices = …", "Trade = …"}));
    editor.SetCurrent(0);
    editor.AddOperator("+");
    EXPECT_TRUE(editor.MessageIsProblem());
    EXPECT_EQ(editor.Elements().size(), 4U);
}

TEST_F(MacroEditorTest, NumbersAreReadAsTheNearestLineShowsThem) {
    tables.lineIndex->SetValue(1, "ROW_FORMAT", "#,##0");
    context.grid.construction.CreateFromTables();
    editor.NewMacro();
    TakeLine("ROW1");
    editor.SetOperandText("136.000");
    editor.TakeOperand();
    EXPECT_EQ(editor.Message(), "Taken as 136.000. For the other number enter \"136\".");
    EXPECT_FALSE(editor.MessageIsProblem());
    editor.AddOperator("*");
    editor.SetOperandText("5%");
    editor.NextStatement();
    TakeLine("ROW2");
    editor.SetOperandText("136.000");
    editor.TakeOperand();
    EXPECT_EQ(editor.Message(), "Taken as 136. For the other number enter \"136000\".");
    EXPECT_EQ(Statements(), (Lines{"Retail = 136000 * 0,05", "Trade = 136.000"}));
    editor.Rename("1.234,5");
    EXPECT_EQ(editor.Message(), "");
    EXPECT_EQ(Statements().back(), "Trade = 1.234,5");
    editor.Run();
    EXPECT_EQ(Line(1).substr(0, 5), "6800 ");
    EXPECT_EQ(Line(2).substr(0, 7), "1234,5 ");
}

TEST_F(MacroEditorTest, ProblemsAreMarkedUntilTheyAreGone) {
    editor.NewMacro();
    TakeLine("ROW1");
    editor.SetOperandText("2");
    editor.AddOperator("*");
    editor.Check();
    EXPECT_TRUE(editor.MessageIsProblem());
    EXPECT_NE(editor.Elements()[3].problem, "");
    editor.SetOperandText("3");
    editor.TakeOperand();
    for (const MacroElement& element : editor.Elements()) {
        EXPECT_EQ(element.problem, "") << element.text;
    }
    GoTo("Retail = 2 * 3");
    editor.ToggleActive();
    EXPECT_EQ(Shown(), (Lines{"  Macro 1", ">   x Retail = 2 * 3", "      x 2", "      x *", "      x 3"}));
    editor.Check();
    EXPECT_NE(editor.Message().find("no statement"), std::string::npos);
}

TEST_F(MacroEditorTest, ToolbarButtonsAddTheirElements) {
    editor.NewMacro();
    PointAt("COL2", "ROW3");
    context.macros.toolbar.UserPress(ToolbarButton::MakLine);
    platform.choices = {"AVERAGE"};
    context.macros.toolbar.UserPress(ToolbarButton::Function);
    PointAt("COL2", "ROW1");
    PointAt("COL3", "ROW2", SelectionMode::Extend);
    context.macros.toolbar.UserPress(ToolbarButton::TabArea);
    platform.choices = {"SELECTED"};
    context.macros.toolbar.UserPress(ToolbarButton::Attribute);
    editor.NextStatement();
    PointAt("COL2", "ROW3");
    GoTo("Own line 1 = Average of Retail to Trade, Feb to Mar");
    editor.SetSpot(MacroSpot::After);
    context.macros.toolbar.UserPress(ToolbarButton::TabElement);
    platform.choices = {"-"};
    context.macros.toolbar.UserPress(ToolbarButton::Operator);
    platform.choices = {"Own line 1"};
    context.macros.toolbar.UserPress(ToolbarButton::MakLine);
    EXPECT_EQ(Statements(), (Lines{"For the selected periods", "Own line 1 = Average of Retail to Trade, Feb to Mar",
                                   "Prices, Feb = -Own line 1"}));
    context.macros.toolbar.UserPress(ToolbarButton::Generate);
    EXPECT_EQ(editor.Message(), "The macro can run.");
}

TEST_F(MacroEditorTest, AHostWithoutTheFieldsIsToldSo) {
    ExpectErrors();
    auto plain = std::make_shared<MemoryTable>(
        std::vector<std::string>{"NODEKEY", "NODEREF", "RELATION", "NODETEXT", "IMAGE", "IMAGE_SEL", "EXPANDED"});
    plain->AddRowWith({{"NODEKEY", "N1"}, {"NODEREF", ""}, {"RELATION", 4}, {"NODETEXT", "Plan"}});
    context.shared.tables.MACRO_TREE = HostTable(plain);
    BuildTree();
    editor.NewMacro();
    EXPECT_TRUE(editor.MessageIsProblem());
    EXPECT_NE(editor.Message().find("NODETYPE"), std::string::npos) << editor.Message();
    BuildTree();
    EXPECT_EQ(context.macros.tree.Nodes().Count(), 1);
}

TEST_F(MacroEditorTest, ANewMacroGetsANameThatNoNodeHas) {
    macros.AddNode("", MacroNodeType::Macro, "", "Macro 2");
    macros.AddNode("", MacroNodeType::Folder, "", "Sales");
    macros.AddNode("", MacroNodeType::Macro, "", "Macro 1");
    BuildTree();
    for (const char* name : {"Macro 3", "Macro 4"}) {
        editor.NewMacro();
        EXPECT_EQ(context.macros.tree.SelectedItem().Text(), name);
    }
}

}  // namespace

}  // namespace planview::test
