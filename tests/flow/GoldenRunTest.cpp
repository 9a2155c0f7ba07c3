// SPDX-License-Identifier: MIT
#include "components/TreeControl.h"
#include "control/ControlParts.h"
#include "dialogs/frmChart.h"
#include "dialogs/frmGrid.h"
#include "dialogs/frmRow.h"
#include "dialogs/frmUpload.h"
#include "flow/GoldenRecorder.h"
#include "macro/run/MacroText.h"
#include "support/FakeSpreadsheet.h"

namespace planview::test {

namespace {

constexpr std::int16_t NoShift = 0;
constexpr std::int16_t Control = 2;
constexpr std::int16_t ControlAlt = 6;
constexpr std::int16_t DeleteKey = 46;
constexpr std::int16_t Return = 13;

/// A small planning book, and a user who tries nearly all that there is.
class GoldenRun : public GoldenRecorder {
protected:
    GoldenRun() : spreadsheet(std::make_shared<FakeSpreadsheet>()) {
        ExpectErrors();
        platform.objects.Register("Excel.Application", [this] { return MakeApplication(spreadsheet); });
        FillIndexes();
        FillFixed();
        FillMenusAndMacros();
    }

    void Open();
    void Type();
    void Clip();
    void SelectAndHide();
    void Popups();
    void Dialogs();
    void Resize();
    void View();
    void Chart();
    void ChartViews();
    void Tree();
    void EditMacro();
    void Record();
    void Exchange();
    void Fail();
    void Close();

private:
    void FillIndexes();
    void FillFixed();
    void FillMenusAndMacros();

    [[nodiscard]] GridControl& Grid() { return ControlParts(*control).Grid(); }
    [[nodiscard]] Cell At(const std::string& place) {
        const std::size_t slash = place.find('/');
        return Grid().FindCell({place.substr(0, slash), place.substr(slash + 1)}).value();
    }
    [[nodiscard]] ColumnId Column(const char* key) { return Grid().FindColumn(key).value(); }
    [[nodiscard]] RowId Row(const char* key) { return Grid().FindRow(key).value(); }
    void Enter(const char* place, const char* text) { Grid().EnterText(At(place), text); }
    void Select(const char* from, const char* to) {
        Grid().SelectCell(At(from), SelectionMode::Replace);
        Grid().SelectCell(At(to), SelectionMode::Extend);
    }
    void Key(std::int16_t shift, std::int16_t key) { static_cast<void>(Grid().ReportKeyDown(shift, key)); }
    void RightClick(const char* place, std::deque<std::string> choices = {}) {
        platform.choices = std::move(choices);
        Grid().ReportMouseDown(At(place), MouseButton::Right, ShiftState::None);
    }
    void ChartClick(ChartHitCode code, int series, std::deque<std::string> choices = {}) {
        platform.choices = std::move(choices);
        ControlParts(*control).Chart().UserPressed(MouseButton::Right, ShiftState::None,
                                                   {code, series, code == ChartHitCode::Point ? 1 : 0});
    }
    [[nodiscard]] TreeNode Node(const char* key) { return ControlParts(*control).Tree().Nodes().Item(key); }
    template <class Wanted>
    void WhileShown(std::function<void(Wanted&)> act) {
        platform.whileShown = [act](Form& form) { act(dynamic_cast<Wanted&>(form)); };
    }

