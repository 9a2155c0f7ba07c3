// SPDX-License-Identifier: MIT
#include "menus/MenuTree.h"

#include <array>
#include <string>

#include <planview/AutomationObject.h>

namespace planview {

namespace {

constexpr MenuLine Separator(int depth, std::string_view name) {
    return {depth, name, "-"};
}

constexpr MenuLine Top(MainMenu menu, std::string_view caption) {
    return {0, "mnuMain", caption, {}, {}, static_cast<int>(menu)};
}

constexpr MenuLine Color(int index, std::string_view caption, std::string_view command) {
    return {1, "mnuColor", caption, command, {}, index};
}

// Captions are kept to the letter, "Expotential" too: hosts' handbooks and translations know them so.
constexpr auto Tree = std::to_array<MenuLine>({
    Top(MainMenu::Grid, "Grid"),
    {1, "mnuGrid", "Grid"},
    {2, "mnuMacroTree", "Macrotree", "MacroTree"},
    {2, "mnuChart", "Chart", "Chart"},
    Separator(2, "sepSwitch"),
    {2, "mnuSwitch", "Switch grid", "Switch"},
    {2, "mnuZoom", "Zoom grid", "Zoom"},
    Separator(2, "sepMacro"),
    {2, "mnuMacro", "Macro"},
    {3, "mnuMacroRecStart", "Start recording", "MacroRecStart"},
    {3, "mnuMacroRecInterrupt", "Interrupt recording", "MacroRecInter"},
    Separator(3, "sepMacroRecStop"),
    {3, "mnuMacroRecStop", "Stop recording", "MacroRecStop"},
    Separator(3, "sepMacroRecUndo"),
    {3, "mnuMacroRecUndo", "Undo", "MacroRecUndo"},
    Separator(2, "sepExcel"),
    {2, "mnuExcel", "Microsoft Excel"},
    {3, "mnuExcelDn", "Download", "ExcelDn"},
    {3, "mnuExcelUp", "Upload", "ExcelUp"},
    Separator(2, "sepGridOptions"),
    {2, "mnuGridOptions", "Options"},
    {3, "mnuGeneral", "Properties", "General"},
    Separator(3, "sepRandom"),
    {3, "mnuRandom", "Fill with test data", "TestData"},
    Separator(3, "sepTrace"),
    {3, "mnuTrace", "Trace", "Trace"},
    {3, "mnuShowTrace", "Show trace windows", "ShowTrace"},

    Top(MainMenu::Column, "Column"),
    {1, "mnuCols", "Columns"},
    {2, "mnuColsSelectAll", "Select all", "ColsSelectAll"},
    {2, "mnuColsSelectBlock", "Select block", "ColsSelectBlock"},
    {2, "mnuColsDeselect", "Deselect", "ColsDeselect"},
    Separator(2, "sepColsHide"),
    {2, "mnuColsHide", "Hide selected columns", "ColsHide"},
    {2, "mnuColsShow", "Show selected columns", "ColsShow"},
    Separator(2, "sepColWidth"),
    {2, "mnuColProperty", "Properties"},
    {3, "mnuColWidth", "Width"},
    {4, "mnuWidthReset", "Reset", "WidthReset"},
    {4, "mnuWidthResetAll", "Reset all", "WidthResetAll"},

    Top(MainMenu::Row, "Row"),
    {1, "mnuRows", "Rows"},
    {2, "mnuRowsSelectAll", "Select all", "RowsSelectAll"},
    {2, "mnuRowsSelectBlock", "Select block", "RowsSelectBlock"},
    {2, "mnuRowsDeselect", "Deselect", "RowsDeselect"},
    Separator(2, "sepRowsHide"),
    {2, "mnuRowsHide", "Hide selected rows", "RowsHide"},
    {2, "mnuRowsShow", "Show selected rows", "RowsShow"},
    Separator(2, "sepRowProperty"),
    {2, "mnuRowProperty", "Properties"},
    {3, "mnuRowBgColor", "Background color", "RowBgColor"},
    {3, "mnuRowFgColor", "Foreground color", "RowFgColor"},
    {3, "mnuRowHeight", "Height"},
    {4, "mnuHeightReset", "Reset", "HeightReset"},
    {4, "mnuHeightResetAll", "Reset all", "HeightResetAll"},
    Separator(3, "sepRowAttributes"),
    {3, "mnuRowAttributes", "Attributes", "RowAttributes"},

    Top(MainMenu::Cell, "Cell"),
    {1, "mnuCell", "Cell"},
    {2, "mnuCellCut", "Cut", "CellCut", "Ctrl+X"},
    {2, "mnuCellCopy", "Copy", "CellCopy", "Ctrl+C"},
    {2, "mnuCellPaste", "Paste", "CellPaste", "Ctrl+V"},

    Top(MainMenu::Chart, "Chart"),
    {1, "mnuChartRedraw", "Arrange/Redraw", "ChartRedraw"},
    Separator(1, "sepChartViews"),
    {1, "mnuChartViews", "Chart view"},
    {2, "mnuDefault", "Standard", "Default"},
    {2, "mnuForecast1", "Forecast (Compare)", "Forecast1"},
    Separator(1, "sepChartCopy"),
    {1, "mnuChartCopy", "Copy to clipboard", "ChartCopy"},
    Separator(1, "sepChartProperty"),
    {1, "mnuChartProperty", "Properties"},
    {2, "mnuChartAttribute", "Attributes", "ChartAttribute"},

    Top(MainMenu::Series, "Series"),
    {1, "mnuChartType", "Chart series"},
    {2, "mnuChartLine", "Line", "ChartLine"},
    {2, "mnuChartColumn", "Column", "ChartColumn"},
    Separator(2, "sepLineStacked"),
    {2, "mnuLineStacked", "Line stacked", "LineStacked"},
    {2, "mnuLineStacked100", "Line stacked 100%", "LineStacked100"},
    Separator(1, "sepTrendline"),
    {1, "mnuTrendLine", "Trendline"},
    {2, "mnuLinear", "Linear", "Linear"},
    {2, "mnuLogarithmic", "Logarithmic", "Logarithmic"},
    {2, "mnuPotential", "Potential", "Potential"},
    {2, "mnuExpotential", "Expotential", "Expotential"},
    {2, "mnuAverage", "Average", "Average"},

    Top(MainMenu::Trendline, "Trendline"),
    {1, "mnuTrendColor", "Color", "TrendlineColor"},
    Separator(1, "sepTrendDel"),
    {1, "mnuTrendDel", "Delete", "TrendlineDelete"},

    Top(MainMenu::Colors, "Colors"),
    Color(0, "<black>", "Color 0"),
    Color(1, "<blue>", "Color 1"),
    Color(2, "<green>", "Color 2"),
    Color(3, "<cyan>", "Color 3"),
    Color(4, "<red>", "Color 4"),
    Color(5, "<magenta>", "Color 5"),
    Color(6, "<yellow>", "Color 6"),
    Color(7, "<gray>", "Color 7"),
    Color(8, "<darkgray>", "Color 8"),
    Color(9, "<lightblue>", "Color 9"),
    Color(10, "<lightgreen>", "Color 10"),
    Color(11, "<lightcyan>", "Color 11"),
    Color(12, "<lightred>", "Color 12"),
    Color(13, "<lightmagenta>", "Color 13"),
    Color(14, "<lightyellow>", "Color 14"),
    Color(15, "<white>", "Color 15"),

    Top(MainMenu::Macro, "Macro"),
    {1, "mnuTreeExpand", "Expand all", "MacroExpand"},
    {1, "mnuTreeCollapse", "Collapse all", "MacroCollapse"},
    Separator(1, "sepRecord"),
    {1, "mnuRecord", "Start recording", "MacroRecStart"},
    Separator(1, "sepNodeEdit"),
    {1, "mnuNodeRename", "Rename/Edit", "NodeRename"},

    Top(MainMenu::MacroFunction, "Macro function"),
    {1, "mnuMacroInsert", "Insert", "MacroInsert"},
    {1, "mnuMacroAdd", "Add", "MacroAdd"},
    Separator(1, "sepNextLevel"),
    {1, "mnuNextLevel", "Create on next level", "NextLevel"},
});

}  // namespace

std::span<const MenuLine> MenuTree() noexcept {
    return Tree;
}

std::size_t FindMenuLine(std::string_view name, int index) {
    for (std::size_t i = 0; i < Tree.size(); ++i) {
        if (Tree[i].name == name && Tree[i].index == index) {
            return i;
        }
    }
    throw AutomationError(AutomationErrorCode::WrongArguments, "There is no menu entry " + std::string(name));
}

}  // namespace planview
