// SPDX-License-Identifier: MIT
#include <functional>
#include <set>

#include "commands/CommandTable.h"
#include "macro/recording/RecordingFixture.h"
#include "macro/run/MacroText.h"
#include "support/StubbornTable.h"

namespace planview::test {

namespace {

class CommandsTest : public RecordingTest {
protected:
    void GridStartUpdate() override { ++updates; }

    void SelectColumns(std::initializer_list<const char*> columns) {
        SelectionMode mode = SelectionMode::Replace;
        for (const char* column : columns) {
            Grid().SelectColumn(*Grid().FindColumn(column), std::exchange(mode, SelectionMode::Add));
        }
    }
    /// A table with the same rows that fails where the field of the row is put.
    void MakeStubborn(const TableRef& table, std::int32_t row, const char* field) {
        const auto stubborn = std::make_shared<StubbornTable>(table, row, field);
        table == tables.colsIndex ? control->PROP_Set_COLS_INDEX(stubborn) : control->PROP_Set_LINE_INDEX(stubborn);
    }
    /// Why it cannot be run; "checked" or nothing where it can.
    [[nodiscard]] std::string StateOf(Command command) const {
        const CommandState state = control->StateOf(command);
        EXPECT_EQ(state.enabled, state.reason.empty());
        return state.checked ? "checked" : state.reason;
    }

