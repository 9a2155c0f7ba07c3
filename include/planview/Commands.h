// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include <planview/AutomationObject.h>
#include <planview/Export.h>

namespace planview {

/// What the user can do by menu, key or button. The numbers are part of the interface and never change: a host may call
/// a command late-bound by its number, or by the name that DescribeCommands() has for it.
enum class Command : DispatchId {
    Undo = 1001,
    Redo = 1002,
    Cut = 1003,
    Copy = 1004,
    Paste = 1005,
    Fill = 1006,
    DeleteContents = 1007,
    Raise = 1008,
    HideRows = 1009,
    HideColumns = 1010,
    ShowRows = 1011,
    ShowColumns = 1012,
    SelectAllColumns = 1013,
    SelectColumnBlock = 1014,
    DeselectColumns = 1015,
    ResetWidths = 1016,
    ResetAllWidths = 1017,
    SelectAllRows = 1018,
    SelectRowBlock = 1019,
    DeselectRows = 1020,
    ResetHeights = 1021,
    ResetAllHeights = 1022,
    ColorRowBackground = 1023,
    ColorRowText = 1024,
    EditRowAttributes = 1025,
    SwitchChart = 1026,
    ShowRowsInChart = 1027,
    ShowColumnsInChart = 1028,
    StandardChart = 1029,
    ForecastChart = 1030,
    ArrangeChart = 1031,
    CopyChart = 1032,
    EditChartAttributes = 1033,
    DrawAsLine = 1034,
    DrawAsColumns = 1035,
    DrawAsStackedLine = 1036,
    DrawAsFullLine = 1037,
    AddLinearTrend = 1038,
    AddLogarithmicTrend = 1039,
    AddPowerTrend = 1040,
    AddExponentialTrend = 1041,
    AddMovingAverage = 1042,
    ColorTrend = 1043,
    DeleteTrend = 1044,
    SwitchMacroTree = 1045,
    SwitchGrid = 1046,
    ZoomGrid = 1047,
    StartRecording = 1048,
    PauseRecording = 1049,
    StopRecording = 1050,
    UndoRecordedStep = 1051,
    ExpandMacroTree = 1052,
    CollapseMacroTree = 1053,
    RenameMacroNode = 1054,
    InsertMacroNode = 1055,
    AddMacroNode = 1056,
    NestMacroNode = 1057,
    Download = 1058,
    Upload = 1059,
    EditGridOptions = 1060,
    FillWithTestData = 1061,
    SwitchTrace = 1062,
    ShowTrace = 1063,
    SelectHeadings = 1064,
    SetColumnWidth = 1065,
    SetColumnHeight = 1066,
    SetRowWidth = 1067,
    SetRowHeight = 1068,
    SelectRow = 1069,
    SelectColumn = 1070,
    TakeOtherReading = 1071,
    NewMacro = 1072,
    EditMacro = 1073,
    PreviewMacro = 1074,
    NextPane = 1075,
    PreviousPane = 1076,
    NextSplitter = 1077,
    AddToSelection = 1078,
    MoveLeft = 1079,
    MoveRight = 1080,
    MoveUp = 1081,
    MoveDown = 1082,
    MakeNarrower = 1083,
    MakeWider = 1084,
    MakeLower = 1085,
    MakeHigher = 1086,
    ChooseForecastLine = 1087,
    TellAboutCell = 1088
};

/// Commands that stand together in a menu or tool bar.
enum class CommandGroup {
    History,
    Cells,
    Values,  ///< changes of values that need a number from the host
    Selection,
    Hiding,
    Columns,
    Rows,
    Chart,  ///< showing it, and what is in it
    ChartView,
    Series,
    Trendline,
    Panes,
    GridView,
    Recording,
    MacroTree,
    Exchange,
    Options,
    Trace,
    Headings,  ///< moving and sizing columns and rows as the screen shows them
    ByKey,     ///< on columns and rows that the host names
    Macros     ///< making, changing and trying one
};

/// What is fixed of a command.
struct CommandDescription {
    Command command;           ///< its number
    std::string_view name;     ///< for late binding; in macros and popups, too: "CellCopy"
    std::string_view caption;  ///< "&Copy", with "&" before the mnemonic
    std::string_view key;      ///< the usual one, "Ctrl+C"; empty for none
    std::string_view icon;     ///< the name of a built-in picture, as in BITMAP fields; empty for none
    CommandGroup group;        ///< with which others it stands
    bool checkable;            ///< whether it can be checked, as a switch is
    /// What a call takes: nothing; one argument (Raise: the percentage; SelectHeadings: keys with "," between them); or
    /// two, keys and a size in logical pixels.
    int argumentCount;
};

/// What is true of a command now.
struct CommandState {
    bool enabled = false;  ///< can be chosen
    bool checked = false;  ///< what it switches is on
    std::string reason;    ///< why it is not enabled, a sentence for the user; empty where it is
    std::string caption;   ///< that of the description, or another one for as long as the state lasts
};

/// All commands, ordered by number: in the order in which those of a group stand in a menu.
[[nodiscard]] PLANVIEW_EXPORT std::span<const CommandDescription> DescribeCommands() noexcept;

}  // namespace planview
