// SPDX-License-Identifier: MIT
#include <map>

#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;
using test::TableRef;
using test::Tables;

namespace {

class ControlTest : public test::TracedTest {
protected:
    /// The control ends, and with it the trace, before the fixture looks at what was traced.
    ControlTest() : control(std::make_unique<PlanView>(platform.Interfaces())) { ForgetEntries(); }

    std::unique_ptr<PlanView> control;
    Tables tables;
};

constexpr const char* Seventeen[] = {"GRID_ATTR",   "COLS_INDEX", "LINE_INDEX", "TAB",       "TAB_OLD",    "FIXED_COLS",
                                     "FIXED_LINES", "FIXED_TAB",  "CELL_ATTR",  "GRID_TREE", "MACRO_TREE", "TEXTS",
                                     "COLMENU",     "ROWMENU",    "GRIDMENU",   "CELLMENU",  "MACROREC"};

std::string NameOf(DispatchId id) {
    return std::string(DescribeMembers()[static_cast<std::size_t>(id) - 1].name);
}

}  // namespace

TEST_F(ControlTest, SixtyFiveMembersKeepTheirNumbers) {
    Lines names{"plv_EnableTrace",    "plv_DisableTrace",      "plv_LayoutShow",      "plv_LayoutHide",
                "plv_LayoutMode",     "plv_LayoutModeDisable", "plv_ActiveNode",      "plv_MarkedRowsHide",
                "plv_MarkedRowsShow", "DP_Import_Texts",       "DP_Import_Attribute", "DP_Import_Create",
                "DP_Import_Update",   "DP_Import_PopupMenu",   "DP_Import_MacroTree"};
    for (const std::string table : Seventeen) {
        if (table != "FIXED_TAB") {
            names.push_back("PROP_Get_" + table);
        }
        names.push_back("PROP_Set_" + table);
        names.push_back("plvSet_" + table);
    }
    Lines members;
    for (const MemberDescription& member : DescribeMembers()) {
        members.emplace_back(member.name);
        EXPECT_EQ(member.id, static_cast<DispatchId>(members.size()));
        EXPECT_EQ(control->IdOf(member.name), member.id);
    }
    EXPECT_EQ(members, names);
    EXPECT_EQ(members.size(), 65U);
}

TEST_F(ControlTest, EveryMethodAnswersZeroByNumber) {
    tables.GiveTo(*control);
    test::AddRow(*tables.macroTree, {{"NODEKEY", "N1"}});
    control->DP_Import_MacroTree();
    // The two switches of the trace are tried elsewhere.
    for (DispatchId id = 3; id <= 15; ++id) {
        const std::vector<Variant> arguments(id == 7 ? 1 : 0, "N1");
        EXPECT_EQ(control->Call(id, arguments), Variant(std::int16_t{0})) << NameOf(id);
    }
    for (DispatchId id = 1; id <= 65; ++id) {
        EXPECT_THROW(control->Call(id, std::vector<Variant>(3)), AutomationError) << NameOf(id);
    }
    EXPECT_THROW(control->Call(0, {}), AutomationError);
    EXPECT_THROW(control->Call(66, {}), AutomationError);
    EXPECT_THROW(static_cast<void>(control->IdOf("PROP_Get_FIXED_TAB")), AutomationError);
    EXPECT_THROW(static_cast<void>(control->Get(1, {})), AutomationError);
}

