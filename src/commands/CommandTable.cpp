// SPDX-License-Identifier: MIT
#include "commands/CommandTable.h"

#include <algorithm>
#include <array>

#include "automation/MemberNames.h"
#include "commands/CommandReasons.h"
#include "commands/GridCommands.h"
#include "commands/HeadingCommands.h"
#include "commands/TreeCommands.h"
#include "commands/ViewCommands.h"
#include "grid/TestData.h"
#include "macro/recording/MacroStep.h"
#include "spreadsheet/SpreadsheetSession.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

using namespace commands;
using Group = CommandGroup;
using Now = CommandSituation;
using On = CommandParts;
using Call = CommandCall;

constexpr std::string_view Grid = "GRIDCTL";
constexpr std::string_view Chart = "CHART";
constexpr std::string_view Macro = "MACRO";

void SwitchTrace(CommandParts& on, CommandCall& /*call*/) {
    if (modPlan::TraceEnabled) {
        modPlan::Trace_Disable(on.platform);
    } else {
        modPlan::Trace_Enable(on.platform);
    }
}

template <ChartType Type>
void DrawAs(CommandParts& on, CommandCall& /*call*/) {
    on.chartCommands.SerieType(Type);
}

template <ChartType Type>
bool IsDrawnAs(const CommandSituation& now) {
    return now.SeriesType() == Type;
}

template <TrendKind Kind>
void AddTrend(CommandParts& on, CommandCall& /*call*/) {
    on.chartCommands.TrendlineAdd(Kind);
}

/// A row under construction.
struct Row : CommandRow {
    constexpr Row(Command number, std::string_view fixedName, CommandGroup standsIn, std::string_view text,
                  decltype(run) function)
        : CommandRow{number, fixedName, text, standsIn, function} {}

    constexpr Row& InPopup(std::string_view text) {
        popupCaption = text;
        return *this;
    }
    constexpr Row& Key(std::string_view first, std::string_view second = {}) {
        key = first;
        otherKey = second;
        return *this;
    }
    constexpr Row& KeyEverywhere() {
        keyScope = KeyScope::Control;
        return *this;
    }
    constexpr Row& Icon(std::string_view picture) {
        icon = picture;
        return *this;
    }
    constexpr Row& Takes(CallArguments what) {
        arguments = what;
        return *this;
    }
    constexpr Row& Unless(decltype(whyNot) reason) {
        whyNot = reason;
        return *this;
    }
    constexpr Row& ChangesTables() {
        changesTables = true;
        return *this;
    }
    constexpr Row& Checked(decltype(checked) when) {
        checked = when;
        checkable = true;
        return *this;
    }
    constexpr Row& CaptionNow(decltype(captionNow) text) {
        captionNow = text;
        return *this;
    }
    constexpr Row& UndoneWithTracks() {
        undoesTracks = true;
        return *this;
    }
    constexpr Row& Recorded(StepKind kind, std::string_view inWords = {}, decltype(misfit) reason = nullptr) {
        step = kind;
        sentence = inWords;
        misfit = reason;
        return *this;
    }
    constexpr Row& Traced(std::string_view label, std::string_view as = {}) {
        control = label;
        method = as;
        return *this;
    }
};

