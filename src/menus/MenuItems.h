// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "menus/MenuTree.h"

namespace planview::MenuItems {

inline constexpr std::string_view ColorName = "mnuColor";

constexpr MenuItem Separator(int depth, std::string_view name) {
    return {depth, name, "-"};
}

constexpr MenuItem Top(MainMenu menu, std::string_view caption) {
    return {0, "mnuMain", caption, {}, static_cast<int>(menu)};
}

constexpr MenuItem Entry(int depth, std::string_view name, Command command) {
    return {depth, name, {}, command};
}

constexpr MenuItem Color(int index, std::string_view caption) {
    return {1, ColorName, caption, {}, index};
}

/// The lines of the menu tree. Names and captions are a fixed part of the interface.
inline constexpr auto Tree = std::to_array<MenuItem>({
    Top(MainMenu::Grid, "Grid"),
    {1, "mnuGrid", "Grid"},
    Entry(2, "mnuMacroTree", Command::SwitchMacroTree),
    Entry(2, "mnuChart", Command::SwitchChart),
    Separator(2, "sepSwitch"),
    Entry(2, "mnuSwitch", Command::SwitchGrid),
    Entry(2, "mnuZoom", Command::ZoomGrid),
    Separator(2, "sepMacro"),
    {2, "mnuMacro", "Macro"},
    Entry(3, "mnuMacroRecStart", Command::StartRecording),
    Entry(3, "mnuMacroRecInterrupt", Command::PauseRecording),
    Separator(3, "sepMacroRecStop"),
    Entry(3, "mnuMacroRecStop", Command::StopRecording),
    Separator(3, "sepMacroRecUndo"),
    Entry(3, "mnuMacroRecUndo", Command::UndoRecordedStep),
    Separator(2, "sepExcel"),
    {2, "mnuExcel", "Microsoft Excel"},
    Entry(3, "mnuExcelDn", Command::Download),
    Entry(3, "mnuExcelUp", Command::Upload),
    Separator(2, "sepGridOptions"),
    {2, "mnuGridOptions", "Options"},
    Entry(3, "mnuGeneral", Command::EditGridOptions),
    Separator(3, "sepRandom"),
    Entry(3, "mnuRandom", Command::FillWithTestData),
    Separator(3, "sepTrace"),
    Entry(3, "mnuTrace", Command::SwitchTrace),
    Entry(3, "mnuShowTrace", Command::ShowTrace),

    Top(MainMenu::Column, "Column"),
    {1, "mnuCols", "Columns"},
    Entry(2, "mnuColsSelectAll", Command::SelectAllColumns),
    Entry(2, "mnuColsSelectBlock", Command::SelectColumnBlock),
    Entry(2, "mnuColsDeselect", Command::DeselectColumns),
    Separator(2, "sepColsHide"),
    Entry(2, "mnuColsHide", Command::HideColumns),
    Entry(2, "mnuColsShow", Command::ShowColumns),
    Separator(2, "sepColWidth"),
    {2, "mnuColProperty", "Properties"},
    {3, "mnuColWidth", "Width"},
    Entry(4, "mnuWidthReset", Command::ResetWidths),
    Entry(4, "mnuWidthResetAll", Command::ResetAllWidths),

    Top(MainMenu::Row, "Row"),
    {1, "mnuRows", "Rows"},
    Entry(2, "mnuRowsSelectAll", Command::SelectAllRows),
    Entry(2, "mnuRowsSelectBlock", Command::SelectRowBlock),
    Entry(2, "mnuRowsDeselect", Command::DeselectRows),
    Separator(2, "sepRowsHide"),
    Entry(2, "mnuRowsHide", Command::HideRows),
    Entry(2, "mnuRowsShow", Command::ShowRows),
    Separator(2, "sepRowProperty"),
    {2, "mnuRowProperty", "Properties"},
    Entry(3, "mnuRowBgColor", Command::ColorRowBackground),
    Entry(3, "mnuRowFgColor", Command::ColorRowText),
    {3, "mnuRowHeight", "Height"},
    Entry(4, "mnuHeightReset", Command::ResetHeights),
    Entry(4, "mnuHeightResetAll", Command::ResetAllHeights),
    Separator(3, "sepRowAttributes"),
    Entry(3, "mnuRowAttributes", Command::EditRowAttributes),

    Top(MainMenu::Cell, "Cell"),
    {1, "mnuCell", "Cell"},
    Entry(2, "mnuCellCut", Command::Cut),
    Entry(2, "mnuCellCopy", Command::Copy),
    Entry(2, "mnuCellPaste", Command::Paste),

    Top(MainMenu::Chart, "Chart"),
    Entry(1, "mnuChartRedraw", Command::ArrangeChart),
    Separator(1, "sepChartViews"),
    {1, "mnuChartViews", "Chart view"},
    Entry(2, "mnuDefault", Command::StandardChart),
    Entry(2, "mnuForecast1", Command::ForecastChart),
    Separator(1, "sepChartCopy"),
    Entry(1, "mnuChartCopy", Command::CopyChart),
    Separator(1, "sepChartProperty"),
    {1, "mnuChartProperty", "Properties"},
    Entry(2, "mnuChartAttribute", Command::EditChartAttributes),

    Top(MainMenu::Series, "Series"),
    {1, "mnuChartType", "Chart series"},
    Entry(2, "mnuChartLine", Command::DrawAsLine),
    Entry(2, "mnuChartColumn", Command::DrawAsColumns),
    Separator(2, "sepLineStacked"),
    Entry(2, "mnuLineStacked", Command::DrawAsStackedLine),
    Entry(2, "mnuLineStacked100", Command::DrawAsFullLine),
    Separator(1, "sepTrendline"),
    {1, "mnuTrendLine", "Trendline"},
    Entry(2, "mnuLinear", Command::AddLinearTrend),
    Entry(2, "mnuLogarithmic", Command::AddLogarithmicTrend),
    Entry(2, "mnuPotential", Command::AddPowerTrend),
    Entry(2, "mnuExpotential", Command::AddExponentialTrend),
    Entry(2, "mnuAverage", Command::AddMovingAverage),

    Top(MainMenu::Trendline, "Trendline"),
    Entry(1, "mnuTrendColor", Command::ColorTrend),
    Separator(1, "sepTrendDel"),
    Entry(1, "mnuTrendDel", Command::DeleteTrend),

    Top(MainMenu::Colors, "Colors"),
    Color(0, "<black>"),
    Color(1, "<blue>"),
    Color(2, "<green>"),
    Color(3, "<cyan>"),
    Color(4, "<red>"),
    Color(5, "<magenta>"),
    Color(6, "<yellow>"),
    Color(7, "<gray>"),
    Color(8, "<darkgray>"),
    Color(9, "<lightblue>"),
    Color(10, "<lightgreen>"),
    Color(11, "<lightcyan>"),
    Color(12, "<lightred>"),
    Color(13, "<lightmagenta>"),
    Color(14, "<lightyellow>"),
    Color(15, "<white>"),

    Top(MainMenu::Macro, "Macro"),
    Entry(1, "mnuTreeExpand", Command::ExpandMacroTree),
    Entry(1, "mnuTreeCollapse", Command::CollapseMacroTree),
    Separator(1, "sepRecord"),
    Entry(1, "mnuRecord", Command::StartRecording),
    Separator(1, "sepNodeEdit"),
    Entry(1, "mnuNodeRename", Command::RenameMacroNode),

    Top(MainMenu::MacroFunction, "Macro function"),
    Entry(1, "mnuMacroInsert", Command::InsertMacroNode),
    Entry(1, "mnuMacroAdd", Command::AddMacroNode),
    Separator(1, "sepNextLevel"),
    Entry(1, "mnuNextLevel", Command::NestMacroNode),
});

/// The position of the item in the tree; a name that it does not have is no constant expression.
consteval std::size_t PlaceOf(std::string_view name) {
    for (std::size_t i = 0; i < Tree.size(); ++i) {
        if (Tree[i].name == name) {
            return i;
        }
    }
    throw std::invalid_argument("There is no such menu entry");
}

}  // namespace planview::MenuItems
