// SPDX-License-Identifier: MIT
#include "control/ControlParts.h"
#include "macro/tree/MacroTreeFixture.h"

namespace planview {

using test::Lines;

namespace {

class MacroTreeEventsTest : public test::MacroTreeFixture {
protected:
    MacroTreeEventsTest() { BuildThree(); }

    /// A popup that is asked something of the control while it is open.
    class AskingPopups : public Popups {
    public:
        std::function<std::string()> whileOpen;
        std::string Choose(const PopupMenu&, PopupPlace) override { return whileOpen(); }
    };
};

}  // namespace

TEST_F(MacroTreeEventsTest, ARenamedNodeReachesTheTableAndTheHost) {
    ASSERT_TRUE(Tree().UserBeginLabelEdit(Node("N1")));
    Tree().UserEndLabelEdit("Plan A");
    EXPECT_EQ(Field("NODETEXT"), (Lines{"Text F", "Plan A", "Text N2"}));
    EXPECT_EQ(heard, Lines{"ExpandAll "});
    EXPECT_EQ(Entries(), (Lines{"MACROTREE |  | BeforeLabelEdit | {node: N1 - status: True}",
                                "MACROTREE |  | AfterLabelEdit | {node: N1 - new: Plan A}"}));
    for (const char* same : {"Plan A", ""}) {
        ASSERT_TRUE(Tree().UserBeginLabelEdit(Node("N1")));
        Tree().UserEndLabelEdit(same);
        EXPECT_EQ(Field("NODETEXT")[1], "Plan A") << "counts as cancelled";
    }
    EXPECT_EQ(heard.size(), 1U);
}

TEST_F(MacroTreeEventsTest, ARenameThatTheTableRefusesIsTakenBack) {
    ExpectErrors();
    ASSERT_TRUE(Tree().UserBeginLabelEdit(Node("N1")));
    control->PROP_Set_MACRO_TREE(nullptr);
    Tree().UserEndLabelEdit("Plan A");
    EXPECT_EQ(Node("N1").Text(), "Text N1");
    EXPECT_EQ(heard, Lines{});
}

TEST_F(MacroTreeEventsTest, NodesOpenCloseAndAreDoubleClicked) {
    Tree().UserExpand(Node("N1"), true);
    EXPECT_EQ(Field("EXPANDED"), (Lines{"", "X", ""}));
    Tree().UserExpand(Node("N1"), true);
    Tree().UserExpand(Node("N1"), false);
    EXPECT_EQ(Field("EXPANDED"), (Lines{"", "", ""}));
    Tree().UserDoubleClick(Node("N2"));
    EXPECT_EQ(heard, (Lines{"Expand N1", "Collapse N1", "Click N2"}));
    EXPECT_EQ(Entries(),
              (Lines{"MACROTREE |  | Expand fired | {node: Text N1}", "MACROTREE |  | Collapse fired | {node: Text N1}",
                     "MACROTREE |  | DblClick fired | {node: Text N2}"}));
    heard.clear();
    ASSERT_TRUE(Tree().UserBeginLabelEdit(Node("N1")));
    Tree().UserExpand(Node("F"), true);
    Tree().UserDoubleClick(Node("N1"));
    EXPECT_EQ(heard, Lines{}) << "nothing while a label is being edited";
    EXPECT_EQ(Field("EXPANDED")[0], "X") << "but the table keeps up";
}

TEST_F(MacroTreeEventsTest, ARightPressOpensThePopupALeftOneDoesNot) {
    platform.choices = {"mnuNodeRename"};
    Tree().UserMouseDown(Node("N1"), MouseButton::Left, ShiftState::Shift | ShiftState::Control);
    EXPECT_TRUE(platform.popups.empty());
    Tree().UserMouseDown(TreeNode(), MouseButton::Left, ShiftState::None);
    EXPECT_EQ(heard, (Lines{"MouseDown N1", "MouseDown "}));
    EXPECT_EQ(Entries(), (Lines{"MACROTREE |  | MouseDown | {mousebutton: 1 - shift: 3}",
                                "MACROTREE |  | MouseDown fired | {node: Text N1}",
                                "MACROTREE |  | MouseDown | {mousebutton: 1 - shift: 0}",
                                "MACROTREE |  | MouseDown fired | {node: }"}));
    struct EditWatch : TreeWatcher {
        void NodesReset() override {}
        void TextChanged(TreeNode) override {}
        void ExpandedChanged(TreeNode) override {}
        void SelectionChanged() override {}
        void ShowNode(TreeNode) override {}
        void EditLabel(TreeNode node) override { edited = node.Key(); }
        std::string edited;
    } watch;
    Tree().AddWatcher(watch);
    ForgetEntries();
    Tree().UserMouseDown(Node("N1"), MouseButton::Right, ShiftState::None);
    EXPECT_EQ(watch.edited, "N1");
    EXPECT_EQ(platform.popups.size(), 1U);
    EXPECT_EQ(Entries(),
              (Lines{"MACROTREE |  | MouseDown | {mousebutton: 2 - shift: 0}",
                     "POPUP |  | Update | {menu: MACRO-RECORD}", "MACROTREE |  | NotRoot | {value: True",
                     "POPUP |  | Update | {menu: RENAME - checked: False - enabled: True}",
                     "POPUP | {menu: NodeRename} | Selected | ", "MACROTREE |  | MouseDown fired | {node: Text N1}"}));
    Tree().RemoveWatcher(watch);
    Node("N2").SetSelected(true);
    Tree().UserMenuKey();
    EXPECT_EQ(platform.popupPlaces.back(), PopupPlace::CurrentCell);
}

TEST_F(MacroTreeEventsTest, AClickOnTheSelectedNodeAsksWhereANewOneGoes) {
    Tree().UserClick(Node("N1"), false);
    EXPECT_TRUE(platform.popups.empty());
    const std::pair<const char*, const char*> cases[] = {{"mnuMacroInsert", "Dropped N1 INSERT 1"},
                                                         {"mnuMacroAdd", "Dropped N1 INSERT 2"},
                                                         {"mnuNextLevel", "Dropped N1 CREATE 3"}};
    for (const auto& [choice, event] : cases) {
        heard.clear();
        platform.choices = {choice};
        Tree().UserClick(Node("N1"), true);
        EXPECT_EQ(heard, Lines{event});
    }
    heard.clear();
    Tree().UserClick(Node("N1"), true);
    EXPECT_EQ(heard, Lines{}) << "closed without a choice";
    EXPECT_EQ(EntriesOf("NodeClick fired").size(), 5U);
    ExpectErrors();
    tables.macroTree->RemoveRow(2);
    Tree().UserClick(Node("N1"), true);
    EXPECT_EQ(platform.popups.size(), 4U) << "no popup for a node that the table does not have";
}

TEST_F(MacroTreeEventsTest, ADraggedNodeIsReportedAndNotMoved) {
    Tree().UserDrop(Node("N2"), Node("F"), TreeDrop::Before);
    Tree().UserDrop(Node("N2"), Node("F"), TreeDrop::After);
    Tree().UserDrop(Node("N2"), Node("F"), TreeDrop::Below);
    EXPECT_EQ(heard, (Lines{"Dropped F N2 4", "Dropped F N2 5", "Dropped F N2 6"}));
    EXPECT_EQ(Shown(), "F(N1(N2))");
    heard.clear();
    Tree().UserDrop(Node("F"), Node("F"), TreeDrop::Below);
    Tree().UserDrop(Node("F"), Node("N2"), TreeDrop::After);
    EXPECT_EQ(heard, Lines{}) << "not into itself";
}

TEST_F(MacroTreeEventsTest, TheHostChoosesTheNodeButNotUnderAPopup) {
    control->plv_ActiveNode("N2");
    EXPECT_TRUE(Node("N2").Selected());
    EXPECT_TRUE(Node("F").Expanded()) << "made visible";
    EXPECT_EQ(heard, Lines{}) << "what the host does raises nothing";

    AskingPopups popups;
    Platform asking = platform.Interfaces();
    asking.popups = &popups;
    PlanView other(asking);
    TreeControl& tree = ControlParts(other).Tree();
    other.PROP_Set_MACRO_TREE(tables.macroTree);
    other.DP_Import_MacroTree();
    other.plv_ActiveNode("N1");
    int opened = 0;
    popups.whileOpen = [&] {
        ++opened;
        other.plv_ActiveNode("F");
        tree.UserMouseDown(tree.Nodes().Item("F"), MouseButton::Right,
                           ShiftState::None);  // no second popup over the first
        return std::string();
    };
    tree.UserMouseDown(tree.Nodes().Item("N1"), MouseButton::Right, ShiftState::None);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(tree.SelectedItem().Key(), "N1");
    other.plv_ActiveNode("F");
    EXPECT_EQ(tree.SelectedItem().Key(), "F");
    ExpectErrors();
    other.plv_ActiveNode("nobody");
    EXPECT_EQ(tree.SelectedItem().Key(), "F");
}

TEST_F(MacroTreeEventsTest, AHostMayChangeTheTreeDuringAnyEvent) {
    whenHeard = [&] {
        tables.macroTree->Clear();
        AddNode("NEW", "");
        control->DP_Import_MacroTree();
        control->plv_ActiveNode("NEW");
    };
    const std::function<void()> actions[] = {
        [&] { Tree().UserExpand(Node("N1"), true); },
        [&] { Tree().UserDoubleClick(Node("N1")); },
        [&] { Tree().UserMouseDown(Node("N1"), MouseButton::Left, ShiftState::None); },
        [&] { Tree().UserDrop(Node("N2"), Node("F"), TreeDrop::Below); },
        [&] {
            platform.choices = {"mnuMacroAdd"};
            Tree().UserClick(Node("N1"), true);
        },
        [&] {
            platform.choices = {"mnuTreeExpand"};
            Tree().UserMouseDown(Node("N1"), MouseButton::Right, ShiftState::None);
        },
        [&] {
            ASSERT_TRUE(Tree().UserBeginLabelEdit(Node("N1")));
            Tree().UserEndLabelEdit("renamed");
        },
    };
    for (const auto& action : actions) {
        tables.macroTree->Clear();
        BuildThree();
        action();
        EXPECT_EQ(Shown(), "NEW");
        EXPECT_TRUE(Node("NEW").Selected());
    }
}

TEST_F(MacroTreeEventsTest, FocusLeavesItsEntries) {
    Tree().UserFocus(true);
    Tree().UserFocus(false);
    EXPECT_EQ(Entries(), (Lines{"MACROTREE |  | GotFocus | {}", "MACROTREE |  | LostFocus | {}"}));
}

}  // namespace planview