// Names and captions of popups are a fixed part of the interface, "Expotential" too.
constexpr CommandRow Table[] = {
    Row(Command::SwitchMacroTree, "MacroTree", Group::Panes, "&Macros", SwitchMacroTree)
        .InPopup("Macrotree")
        .Unless(NoLayoutMode)
        .Checked([](const Now& now) { return now.on.settings.treeShown; })
        .Recorded(StepKind::State, "Macro tree %S", NoMacroTree)
        .Traced("USERCONTROL", "SwitchMacroTree"),
    Row(Command::SwitchChart, "Chart", Group::Chart, "&Chart", [](On& on, Call&) { on.chartCommands.SwitchDisplay(); })
        .Checked([](const Now& now) { return now.on.settings.chartShown; })
        .Recorded(StepKind::State, "Chart %S")
        .Traced(Chart, "SwitchDisplay"),
    Row(Command::SwitchGrid, "Switch", Group::GridView, "Switch grid", SwitchGrid)
        .Checked([](const Now& now) { return now.on.settings.switched; })
        .Recorded(StepKind::State, "Switched table %S")
        .Traced(Grid, "#SWITCH GRID#"),
    Row(Command::ZoomGrid, "Zoom", Group::GridView, "Zoom grid", ZoomGrid)
        .Checked([](const Now& now) { return now.on.settings.zoomed; })
        .Recorded(StepKind::State, "Zoomed table %S"),
    Row(Command::StartRecording, "MacroRecStart", Group::Recording, "&Start recording",
        [](On& on, Call&) { on.recording.StartRecord(); })
        .Icon("macro-recording")
        .Unless(IsRecording)
        .CaptionNow([](const Now& now) {
            return now.on.recording.State() == RecordState::Interrupted ? std::string_view("Go &on recording")
                                                                        : std::string_view();
        })
        .Traced(Macro, "StartRecord")
        .ChangesTables(),
    Row(Command::PauseRecording, "MacroRecInter", Group::Recording, "&Interrupt recording",
        [](On& on, Call&) { on.recording.InterruptRecord(); })
        .Unless(IsNotRecording)
        .Traced(Macro, "InterruptRecord"),
    Row(Command::StopRecording, "MacroRecStop", Group::Recording, "S&top recording",
        [](On& on, Call&) { on.recording.StopRecord(); })
        .Unless(NoRecording)
        .Traced(Macro, "StopRecord"),
    Row(Command::UndoRecordedStep, "MacroRecUndo", Group::Recording, "&Undo last step",
        [](On& on, Call&) { on.recording.UndoRecord(); })
        .InPopup("Undo")
        .Unless(NoRecordedStep)
        .Traced(Macro, "UndoRecord"),
    Row(Command::Download, "ExcelDn", Group::Exchange, "&Download as workbook…",
        [](On& on, Call&) { on.download.Run(); })
        .InPopup("Download")
        .Unless(NoCells)
        .Traced(SpreadsheetLabel),
    Row(Command::Upload, "ExcelUp", Group::Exchange, "&Upload from workbook…", [](On& on, Call&) { on.upload.Run(); })
        .InPopup("Upload")
        .Unless(NoCells)
        .Traced(SpreadsheetLabel),
    Row(Command::EditGridOptions, "General", Group::Options, "Properties of the grid…",
        [](On& on, Call&) { on.generalOptions.Run(); })
        .InPopup("Properties")
        .Traced(Grid, "GeneralOptions")
        .ChangesTables(),
    Row(Command::FillWithTestData, "TestData", Group::Options, "Fill with test data",
        [](On& on, Call&) { FillWithTestData(on.Grid(), on.valueEntry, on.platform.messageBoxes); })
        .Unless(NoCells)
        .Recorded(StepKind::Values)
        .ChangesTables(),
    Row(Command::SwitchTrace, "Trace", Group::Trace, "Trace", SwitchTrace).Checked([](const Now&) {
        return modPlan::TraceEnabled.load();
    }),
    Row(Command::ShowTrace, "ShowTrace", Group::Trace, "Show trace windows",
        [](On& on, Call&) { modPlan::Trace_Show(on.platform); })
        .Unless(NoTrace),

    Row(Command::SelectAllColumns, "ColsSelectAll", Group::Columns, "Select all columns", SelectAllColumns)
        .InPopup("Select all")
        .Unless(NoColumns)
        .Recorded(StepKind::Marks),
    Row(Command::SelectColumnBlock, "ColsSelectBlock", Group::Columns, "Select block of columns", SelectColumnBlock)
        .InPopup("Select block")
        .Unless(NoColumnSelected)
        .Recorded(StepKind::Marks),
    Row(Command::DeselectColumns, "ColsDeselect", Group::Columns, "Deselect columns", DeselectColumns)
        .InPopup("Deselect")
        .Unless(NoColumnSelected)
        .Recorded(StepKind::Marks),
    Row(Command::HideColumns, "ColsHide", Group::Hiding, "Hide selected colum&ns", HideColumns)
        .UndoneWithTracks()
        .Unless(NoColumnToHide)
        .Recorded(StepKind::OnColumns, "Hide %P", NothingRemains)
        .Traced(Grid, "#HIDE COLUMNS#"),
    Row(Command::ShowColumns, "ColsShow", Group::Hiding, "Show selected c&olumns", ShowColumns)
        .UndoneWithTracks()
        .Unless(NoColumnToShow)
        .Recorded(StepKind::NamedColumns, "Show %P")
        .Traced(Grid, "#SHOW COLUMNS#"),
    Row(Command::ResetWidths, "WidthReset", Group::Columns, "Reset widths", ResetWidths)
        .UndoneWithTracks()
        .InPopup("Reset")
        .Unless(NoColumns)
        .Recorded(StepKind::Plain, "Reset the widths")
        .Traced(Grid, "#RESET WIDTH#"),
    Row(Command::ResetAllWidths, "WidthResetAll", Group::Columns, "Reset all widths", ResetWidths)
        .UndoneWithTracks()
        .InPopup("Reset all")
        .Unless(NoColumns)
        .Recorded(StepKind::Plain, "Reset all widths")
        .Traced(Grid, "#RESET WIDTH#"),

    Row(Command::SelectAllRows, "RowsSelectAll", Group::Rows, "Select all rows", SelectAllRows)
        .InPopup("Select all")
        .Unless(NoRows)
        .Recorded(StepKind::Marks),
    Row(Command::SelectRowBlock, "RowsSelectBlock", Group::Rows, "Select block of rows", SelectRowBlock)
        .InPopup("Select block")
        .Unless(NoRowSelected)
        .Recorded(StepKind::Marks),
    Row(Command::DeselectRows, "RowsDeselect", Group::Rows, "Deselect rows", DeselectRows)
        .InPopup("Deselect")
        .Unless(NoRowSelected)
        .Recorded(StepKind::Marks),
    Row(Command::HideRows, "RowsHide", Group::Hiding, "&Hide selected rows", HideRows)
        .UndoneWithTracks()
        .Unless(NoRowToHide)
        .Recorded(StepKind::OnRows, "Hide %P", NothingRemains)
        .Traced(Grid, "#HIDE ROWS#"),
    Row(Command::ShowRows, "RowsShow", Group::Hiding, "Show s&elected rows", ShowRows)
        .UndoneWithTracks()
        .Unless(NoRowToShow)
        .Recorded(StepKind::NamedRows, "Show %P")
        .Traced(Grid, "#SHOW ROWS#"),
    Row(Command::ColorRowBackground, "RowBgColor", Group::Rows, "Background color of rows…", ColorRowBackground)
        .UndoneWithTracks()
        .InPopup("Background color")
        .Unless(NoRowSelected)
        .Recorded(StepKind::OnRows, "Colour the background of %P", NoColor)
        .ChangesTables(),
    Row(Command::ColorRowText, "RowFgColor", Group::Rows, "Foreground color of rows…", ColorRowText)
        .UndoneWithTracks()
        .InPopup("Foreground color")
        .Unless(NoRowSelected)
        .Recorded(StepKind::OnRows, "Colour the text of %P", NoColor)
        .ChangesTables(),
    Row(Command::ResetHeights, "HeightReset", Group::Rows, "Reset heights", ResetHeights)
        .UndoneWithTracks()
        .InPopup("Reset")
        .Unless(NoRows)
        .Recorded(StepKind::Plain, "Reset the heights")
        .Traced(Grid, "#RESET HEIGHT#"),
    Row(Command::ResetAllHeights, "HeightResetAll", Group::Rows, "Reset all heights", ResetHeights)
        .UndoneWithTracks()
        .InPopup("Reset all")
        .Unless(NoRows)
        .Recorded(StepKind::Plain, "Reset all heights")
        .Traced(Grid, "#RESET HEIGHT#"),
    Row(Command::EditRowAttributes, "RowAttributes", Group::Rows, "Attributes of rows…",
        [](On& on, Call&) { on.rowAttributes.Run(); })
        .UndoneWithTracks()
        .InPopup("Attributes")
        .Unless(NoRowSelected)
        .ChangesTables(),

    Row(Command::Cut, "CellCut", Group::Cells, "Cu&t", [](On& on, Call&) { on.clipboard.Cut(); })
        .Key("Ctrl+X")
        .Unless(CannotEdit)
        .Recorded(StepKind::Values)
        .Traced(Grid, "Cut"),
    Row(Command::Copy, "CellCopy", Group::Cells, "&Copy", [](On& on, Call&) { on.clipboard.Copy(); })
        .Key("Ctrl+C")
        .Unless(NoCell)
        .Traced(Grid, "Copy"),
    Row(Command::Paste, "CellPaste", Group::Cells, "&Paste",
        [](On& on, Call& call) { on.clipboard.Paste(call.contents); })
        .Key("Ctrl+V")
        .Unless(CannotEdit)
        .Recorded(StepKind::Values)
        .Traced(Grid, "Paste"),

    Row(Command::ArrangeChart, "ChartRedraw", Group::ChartView, "Arrange/Redraw",
        [](On& on, Call&) { on.chartCommands.AutoArrange(); })
        .Unless(NoChart)
        .Recorded(StepKind::Plain, "Arrange the chart")
        .Traced(Chart),
    Row(Command::StandardChart, "Default", Group::ChartView, "Standard",
        [](On& on, Call&) { on.chartCommands.StandardView(); })
        .Unless(NoChart)
        .Checked([](const Now& now) { return !now.on.chartCommands.IsForecastView(); })
        .Recorded(StepKind::Plain, "Standard view of the chart")
        .Traced(Chart),
    Row(Command::ForecastChart, "Forecast1", Group::ChartView, "Forecast (Compare)",
        [](On& on, Call&) { on.chartCommands.ForecastView(); })
        .Unless(NoChart)
        .Checked([](const Now& now) { return now.on.chartCommands.IsForecastView(); })
        .Recorded(StepKind::Plain, "Forecast view of the chart")
        .Traced(Chart),
    Row(Command::EditChartAttributes, "ChartAttribute", Group::ChartView, "Attributes of the chart…",
        [](On& on, Call&) { on.chartOptions.Run(); })
        .InPopup("Attributes")
        .Traced(Chart)
        .ChangesTables(),
    Row(Command::CopyChart, "ChartCopy", Group::ChartView, "Copy to clipboard",
        [](On& on, Call&) { on.chartCommands.CopyToClipboard(); })
        .Traced(Chart),
    Row(Command::DrawAsLine, "ChartLine", Group::Series, "Line", DrawAs<ChartType::Line>)
        .Unless(NoPlainLine)
        .Checked(IsDrawnAs<ChartType::Line>)
        .Recorded(StepKind::OnRows, "Draw %P as a line")
        .Traced(Chart),
    Row(Command::DrawAsColumns, "ChartColumn", Group::Series, "Column", DrawAs<ChartType::Column>)
        .Unless(NoPlainColumns)
        .Checked(IsDrawnAs<ChartType::Column>)
        .Recorded(StepKind::OnRows, "Draw %P as columns")
        .Traced(Chart),
    Row(Command::DrawAsStackedLine, "LineStacked", Group::Series, "Line stacked", DrawAs<ChartType::StackedLine>)
        .Unless(NoChart)
        .Checked(IsDrawnAs<ChartType::StackedLine>)
        .Recorded(StepKind::OnRows, "Draw %P as a stacked line")
        .Traced(Chart),
    Row(Command::DrawAsFullLine, "LineStacked100", Group::Series, "Line stacked 100%",
        DrawAs<ChartType::StackedLine100>)
        .Unless(NoChart)
        .Checked(IsDrawnAs<ChartType::StackedLine100>)
        .Recorded(StepKind::OnRows, "Draw %P as a line stacked to 100 %")
        .Traced(Chart),
    Row(Command::AddLinearTrend, "Linear", Group::Trendline, "Linear", AddTrend<TrendKind::Linear>)
        .Unless(NoChart)
        .Recorded(StepKind::OnRows, "Linear trend line of %P")
        .Traced(Chart),
    Row(Command::AddLogarithmicTrend, "Logarithmic", Group::Trendline, "Logarithmic", AddTrend<TrendKind::Logarithmic>)
        .Unless(NoChart)
        .Recorded(StepKind::OnRows, "Logarithmic trend line of %P")
        .Traced(Chart),
    Row(Command::AddPowerTrend, "Potential", Group::Trendline, "Potential", AddTrend<TrendKind::Power>)
        .Unless(NoChart)
        .Recorded(StepKind::OnRows, "Potential trend line of %P")
        .Traced(Chart),
    Row(Command::AddExponentialTrend, "Expotential", Group::Trendline, "Expotential", AddTrend<TrendKind::Exponential>)
        .Unless(NoChart)
        .Recorded(StepKind::OnRows, "Exponential trend line of %P")
        .Traced(Chart),
    Row(Command::AddMovingAverage, "Average", Group::Trendline, "Average", AddTrend<TrendKind::MovingAverage>)
        .Unless(NoChart)
        .Recorded(StepKind::OnRows, "Moving average of %P")
        .Traced(Chart),
    Row(Command::ColorTrend, "TrendlineColor", Group::Trendline, "Color of the trend line…",
        [](On& on, Call&) { on.chartCommands.TrendlineColor(); })
        .InPopup("Color")
        .Unless(NoTrendLine)
        .Traced(Chart),
    Row(Command::DeleteTrend, "TrendlineDelete", Group::Trendline, "Delete the trend line",
        [](On& on, Call&) { on.chartCommands.TrendlineDelete(); })
        .InPopup("Delete")
        .Unless(NoTrendLine)
        .Traced(Chart),

    Row(Command::ExpandMacroTree, "MacroExpand", Group::MacroTree, "Expand all",
        [](On& on, Call&) { modMacro::ExpandAll(on.macroTree); })
        .Unless(NoNodes)
        .Traced(modMacro::Label),
    Row(Command::CollapseMacroTree, "MacroCollapse", Group::MacroTree, "Collapse all",
        [](On& on, Call&) { modMacro::CollapseAll(on.macroTree); })
        .Unless(NoNodes)
        .Traced(modMacro::Label),
    Row(Command::RenameMacroNode, "NodeRename", Group::MacroTree, "Rename/Edit", RenameMacroNode)
        .Icon("macro-rename")
        .Unless(NoNodeToRename)
        .Traced(modMacro::Label)
        .ChangesTables(),
    Row(Command::InsertMacroNode, "MacroInsert", Group::MacroTree, "Insert", InsertMacroNode)
        .Icon("macro-insert")
        .Unless(NoNode)
        .Traced(modMacro::Label)
        .ChangesTables(),
    Row(Command::AddMacroNode, "MacroAdd", Group::MacroTree, "Add", AddMacroNode)
        .Icon("macro-add")
        .Unless(NoNode)
        .Traced(modMacro::Label)
        .ChangesTables(),
    Row(Command::NestMacroNode, "NextLevel", Group::MacroTree, "Create on next level", NestMacroNode)
        .Icon("macro-inside")
        .Unless(NoNode)
        .Traced(modMacro::Label)
        .ChangesTables(),

    // In no popup.
    Row(Command::Undo, "Undo", Group::History, "&Undo",
        [](On& on, Call& call) {
            call.done = on.history.CanUndo();
            on.valueEntry.Undo();
        })
        .Key("Ctrl+Z")
        .KeyEverywhere()
        .Unless(NothingToUndo)
        .Recorded(StepKind::Values)
        .ChangesTables(),
    Row(Command::Redo, "Redo", Group::History, "&Redo",
        [](On& on, Call& call) {
            call.done = on.history.CanRedo();
            on.valueEntry.Redo();
        })
        .Key("Ctrl+Y", "Ctrl+Shift+Z")
        .KeyEverywhere()
        .Unless(NothingToRedo)
        .Recorded(StepKind::Values)
        .ChangesTables(),
    Row(Command::Fill, "CellFill", Group::Cells, "&Fill with the first value",
        [](On& on, Call&) { on.clipboard.Fill(); })
        .Unless(NothingToFill)
        .Recorded(StepKind::Values)
        .Traced(Grid, "Fill"),
    Row(Command::DeleteContents, "CellDelete", Group::Cells, "&Delete",
        [](On& on, Call&) { on.clipboard.DeleteCellContents(); })
        .Key("Del")
        .Unless(CannotEdit)
        .Recorded(StepKind::Values)
        .Traced(Grid, "DeleteCellContents"),
    Row(Command::TakeOtherReading, "CellOtherReading", Group::Cells, "Take the number the &other way",
        [](On& on, Call&) { on.otherReading.Take(); })
        .Key("Ctrl+M")
        .Unless(NoOtherReading)
        .Recorded(StepKind::Values)
        .Traced(Grid, "TakeOtherReading"),
    Row(Command::Raise, "CellRaise", Group::Values, "Raise by percentage…",
        [](On& on, Call& call) { on.clipboard.Raise(call.value.AsDouble()); })
        .Takes(CallArguments::Value)
        .Unless(CannotEdit)
        .Recorded(StepKind::Values)
        .Traced(Grid, "Raise"),
    Row(Command::SelectRow, "RowSelect", Group::Selection, "Select ro&w", SelectRow)
        .Key("Shift+Space")
        .Unless(NoCell)
        .Recorded(StepKind::Marks),
    Row(Command::NextPane, "PaneNext", Group::Panes, "Next part of the view",
        [](On& on, Call&) { on.layout.GoTo(PaneGoal::Next); })
        .Key("F6")
        .KeyEverywhere(),
    Row(Command::PreviousPane, "PanePrevious", Group::Panes, "Previous part of the view",
        [](On& on, Call&) { on.layout.GoTo(PaneGoal::Previous); })
        .Key("Shift+F6")
        .KeyEverywhere(),
    Row(Command::NextSplitter, "SplitterNext", Group::Panes, "Border between the parts",
        [](On& on, Call&) { on.layout.GoTo(PaneGoal::NextSplitter); })
        .Key("F8")
        .KeyEverywhere(),
    Row(Command::AddToSelection, "SelectionAdd", Group::Selection, "Add to the selection", AddToSelection)
        .Key("Shift+F8")
        .Unless(NoCell)
        .Checked([](const Now& now) { return now.on.Grid().IsAdding(); }),
    Row(Command::MoveLeft, "MoveLeft", Group::Headings, "Move to the left", Move<ScreenSide::Left>)
        .Key("Alt+Shift+Left")
        .Unless(NothingToMove<ScreenSide::Left>),
    Row(Command::MoveRight, "MoveRight", Group::Headings, "Move to the right", Move<ScreenSide::Right>)
        .Key("Alt+Shift+Right")
        .Unless(NothingToMove<ScreenSide::Right>),
    Row(Command::MoveUp, "MoveUp", Group::Headings, "Move up", Move<ScreenSide::Up>)
        .Key("Alt+Shift+Up")
        .Unless(NothingToMove<ScreenSide::Up>),
    Row(Command::MoveDown, "MoveDown", Group::Headings, "Move down", Move<ScreenSide::Down>)
        .Key("Alt+Shift+Down")
        .Unless(NothingToMove<ScreenSide::Down>),
    Row(Command::MakeNarrower, "MakeNarrower", Group::Headings, "Narrower", Resize<ScreenSide::Left>)
        .Key("Alt+Left")
        .Unless(NothingToResize),
    Row(Command::MakeWider, "MakeWider", Group::Headings, "Wider", Resize<ScreenSide::Right>)
        .Key("Alt+Right")
        .Unless(NothingToResize),
    Row(Command::MakeLower, "MakeLower", Group::Headings, "Lower", Resize<ScreenSide::Up>)
        .Key("Alt+Up")
        .Unless(NothingToResize),
    Row(Command::MakeHigher, "MakeHigher", Group::Headings, "Higher", Resize<ScreenSide::Down>)
        .Key("Alt+Down")
        .Unless(NothingToResize),
    Row(Command::ChooseForecastLine, "ForecastLine", Group::ChartView, "Choose the line for the forecast view",
        ChooseLine)
        .Key("Ctrl+Shift+F")
        .Unless(NoLineToChoose)
        .Traced(Chart),
    Row(Command::TellAboutCell, "CellTell", Group::Selection, "Tell about the cell", TellAboutCell)
        .Key("Ctrl+F1")
        .Unless(NoCell),
    Row(Command::SelectColumn, "ColSelect", Group::Selection, "Select co&lumn", SelectColumn)
        .Key("Ctrl+Space")
        .Unless(NoCell)
        .Recorded(StepKind::Marks),
    Row(Command::ShowRowsInChart, "RowsInChart", Group::Chart, "Selected ro&ws into the chart",
        [](On& on, Call&) { on.chartCommands.RowsShowInChart(); })
        .Unless(NoChart)
        .Recorded(StepKind::OnRows, "Show %P in the chart")
        .Traced(Chart, "RowsShowInChart"),
    Row(Command::ShowColumnsInChart, "ColsInChart", Group::Chart, "Selected &periods into the chart",
        [](On& on, Call&) { on.chartCommands.ColsShowInChart(); })
        .Unless(NoChart)
        .Recorded(StepKind::OnColumns, "Show %P in the chart")
        .Traced(Chart, "ColsShowInChart"),
    Row(Command::NewMacro, "MacroNew", Group::Macros, "&New macro", NewMacro)
        .Icon("macro-new")
        .Unless(NoLayoutMode)
        .Traced(modMacro::Label)
        .ChangesTables(),
    Row(Command::EditMacro, "MacroEdit", Group::Macros, "&Edit macro", EditMacro)
        .Icon("macro")
        .Unless(NoLayoutMode)
        .Traced(modMacro::Label),
    Row(Command::PreviewMacro, "MacroPreview", Group::Macros, "&Preview changes of macro…",
        [](On& on, Call&) { on.macroEditor.Preview(); })
        .Icon("macro-preview")
        .Unless(NoMacroToPreview)
        .Traced(modMacro::Label)
        .ChangesTables(),
    Row(Command::SelectHeadings, MacroCommand::Mark, Group::ByKey, "Select headings", SelectHeadings)
        .Takes(CallArguments::Keys)
        .Recorded(StepKind::Headings, "Select %P"),
    Row(Command::SetColumnWidth, "COL_WIDTH", Group::ByKey, "Width of columns", SetColumnWidth)
        .UndoneWithTracks()
        .Takes(CallArguments::KeysAndValue)
        .Recorded(StepKind::OnColumns, "Make %P %V wide", NoSize),
    Row(Command::SetColumnHeight, "COL_HEIGHT", Group::ByKey, "Height of columns in the switched table",
        SetColumnHeight)
        .UndoneWithTracks()
        .Takes(CallArguments::KeysAndValue)
        .Recorded(StepKind::OnColumns, "Make %P %V high in the switched table", NoSize),
    Row(Command::SetRowWidth, "ROW_WIDTH", Group::ByKey, "Width of rows in the switched table", SetRowWidth)
        .UndoneWithTracks()
        .Takes(CallArguments::KeysAndValue)
        .Recorded(StepKind::OnRows, "Make %P %V wide in the switched table", NoSize),
    Row(Command::SetRowHeight, "ROW_HEIGHT", Group::ByKey, "Height of rows", SetRowHeight)
        .UndoneWithTracks()
        .Takes(CallArguments::KeysAndValue)
        .Recorded(StepKind::OnRows, "Make %P %V high", NoSize),
};

