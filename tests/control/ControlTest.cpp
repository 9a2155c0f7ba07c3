#include <gtest/gtest.h>

#include <planview/HeadlessPlatform.h>
#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;
using test::Tables;

namespace {

class ControlTest : public test::TracedTest {
protected:
    /// The control ends, and with it the trace, before the fixture looks at what was traced.
    ControlTest() : control(std::make_unique<PlanView>(platform.Interfaces())) { ForgetEntries(); }

    std::unique_ptr<PlanView> control;
    Tables tables;
};

std::string NameOf(DispatchId id) {
    return std::string(DescribeMembers()[static_cast<std::size_t>(id) - 1].name);
}

}  // namespace

TEST_F(ControlTest, SixtyFiveMembersKeepTheirNumbers) {
    const auto members = DescribeMembers();
    ASSERT_EQ(members.size(), 65U);
    for (const MemberDescription& member : members) {
        EXPECT_EQ(control->IdOf(member.name), member.id);
    }
    EXPECT_EQ(NameOf(1), "plv_EnableTrace");
    EXPECT_EQ(NameOf(7), "plv_ActiveNode");
    EXPECT_EQ(NameOf(15), "DP_Import_MacroTree");
    EXPECT_EQ(NameOf(16), "PROP_Get_GRID_ATTR");
    EXPECT_EQ(NameOf(36), "plvSet_FIXED_LINES");
    EXPECT_EQ(NameOf(37), "PROP_Set_FIXED_TAB") << "the fixed cells have no getter";
    EXPECT_EQ(NameOf(38), "plvSet_FIXED_TAB");
    EXPECT_EQ(NameOf(39), "PROP_Get_CELL_ATTR");
    EXPECT_EQ(NameOf(65), "plvSet_MACROREC");
}

TEST_F(ControlTest, EveryMemberAnswersByNumber) {
    tables.GiveTo(*control);
    // A stretch of members that end no trace; the two trace switches are tried elsewhere.
    for (DispatchId id = 3; id <= 65; ++id) {
        const int count = DescribeMembers()[static_cast<std::size_t>(id) - 1].argumentCount;
        const bool getter = NameOf(id).starts_with("PROP_Get");
        const std::vector<Variant> arguments(static_cast<std::size_t>(count),
                                             id == 7 ? Variant("N1") : Variant::Nothing());
        const Variant answer = control->Call(id, arguments);
        EXPECT_EQ(answer.GetKind(),
                  getter ? (id < 19 ? Variant::Kind::Object : answer.GetKind()) : Variant::Kind::Int16)
            << NameOf(id);
        if (!getter) {
            EXPECT_EQ(answer.AsInt16(), 0) << NameOf(id);
        }
        EXPECT_THROW(control->Call(id, std::vector<Variant>(3)), AutomationError) << NameOf(id);
        if (id == 15) {
            tables.GiveTo(*control);
        }
    }
    EXPECT_THROW(control->Call(0, {}), AutomationError);
    EXPECT_THROW(control->Call(66, {}), AutomationError);
    EXPECT_THROW(static_cast<void>(control->IdOf("PROP_Get_FIXED_TAB")), AutomationError);
    EXPECT_THROW(static_cast<void>(control->Get(1, {})), AutomationError);
}

TEST_F(ControlTest, TablePropertiesKeepTheVeryObject) {
    const auto first = std::make_shared<MemoryTable>(std::vector<std::string>{"Z"});
    const auto second = std::make_shared<MemoryTable>(std::vector<std::string>{"Z"});
    EXPECT_EQ(control->PROP_Get_TAB(), nullptr);
    control->PROP_Set_TAB(first);
    control->plvSet_TAB(second);
    EXPECT_EQ(first.use_count(), 1) << "the earlier object is released";
    EXPECT_EQ(control->PROP_Get_TAB(), second);
    control->PROP_Set_TAB(nullptr);
    EXPECT_EQ(second.use_count(), 1);
    control->PROP_Get_CELL_ATTR();
    EXPECT_EQ(Entries(), (Lines{
                             "DATAPROVIDER |  | Export | {table: TAB}",
                             "DATAPROVIDER |  | Import | {table: TAB}",
                             "DATAPROVIDER |  | Import | {table: TAB}",
                             "DATAPROVIDER |  | Export | {table: TAB}",
                             "DATAPROVIDER |  | Import | {table: TAB}",
                             "DATAPROVIDER |  | Import | {table: CELL_ATTR}",
                         }));
}

