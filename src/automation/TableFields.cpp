// SPDX-License-Identifier: MIT
#include "automation/TableFields.h"

#include <array>

#include "automation/MemberNames.h"

namespace planview {

namespace {

using Name = std::string_view;

constexpr Name GridAttr[] = {
    "CHART",    "HIDDEN_LIST",    "NOMOVE_ALLOWED", "NORESIZE_ALLOWED", "SINGLEVALUE", "SWITCHED",       "ZOOMED",
    "BGCOLOR",  "GRIDLINE_COLOR", "FIRST_COL",      "FIRST_ROW",        "CHART_TYPE",  "NO_AUTOMIN",     "NO_AUTOMAX",
    "MINVALUE", "MAXVALUE",       "MINRANGE",       "MAXRANGE",         "OPTIMUM",     "LABELCOL_WIDTH", "TITELTEXT"};
constexpr Name ColsIndex[] = {"GRID_ID",   "COLUMN",     "PERDY",      "COL_WIDTH",  "COL_HEIGHT", "BITMAP",
                              "BMP_ALIGN", "COL_HIDDEN", "COL_MARKED", "SHOW_CHART", "CHART_ID"};
constexpr Name LineIndex[] = {"GRID_ID",  "LINE",       "LINETYPE",   "ROW_WIDTH",  "ROW_HEIGHT", "READONLY",
                              "ROW_TEXT", "ROW_FORMAT", "ROW_FONT",   "ROW_ALIGN",  "ROW_BG",     "ROW_FG",
                              "RELIEF",   "BITMAP",     "BMP_ALIGN",  "LTEXT",      "FREET",      "DDICT",
                              "PLOBT",    "ROW_HIDDEN", "ROW_MARKED", "SHOW_CHART", "CHART_ID",   "CHART_TYPE"};
constexpr Name PlanningCells[] = {"Z", "C", "V"};
constexpr Name FixedCols[] = {"COLUMN_FIX", "FLG_POSITION", "COL_WIDTH", "COL_HEIGHT",
                              "COL_FORMAT", "COL_ALIGN",    "READONLY",  "GRID_ID"};
constexpr Name FixedLines[] = {"LINE_FIX",   "FLG_POSITION", "ROW_WIDTH", "ROW_HEIGHT",
                               "ROW_FORMAT", "ROW_ALIGN",    "READONLY",  "GRID_ID"};
constexpr Name FixedTab[] = {"COLUMN",  "FLG_COL_FIX", "LINE",   "FLG_LINE_FIX", "VALUE",    "TOOLTIP",
                             "BGCOLOR", "FGCOLOR",     "BITMAP", "BMP_ALIGN",    "TEXTALIGN"};
constexpr Name CellAttr[] = {"COLUMN", "LINE", "BGCOLOR", "FGCOLOR", "BITMAP", "BMP_ALIGN", "TOOLTIP"};
constexpr Name MacroTree[] = {"NODEKEY",  "NODEREF",  "RELATION",  "NODETEXT", "IMAGE",   "IMAGE_SEL",
                              "EXPANDED", "NODETYPE", "NODEVALUE", "NODENAME", "INACTIVE"};
constexpr Name MacroRec[] = {"STEP", "COMMAND", "COLUMN", "LINE", "VALUE", "COLUMN_NAME", "LINE_NAME"};
constexpr Name Texts[] = {"ENTRY",      "TEXT",    "CONDSTRING", "CONDITION", "TABLINE",
                          "TABELEMENT", "TABAREA", "OPERATOR",   "FUNCTION",  "MAKLINE",
                          "MAKELEMENT", "MAKAREA", "ATTRIBUTE",  "GENERATE",  "INACTIVE"};
constexpr Name Menu[] = {"ENABLED", "TEXT", "PFID"};

struct Table {
    Name name;
    std::span<const Name> fields;
};

constexpr std::array<Table, 17> Tables{{
    {"GRID_ATTR", GridAttr},
    {"COLS_INDEX", ColsIndex},
    {"LINE_INDEX", LineIndex},
    {"TAB", PlanningCells},
    {"TAB_OLD", PlanningCells},
    {"FIXED_COLS", FixedCols},
    {"FIXED_LINES", FixedLines},
    {"FIXED_TAB", FixedTab},
    {"CELL_ATTR", CellAttr},
    {"GRID_TREE", {}},
    {"MACRO_TREE", MacroTree},
    {"TEXTS", Texts},
    {"COLMENU", Menu},
    {"ROWMENU", Menu},
    {"GRIDMENU", Menu},
    {"CELLMENU", Menu},
    {"MACROREC", MacroRec},
}};

}  // namespace

std::span<const std::string_view> TableFields(std::string_view tableName) {
    for (const Table& table : Tables) {
        if (table.name == tableName) {
            return table.fields;
        }
    }
    ThrowUnknownMember("The host", tableName);
}

}  // namespace planview