constexpr int FirstNumber = 1001;

constexpr int NumberOf(Command command) {
    return static_cast<int>(command);
}

constexpr bool EachNumberStandsOnce() {
    for (std::size_t i = 0; i < std::size(Table); ++i) {
        const auto stands = [=](const CommandRow& row) {
            return NumberOf(row.command) == FirstNumber + static_cast<int>(i);
        };
        if (std::count_if(std::begin(Table), std::end(Table), stands) != 1) {
            return false;
        }
    }
    return true;
}
static_assert(EachNumberStandsOnce(), "every command has its row, and the numbers have no gap");

constexpr auto Describe() {
    std::array<CommandDescription, std::size(Table)> descriptions{};
    for (const CommandRow& row : Table) {
        descriptions[static_cast<std::size_t>(NumberOf(row.command) - FirstNumber)] = {
            row.command, row.name, row.caption, row.key, row.icon, row.group, row.checkable, CountOf(row.arguments)};
    }
    return descriptions;
}

constexpr auto Descriptions = Describe();

}  // namespace

std::span<const CommandDescription> DescribeCommands() noexcept {
    return Descriptions;
}

std::span<const CommandRow> CommandRows() noexcept {
    return Table;
}

std::string CommandRow::PopupCaption() const {
    if (!popupCaption.empty()) {
        return std::string(popupCaption);
    }
    std::string text(caption);
    std::erase(text, '&');
    return text;
}

