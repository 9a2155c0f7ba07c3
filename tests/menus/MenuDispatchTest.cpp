// SPDX-License-Identifier: MIT
#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "layout/PaneLayout.h"
#include "menus/MenuTree.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;

namespace {

/// Three periods, four lines (ROW4 read-only), values of ten times the line plus the period.
class MenuDispatchTest : public test::TracedTest, public PlanViewEvents {
protected:
    MenuDispatchTest() {
        for (int i = 1; i <= 3; ++i) {
            tables.AddColumn(i, ("Month " + std::to_string(i)).c_str());
        }
        for (int i = 1; i <= 4; ++i) {
            tables.AddLine(i, ("Line " + std::to_string(i)).c_str(), {{"READONLY", i == 4 ? "X" : ""}});
            for (int column = 1; column <= 3; ++column) {
                tables.AddValue(i, column, i * 10 + column);
            }
        }
        control = std::make_unique<PlanView>(platform.Interfaces());
        tables.GiveTo(*control);
        control->DP_Import_Attribute();
        control->DP_Import_Create();
        control->AddSink(*this);
        ForgetEntries();
    }

    [[nodiscard]] GridControl& Grid() { return ControlParts(*control).Grid(); }
    [[nodiscard]] PaneLayout& Panes() { return ControlParts(*control).Panes(); }
    /// A right click at a place, "COL1/ROW1"; the names are chosen from the popups that open one after another.
    void RightClick(const std::string& place, std::deque<std::string> choices = {}) {
        platform.popups.clear();
        platform.choices = std::move(choices);
        heard.clear();
        Grid().ReportMouseDown(At(place), MouseButton::Right, ShiftState::None);
    }
    [[nodiscard]] Cell At(const std::string& place) {
        const std::size_t slash = place.find('/');
        return Grid().FindCell({place.substr(0, slash), place.substr(slash + 1)}).value();
    }
    void SelectColumn(const char* key, SelectionMode mode = SelectionMode::Replace) {
        Grid().SelectColumn(Grid().FindColumn(key).value(), mode);
    }
    void SelectRow(const char* key, SelectionMode mode = SelectionMode::Replace) {
        Grid().SelectRow(Grid().FindRow(key).value(), mode);
    }
    /// The values of a field, row by row.
    static Lines Field(const test::TableRef& table, const char* field) {
        Lines texts;
        for (std::int32_t row = 1; row <= table->RowCount(); ++row) {
            texts.push_back(table->Value(row, field).AsText());
        }
        return texts;
    }
    static const PopupEntry* Find(const std::vector<PopupEntry>& entries, const std::string& name) {
        for (const PopupEntry& entry : entries) {
            const PopupEntry* found = entry.name == name ? &entry : Find(entry.entries, name);
            if (found) {
                return found;
            }
        }
        return nullptr;
    }
    /// Whether the popup that the last click opened offers this entry.
    [[nodiscard]] bool Offered(const char* name) const {
        const PopupEntry* entry = Find(platform.popups.front().entries, name);
        return entry && entry->enabled;
    }
    [[nodiscard]] bool Checked(const char* name) const { return Find(platform.popups.front().entries, name)->checked; }

    void GridStartUpdate() override { heard.emplace_back("update"); }
    void GridPopupMenuPressed(std::int16_t Popup, const std::string& UComm, std::int16_t Column,
                              const std::string& ColPos, std::int16_t Row, const std::string& RowPos) override {
        heard.push_back(std::to_string(Popup) + " " + UComm + " " + std::to_string(Column) + " " + ColPos + " " +
                        std::to_string(Row) + " " + RowPos);
    }

    test::Tables tables;
    std::unique_ptr<PlanView> control;
    Lines heard;
};

}  // namespace

TEST_F(MenuDispatchTest, ThePlaceDecidesOnThePopup) {
    test::AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "L"}});
    test::AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}});
    control->DP_Import_Update();
    const struct {
        const char* place;
        const char* popup;
    } cases[] = {
        {"FLC0/FTR0", "Grid"}, {"COL1/FTR0", "Column"}, {"FLC0/ROW2", "Row"}, {"FLC1/ROW2", "Row"},
        {"COL1/ROW2", "Cell"}, {"FRC1/ROW2", ""},       {"FRC1/FTR0", ""},    {"FLC1/FTR0", ""},
    };
    for (const auto& row : cases) {
        RightClick(row.place);
        EXPECT_EQ(platform.popups.empty() ? "" : platform.popups.front().caption, row.popup) << row.place;
    }
}

