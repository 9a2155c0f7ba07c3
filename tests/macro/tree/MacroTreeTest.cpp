// SPDX-License-Identifier: MIT
#include "macro/tree/MacroTreeFixture.h"

namespace planview {

using test::Lines;

namespace {

class MacroTreeTest : public test::MacroTreeFixture {
protected:
    [[nodiscard]] std::size_t Errors() const {
        return Entries([](const ListItem& item) { return IsError(item); }).size();
    }
};

/// A table that claims rows, and whose cells are what a test says.
class OddTable final : public AutomationObject {
public:
    std::int32_t rows = 0;
    std::function<Variant(std::int16_t row, const std::string& field)> value;
    std::function<void()> whenPut;

    DispatchId IdOf(std::string_view) const override { return 1; }
    Variant Get(DispatchId member, Arguments arguments) override {
        return member == 1 ? Variant(rows) : value(arguments[0].AsInt16(), arguments[1].AsText());
    }
    void Put(DispatchId, Arguments, const Variant&) override {
        if (whenPut) {
            whenPut();
        }
    }
    Variant Call(DispatchId, Arguments) override { return {}; }
};

}  // namespace

TEST_F(MacroTreeTest, RootsComeFirstThenChildrenInTableOrder) {
    AddNode("C", "R", 4, "child listed first");
    AddNode("", "", 1, "without a key");
    AddNode("R", "", Variant(), "root");
    AddNode("B", "C", 3);
    AddNode("S", "", "");
    AddNode("D", "B", "2");
    tables.macroTree->SetValue(3, "EXPANDED", "X");
    tables.macroTree->SetValue(1, "EXPANDED", "x");
    control->DP_Import_MacroTree();
    EXPECT_EQ(Shown(), "R(B D C) S");
    EXPECT_TRUE(Node("R").Expanded());
    EXPECT_FALSE(Node("C").Expanded()) << "only X is set";
    EXPECT_EQ(Entries(),
              (Lines{"USERCONTROL |  | DP_Import_MacroTree | {}", "MACROTREE |  | Update | {node: R - text: root}",
                     "MACROTREE |  | Update | {node: S - text: Text S}",
                     "MACROTREE |  | Update | {node: C - text: child listed first}",
                     "MACROTREE |  | Update | {node: B - text: Text B}",
                     "MACROTREE |  | Update | {node: D - text: Text D}"}));
    tables.macroTree->RemoveRow(6);
    Node("B").SetSelected(true);
    control->DP_Import_MacroTree();
    EXPECT_EQ(Shown(), "R(B C) S");
    EXPECT_TRUE(Node("B").Selected()) << "stays selected";
}

TEST_F(MacroTreeTest, NodesThatAreLeftOutAreKnown) {
    AddNode("R", "");
    AddNode("A", "R");
    AddNode("B", "R");
    for (const bool hasField : {true, false}) {
        auto odd = std::make_shared<OddTable>();
        odd->rows = 3;
        odd->value = [&](std::int16_t row, const std::string& field) -> Variant {
            if (field == "INACTIVE" && !hasField) {
                throw AutomationError(AutomationErrorCode::UnknownMember, "no such field");
            }
            return field == "INACTIVE" ? Variant(row == 2 ? "X" : "") : tables.macroTree->Value(row, field);
        };
        control->PROP_Set_MACRO_TREE(odd);
        control->DP_Import_MacroTree();
        EXPECT_EQ(Shown(), "R(A B)");
        EXPECT_EQ(Node("A").LeftOut(), hasField);
        EXPECT_FALSE(Node("B").LeftOut());
    }
}

TEST_F(MacroTreeTest, AFaultyRowEndsTheBuildAndTheTreeWorks) {
    ExpectErrors();
    const struct {
        const char* name;
        std::function<void()> addFault;
        const char* shown;
    } cases[] = {
        {"unknown relation", [&] { AddNode("X", "R", 9); }, "R"},
        {"negative relation", [&] { AddNode("X", "R", -1); }, "R"},
        {"relation that is no number", [&] { AddNode("X", "R", "below"); }, "R"},
        {"unknown reference", [&] { AddNode("X", "nobody"); }, "R"},
        {"duplicate key", [&] { AddNode("R", "R"); }, "R"},
        {"its own reference", [&] { AddNode("X", "X"); }, "R"},
        {"a circle",
         [&] {
             AddNode("X", "Y");
             AddNode("Y", "X");
         },
         "R"},
        {"a child before its parent",
         [&] {
             AddNode("X", "P");
             AddNode("P", "R");
         },
         "R"},
        {"no text but a number",
         [&] {
             AddNode("X", "R");
             tables.macroTree->SetValue(2, "NODETEXT", 12);
         },
         "R(X Z)"},
        {"no valid text", [&] { AddNode("X", "R", 4, "\xff\xfe"); }, "R"},
    };
    for (const auto& row : cases) {
        tables.macroTree->Clear();
        AddNode("R", "");
        row.addFault();
        AddNode("Z", "R");
        ForgetEntries();
        control->DP_Import_MacroTree();
        EXPECT_EQ(Shown(), row.shown) << row.name;
        EXPECT_EQ(Errors(), row.shown == std::string("R") ? 1U : 0U) << row.name;
        control->plv_ActiveNode("R");
        EXPECT_TRUE(Node("R").Selected()) << row.name;
        heard.clear();
        Tree().UserExpand(Node("R"), true);
        EXPECT_EQ(heard, Lines{"Expand R"}) << row.name;
    }
}

TEST_F(MacroTreeTest, ATableOfNonsenseLeavesAnErrorAndATreeThatWorks) {
    ExpectErrors();
    const auto nonsense = std::make_shared<OddTable>();
    nonsense->value = [](std::int16_t row, const std::string& field) {
        return field == "NODEREF" ? Variant(row % 3 ? "K" + std::to_string(row * 7 % 1000) : "")
                                  : Variant("K" + std::to_string(row % 20'000));
    };
    for (const std::int32_t rows : {100'000, 32'767, -5}) {
        nonsense->rows = rows;
        control->PROP_Set_MACRO_TREE(nonsense);
        ForgetEntries();
        control->DP_Import_MacroTree();
        EXPECT_GE(Errors(), 1U) << rows;
    }
    control->PROP_Set_MACRO_TREE(nullptr);
    control->DP_Import_MacroTree();
    EXPECT_EQ(Shown(), "");
    control->PROP_Set_MACRO_TREE(tables.macroTree);
    BuildThree();
    EXPECT_EQ(Shown(), "F(N1(N2))");
}

TEST_F(MacroTreeTest, TheLongestChainIsBuiltAndOpened) {
    constexpr int Longest = 32'767;
    modPlan::TraceEnabled = false;
    const auto chain = std::make_shared<OddTable>();
    chain->rows = Longest;
    chain->value = [](std::int16_t row, const std::string& field) -> Variant {
        return field == "RELATION"  ? Variant(4)
               : field == "NODEREF" ? Variant(row > 1 ? std::to_string(row - 1) : std::string())
                                    : Variant(std::to_string(row));
    };
    control->PROP_Set_MACRO_TREE(chain);
    control->DP_Import_MacroTree();
    modPlan::TraceEnabled = true;
    ASSERT_EQ(Tree().Nodes().Count(), Longest);
    control->plv_ActiveNode("32767");
    EXPECT_TRUE(Node("1").Expanded());
}

TEST_F(MacroTreeTest, NotRootNeedsAReference) {
    BuildThree();
    for (const char* key : {"N1", "F"}) {
        Tree().UserMouseDown(Node(key), MouseButton::Right, ShiftState::None);
    }
    Tree().UserMouseDown(TreeNode(), MouseButton::Right, ShiftState::None);
    EXPECT_EQ(EntriesOf("NotRoot"),
              (Lines{"MACROTREE |  | NotRoot | {value: True", "MACROTREE |  | NotRoot | {value: False"}));
    const auto renames = [&](std::size_t popup) { return platform.popups.at(popup).entries.back().enabled; };
    EXPECT_TRUE(renames(0));
    EXPECT_FALSE(renames(1));
    EXPECT_FALSE(renames(2)) << "beside the nodes";
}

TEST_F(MacroTreeTest, ExpandAllAndCollapseAllAndTheirDifference) {
    BuildThree();
    Node("N2").SetSelected(true);
    platform.choices = {"mnuTreeCollapse"};
    Tree().UserMouseDown(Node("N1"), MouseButton::Right, ShiftState::None);
    EXPECT_EQ(heard, (Lines{"CollapseAll ", "MouseDown N1"}));
    EXPECT_EQ(Field("EXPANDED"), (Lines{"", "", ""}));
    EXPECT_EQ(Tree().SelectedItem().Key(), "N2") << "stays where it was";
    heard.clear();
    platform.choices = {"mnuTreeExpand"};
    Tree().UserMouseDown(Node("N1"), MouseButton::Right, ShiftState::None);
    EXPECT_EQ(heard, (Lines{"ExpandAll ", "MouseDown N1"}));
    EXPECT_EQ(Field("EXPANDED"), (Lines{"X", "X", "X"}));
    EXPECT_EQ(Tree().SelectedItem().Key(), "F");
    EXPECT_TRUE(Node("N2").Expanded());
}

TEST_F(MacroTreeTest, ATableThatCallsTheControlWhileItIsWrittenDoesNoHarm) {
    ExpectErrors();
    const auto table = std::make_shared<OddTable>();
    table->rows = 3;
    table->value = [](std::int16_t row, const std::string& field) -> Variant {
        return field == "NODEKEY" ? Variant("K" + std::to_string(row)) : Variant("");
    };
    control->PROP_Set_MACRO_TREE(table);
    control->DP_Import_MacroTree();
    table->whenPut = [&] {
        table->rows = 1;
        control->DP_Import_MacroTree();
    };
    ForgetEntries();
    platform.choices = {"mnuTreeExpand"};
    Tree().UserMouseDown(Node("K2"), MouseButton::Right, ShiftState::None);
    EXPECT_EQ(Shown(), "K1 K2 K3");
    EXPECT_EQ(Errors(), 3U) << "one for each build inside the other";
    EXPECT_EQ(heard, (Lines{"ExpandAll ", "MouseDown K2"}));
    control->DP_Import_MacroTree();
    EXPECT_EQ(Shown(), "K1");
}

}  // namespace planview
