// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>
#include <random>

#include "macro/run/MacroEngineFixture.h"
#include "support/TreeText.h"

namespace planview::test {

namespace {

struct HeardEvents : PlanViewEvents {
    void MacroTreeExpand() override { ++count; }
    int count = 0;
};

/// A user at the macro editor: points at the grid, presses the buttons.
class MacroEditorTest : public MacroEngineTest {
protected:
    MacroEditorTest() : editor(context.macros.editor) { context.shared.events.AddSink(heard); }
    ~MacroEditorTest() override { context.shared.events.RemoveSink(heard); }

    void PointAtLine(const char* row) {
        context.grid.control.SelectRow(*context.grid.control.FindRow(row), SelectionMode::Replace);
    }
    void PointAt(const char* column, const char* row, SelectionMode mode = SelectionMode::Replace) {
        context.grid.control.SelectCell(context.grid.control.FindCell({column, row}).value(), mode);
    }
    void TakeLine(const char* row) {
        PointAtLine(row);
        editor.TakeOperand();
    }
    /// The list: two blanks a level, "> " before the current element, "x" for one that is left out.
    [[nodiscard]] Lines Shown() const {
        Lines shown;
        for (std::size_t i = 0; i < editor.Elements().size(); ++i) {
            const MacroElement& element = editor.Elements()[i];
            shown.push_back((static_cast<int>(i) == editor.Current() ? "> " : "  ") +
                            std::string(static_cast<std::size_t>(element.depth) * 2, ' ') +
                            (element.inactive ? "x " : "") + element.text);
        }
        return shown;
    }
    /// What the table says when the tree is built from it once more.
    [[nodiscard]] Lines Statements() {
        BuildTree();
        Lines statements;
        for (const MacroElement& element : editor.Elements()) {
            if (element.depth == 1) {
                statements.push_back(element.text);
            }
        }
        return statements;
    }
    void GoTo(const std::string& text) {
        for (std::size_t i = 0; i < editor.Elements().size(); ++i) {
            if (editor.Elements()[i].text == text) {
                editor.SetCurrent(static_cast<int>(i));
                return;
            }
        }
        ADD_FAILURE() << "no element " << text;
    }

