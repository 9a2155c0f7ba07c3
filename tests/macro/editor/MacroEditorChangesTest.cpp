// SPDX-License-Identifier: MIT
#include <map>

#include "macro/editor/MacroEditorFixture.h"
#include "support/TreeText.h"

namespace planview::test {

namespace {

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

/// However the user edits, the table always gives the tree that the editor shows.
TEST_F(MacroEditorTest, AnyEditingKeepsTableAndTreeInStep) {
    platform.answer = MessageAnswer::Yes;
    std::mt19937 random(7);
    editor.NewMacro();
    for (int step = 0; step < 400; ++step) {
        GoAnywhere(random);
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
        GoAnywhere(random);
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