    std::shared_ptr<FakeSpreadsheet> spreadsheet;
};

void GoldenRun::FillIndexes() {
    constexpr const char* Months[] = {"Jan 08", "Feb 08", "Mar 08", "Apr 08"};
    for (int column = 1; column <= 4; ++column) {
        tables.AddColumn(column, Months[column - 1],
                         {{"COL_WIDTH", column == 2 ? Variant(96) : Variant()}, {"SHOW_CHART", column < 4 ? "X" : ""}});
    }
    tables.AddLine(1, "Construction", {{"SHOW_CHART", "X"}, {"ROW_FORMAT", "#,##0.0"}, {"ROW_HEIGHT", 24}});
    tables.AddLine(2, "Manufacturing", {{"SHOW_CHART", "X"}, {"CHART_TYPE", std::int16_t{23}}, {"ROW_BG", 14}});
    tables.AddLine(3, "Sum", {{"READONLY", "X"}, {"ROW_FONT", "Arial;10;Bold"}, {"RELIEF", "X"}});
    tables.AddLine(4, "Help", {{"LINETYPE", "H"}, {"ROW_ALIGN", 2}});
    tables.AddLine(5, "Notes", {{"ROW_TEXT", "X"}});
    tables.AddLine(6, "Retail", {{"ROW_HIDDEN", "X"}, {"ROW_FG", 4}});
    tables.AddLine(7, "Transport", {{"ROW_FORMAT", "0.00"}, {"BITMAP", "flag_red"}});
    for (int column = 1; column <= 3; ++column) {
        tables.AddValue(1, column, 7600.5 + column);
        tables.AddValue(2, column, std::to_string(13000 + 10 * column) + ",5");
        tables.AddValue(3, column, 20000 + column);
        tables.AddValue(7, column, column * 100);
    }
    tables.AddValue(6, 1, "15351.5");
    tables.gridAttr->SetValue(1, "CHART", "X");
    tables.gridAttr->SetValue(1, "LABELCOL_WIDTH", 180);
    tables.gridAttr->SetValue(1, "BGCOLOR", 2);
    tables.gridAttr->SetValue(1, "GRIDLINE_COLOR", 7);
    tables.gridAttr->SetValue(1, "FIRST_COL", 1);
    tables.gridAttr->SetValue(1, "FIRST_ROW", 1);
    tables.gridAttr->SetValue(1, "MINRANGE", 100);
    tables.gridAttr->SetValue(1, "MAXRANGE", 9000);
    tables.gridAttr->SetValue(1, "OPTIMUM", "7500");
    tables.gridAttr->SetValue(1, "TITELTEXT", "Employment");
}

void GoldenRun::FillFixed() {
    AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "L"}, {"COL_WIDTH", 60}});
    AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}, {"COL_FORMAT", "0.0"}, {"COL_ALIGN", 1}});
    AddRow(*tables.fixedCols, {{"COLUMN_FIX", 2}, {"FLG_POSITION", "R"}, {"READONLY", "X"}});
    AddRow(*tables.fixedLines, {{"LINE_FIX", 1}, {"FLG_POSITION", "T"}, {"READONLY", "X"}});
    AddRow(*tables.fixedLines, {{"LINE_FIX", 1}, {"FLG_POSITION", "B"}, {"ROW_HEIGHT", 30}});
    AddRow(*tables.fixedTab, {{"COLUMN", 1}, {"FLG_COL_FIX", "R"}, {"LINE", 2}, {"VALUE", "52000"}, {"BGCOLOR", 5}});
    AddRow(*tables.fixedTab, {{"COLUMN", 1}, {"FLG_COL_FIX", "L"}, {"LINE", 1}, {"VALUE", "thousand"}});
    AddRow(
        *tables.fixedTab,
        {{"COLUMN", 3}, {"LINE", 1}, {"FLG_LINE_FIX", "B"}, {"VALUE", "1,5"}, {"TOOLTIP", "total"}, {"TEXTALIGN", 1}});
    AddRow(*tables.cellAttr, {{"COLUMN", 2}, {"LINE", 1}, {"BGCOLOR", 6}, {"FGCOLOR", 3}, {"TOOLTIP", "estimated"}});
    AddRow(*tables.cellAttr, {{"COLUMN", 3}, {"LINE", 2}, {"BITMAP", "nowhere"}});
    AddRow(*tables.cellAttr, {{"COLUMN", 99}, {"LINE", 2}, {"BGCOLOR", 1}});
}