    MacroEditor& editor;
    HeardEvents heard;
};

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

TEST_F(MacroEditorTest, DeletingLeavesTheOthersWhereTheyWere) {
    editor.NewMacro();
    const std::string first = editor.MacroKey();
    for (const char* row : {"ROW1", "ROW2", "ROW3", "ROW6"}) {
        editor.SetSpot(editor.Current() == 0 ? MacroSpot::Inside : MacroSpot::After);
        TakeLine(row);
        editor.SetOperandText("1");
        editor.TakeOperand();
        editor.NextStatement();
    }
    GoTo("Trade = 1");
    editor.Delete();
    EXPECT_EQ(Statements(), (Lines{"Retail = 1", "Prices = 1", "Total = 1"}));
    GoTo("Total = 1");
    editor.Move(true);
    editor.Move(true);
    EXPECT_EQ(Statements(), (Lines{"Total = 1", "Retail = 1", "Prices = 1"}));
    editor.Move(true);
    EXPECT_EQ(editor.Message(), "It is the first of its level.");
    const int rows = tables.macroTree->RowCount();
    editor.NewMacro();
    EXPECT_EQ(tables.macroTree->RowCount(), rows) << "the deleted rows are taken again";
    platform.answer = MessageAnswer::Yes;
    editor.Delete();
    EXPECT_FALSE(context.macros.tree.Nodes().Find(editor.MacroKey()));
    context.macros.tree.Nodes().Item(first).SetSelected(true);
    EXPECT_EQ(Statements().size(), 3U);
}

TEST_F(MacroEditorTest, RenamingAnOwnLineRenamesItEverywhere) {
    const std::string key = macros.Add("Plan", "$a = ROW1\nROW3 = $a\n#a = 1");
    BuildTree();
    context.macros.tree.Nodes().Item(key).SetSelected(true);
    GoTo("a = Retail");
    editor.Rename("Help");
    EXPECT_EQ(Statements(), (Lines{"Help = Retail", "Prices = Help", "a = 1"}));
    GoTo("1");
    editor.Rename("x");
    EXPECT_TRUE(editor.MessageIsProblem());
    editor.Rename("2,5");
    editor.SetCurrent(0);
    editor.Rename("  ");
    EXPECT_EQ(editor.Message(), "A name cannot be empty.");
    editor.Rename("Plan B");
    EXPECT_EQ(Shown().front(), "> Plan B");
    EXPECT_EQ(Statements().back(), "a = 2,5");
}

TEST_F(MacroEditorTest, TheTreesOwnRenamingDoesTheSame) {
    const std::string key = macros.Add("Plan", "$a = ROW1\nROW3 = $a * 2");
    BuildTree();
    TreeControl& tree = context.macros.tree;
    tree.Nodes().Item(key).SetSelected(true);
    const auto rename = [&](const char* element, const char* text) {
        GoTo(element);
        const TreeNode node = tree.SelectedItem();
        ASSERT_TRUE(tree.UserBeginLabelEdit(node));
        tree.UserEndLabelEdit(text);
    };
    rename("2", "3");
    EXPECT_EQ(Statements(), (Lines{"a = Retail", "Prices = a * 3"}));
    EXPECT_EQ(tree.SelectedItem().Text(), "3");
    editor.Run();
    EXPECT_EQ(Line(3), "30 60 90 120 150 180") << "it calculates with what the tree shows";
    rename("3", "x");
    EXPECT_EQ(tree.SelectedItem().Text(), "3");
    EXPECT_EQ(editor.Message(), "\"x\" is not a number. Enter digits with a point or a comma.");
    rename("a = Retail", "Help");
    EXPECT_EQ(Statements(), (Lines{"Help = Retail", "Prices = Help * 3"}));
    editor.Undo();
    editor.Undo();
    EXPECT_EQ(Statements(), (Lines{"a = Retail", "Prices = a * 2"}));
}

TEST_F(MacroEditorTest, AWholeMacroIsDeletedOnlyIfTheUserAgrees) {
    const std::string key = macros.Add("Plan", "ROW3 = ROW1");
    BuildTree();
    context.macros.tree.Nodes().Item(key).SetSelected(true);
    editor.Delete();
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(platform.messages[0].text, "Delete the macro \"Plan\" with 2 elements?");
    EXPECT_EQ(editor.MacroKey(), key);
    platform.answer = MessageAnswer::Yes;
    editor.Delete();
    EXPECT_FALSE(context.macros.tree.Nodes().Find(key));
    editor.Undo();
    EXPECT_EQ(Statements(), Lines{"Prices = Retail"});
    EXPECT_EQ(editor.MacroKey(), key);
    editor.Redo();
    EXPECT_FALSE(context.macros.tree.Nodes().Find(key));
    EXPECT_FALSE(editor.CanRedo());
}

TEST_F(MacroEditorTest, WhatAnotherHasChangedIsNotTakenBack) {
    const std::string key = macros.Add("Plan", "ROW3 = 1");
    BuildTree();
    context.macros.tree.Nodes().Item(key).SetSelected(true);
    editor.Rename("Plan B");
    const HostTable table = context.shared.tables.MACRO_TREE;
    table.Put(table.FindRow("NODEKEY", key), "NODETEXT", "The host's");
    ExpectErrors();
    editor.Undo();
    EXPECT_EQ(table.Text(table.FindRow("NODEKEY", key), "NODETEXT"), "The host's");
    EXPECT_TRUE(editor.MessageIsProblem());
    EXPECT_FALSE(editor.CanUndo());
}

TEST_F(MacroEditorTest, NothingIsChangedWhereTheTableIsReadOnly) {
    const std::string key = macros.Add("Plan", "ROW3 = ROW1 * 2");
    BuildTree();
    TreeControl& tree = context.macros.tree;
    tree.Nodes().Item(key).SetSelected(true);
    editor.Rename("Plan B");
    GoTo("2");
    const Lines shown = Shown();
    context.grid.control.SetReadOnly(true);
    const std::function<void()> edits[] = {
        [&] { editor.NewMacro(); },
        [&] { editor.Rename("7"); },
        [&] { editor.Delete(); },
        [&] { editor.Move(true); },
        [&] { editor.ToggleActive(); },
        [&] { editor.AddCondition(false); },
        [&] { editor.AddFunction("SUM"); },
        [&] { editor.AddOperator("+"); },
        [&] { TakeLine("ROW2"); },
        [&] { editor.MoveTo(key, key, TreeDrop::Below); },
        [&] { editor.AddElement(ToolbarButton::TabLine); },
    };
    for (const auto& edit : edits) {
        edit();
        EXPECT_EQ(editor.Message(), "This table is open for reading only.");
        EXPECT_EQ(Shown(), shown);
    }
    EXPECT_FALSE(tree.UserBeginLabelEdit(tree.SelectedItem()));
    EXPECT_FALSE(editor.CanUndo());
    editor.Undo();
    EXPECT_EQ(Statements(), Lines{"Prices = Retail * 2"});
    context.grid.control.SetReadOnly(false);
    editor.Undo();
    EXPECT_EQ(Shown().front().substr(2), "Plan");
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

/// Folders that are dragged about, and what should come of it.
struct DraggedFolders {
    std::map<std::string, std::vector<std::string>> below;
    std::map<std::string, std::string> parent;

    void Add(const std::string& key, const std::string& in) {
        below[in].push_back(key);
        parent[key] = in;
    }
    [[nodiscard]] bool IsIn(std::string key, const std::string& above) const {
        while (!key.empty() && key != above) {
            key = parent.at(key);
        }
        return !key.empty();
    }
    void Drop(const std::string& key, const std::string& target, TreeDrop place) {
        std::erase(below[parent[key]], key);
        const std::string in = place == TreeDrop::Below ? target : parent[target];
        std::vector<std::string>& keys = below[in];
        const auto at = place == TreeDrop::Below ? keys.end() : std::find(keys.begin(), keys.end(), target);
        keys.insert(at + (place == TreeDrop::After ? 1 : 0), key);
        parent[key] = in;
    }
    [[nodiscard]] std::string Text(const std::string& in = {}) const {
        std::string text;
        const auto found = below.find(in);
        for (const std::string& key : found == below.end() ? std::vector<std::string>() : found->second) {
            const std::string inside = Text(key);
            text += (text.empty() ? "" : " ") + key + (inside.empty() ? "" : "(" + inside + ")");
        }
        return text;
    }
};

TEST_F(MacroEditorTest, DraggedNodesStandWhereTheyWereDropped) {
    std::mt19937 random(7);
    DraggedFolders folders;
    std::vector<std::string> keys;
    for (int i = 0; i < 14; ++i) {
        const std::string in = i < 3 ? std::string() : keys[random() % keys.size()];
        keys.push_back("N" + std::to_string(i));
        AddRow(*tables.macroTree, {{"NODEKEY", keys.back()},
                                   {"NODEREF", in},
                                   {"RELATION", 4},
                                   {"NODETEXT", "Text " + keys.back()},
                                   {"NODETYPE", ""}});
        folders.Add(keys.back(), in);
    }
    BuildTree();
    ASSERT_EQ(TreeText(context.macros.tree), folders.Text());
    int moved = 0;
    for (int step = 0; step < 300; ++step) {
        const std::string key = keys[random() % keys.size()];
        const std::string target = keys[random() % keys.size()];
        const auto place = static_cast<TreeDrop>(random() % 3);
        const std::string before = folders.Text();
        // The first three are the top level and stay there.
        if (folders.parent[key].empty() || (folders.parent[target].empty() && place != TreeDrop::Below)) {
            continue;
        }
        editor.MoveTo(key, target, place);
        if (folders.IsIn(target, key)) {
            EXPECT_EQ(editor.Message(), "A node cannot be moved into itself.");
        } else {
            folders.Drop(key, target, place);
            ++moved;
        }
        BuildTree();
        ASSERT_EQ(TreeText(context.macros.tree), folders.Text())
            << step << ": " << key << " to " << target << " in " << before;
        ASSERT_EQ(context.macros.tree.Nodes().Item(key).Text(), "Text " + key);
    }
    EXPECT_GT(moved, 100);
    editor.MoveTo(keys[2], keys[0], TreeDrop::Before);
    folders.Drop(keys[2], keys[0], TreeDrop::Before);
    BuildTree();
    EXPECT_EQ(TreeText(context.macros.tree), folders.Text()) << "beside another root";
    editor.NewMacro();
    const std::string macro = editor.MacroKey();
    TakeLine("ROW1");
    const std::string line = context.macros.tree.SelectedItem().Key();
    const std::string shown = TreeText(context.macros.tree);
    for (const auto& [node, target] : {std::pair(line, keys[0]), std::pair(keys[0], macro), std::pair(macro, line)}) {
        editor.MoveTo(node, target, TreeDrop::Below);
        EXPECT_TRUE(editor.MessageIsProblem()) << node;
        EXPECT_EQ(TreeText(context.macros.tree), shown);
    }
}

TEST_F(MacroEditorTest, ANodeGoesOnlyWhereItsKindStands) {
    constexpr const char* InMacro = "An element stands in a macro.";
    constexpr const char* InRecording = "A recorded step stands in a recording.";
    constexpr const char* InFolder = "Folders, macros and recordings stand in a folder, not in another macro.";
    const std::string folder = macros.AddNode("", MacroNodeType::Folder, "", "Folder");
    const std::string macro = macros.Add("Macro", "ROW1 = ROW2\n");
    const std::string recording = macros.AddNode(folder, MacroNodeType::Recording, "", "Recording");
    const std::string step = macros.AddNode(recording, MacroNodeType::Step, "VALUE", "1. Step");
    BuildTree();
    const std::string line = context.macros.tree.Nodes().Item(macro).FirstChild().Key();
    const struct {
        const char* name;
        std::string node;
        std::string target;
        TreeDrop place;
        const char* said;
    } rows[] = {
        {"an element into a folder", line, folder, TreeDrop::Below, InMacro},
        {"an element among the roots", line, folder, TreeDrop::After, InMacro},
        {"an element into a recording", line, recording, TreeDrop::Below, InMacro},
        {"an element beside a recorded step", line, step, TreeDrop::Before, InMacro},
        {"an element into a recorded step", line, step, TreeDrop::Below, InMacro},
        {"a step into a macro", step, macro, TreeDrop::Below, InRecording},
        {"a step into a folder", step, folder, TreeDrop::Below, InRecording},
        {"a macro into a recording", macro, recording, TreeDrop::Below, InFolder},
        {"a folder beside an element", folder, line, TreeDrop::After, InFolder},
        {"a recording into a macro", recording, macro, TreeDrop::Below, InFolder},
    };
    const std::string before = TreeText(context.macros.tree);
    for (const auto& row : rows) {
        editor.MoveTo(row.node, row.target, row.place);
        EXPECT_EQ(editor.Message(), row.said) << row.name;
        EXPECT_EQ(TreeText(context.macros.tree), before) << row.name;
    }
    editor.MoveTo(recording, folder, TreeDrop::After);
    editor.MoveTo(macro, folder, TreeDrop::Below);
    EXPECT_EQ(context.macros.tree.Nodes().Item(macro).Parent().Key(), folder);
    EXPECT_FALSE(context.macros.tree.Nodes().Item(recording).Parent()) << "a recording among the roots";
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

/// However the user edits, the table always gives the tree that the editor shows.
TEST_F(MacroEditorTest, AnyEditingKeepsTableAndTreeInStep) {
    platform.answer = MessageAnswer::Yes;
    std::mt19937 random(7);
    editor.NewMacro();
    for (int step = 0; step < 400; ++step) {
        const auto count = static_cast<unsigned>(editor.Elements().size());
        editor.SetCurrent(static_cast<int>(random() % std::max(count, 1U)));
        editor.SetSpot(static_cast<MacroSpot>(random() % 3));
        switch (random() % 8) {
            case 0:
                editor.Delete();
                break;
            case 1:
                editor.Move(random() % 2 == 0);
                break;
            case 2:
                editor.AddCondition(random() % 2 == 0);
                break;
            case 3:
                editor.AddFunction("SUM");
                break;
            case 4:
                editor.NewMacro();
                break;
            default:
                TakeLine(random() % 2 == 0 ? "ROW1" : "ROW2");
        }
        const Lines shown = Shown();
        BuildTree();
        ASSERT_EQ(Shown(), shown) << "step " << step;
    }
    EXPECT_GT(context.macros.tree.Nodes().Count(), 20);
    EXPECT_TRUE(EntriesOf("Reload").empty());
}

TEST_F(MacroEditorTest, EveryEditIsTakenBackAndMadeAgain) {
    platform.answer = MessageAnswer::Yes;
    std::mt19937 random(11);
    const auto state = [&] {
        std::string text = TreeText(context.macros.tree);
        TreeNodes& nodes = context.macros.tree.Nodes();
        for (int i = 1; i <= nodes.Count(); ++i) {
            text += "\n" + nodes.Item(i).Key() + ": " + nodes.Item(i).Text() + (nodes.Item(i).LeftOut() ? " x" : "");
        }
        return text;
    };
    BuildTree();
    Lines states{state()};
    for (int step = 0; step < 150; ++step) {
        const auto count = static_cast<unsigned>(editor.Elements().size());
        editor.SetCurrent(static_cast<int>(random() % std::max(count, 1U)));
        editor.SetSpot(static_cast<MacroSpot>(random() % 3));
        switch (random() % 7) {
            case 0:
                editor.Delete();
                break;
            case 1:
                editor.Move(random() % 2 == 0);
                break;
            case 2:
                editor.AddCondition(false);
                break;
            case 3:
                editor.Rename(std::to_string(step));
                break;
            case 4:
                editor.NewMacro();
                break;
            case 5:
                editor.ToggleActive();
                break;
            default:
                TakeLine("ROW1");
        }
        if (const std::string now = state(); now != states.back()) {
            states.push_back(now);
        }
    }
    ASSERT_GT(states.size(), 50U);
    Lines back{state()};
    while (editor.CanUndo()) {
        editor.Undo();
        if (const std::string now = state(); now != back.back()) {
            back.push_back(now);
        }
    }
    EXPECT_EQ(Lines(back.rbegin(), back.rend()), states);
    while (editor.CanRedo()) {
        editor.Redo();
    }
    EXPECT_EQ(state(), states.back());
}

}  // namespace

}  // namespace planview::test