TEST_F(MenuDispatchTest, ClosingAPopupChangesNothing) {
    SelectRow("ROW2");
    ForgetEntries();
    const Lines marked = Field(tables.lineIndex, "ROW_MARKED");
    for (const char* place : {"FLC0/FTR0", "COL1/FTR0", "FLC0/ROW2", "COL1/ROW2"}) {
        RightClick(place);
        EXPECT_EQ(platform.popups.size(), 1U) << place;
        EXPECT_EQ(heard, Lines()) << place;
    }
    EXPECT_EQ(Field(tables.lineIndex, "ROW_MARKED"), marked);
    EXPECT_EQ(EntriesOf("Selected"), Lines());
}

TEST_F(MenuDispatchTest, EntriesFollowWhatIsTrue) {
    RightClick("COL1/FTR0");
    EXPECT_FALSE(Offered("mnuColsHide")) << "nothing is selected";
    EXPECT_FALSE(Offered("mnuColsDeselect"));
    EXPECT_TRUE(Offered("mnuColsSelectAll"));
    EXPECT_TRUE(Offered("mnuWidthReset"));
    SelectColumn("COL1");
    RightClick("COL1/FTR0", {"mnuColsHide"});
    EXPECT_TRUE(Offered("mnuColsHide"));
    EXPECT_FALSE(Offered("mnuColsShow")) << "none of the selected ones is hidden";
    Grid().SetSelection({"COL1", ""}, true);
    RightClick("COL2/FTR0");
    EXPECT_FALSE(Offered("mnuColsHide")) << "the selected one is hidden already";
    EXPECT_TRUE(Offered("mnuColsShow"));
    Grid().SelectAll();
    RightClick("COL2/FTR0");
    EXPECT_FALSE(Offered("mnuColsHide")) << "no heading would be left to show them again from";

    Grid().ClearSelection();  // it would decide on the commands of the cells
    RightClick("COL1/ROW1");
    EXPECT_TRUE(Offered("mnuCellCut"));
    RightClick("COL1/ROW4");
    EXPECT_FALSE(Offered("mnuCellCut")) << "a read-only line";
    EXPECT_TRUE(Offered("mnuCellCopy"));
    EXPECT_FALSE(Offered("mnuCellPaste"));

    RightClick("FLC0/FTR0");
    EXPECT_FALSE(Offered("mnuMacroTree")) << "layout mode is off";
    EXPECT_FALSE(Offered("mnuMacroRecStop")) << "nothing is being recorded";
    EXPECT_TRUE(Checked("mnuTrace"));
    EXPECT_TRUE(Offered("mnuShowTrace"));
    control->plv_LayoutMode();
    RightClick("FLC0/FTR0");
    EXPECT_TRUE(Offered("mnuMacroTree"));
}

TEST_F(MenuDispatchTest, PopupsOnFixedCellsAreAboutTheRowOrColumn) {
    test::AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "L"}});
    test::AddRow(*tables.fixedLines, {{"LINE_FIX", 1}, {"FLG_POSITION", "T"}});
    control->DP_Import_Update();
    Grid().SelectCell(At("FLC1/ROW2"), SelectionMode::Replace);
    RightClick("FLC1/ROW2", {"mnuRowsHide"});
    EXPECT_TRUE(Offered("mnuRowsHide"));
    EXPECT_TRUE(Offered("mnuRowBgColor"));
    EXPECT_EQ(Field(tables.lineIndex, "ROW_HIDDEN"), (Lines{"", "X", "", ""}));
    SelectRow("ROW3");
    SelectRow("ROW4", SelectionMode::Extend);
    RightClick("FLC1/ROW3");
    EXPECT_EQ(Field(tables.lineIndex, "ROW_MARKED"), (Lines{"", "", "X", "X"})) << "what is selected stays so";
    RightClick("COL3/FTR1");
    EXPECT_TRUE(Offered("mnuColsHide"));
    EXPECT_EQ(Field(tables.colsIndex, "COL_MARKED"), (Lines{"", "", "X"}));
    Grid().SelectCell(At("FLC1/ROW1"), SelectionMode::Replace);
    platform.popups.clear();
    Grid().ReportMenuKey();
    EXPECT_TRUE(Offered("mnuRowsHide")) << "by key, too";
}