void GoldenRun::FillMenusAndMacros() {
    for (const TableRef& menu : {tables.gridMenu, tables.colMenu, tables.rowMenu, tables.cellMenu}) {
        AddRow(*menu, {{"PFID", 5}, {"TEXT", "Not now"}, {"ENABLED", ""}});
        AddRow(*menu, {{"PFID", 7}, {"TEXT", "Note…"}, {"ENABLED", "X"}});
    }
    AddRow(*tables.texts, {{"ENTRY", 184}, {"TEXT", "Choose the sales."}, {"TABLINE", "A line of the table"}});
    AddRow(*tables.macroTree, {{"NODEKEY", "F1"}, {"RELATION", 1}, {"NODETEXT", "Macros"}, {"EXPANDED", "X"}});
    AddRow(*tables.macroTree, {{"NODEKEY", "F2"}, {"NODEREF", "F1"}, {"RELATION", 4}, {"NODETEXT", "Older"}});
    AddRow(*tables.macroTree,
           {{"NODEKEY", "F3"}, {"NODEREF", "F2"}, {"RELATION", 2}, {"NODETEXT", "Newer"}, {"IMAGE", "folder"}});
    MacroText macros(*tables.macroTree);
    macros.Add("Raise", "ROW1 = ROW1 * 1,05\n");
    macros.Add("Wrong", "ROW1 = ROW99\n");
}

void GoldenRun::Open() {
    Step("the trace is switched on");
    Call("plv_DisableTrace");
    Call("plv_EnableTrace");
    Step("the tables are handed over");
    tables.GiveTo(*control);
    SetTable("TAB", tables.tab);
    Call("PROP_Get_TAB");
    Step("the layout, the texts, the menus and the macro tree are imported");
    Call("plv_LayoutMode");
    Call("DP_Import_Attribute");
    Call("DP_Import_Texts");
    Call("DP_Import_MacroTree");
    Call("DP_Import_PopupMenu");
    Call("plv_ActiveNode", {"F2"});
    Step("the grid is built");
    Call("DP_Import_Create");
    Step("the window is shown");
    control->View().Resize(900, 700);
    control->View().EnterFocus();
    control->View().GotFocus();
    Grid().ReportFocus(true);
}

void GoldenRun::Type() {
    Step("a value is typed");
    Enter("COL2/ROW1", "7999,5");
    Step("a value with a point and one with groups");
    Enter("COL3/ROW1", "8000.25");
    Enter("COL1/ROW2", "1.234.567,8");
    Step("a value of a cell that TAB has no row for");
    Enter("COL4/ROW2", "42");
    Step("the same value again");
    Enter("COL2/ROW1", "7999,5");
    Step("a single mark that may group");
    Enter("COL1/ROW7", "136.000");
    Step("an emptied cell");
    Enter("COL1/ROW7", "");
    Step("fixed cells");
    Enter("FRC1/ROW2", "53000,5");
    Enter("COL3/FBR1", "2");
    Step("Return, and a cell left as it was");
    Grid().ReportKeyPress(Return);
    Grid().ReportStay();
    Step("undone twice and made again once");
    control->Editing().Undo();
    control->Editing().Undo();
    control->Editing().Redo();
    Step("a click and a double click");
    Grid().SelectCell(At("COL2/ROW2"), SelectionMode::Replace);
    Grid().ReportMouseDown(At("COL2/ROW2"), MouseButton::Left, ShiftState::None);
    Grid().ReportSimpleClick(At("COL2/ROW2"));
    Grid().ReportDoubleClick(At("COL2/ROW2"));
}

void GoldenRun::Clip() {
    Step("a block is copied");
    Select("COL1/ROW1", "COL2/ROW2");
    Key(Control, 'C');
    Step("and pasted, over a read-only line too");
    Grid().SelectCell(At("COL3/ROW2"), SelectionMode::Replace);
    Key(Control, 'V');
    Step("a foreign text is pasted, with a word in it");
    platform.onClipboard = {"1,5\t2\nword\t4\n", ""};
    Grid().SelectCell(At("COL1/ROW1"), SelectionMode::Replace);
    Key(Control, 'V');
    Step("a paste is undone");
    control->Editing().Undo();
    Step("cells are emptied");
    Select("COL1/ROW2", "COL3/ROW3");
    Key(NoShift, DeleteKey);
    Step("cells are cut");
    Select("COL3/ROW1", "COL3/ROW1");
    Key(Control, 'X');
    Step("cells are filled");
    Select("COL1/ROW1", "COL4/ROW1");
    control->Editing().Fill();
    Step("cells are raised");
    control->Editing().RaiseSelected(2.5);
    Step("each value is told of: one cell pasted over several");
    tables.gridAttr->SetValue(1, "SINGLEVALUE", "X");
    Call("DP_Import_Attribute");
    platform.onClipboard = {"5", ""};
    Select("COL1/ROW1", "COL3/ROW1");
    Key(Control, 'V');
    control->Editing().Undo();
    tables.gridAttr->SetValue(1, "SINGLEVALUE", "");
    Call("DP_Import_Attribute");
    Step("keys that do nothing here");
    Key(Control, 'D');
    Key(Control, 'Q');
}