TEST_F(ControlTest, TablesAreSetAndReadByNumber) {
    std::map<std::string, TableRef> given;
    for (const char* setter : {"PROP_Set_", "plvSet_"}) {
        for (const std::string table : Seventeen) {
            given[table] = MemoryTable::WithFieldsOf(table);
            const std::vector<Variant> argument{Variant(given[table])};
            EXPECT_EQ(control->Call(control->IdOf(setter + table), argument), Variant(std::int16_t{0})) << table;
        }
        for (const auto& [table, object] : given) {
            EXPECT_EQ(object.use_count(), 2) << setter << table << ": held by the control";
            if (table != "FIXED_TAB") {
                EXPECT_EQ(control->Call(control->IdOf("PROP_Get_" + table), {}), Variant(object)) << table;
            }
        }
    }
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

TEST_F(ControlTest, ATableIsSetByItsNameAsByItsMember) {
    const std::span<const std::string_view> names = TableNames();
    ASSERT_EQ(Lines(names.begin(), names.end()), Lines(std::begin(Seventeen), std::end(Seventeen)));
    for (const std::string name : Seventeen) {
        const auto table = std::make_shared<MemoryTable>(std::vector<std::string>{"Z"});
        ForgetEntries();
        control->Call(control->IdOf("PROP_Set_" + name), std::vector<Variant>{Variant(table)});
        if (name != "FIXED_TAB") {
            EXPECT_EQ(control->Call(control->IdOf("PROP_Get_" + name), {}), Variant(table));
        }
        const Lines byMember = Entries();
        ForgetEntries();
        control->SetTable(name, nullptr);
        EXPECT_EQ(table.use_count(), 1) << name;
        control->SetTable(name, table);
        ForgetEntries();
        control->SetTable(name, table);
        EXPECT_EQ(control->GetTable(name), table);
        Lines byName = Entries();
        byName.resize(byMember.size());
        EXPECT_EQ(byName, byMember) << name;
    }
    EXPECT_THROW(control->SetTable("TAB2", nullptr), AutomationError);
    EXPECT_THROW(static_cast<void>(control->GetTable("")), AutomationError);
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
    Platform peeking = platform.Interfaces();
    peeking.messageBoxes = &peek;
    control = std::make_unique<PlanView>(peeking);
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
    const GridSettingsState& grid = ControlParts(*control).Grid().Settings();
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
    EXPECT_FALSE(ControlParts(*control).Grid().Settings().switched) << "read before the fault";
    EXPECT_EQ(ControlParts(*control).Grid().Settings().labelColumnWidth, 210) << "behind the fault";
}

TEST_F(ControlTest, WindowEventsLeaveTheirEntries) {
    control->View().EnterFocus();
    control->View().GotFocus();
    control->View().LostFocus();
    control->View().ExitFocus();
    control->View().Resize(640, 480);
    const Lines entries = Entries([](const ListItem& item) { return item.text == "USERCONTROL"; });
    EXPECT_EQ(entries, (Lines{"USERCONTROL |  | EnterFocus | {}", "USERCONTROL |  | GotFocus | {}",
                              "USERCONTROL |  | LostFocus | {}", "USERCONTROL |  | ExitFocus | {}",
                              "USERCONTROL |  | Resize | {width:640 height:480}"}));
}

TEST_F(ControlTest, ImportsSayThatTheyRan) {
    tables.GiveTo(*control);
    test::AddRow(*tables.macroTree, {{"NODEKEY", "N7"}, {"NODETEXT", "Plan"}});
    ForgetEntries();
    control->DP_Import_Texts();
    control->DP_Import_PopupMenu();
    control->DP_Import_MacroTree();
    control->plv_ActiveNode("N7");
    EXPECT_EQ(Entries(),
              (Lines{"USERCONTROL |  | DP_Import_Texts | {}", "TREETOOL |  | TooltipTexts | {}",
                     "USERCONTROL |  | DP_Import_PopupMenu | {}", "USERCONTROL |  | DP_Import_MacroTree | {}",
                     "MACROTREE |  | Update | {node: N7 - text: Plan}", "MACROTREE |  | ActiveNode | {node: N7}"}));
}

TEST(ControlLife, WhatAPlatformLacksIsThereWithoutAScreen) {
    test::ScriptedPlatform scripted;
    PlanView control({.messageBoxes = &scripted});
    control.plv_LayoutShow();
    EXPECT_EQ(scripted.messages.size(), 1U) << "the host's own piece";
    const Tables tables;
    tables.AddColumn(1, "Jan");
    tables.AddLine(1, "Sales");
    tables.GiveTo(control);
    control.DP_Import_Create();
    ControlParts(control).Grid().SelectAll();
    control.Editing().Copy();
    control.Exchange().Download();
    ControlParts(control).Grid().ReportMenuKey();
    EXPECT_NE(control.Exchange().DownloadTo("/nowhere/plan.xlsx"), "") << "no spreadsheet application is known";
}

TEST(ControlLife, AHostMayEndTheControlFromItsOwnTable) {
    auto control = std::make_unique<PlanView>();
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