const CommandRow* FindCommand(Command command) noexcept {
    const CommandRow* found =
        std::find_if(std::begin(Table), std::end(Table), [&](const CommandRow& row) { return row.command == command; });
    return found == std::end(Table) ? nullptr : found;
}

const CommandRow& RowOf(Command command) {
    const CommandRow* row = FindCommand(command);
    if (!row) {
        ThrowUnknownMember("The control", NumberOf(command));
    }
    return *row;
}

const CommandRow* FindCommand(std::string_view name) noexcept {
    const CommandRow* found = std::find_if(std::begin(Table), std::end(Table),
                                           [&](const CommandRow& row) { return SameMemberName(row.name, name); });
    return found == std::end(Table) ? nullptr : found;
}

Command CommandNamed(std::string_view name) {
    const CommandRow* row = FindCommand(name);
    if (!row) {
        throw AutomationError(AutomationErrorCode::UnknownMember, "There is no command \"" + std::string(name) + "\"");
    }
    return row->command;
}

const CommandRow* FindCommand(KeyStroke key, KeyScope scope) noexcept {
    const CommandRow* found = std::find_if(std::begin(Table), std::end(Table), [&](const CommandRow& row) {
        return row.keyScope == scope && (ReadKeyStroke(row.key) == key || ReadKeyStroke(row.otherKey) == key);
    });
    return key.code == 0 || found == std::end(Table) ? nullptr : found;
}

std::string_view SentenceOf(std::string_view name) noexcept {
    const CommandRow* row = FindCommand(name);
    return row ? row->sentence : std::string_view();
}

}  // namespace planview