void GoldenRun::SelectAndHide() {
    Step("rows are selected");
    Grid().SelectRow(Row("ROW2"), SelectionMode::Replace);
    Grid().SelectRow(Row("ROW4"), SelectionMode::Add);
    Step("and hidden by the host");
    Call("plv_MarkedRowsHide");
    Step("and shown");
    Call("plv_MarkedRowsShow");
    Step("rows are hidden by the user");
    Grid().SelectRow(Row("ROW2"), SelectionMode::Replace);
    RightClick("FLC0/ROW2", {"mnuRowsHide"});
    Step("and shown by their mark");
    Grid().ReportShowHidden(Row("ROW1"), HiddenSide::Behind);
    Step("columns are selected");
    Grid().SelectColumn(Column("COL2"), SelectionMode::Replace);
    Grid().SelectColumn(Column("COL3"), SelectionMode::Extend);
    Step("and hidden");
    control->View().HideColumns();
    Step("and shown between the headings beside them");
    Grid().SelectColumn(Column("COL1"), SelectionMode::Replace);
    Grid().SelectColumn(Column("COL4"), SelectionMode::Extend);
    control->View().ShowColumns();
    Step("everything is selected, then nothing");
    Grid().SelectAll();
    Grid().ClearSelection();
    Step("the grid is scrolled, and the host hears of it");
    Grid().ScrollToColumn(Column("COL3"));
    Grid().ScrollToRow(Row("ROW2"));
    Enter("COL3/ROW2", "3");
}

void GoldenRun::Popups() {
    Step("the four popups, closed without a choice");
    Grid().SelectRow(Row("ROW1"), SelectionMode::Replace);
    for (const char* place : {"FLC0/FTR0", "COL1/FTR0", "FLC0/ROW1", "COL1/ROW2", "FRC1/ROW2", "FLC1/FTR0"}) {
        RightClick(place);
    }
    Step("the menu key");
    Grid().ReportMenuKey();
    Step("entries of the columns' popup");
    for (const char* entry : {"mnuColsSelectAll", "mnuColsDeselect", "mnuWidthResetAll"}) {
        RightClick("COL2/FTR0", {entry});
    }
    Grid().SelectColumn(Column("COL4"), SelectionMode::Replace);
    for (const char* entry :
         {"mnuColsSelectBlock", "mnuColsHide", "mnuColsSelectAll", "mnuColsShow", "mnuWidthReset"}) {
        RightClick("COL4/FTR0", {entry});
    }
    Step("entries of the rows' popup");
    for (const char* entry : {"mnuRowsSelectAll", "mnuRowsDeselect", "mnuHeightResetAll"}) {
        RightClick("FLC0/ROW2", {entry});
    }
    Grid().SelectRow(Row("ROW7"), SelectionMode::Replace);
    for (const char* entry : {"mnuRowsSelectBlock", "mnuRowsShow", "mnuHeightReset"}) {
        RightClick("FLC0/ROW7", {entry});
    }
    Step("colours of rows");
    RightClick("FLC0/ROW7", {"mnuRowBgColor", "mnuColor(13)"});
    RightClick("FLC0/ROW7", {"mnuRowFgColor", "mnuColor(4)"});
    RightClick("FLC0/ROW7", {"mnuRowFgColor"});
    platform.choices.clear();
    Step("entries of the cells' popup");
    Grid().SelectCell(At("COL1/ROW1"), SelectionMode::Replace);
    for (const char* entry : {"mnuCellCopy", "mnuCellCut", "mnuCellPaste"}) {
        RightClick("COL1/ROW1", {entry});
    }
    Step("entries of the host");
    for (const char* place : {"FLC0/FTR0", "COL3/FTR0", "FLC0/ROW2", "COL3/ROW2"}) {
        RightClick(place, {"User(2)"});
    }
    Step("test data, refused");
    platform.answer = MessageAnswer::No;
    RightClick("FLC0/FTR0", {"mnuRandom"});
    platform.answer.reset();
}