TEST_F(MenuDispatchTest, CutAndPasteAreGreyAsTheSelectionIs) {
    Grid().SelectCell(At("COL1/ROW3"), SelectionMode::Replace);
    Grid().SelectCell(At("COL2/ROW4"), SelectionMode::Extend);
    for (const char* place : {"COL1/ROW3", "COL1/ROW4"}) {
        RightClick(place);
        EXPECT_TRUE(Offered("mnuCellCut")) << place << ": some of the cells take values";
        EXPECT_TRUE(Offered("mnuCellPaste")) << place;
    }
    RightClick("COL3/ROW4");
    EXPECT_FALSE(Offered("mnuCellCut")) << "not selected, and read-only";
}

TEST_F(MenuDispatchTest, CommandsOfColumnsAndRowsReachTablesAndGrid) {
    const auto marked = [&] { return Field(tables.colsIndex, "COL_MARKED"); };
    RightClick("COL2/FTR0", {"mnuColsSelectAll"});
    EXPECT_EQ(marked(), (Lines{"X", "X", "X"}));
    EXPECT_TRUE(Grid().IsSelected({"COL2", {}}));
    RightClick("COL2/FTR0", {"mnuColsDeselect"});
    EXPECT_EQ(marked(), (Lines{"", "", ""}));
    EXPECT_EQ(heard, (Lines{"update"}));
    SelectColumn("COL2");
    RightClick("COL2/FTR0", {"mnuColsSelectBlock"});
    EXPECT_EQ(marked(), (Lines{"", "X", "X"}));
    RightClick("COL2/FTR0", {"mnuColsHide"});
    EXPECT_EQ(Field(tables.colsIndex, "COL_HIDDEN"), (Lines{"", "X", "X"}));
    Grid().SelectAll();
    RightClick("COL1/FTR0", {"mnuColsShow"});
    EXPECT_EQ(Field(tables.colsIndex, "COL_HIDDEN"), (Lines{"", "", ""}));
    for (const char* entry : {"mnuWidthReset", "mnuWidthResetAll"}) {
        tables.colsIndex->SetValue(1, "COL_WIDTH", 33);
        RightClick("COL1/FTR0", {entry});
        EXPECT_EQ(Field(tables.colsIndex, "COL_WIDTH"), (Lines{"80", "80", "80"})) << entry;
        EXPECT_EQ(heard, (Lines{"update"})) << entry;
    }

    RightClick("FLC0/ROW2", {"mnuRowsSelectAll"});
    EXPECT_EQ(Field(tables.lineIndex, "ROW_MARKED"), (Lines{"X", "X", "X", "X"}));
    RightClick("FLC0/ROW2", {"mnuRowsDeselect"});
    SelectRow("ROW3");
    RightClick("FLC0/ROW3", {"mnuRowsSelectBlock"});
    EXPECT_EQ(Field(tables.lineIndex, "ROW_MARKED"), (Lines{"", "", "X", "X"}));
    RightClick("FLC0/ROW3", {"mnuRowsHide"});
    EXPECT_EQ(Field(tables.lineIndex, "ROW_HIDDEN"), (Lines{"", "", "X", "X"}));
    Grid().SelectAll();
    RightClick("FLC0/ROW2", {"mnuRowsShow"});
    EXPECT_EQ(Field(tables.lineIndex, "ROW_HIDDEN"), (Lines{"", "", "", ""}));
    RightClick("FLC0/ROW2", {"mnuHeightResetAll"});
    EXPECT_EQ(Field(tables.lineIndex, "ROW_HEIGHT"), (Lines{"22", "22", "22", "22"}));
}

/// Selecting along one axis takes the other axis' selection away, and its marks with it.
TEST_F(MenuDispatchTest, MarksOfBothAxesFollowTheSelection) {
    SelectRow("ROW3");
    ASSERT_EQ(Field(tables.lineIndex, "ROW_MARKED"), (Lines{"", "", "X", ""}));
    RightClick("COL2/FTR0", {"mnuColsSelectAll"});
    EXPECT_EQ(Field(tables.colsIndex, "COL_MARKED"), (Lines{"X", "X", "X"}));
    EXPECT_EQ(Field(tables.lineIndex, "ROW_MARKED"), (Lines{"", "", "", ""}));
    RightClick("FLC0/ROW2", {"mnuRowsSelectAll"});
    EXPECT_EQ(Field(tables.colsIndex, "COL_MARKED"), (Lines{"", "", ""}));
}