    int updates = 0;
};

/// A host may have these numbers and names in its code.
TEST_F(CommandsTest, NumbersAndNamesStayAsTheyAre) {
    const char* const names[] = {
        "Undo",
        "Redo",
        "CellCut",
        "CellCopy",
        "CellPaste",
        "CellFill",
        "CellDelete",
        "CellRaise",
        "RowsHide",
        "ColsHide",
        "RowsShow",
        "ColsShow",
        "ColsSelectAll",
        "ColsSelectBlock",
        "ColsDeselect",
        "WidthReset",
        "WidthResetAll",
        "RowsSelectAll",
        "RowsSelectBlock",
        "RowsDeselect",
        "HeightReset",
        "HeightResetAll",
        "RowBgColor",
        "RowFgColor",
        "RowAttributes",
        "Chart",
        "RowsInChart",
        "ColsInChart",
        "Default",
        "Forecast1",
        "ChartRedraw",
        "ChartCopy",
        "ChartAttribute",
        "ChartLine",
        "ChartColumn",
        "LineStacked",
        "LineStacked100",
        "Linear",
        "Logarithmic",
        "Potential",
        "Expotential",
        "Average",
        "TrendlineColor",
        "TrendlineDelete",
        "MacroTree",
        "Switch",
        "Zoom",
        "MacroRecStart",
        "MacroRecInter",
        "MacroRecStop",
        "MacroRecUndo",
        "MacroExpand",
        "MacroCollapse",
        "NodeRename",
        "MacroInsert",
        "MacroAdd",
        "NextLevel",
        "ExcelDn",
        "ExcelUp",
        "General",
        "TestData",
        "Trace",
        "ShowTrace",
        "MARK",
        "COL_WIDTH",
        "COL_HEIGHT",
        "ROW_WIDTH",
        "ROW_HEIGHT",
        "RowSelect",
        "ColSelect",
        "CellOtherReading",
        "MacroNew",
        "MacroEdit",
        "MacroPreview",
        "PaneNext",
        "PanePrevious",
        "SplitterNext",
        "SelectionAdd",
        "MoveLeft",
        "MoveRight",
        "MoveUp",
        "MoveDown",
        "MakeNarrower",
        "MakeWider",
        "MakeLower",
        "MakeHigher",
        "ForecastLine",
        "CellTell",
    };
    const auto commands = DescribeCommands();
    ASSERT_GE(commands.size(), std::size(names));
    for (std::size_t i = 0; i < std::size(names); ++i) {
        EXPECT_EQ(static_cast<int>(commands[i].command), 1001 + static_cast<int>(i));
        EXPECT_EQ(commands[i].name, names[i]);
        EXPECT_EQ(control->IdOf(names[i]), 1001 + static_cast<int>(i)) << "one of the 65 has this name, too";
    }
}

TEST_F(CommandsTest, NoKeyAndNoNameMeansTwo) {
    std::set<std::pair<int, int>> keys;
    std::set<std::string_view> names;
    for (const CommandRow& row : CommandRows()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        for (const std::string_view key : {row.key, row.otherKey}) {
            const KeyStroke stroke = ReadKeyStroke(key);
            EXPECT_EQ(stroke.code == 0, key.empty()) << key << " cannot be read";
            EXPECT_TRUE(stroke.code == 0 || keys.insert({stroke.shift, stroke.code}).second) << key;
        }
    }
}

TEST_F(CommandsTest, AHostSeesWhatAMacroChangesAndAppliesWhatItWants) {
    MacroText macros(*tables.macroTree);
    const std::string raise = macros.Add("Raise", "periods COL1:COL2\nROW1:ROW4 = ROW1:ROW4 + 1");
    const std::string faulty = macros.Add("Faulty", "ROW1 = 1 / 0");
    control->DP_Import_MacroTree();
    EXPECT_EQ(
        control->Macros().Preview(faulty).error,
        "\"/\" in \"Retail = 1 / 0\": Division by zero in Retail, Jan. Change the values, or leave such periods out "
        "by a condition.");
    UploadPreview preview = control->Macros().Preview(raise);
    EXPECT_EQ(preview.error, "");
    ASSERT_EQ(preview.changes.size(), 8U);
    EXPECT_EQ(preview.changes[3].line + "/" + preview.changes[3].period, "  Wholesale/Feb");
    EXPECT_EQ(preview.changes[3].before + " -> " + preview.changes[3].after, "202 -> 203");
    EXPECT_TRUE(preview.changes[7].IsRefused()) << "Total";
    EXPECT_EQ(Line("ROW1"), "101 102 103 104 105 106") << "nothing has happened yet";
    preview.changes[0].taken = false;
    const UploadResult result = control->Exchange().ApplyUpload(preview);
    EXPECT_EQ(result.changed, 5);
    EXPECT_EQ(result.refused, 0);
    EXPECT_EQ(Line("ROW1"), "101 103 103 104 105 106");
    control->Editing().Undo();
    EXPECT_EQ(Line("ROW1"), "101 102 103 104 105 106");
}

TEST_F(CommandsTest, RunLateBoundByNameAndNumber) {
    Grid().SelectCell(At("COL2", "ROW1"), SelectionMode::Replace);
    control->Call(control->IdOf("cellcopy"), {});
    EXPECT_EQ(platform.onClipboard.text, "102");
    const Variant percent = 50;
    control->Call(static_cast<DispatchId>(Command::Raise), {&percent, 1});
    EXPECT_EQ(Line("ROW1"), "101 153 103 104 105 106");
    const std::array<Variant, 2> wide{"COL3", 120};
    control->Recording().Start();
    control->Call(static_cast<DispatchId>(Command::SetColumnWidth), wide);
    EXPECT_EQ(Grid().Column(*Grid().FindColumn("COL3")).width, 120);
    const Variant headings = "ROW1,ROW3";
    control->Call(static_cast<DispatchId>(Command::SelectHeadings), {&headings, 1});
    EXPECT_TRUE(Grid().IsSelected({{}, "ROW3"}));
    EXPECT_EQ(Steps(), (Lines{"COL_WIDTH COL3[Mar] [] 120", "MARK [] ROW1,ROW3[Retail|Utilities] "}));

    EXPECT_THROW(control->Call(static_cast<DispatchId>(Command::Raise), {}), AutomationError);
    EXPECT_THROW(control->Call(static_cast<DispatchId>(Command::Copy), {&percent, 1}), AutomationError);
    EXPECT_THROW(control->Call(1000, {}), AutomationError);
    EXPECT_THROW(static_cast<void>(control->IdOf("CellCopies")), AutomationError);
    EXPECT_FALSE(control->Run(static_cast<Command>(7)));
}

/// What it has changed until then stays, and is seen; nobody is told that it was done.
TEST_F(CommandsTest, WhatHasFailedIsNeitherRecordedNorAnnounced) {
    const auto& columns = tables.colsIndex;
    const auto& lines = tables.lineIndex;
    const struct {
        Command command;
        TableRef table;
        const char* field;
        const char* error;
    } cases[] = {
        {Command::HideColumns, columns, "COL_HIDDEN", "GRIDCTL | {cid: COL3} | HideColumn | ERROR"},
        {Command::ShowColumns, columns, "COL_HIDDEN", "GRIDCTL | {cid: COL3} | ShowColumn | ERROR"},
        {Command::ResetWidths, columns, "COL_WIDTH", "GRIDCTL | {cid: COL3} | ColWidthReset | ERROR"},
        {Command::HideRows, lines, "ROW_HIDDEN", "GRIDCTL | {rid: ROW3} | HideRow | ERROR"},
        {Command::ShowRows, lines, "ROW_HIDDEN", "GRIDCTL | {rid: ROW3} | ShowRow | ERROR"},
        {Command::ResetHeights, lines, "ROW_HEIGHT", "GRIDCTL | {rid: ROW3} | RowHeightReset | ERROR"},
    };
    ExpectErrors();
    for (const auto& row : cases) {
        SCOPED_TRACE(row.error);
        control->PROP_Set_COLS_INDEX(columns);
        control->PROP_Set_LINE_INDEX(lines);
        row.table == columns ? SelectColumns({"COL2", "COL3"}) : SelectRows({"ROW2", "ROW3"});
        control->Recording().Start();
        MakeStubborn(row.table, 3, row.field);
        updates = 0;
        ForgetEntries();
        EXPECT_FALSE(control->Run(row.command));
        EXPECT_EQ(Entries(IsError).front(), row.error);
        EXPECT_EQ(updates, 0);
        EXPECT_EQ(Steps(), Lines{});
        control->Recording().Stop();
    }
    EXPECT_TRUE(Grid().Row(*Grid().FindRow("ROW1")).height == 22) << "the rows before it have their height";
}

TEST_F(CommandsTest, WhatCannotBeDoneAnswersSoAndIsNotRecorded) {
    const struct {
        Command command;
        std::vector<Variant> arguments;
    } cases[] = {
        {Command::SetColumnWidth, {"COL99", 50}},
        {Command::SetRowHeight, {"ROW99", 50}},
        {Command::SelectHeadings, {"COL1,COL99"}},
        {Command::HideColumns, {}},
        {Command::ShowRows, {}},
        {Command::AddMovingAverage, {}},
        {Command::ArrangeChart, {}},
        {Command::StandardChart, {}},
        {Command::ForecastChart, {}},
        {Command::ShowRowsInChart, {}},
        {Command::Undo, {}},
        {Command::Redo, {}},
        {Command::RenameMacroNode, {}},
    };
    ExpectErrors();
    for (const auto& row : cases) {
        SCOPED_TRACE(static_cast<int>(row.command));
        Grid().ClearSelection();
        control->Recording().Start();
        EXPECT_FALSE(control->Run(row.command, row.arguments));
        EXPECT_EQ(Steps(), Lines{});
        control->Recording().Stop();
    }
}

TEST_F(CommandsTest, AReplaySaysWhichStepFailed) {
    control->Recording().Start();
    SelectRows({"ROW3"});
    control->View().HideRows();
    control->Recording().Stop();
    const std::string key = control->Recording().Keep("Test");
    control->View().ShowRows();
    ExpectErrors();
    MakeStubborn(tables.lineIndex, 3, "ROW_HIDDEN");
    const MacroResult result = control->Macros().Replay(key);
    EXPECT_FALSE(result.done);
    EXPECT_EQ(result.message, "Step 1 (Hide Utilities) could not be done; the trace says why.");
}

TEST_F(CommandsTest, SayWhyTheyCannotBeRun) {
    const auto none = [] {};
    const struct {
        const char* name;
        std::function<void()> prepare;
        Command command;
        const char* state;
    } cases[] = {
        {"no change yet", none, Command::Undo, "There is no change to take back."},
        {"a change", [&] { Grid().EnterText(At("COL1", "ROW1"), "7"); }, Command::Undo, ""},
        {"not taken back", none, Command::Redo, "There is no change to make again."},
        {"taken back", [&] { control->Editing().Undo(); }, Command::Redo, ""},
        {"a read-only line", [&] { Select("COL1", "ROW4", "COL1", "ROW4"); }, Command::Paste,
         "This cell is read-only."},
        {"one that is copied", none, Command::Copy, ""},
        {"one cell", none, Command::Fill, "Select several cells first; the first one gives the value."},
        {"a block with it", [&] { Select("COL1", "ROW3", "COL1", "ROW4"); }, Command::Paste, ""},
        {"several cells", none, Command::Fill, ""},
        {"all is read only", [&] { control->Editing().SetReadOnly(true); }, Command::DeleteContents,
         "This table is open for reading only."},
        {"not any more", [&] { control->Editing().SetReadOnly(false); }, Command::DeleteContents, ""},
        {"no heading", none, Command::HideRows, "Select a row by its heading first."},
        {"a heading", [&] { SelectRows({"ROW2"}); }, Command::HideRows, ""},
        {"nothing hidden", none, Command::ShowRows, "Select the headings on both sides of a hidden row first."},
        {"hidden", [&] { control->View().HideRows(); }, Command::HideRows, "Select a row by its heading first."},
        {"selected again",
         [&] {
             Grid().SetSelection({{}, "ROW2"}, true);
         },
         Command::HideRows, "Every selected row is hidden already."},
        {"to be shown", none, Command::ShowRows, ""},
        {"all of them", [&] { Grid().SelectAll(); }, Command::HideColumns, "One column has to stay visible."},
        {"no chart", none, Command::ShowRowsInChart, "Show the chart first."},
        {"a chart", [&] { control->View().SwitchChart(); }, Command::ShowRowsInChart, ""},
        {"it is checked", none, Command::SwitchChart, "checked"},
        {"no layout mode", none, Command::SwitchMacroTree, "The macro tree cannot be shown here."},
        {"nothing to edit macros in", none, Command::NewMacro, "The macro tree cannot be shown here."},
        {"layout mode", [&] { control->plv_LayoutMode(); }, Command::SwitchMacroTree, ""},
        {"an editor", none, Command::EditMacro, ""},
        {"no macro", none, Command::PreviewMacro, "Select a macro in the macro tree first."},
        {"no trend line", none, Command::DeleteTrend, "Click a trend line in the chart first."},
        {"no recording", none, Command::StopRecording, "There is no recording."},
        {"a recording", [&] { control->Recording().Start(); }, Command::StartRecording, "A recording is running."},
        {"no step", none, Command::UndoRecordedStep, "The recording has no step."},
        {"interrupted", [&] { control->Recording().Pause(); }, Command::StartRecording, ""},
        {"no node", none, Command::RenameMacroNode, "Select a node of the macro tree first."},
    };
    for (const auto& row : cases) {
        row.prepare();
        ForgetEntries();
        EXPECT_EQ(StateOf(row.command), row.state) << row.name;
        EXPECT_EQ(Entries(), Lines{}) << row.name << ": who asks leaves no trace";
    }
    EXPECT_EQ(control->StateOf(Command::StartRecording).caption, "Go &on recording");
    control->Terminate();
    EXPECT_EQ(StateOf(Command::Copy), "The control has ended.");
}

TEST_F(CommandsTest, NothingChangesTheTablesOfALockedControl) {
    Grid().EnterText(At("COL1", "ROW1"), "7");
    SelectRows({"ROW2"});
    control->plv_LayoutMode();
    control->View().SwitchChart();
    const HostTable tab(tables.tab);
    const std::string typed = tab.Text(1, "V");
    control->Editing().SetReadOnly(true);
    platform.formCalls.clear();
    for (const Command command :
         {Command::Undo, Command::Redo, Command::EditGridOptions, Command::EditRowAttributes,
          Command::EditChartAttributes, Command::ColorRowBackground, Command::ColorRowText, Command::FillWithTestData,
          Command::StartRecording, Command::RenameMacroNode, Command::AddMacroNode}) {
        EXPECT_EQ(StateOf(command), "This table is open for reading only.") << static_cast<int>(command);
        control->Run(command);
    }
    EXPECT_EQ(tab.Text(1, "V"), typed) << "undone";
    EXPECT_EQ(platform.formCalls, Lines{});
    EXPECT_EQ(platform.popups.size(), 0U);
    EXPECT_FALSE(control->Recording().IsOn());
    EXPECT_EQ(control->Recording().Keep("Test"), "");
    EXPECT_EQ(StateOf(Command::HideRows), "") << "what is only about the view stays possible";
    control->Editing().SetReadOnly(false);
    control->Editing().Undo();
    EXPECT_NE(tab.Text(1, "V"), typed);
}

TEST_F(CommandsTest, TheHostHearsThatTheyMayHaveChanged) {
    const struct {
        const char* name;
        std::function<void()> change;
    } cases[] = {
        {"another selection", [&] { SelectRows({"ROW1"}); }},
        {"a typed value", [&] { Grid().EnterText(At("COL1", "ROW1"), "7"); }},
        {"a command", [&] { control->Editing().Undo(); }},
        {"a member", [&] { control->plv_LayoutMode(); }},
        {"read only", [&] { control->Editing().SetReadOnly(true); }},
        {"by popup",
         [&] {
             platform.choices = {"mnuZoom"};
             Grid().ReportMouseDown(At("FLC0", "FTR0"), MouseButton::Right, ShiftState::None);
         }},
    };
    int heard = 0;
    const ListenerId listener = control->AddCommandListener([&] { ++heard; });
    for (const auto& row : cases) {
        heard = 0;
        row.change();
        EXPECT_GT(heard, 0) << row.name;
    }
    control->RemoveCommandListener(listener);
    heard = 0;
    control->Editing().Redo();
    EXPECT_EQ(heard, 0);
}

}  // namespace

}  // namespace planview::test