void GoldenRun::Dialogs() {
    Step("the general options");
    WhileShown<frmGrid>([](frmGrid& form) {
        form.chkMove.Value = 0;
        form.Set_DragMode(2);
        form.Set_BgColor(0);
        form.Set_GridLinesColor(11);
        form.cmdOk_Click();
    });
    RightClick("FLC0/FTR0", {"mnuGeneral"});
    Step("the attributes of a row, with a colour from the popup");
    Grid().SelectRow(Row("ROW2"), SelectionMode::Replace);
    WhileShown<frmRow>([this](frmRow& form) {
        form.chkRelief.Value = 1;
        form.Set_Alignment(1);
        form.txtHeight = "40";
        platform.choices = {"mnuColor(9)"};
        form.picFgColor_Click();
        form.ListFont.Choose("Courier New");
        form.cmdOk_Click();
    });
    RightClick("FLC0/ROW2", {"mnuRowAttributes"});
    Step("the attributes of a row, cancelled");
    Grid().SelectRow(Row("ROW2"), SelectionMode::Replace);
    WhileShown<frmRow>([](frmRow& form) { form.cmdCancel_Click(); });
    RightClick("FLC0/ROW2", {"mnuRowAttributes"});
    Step("the attributes of the chart");
    WhileShown<frmChart>([](frmChart& form) {
        form.txtTitle = "Plan";
        form.chkMinAuto.Value = 0;
        form.txtMin.Text = "-2.5";
        form.txtOptimum.Text = "";
        form.ListPosition.ListIndex = 2;
        form.chkScrollBar.Value = 1;
        form.txtCategories.Text = "2";
        form.picArea.Set(5);
        form.cmdOk_Click();
    });
    ChartClick(ChartHitCode::ChartArea, 0, {"mnuChartAttribute"});
    platform.whileShown = nullptr;
}

void GoldenRun::Resize() {
    Step("a column is dragged wider");
    Grid().PressColumnBorder(Column("COL3"), false);
    Grid().DragBorder(100);
    Grid().DragBorder(120);
    Grid().ReleaseBorder();
    Step("a row of several marked ones is dragged higher");
    Grid().SelectRow(Row("ROW1"), SelectionMode::Replace);
    Grid().SelectRow(Row("ROW3"), SelectionMode::Extend);
    Grid().PressRowBorder(Row("ROW2"), false);
    Grid().DragBorder(33);
    Grid().ReleaseBorder();
    Step("the label column, the heading and a fixed column");
    Grid().PressColumnBorder(Column("FLC0"), false);
    Grid().DragBorder(150);
    Grid().ReleaseBorder();
    Grid().PressRowBorder(Row("FTR0"), false);
    Grid().DragBorder(28);
    Grid().ReleaseBorder();
    Grid().PressColumnBorder(Column("FRC1"), false);
    Grid().DragBorder(64);
    Grid().ReleaseBorder();
    Step("a drag that is given up");
    Grid().PressColumnBorder(Column("COL1"), false);
    Grid().DragBorder(10);
    Grid().CancelBorder();
}

void GoldenRun::View() {
    for (const char* entry : {"mnuSwitch", "mnuZoom", "mnuMacroTree", "mnuChart"}) {
        Step((std::string(entry) + " on and off").c_str());
        RightClick("FLC0/FTR0", {entry});
        if (entry == std::string("mnuSwitch")) {
            Grid().PressColumnBorder(Column("COL3"), true);
            Grid().DragBorder(31);
            Grid().ReleaseBorder();
            Grid().PressRowBorder(Row("ROW2"), true);
            Grid().DragBorder(91);
            Grid().ReleaseBorder();
            Enter("COL1/ROW1", "17");
        }
        RightClick("FLC0/FTR0", {entry});
    }
    Step("the trace window by its keys and by its entry");
    Key(ControlAlt, 'D');
    Key(Control, 'D');
    RightClick("FLC0/FTR0", {"mnuShowTrace"});
    Step("layout calls");
    for (const char* member : {"plv_LayoutHide", "plv_LayoutShow", "plv_LayoutModeDisable", "plv_LayoutMode"}) {
        Call(member);
    }
}