TEST_F(MenuDispatchTest, RowColorsGoThroughTheColorsPopup) {
    SelectRow("ROW2");
    SelectRow("ROW3", SelectionMode::Add);
    RightClick("FLC0/ROW2", {"mnuRowBgColor", "mnuColor(13)"});
    EXPECT_EQ(platform.popups.back().caption, "Colors");
    EXPECT_EQ(Field(tables.lineIndex, "ROW_BG"), (Lines{"", "14", "14", ""}));
    EXPECT_EQ(Grid().Look(At("COL1/ROW3")).background, 14);
    EXPECT_EQ(heard, (Lines{"update"}));
    RightClick("FLC0/ROW2", {"mnuRowBgColor", "mnuColor(15)"});
    EXPECT_EQ(Field(tables.lineIndex, "ROW_BG"), (Lines{"", "0", "0", ""})) << "white is index 0";
    RightClick("FLC0/ROW2", {"mnuRowFgColor", "mnuColor(4)"});
    EXPECT_EQ(Field(tables.lineIndex, "ROW_FG"), (Lines{"1", "5", "5", "1"}));
    RightClick("FLC0/ROW2", {"mnuRowFgColor"});
    EXPECT_EQ(platform.popups.size(), 2U);
    EXPECT_EQ(heard, Lines()) << "no colour was chosen";
}

TEST_F(MenuDispatchTest, ViewCommandsWriteTheirFlagAndTellTheHost) {
    control->plv_LayoutMode();
    const struct {
        const char* entry;
        const char* field;
        std::function<bool()> shown;
    } cases[] = {
        {"mnuSwitch", "SWITCHED", [&] { return Grid().Settings().switched; }},
        {"mnuZoom", "ZOOMED", [&] { return EntriesOf("Layout").back().ends_with("zoomed: True}"); }},
        {"mnuMacroTree", "HIDDEN_LIST", [&] { return Panes().TreePaneVisible(); }},
    };
    for (const auto& row : cases) {
        for (const bool on : {true, false}) {
            RightClick("FLC0/FTR0", {row.entry});
            EXPECT_EQ(Checked(row.entry), !on) << row.entry << ": it tells the state before";
            EXPECT_EQ(row.shown(), on) << row.entry;
            EXPECT_EQ(Field(tables.gridAttr, row.field), Lines{on ? "X" : ""}) << row.entry;
            EXPECT_EQ(heard, Lines{"update"}) << row.entry;
        }
    }
    control->PROP_Set_GRID_ATTR(nullptr);
    RightClick("FLC0/FTR0", {"mnuSwitch"});
    EXPECT_TRUE(Grid().Settings().switched) << "also without a table to keep it";
}

TEST_F(MenuDispatchTest, CellCommandsUseTheClipboard) {
    Grid().SelectCell(At("COL2/ROW1"), SelectionMode::Replace);
    RightClick("COL2/ROW1", {"mnuCellCopy"});
    EXPECT_EQ(platform.onClipboard.text, "12");
    RightClick("COL2/ROW1", {"mnuCellCut"});
    EXPECT_EQ(Grid().Contents(At("COL2/ROW1")), "");
    Grid().SelectCell(At("COL1/ROW1"), SelectionMode::Replace);
    RightClick("COL1/ROW1", {"mnuCellPaste"});
    EXPECT_EQ(Grid().Contents(At("COL1/ROW1")), "12");
}

TEST_F(MenuDispatchTest, CopyInASelectionTracesTheClickedCell) {
    SelectRow("ROW2");
    RightClick("COL3/ROW2", {"mnuCellCopy"});
    EXPECT_EQ(EntriesOf("Ctrl-C"), (Lines{"GRIDCTL |  | Ctrl-C | {cid: COL3 - rid: ROW2 - text: 23}"}));
    EXPECT_EQ(platform.onClipboard.text, "21\t22\t23\n");
}

TEST_F(MenuDispatchTest, TestDataAreOneChangeOfTheUsers) {
    platform.answer = MessageAnswer::No;
    RightClick("FLC0/FTR0", {"mnuRandom"});
    EXPECT_EQ(platform.messages.back().text, "Fill 9 cells with test data? What they hold now is replaced.");
    EXPECT_EQ(tables.tabOld->RowCount(), 0);
    platform.answer = MessageAnswer::Yes;
    RightClick("FLC0/FTR0", {"mnuRandom"});
    EXPECT_EQ(tables.tabOld->RowCount(), 9);
    EXPECT_EQ(heard, (Lines{"update"}));
    EXPECT_EQ(Grid().Contents(At("COL1/ROW4")), "41") << "a read-only line";
    control->Editing().Undo();
    EXPECT_EQ(Grid().Contents(At("COL3/ROW3")), "33");
    EXPECT_FALSE(control->Editing().CanUndo());
}

