// SPDX-License-Identifier: MIT
#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "macro/tree/MacroToolbar.h"
#include "macro/tree/MacroTreeFixture.h"
#include "macro/tree/SelectionText.h"

namespace planview {

using test::AddRow;
using test::Lines;

namespace {

using MacroToolbarTest = test::MacroTreeFixture;

}  // namespace

TEST_F(MacroToolbarTest, TooltipsComeFromTextsRowByRow) {
    const MacroToolbar& toolbar = ControlParts(*control).Toolbar();
    const std::string own = toolbar.Tooltip(ToolbarButton::Generate);
    EXPECT_FALSE(own.empty());
    AddRow(*tables.texts, {{"CONDITION", "Bedingung"}, {"TABLINE", "Zeile"}});
    AddRow(*tables.texts, {{"CONDITION", ""}, {"TABLINE", "Tabellenzeile"}, {"INACTIVE", "Inaktiv"}});
    control->DP_Import_Texts();
    EXPECT_EQ(toolbar.Tooltip(ToolbarButton::Condition), "Bedingung");
    EXPECT_EQ(toolbar.Tooltip(ToolbarButton::TabLine), "Tabellenzeile");
    EXPECT_EQ(toolbar.Tooltip(ToolbarButton::Inactive), "Inaktiv");
    EXPECT_EQ(toolbar.Tooltip(ToolbarButton::Generate), own);
    EXPECT_EQ(Entries(), (Lines{"USERCONTROL |  | DP_Import_Texts | {}", "TREETOOL |  | TooltipTexts | {}"}));
    tables.texts->Clear();
    control->DP_Import_Texts();
    EXPECT_NE(toolbar.Tooltip(ToolbarButton::Condition), "Bedingung");
    ExpectErrors();
    control->PROP_Set_TEXTS(nullptr);
    control->DP_Import_Texts();
    EXPECT_EQ(toolbar.Tooltip(ToolbarButton::Generate), own);
}

TEST_F(MacroToolbarTest, PressesAreTracedAndHeard) {
    struct Listener final : ToolbarEvents {
        void ButtonPressed(ToolbarButton button) override { pressed.push_back(button); }
        void SelectionDragged(const std::string& /*selection*/) override {}
        std::vector<ToolbarButton> pressed;
    } listener;
    MacroToolbar toolbar;
    toolbar.UserPress(ToolbarButton::Function);  // heard by nobody
    toolbar.SetEvents(&listener);
    toolbar.UserPress(ToolbarButton::MakArea);
    EXPECT_EQ(listener.pressed, std::vector{ToolbarButton::MakArea});
    EXPECT_EQ(EntriesOf("ButtonClick").back(), "TREETOOL |  | ButtonClick | {button: MAKAREA}");
}

TEST_F(MacroToolbarTest, TheDraggedSelectionNamesItsLinesAndPeriods) {
    for (int i = 1; i <= 9; ++i) {
        tables.AddColumn(i, "Month", {{"COL_HIDDEN", i == 9 ? "X" : ""}});
        tables.AddLine(i, "Line");
    }
    AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}});
    control->DP_Import_Create();
    GridControl& grid = ControlParts(*control).Grid();
    const auto cell = [&](const char* column, const char* row) { return grid.FindCell({column, row}).value(); };
    EXPECT_EQ(SelectionText(grid), "ROW1/COL1") << "the current cell";
    grid.SelectCell(cell("COL4", "ROW3"), SelectionMode::Replace);
    grid.SelectCell(cell("COL7", "ROW3"), SelectionMode::Extend);
    EXPECT_EQ(SelectionText(grid), "ROW3/COL4:COL7");
    ForgetEntries();
    ControlParts(*control).Toolbar().UserDragSelection(SelectionText(grid));
    EXPECT_EQ(heard, Lines{"Drag ROW3/COL4:COL7"});
    EXPECT_EQ(Entries(), Lines{"TREETOOL |  | DragSelection | {selection: ROW3/COL4:COL7}"});
    grid.SelectRow(grid.FindRow("ROW2").value(), SelectionMode::Replace);
    EXPECT_EQ(SelectionText(grid), "ROW2") << "a whole line";
    grid.SelectRow(grid.FindRow("ROW5").value(), SelectionMode::Extend);
    EXPECT_EQ(SelectionText(grid), "ROW2:ROW5");
    grid.SelectColumn(grid.FindColumn("COL2").value(), SelectionMode::Replace);
    EXPECT_EQ(SelectionText(grid), "ROW1:ROW9/COL2");
    grid.SelectCell(cell("FRC1", "ROW2"), SelectionMode::Replace);
    EXPECT_EQ(SelectionText(grid), "") << "no planning cell";
}

}  // namespace planview