void GoldenRun::Chart() {
    Step("series and points are selected in the chart");
    ControlParts(*control).Chart().UserFocus(true);
    ControlParts(*control).Chart().UserPressed(MouseButton::Left, ShiftState::None, {ChartHitCode::Series, 2, 0});
    ControlParts(*control).Chart().UserSelected({ChartHitCode::Series, 2, 0});
    ControlParts(*control).Chart().UserSelected({ChartHitCode::Point, 1, 2});
    Step("a point is dragged");
    ControlParts(*control).Chart().UserChangedPoint(1, 2, 8123.25);
    Step("a point of no cell is dragged");
    ControlParts(*control).Chart().UserChangedPoint(7, 2, 1);
    Step("types of a series");
    for (const char* entry : {"mnuLineStacked100", "mnuChartColumn"}) {
        ChartClick(ChartHitCode::Series, 1, {entry});
    }
    Step("trend lines");
    for (const char* entry : {"mnuLinear", "mnuLogarithmic", "mnuPotential", "mnuExpotential", "mnuAverage"}) {
        ChartClick(ChartHitCode::Point, 1, {entry});
    }
    Step("a trend line gets a colour and goes");
    ChartClick(ChartHitCode::Trendline, 1, {"mnuTrendColor", "mnuColor(1)"});
    ChartClick(ChartHitCode::Trendline, 1, {"mnuTrendDel"});
    Step("rows and columns for the chart");
    Grid().SelectRow(Row("ROW7"), SelectionMode::Replace);
    control->View().ShowSelectedRowsInChart();
    Grid().SelectColumn(Column("COL2"), SelectionMode::Replace);
    Grid().SelectColumn(Column("COL4"), SelectionMode::Extend);
    control->View().ShowSelectedColumnsInChart();
    Step("something is dragged over the chart");
    ControlParts(*control).Chart().UserDragged("GridView", false);
    ControlParts(*control).Chart().UserDragged("GridView", true);
    ControlParts(*control).Chart().UserFocus(false);
}

void GoldenRun::ChartViews() {
    Step("the chart is arranged anew and copied");
    ChartClick(ChartHitCode::PlotArea, 0, {"mnuChartRedraw"});
    ChartClick(ChartHitCode::PlotArea, 0, {"mnuChartCopy"});
    Step("the forecast view");
    ChartClick(ChartHitCode::None, 0, {"mnuForecast1"});
    Step("its two lines are chosen");
    Grid().ReportSimpleClick(At("FLC0/ROW1"));
    Grid().ReportSimpleClick(At("FLC0/ROW2"));
    Step("one of them is chosen anew");
    Grid().ReportSimpleClick(At("FLC0/ROW7"));
    Step("a value in the forecast view");
    Enter("COL2/ROW1", "50");
    Step("the standard view");
    ChartClick(ChartHitCode::None, 0, {"mnuDefault"});
    Step("the forecast view is left for another book");
    ChartClick(ChartHitCode::None, 0, {"mnuForecast1"});
    control->View().LeaveForecastView();
}