TEST_F(ControlTest, TheEndReleasesTheTablesInTheirOrder) {
    tables.GiveTo(*control);
    ForgetEntries();
    Lines entries;
    platform.answer = MessageAnswer::No;
    // The list is emptied when the trace ends; the question about saving it comes just before.
    class Peek final : public MessageBoxes {
    public:
        explicit Peek(Lines& out) : out_(out) {}
        MessageAnswer Show(const MessageBoxRequest&) override {
            out_ = ControlTest::Entries();
            return MessageAnswer::No;
        }

    private:
        Lines& out_;
    } peek(entries);
    control = std::make_unique<PlanView>(Platform{peek, platform, platform, platform, platform});
    tables.GiveTo(*control);
    modPlan::Trace_Enable(platform.Interfaces());
    ForgetEntries();
    control->Terminate();

    const Lines names{"GRID_ATTR", "COLS_INDEX", "LINE_INDEX", "TAB_OLD",    "FIXED_COLS", "FIXED_LINES",
                      "FIXED_TAB", "CELL_ATTR",  "GRID_TREE",  "MACRO_TREE", "TEXTS",      "COL_MENU",
                      "ROW_MENU",  "GRID_MENU",  "CELL_MENU",  "MACRO_REC"};
    Lines expected{"GRIDCTL |  | DESTRUCTOR | {redraw:False}"};
    for (const std::string& name : names) {
        expected.push_back("Q/7-OBJECT |  | " + name + " | {=Nothing}");
    }
    expected.emplace_back("USERCONTROL | DESTRUCTOR | Terminate | {}");
    ASSERT_EQ(entries.size(), expected.size() + 3);
    EXPECT_EQ(Lines(entries.begin(), entries.end() - 3), expected);
    EXPECT_EQ(entries.back().substr(0, 26), "USERCONTROL | MEMORY CHECK");
    EXPECT_FALSE(modPlan::TraceEnabled);
    EXPECT_EQ(tables.tab.use_count(), 1);

    control->PROP_Set_TAB(tables.tab);
    EXPECT_EQ(control->DP_Import_Create(), 0) << "a control that has ended does nothing";
    EXPECT_EQ(tables.tab.use_count(), 1);
}

TEST_F(ControlTest, LayoutCallsKeepTheirOrder) {
    control->plv_LayoutShow();
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(platform.messages[0].text, "NOTHING");
    EXPECT_EQ(EntriesOf("Layout"), Lines{}) << "without layout mode nothing is laid out";

    control->plv_LayoutMode();
    control->plv_LayoutShow();
    EXPECT_EQ(platform.messages.size(), 2U) << "without a tree table the pane is shown all the same";
    EXPECT_EQ(EntriesOf("Layout"),
              (Lines{"CTRLSPLIT |  | Layout | {width: 0 - height: 0 - tree: True}", "TREESPLIT |  | Layout | {}"}));
    ForgetEntries();
    control->plv_LayoutHide();
    EXPECT_EQ(EntriesOf("Layout"), Lines{}) << "hiding needs the tree table";
    control->PROP_Set_MACRO_TREE(tables.macroTree);
    control->plv_LayoutHide();
    EXPECT_EQ(EntriesOf("Layout"), Lines{"CTRLSPLIT |  | Layout | {width: 0 - height: 0 - tree: False}"});
    ForgetEntries();
    control->plv_LayoutModeDisable();
    EXPECT_EQ(Entries(), Lines{"GRIDCTL |  | LayoutMode | {Disabled}"});
}

TEST_F(ControlTest, GridAttributesAreReadInOrderUpToTheFirstFault) {
    ExpectErrors();
    tables.GiveTo(*control);
    tables.gridAttr->SetValue(1, "NORESIZE_ALLOWED", "X");
    tables.gridAttr->SetValue(1, "SWITCHED", "X");
    tables.gridAttr->SetValue(1, "LABELCOL_WIDTH", 210);
    tables.gridAttr->SetValue(1, "HIDDEN_LIST", "X");
    control->DP_Import_Attribute();
    control->DP_Import_Create();
    const GridSettingsState& grid = control->Grid().Settings();
    EXPECT_TRUE(grid.switched);
    EXPECT_FALSE(grid.resizeAllowed);
    EXPECT_TRUE(grid.moveAllowed) << "an empty field permits";
    EXPECT_EQ(grid.labelColumnWidth, 210);
    EXPECT_EQ(EntriesOf("Layout").front(), "CTRLSPLIT |  | Layout | {width: 0 - height: 0 - tree: False}")
        << "the tree needs layout mode";

    tables.gridAttr->SetValue(1, "BGCOLOR", "blue");
    tables.gridAttr->SetValue(1, "SWITCHED", "");
    tables.gridAttr->SetValue(1, "LABELCOL_WIDTH", 99);
    ForgetEntries();
    control->DP_Import_Attribute();
    control->DP_Import_Create();
    EXPECT_EQ(Entries(IsError), Lines{"USERCONTROL | ERROR | DP_Import_Attribute | {error: Type mismatch: 'blue' is no "
                                      "number in field BGCOLOR of row 1}"});
    EXPECT_FALSE(control->Grid().Settings().switched) << "read before the fault";
    EXPECT_EQ(control->Grid().Settings().labelColumnWidth, 210) << "behind the fault";
}