TEST_F(MenuDispatchTest, TraceIsSwitchedByItsEntry) {
    platform.answer = MessageAnswer::No;
    RightClick("FLC0/FTR0", {"mnuTrace"});
    EXPECT_FALSE(modPlan::TraceEnabled);
    RightClick("FLC0/FTR0");
    EXPECT_FALSE(Offered("mnuShowTrace"));
    RightClick("FLC0/FTR0", {"mnuTrace"});
    EXPECT_TRUE(modPlan::TraceEnabled);
    RightClick("FLC0/FTR0", {"mnuShowTrace"});
    EXPECT_EQ(platform.formCalls.back(), "show frmTrace");
}

TEST_F(MenuDispatchTest, HostEntriesReachTheHost) {
    const struct {
        test::TableRef table;
        const char* place;
        const char* heard;
        const char* entry;
    } cases[] = {
        {tables.gridMenu, "FLC0/FTR0", "10 7 0 FLC0 0 FTR0", "{cid: FLC0 - rid: FTR0 - menu: Grid - index:2}"},
        {tables.colMenu, "COL3/FTR0", "20 7 3 COL3 0 FTR0", "{cid: COL3 - rid: FTR0 - menu: Cols - index:2}"},
        {tables.rowMenu, "FLC0/ROW2", "30 7 0 FLC0 2 ROW2", "{cid: FLC0 - rid: ROW2 - menu: Rows - index:2}"},
        {tables.cellMenu, "COL3/ROW2", "40 7 3 COL3 2 ROW2", "{cid: COL3 - rid: ROW2 - menu: Cell - index:2}"},
    };
    for (const auto& row : cases) {
        test::AddRow(*row.table, {{"PFID", 5}, {"TEXT", "Not now"}, {"ENABLED", ""}});
        test::AddRow(*row.table, {{"PFID", 7}, {"TEXT", "Profit & loss"}, {"ENABLED", "X"}});
        RightClick(row.place, {"User(2)"});
        const std::vector<PopupEntry>& entries = platform.popups.front().entries;
        ASSERT_GT(entries.size(), 3U);
        EXPECT_TRUE(entries[entries.size() - 3].separator) << row.place;
        EXPECT_EQ(entries.back().caption, "Profit & loss") << row.place;
        EXPECT_FALSE(entries[entries.size() - 2].enabled) << row.place;
        EXPECT_EQ(heard, Lines{row.heard});
        EXPECT_EQ(EntriesOf("Usermenu pressed fired").back(),
                  "POPUP | " + std::string(row.entry) + " | Usermenu pressed fired | ");
    }
}

TEST_F(MenuDispatchTest, NoGridPopupOpensWhileTheControlChangesTheGrid) {
    class ClickBack final : public PlanViewEvents {
    public:
        explicit ClickBack(std::function<void()> click) : click_(std::move(click)) {}
        void GridValueChanged(std::int16_t, const std::string&, std::int16_t, const std::string&,
                              const Variant&) override {
            click_();
        }

    private:
        std::function<void()> click_;
    } sink([&] { RightClick("COL1/ROW1"); });
    control->AddSink(sink);
    Grid().EnterText(At("COL1/ROW1"), "5");
    EXPECT_EQ(platform.popups.size(), 0U);
    control->RemoveSink(sink);
    RightClick("COL1/ROW1");
    EXPECT_EQ(platform.popups.size(), 1U);
}

TEST_F(MenuDispatchTest, AFailingCommandEndsInTheTrace) {
    ExpectErrors();
    control->PROP_Set_LINE_INDEX(nullptr);
    SelectRow("ROW2");
    ForgetEntries();
    RightClick("FLC0/ROW2", {"mnuRowBgColor", "mnuColor(1)"});
    EXPECT_EQ(heard, Lines());
    EXPECT_FALSE(Entries(IsError).empty());
}

TEST_F(MenuDispatchTest, TheMenuKeyIsAboutWhatIsSelected) {
    const auto press = [&] {
        platform.popups.clear();
        Grid().ReportMenuKey();
        return platform.popups.empty() ? "" : platform.popups.front().caption;
    };
    Grid().SelectCell(At("COL2/ROW2"), SelectionMode::Replace);
    EXPECT_EQ(press(), "Cell");
    EXPECT_EQ(platform.popupPlaces.back(), PopupPlace::CurrentCell);
    SelectColumn("COL2");
    EXPECT_EQ(press(), "Column");
    SelectRow("ROW2");
    EXPECT_EQ(press(), "Row");
    Grid().SelectAll();
    EXPECT_EQ(press(), "Grid");
}

}  // namespace planview