void GoldenRun::Tree() {
    TreeControl& tree = ControlParts(*control).Tree();
    Step("nodes are opened, closed and clicked");
    tree.UserFocus(true);
    tree.UserExpand(Node("F2"), true);
    tree.UserExpand(Node("F2"), false);
    tree.UserClick(Node("F3"), false);
    tree.UserDoubleClick(Node("F3"));
    tree.UserMouseDown(Node("F3"), MouseButton::Left, ShiftState::None);
    Step("a new node is asked for");
    for (const char* entry : {"mnuMacroInsert", "mnuMacroAdd", "mnuNextLevel"}) {
        platform.choices = {entry};
        tree.UserClick(Node("F3"), true);
    }
    Step("the tree's popup");
    for (const char* entry : {"mnuTreeExpand", "mnuTreeCollapse"}) {
        platform.choices = {entry};
        tree.UserMouseDown(Node("F3"), MouseButton::Right, ShiftState::None);
    }
    tree.UserMouseDown({}, MouseButton::Right, ShiftState::None);
    tree.UserMenuKey();
    Step("a label is edited, and one is left as it was");
    platform.choices = {"mnuNodeRename"};
    tree.UserMouseDown(Node("F3"), MouseButton::Right, ShiftState::None);
    EXPECT_TRUE(tree.UserBeginLabelEdit(Node("F3")));
    tree.UserEndLabelEdit("Newest");
    EXPECT_TRUE(tree.UserBeginLabelEdit(Node("F2")));
    tree.UserEndLabelEdit("Older");
    Step("a node is dropped");
    tree.UserDrop(Node("F3"), Node("F2"), TreeDrop::Before);
    tree.UserDrop(Node("F3"), Node("F2"), TreeDrop::Below);
    tree.UserFocus(false);
}

void GoldenRun::EditMacro() {
    MacroEditor& editor = ControlParts(*control).Editor();
    Step("a macro is run, undone and run again");
    ControlParts(*control).Tree().UserClick(Node("M1"), false);
    editor.Check();
    editor.Run();
    control->Editing().Undo();
    control->Editing().Redo();
    Step("a macro that is wrong is run");
    TreeNodes& nodes = ControlParts(*control).Tree().Nodes();
    for (TreeNode node = nodes.FirstRoot(); node; node = node.NextSibling()) {
        if (node.Text() == "Wrong") {
            ControlParts(*control).Tree().UserClick(node, false);
            break;
        }
    }
    editor.Run();
    Step("a macro is made");
    editor.NewMacro();
    Grid().SelectRow(Row("ROW1"), SelectionMode::Replace);
    editor.TakeOperand();
    Grid().SelectCell(At("COL2/ROW2"), SelectionMode::Replace);
    editor.TakeOperand();
    editor.AddOperator("+");
    editor.SetOperandText("1,5");
    editor.NextStatement();
    Step("a function and a condition");
    Grid().SelectRow(Row("ROW7"), SelectionMode::Replace);
    editor.TakeOperand();
    editor.AddFunction("SUM");
    editor.SetOperandText("Construction");
    editor.AddOperator(")");
    editor.AddCondition(false);
    Step("buttons of the toolbar");
    for (const auto& [button, choice] : {std::pair(ToolbarButton::Operator, "-"),
                                         {ToolbarButton::Attribute, ""},
                                         {ToolbarButton::Generate, ""},
                                         {ToolbarButton::Inactive, ""}}) {
        platform.choices.clear();
        if (*choice != '\0') {
            platform.choices = {choice};
        }
        ControlParts(*control).Toolbar().UserPress(button);
        platform.choices.clear();
    }
    ControlParts(*control).Toolbar().UserDragSelection("ROW1/COL1:COL2");
    Step("elements are renamed, moved and deleted");
    editor.SetCurrent(0);
    editor.Rename("Sum up");
    editor.SetCurrent(1);
    editor.Move(false);
    editor.Move(true);
    editor.Delete();
}

void GoldenRun::Record() {
    Step("a recording begins");
    RightClick("FLC0/FTR0", {"mnuMacroRecStart"});
    Step("what is recorded");
    Enter("COL1/ROW1", "100");
    Select("COL1/ROW1", "COL4/ROW1");
    control->Editing().RaiseSelected(10);
    Grid().SelectRow(Row("ROW2"), SelectionMode::Replace);
    RightClick("FLC0/ROW2", {"mnuRowBgColor", "mnuColor(2)"});
    Grid().PressColumnBorder(Column("COL1"), false);
    Grid().DragBorder(75);
    Grid().ReleaseBorder();
    RightClick("FLC0/FTR0", {"mnuZoom"});
    RightClick("FLC0/FTR0", {"mnuZoom"});
    Step("it is interrupted, goes on, and loses its last step");
    RightClick("FLC0/FTR0", {"mnuMacroRecInterrupt"});
    Enter("COL2/ROW1", "2");
    RightClick("FLC0/FTR0", {"mnuMacroRecStart"});
    Enter("COL3/ROW1", "3");
    RightClick("FLC0/FTR0", {"mnuMacroRecUndo"});
    Step("it ends and is kept");
    RightClick("FLC0/FTR0", {"mnuMacroRecStop"});
    const std::string key = control->Recording().Keep("Recorded", "F1");
    Step("it is replayed");
    static_cast<void>(control->Macros().Replay(key));
    Step("it does not fit any more");
    tables.lineIndex->SetValue(1, "READONLY", "X");
    Call("DP_Import_Update");
    static_cast<void>(control->Macros().Run(key));
    tables.lineIndex->SetValue(1, "READONLY", "");
}