TEST_F(ControlTest, MarkedRowsAreHiddenAndShown) {
    tables.AddColumn(1, "Jan");
    for (int line = 1; line <= 4; ++line) {
        tables.AddLine(line, "Line", {{"ROW_MARKED", line % 2 == 0 ? "X" : ""}});
    }
    tables.GiveTo(*control);
    control->DP_Import_Create();
    const GridControl& grid = control->Grid();
    ForgetEntries();
    control->plv_MarkedRowsHide();
    EXPECT_TRUE(grid.Row(*grid.FindRow("ROW2")).hidden);
    EXPECT_FALSE(grid.Row(*grid.FindRow("ROW1")).hidden);
    EXPECT_EQ(tables.lineIndex->Value(4, "ROW_HIDDEN"), Variant("X"));
    EXPECT_TRUE(tables.lineIndex->Value(3, "ROW_HIDDEN").IsEmpty()) << "unmarked rows are not touched";
    EXPECT_EQ(EntriesOf("MarkedRowsHide"), (Lines{"GRIDCTL |  | MarkedRowsHide | {cid:  - rid: ROW2}",
                                                  "GRIDCTL |  | MarkedRowsHide | {cid:  - rid: ROW4}"}));
    control->plv_MarkedRowsShow();
    EXPECT_FALSE(grid.Row(*grid.FindRow("ROW2")).hidden);
    EXPECT_EQ(tables.lineIndex->Value(4, "ROW_HIDDEN"), Variant(""));
}

TEST_F(ControlTest, WindowEventsLeaveTheirEntries) {
    control->EnterFocus();
    control->GotFocus();
    control->LostFocus();
    control->ExitFocus();
    control->Resize(640, 480);
    const Lines entries = Entries([](const ListItem& item) { return item.text == "USERCONTROL"; });
    EXPECT_EQ(entries, (Lines{"USERCONTROL |  | EnterFocus | {}", "USERCONTROL |  | GotFocus | {}",
                              "USERCONTROL |  | LostFocus | {}", "USERCONTROL |  | ExitFocus | {}",
                              "USERCONTROL |  | Resize | {width:640 height:480}"}));
}

TEST_F(ControlTest, ImportsWithoutOwnWorkSayThatTheyRan) {
    control->DP_Import_Texts();
    control->DP_Import_PopupMenu();
    control->DP_Import_MacroTree();
    control->plv_ActiveNode("N7");
    EXPECT_EQ(Entries(),
              (Lines{"USERCONTROL |  | DP_Import_Texts | {}", "USERCONTROL |  | DP_Import_PopupMenu | {}",
                     "USERCONTROL |  | DP_Import_MacroTree | {}", "MACROTREE |  | ActiveNode | {node: N7}"}));
}

TEST(ControlTrace, OneSwitchServesAllControls) {
    test::ScriptedPlatform platform;
    {
        PlanView first(platform.Interfaces());
        PlanView second(platform.Interfaces());
        first.plv_EnableTrace();
        const std::int32_t counter = modPlan::TraceCounter;
        second.plv_EnableTrace();
        EXPECT_EQ(modPlan::TraceCounter, counter) << "enabling twice starts nothing anew";
        second.DP_Import_Texts();
        EXPECT_EQ(modPlan::TraceCounter, counter + 1);
        second.plv_DisableTrace();
        EXPECT_FALSE(modPlan::TraceEnabled);
        first.plv_DisableTrace();
        EXPECT_EQ(platform.messages.size(), 1U) << "already off";
        first.plv_EnableTrace();
        EXPECT_EQ(frmTrace::Instance().TraceView.Count(), 6U) << "starts empty again";
        EXPECT_EQ(frmTrace::Instance().TraceView.Item(0).key, "TRACE{1}");
    }
    EXPECT_FALSE(modPlan::TraceEnabled) << "the end of a control ends the trace";
}

TEST(ControlLife, AHostMayEndTheControlFromItsOwnTable) {
    HeadlessPlatform platform;
    auto control = std::make_unique<PlanView>(platform.Interfaces());
    /// Ends the control at the first access, in the middle of DP_Import_Create.
    class EndsControl final : public AutomationObject {
    public:
        explicit EndsControl(std::unique_ptr<PlanView>& control) : control_(control) {}
        DispatchId IdOf(std::string_view) const override { return 1; }
        Variant Get(DispatchId, Arguments) override {
            control_.reset();
            return 3;
        }
        void Put(DispatchId, Arguments, const Variant&) override {}
        Variant Call(DispatchId, Arguments) override { return {}; }

    private:
        std::unique_ptr<PlanView>& control_;
    };
    PlanView& called = *control;
    called.PROP_Set_COLS_INDEX(std::make_shared<EndsControl>(control));
    EXPECT_EQ(called.DP_Import_Create(), 0);
    EXPECT_EQ(control, nullptr);
}

}  // namespace planview