void GoldenRun::Exchange() {
    Step("the grid is downloaded");
    platform.savePaths = {"/plans/plan.xlsx"};
    RightClick("FLC0/FTR0", {"mnuExcelDn"});
    for (const std::string& call : std::exchange(spreadsheet->log, {})) {
        transcript.Add("spreadsheet " + call);
    }
    for (const auto& [place, cell] : spreadsheet->cells) {
        transcript.Add("spreadsheet " + std::to_string(place.first) + "," + std::to_string(place.second) + ": " +
                       cell.value.AsText() + " " + cell.interior + " " + cell.locked);
    }
    Step("a workbook with changes is uploaded");
    spreadsheet->cells[{2, 3}].value = 4711.5;
    spreadsheet->cells[{3, 3}].value = "word";
    platform.openPaths = {"/plans/plan.xlsx"};
    WhileShown<frmUpload>([this](frmUpload& form) {
        for (const UploadChange& change : form.Preview().changes) {
            transcript.Add("change " + change.line + "/" + change.period + ": " + change.before + " -> " +
                           change.after + " " + change.refusal);
        }
        form.cmdOk_Click();
    });
    RightClick("FLC0/FTR0", {"mnuExcelUp"});
    platform.whileShown = nullptr;
    Step("a download that fails");
    spreadsheet->failing = "Workbook.Saveas";
    platform.savePaths = {"/plans/plan.xlsx"};
    RightClick("FLC0/FTR0", {"mnuExcelDn"});
}

void GoldenRun::Fail() {
    Step("a field that is no number");
    tables.gridAttr->SetValue(1, "BGCOLOR", "blue");
    Call("DP_Import_Attribute");
    tables.gridAttr->SetValue(1, "BGCOLOR", 2);
    tables.lineIndex->SetValue(2, "ROW_HEIGHT", "tall");
    Call("DP_Import_Update");
    tables.lineIndex->SetValue(2, "ROW_HEIGHT", 22);
    Step("without the index of the lines");
    SetTable("LINE_INDEX", nullptr);
    Enter("COL1/ROW1", "5");
    SetTable("LINE_INDEX", tables.lineIndex);
    Step("without TAB");
    SetTable("TAB", nullptr);
    Enter("COL1/ROW1", "6");
    SetTable("TAB", tables.tab);
}

void GoldenRun::Close() {
    Step("the view of the book is built anew");
    tables.gridAttr->SetValue(1, "FIRST_COL", 2);
    tables.gridAttr->SetValue(1, "SWITCHED", "X");
    Call("DP_Import_Attribute");
    Call("DP_Import_Update");
    Step("the control loses the focus and ends");
    Grid().ReportFocus(false);
    control->View().LostFocus();
    control->View().ExitFocus();
    control->Terminate();
    EndStep();
}

/// What a user and a host do here, and all that comes of it, is kept in golden/control.txt.
TEST_F(GoldenRun, LeavesTheTraceThatWasKept) {
    Open();
    Type();
    Clip();
    SelectAndHide();
    Popups();
    Dialogs();
    Resize();
    View();
    Chart();
    ChartViews();
    Tree();
    EditMacro();
    Record();
    Exchange();
    Fail();
    Close();
    transcript.ExpectKept(std::string(GOLDEN_FOLDER) + "/control.txt");
}

}  // namespace

}  // namespace planview::test
