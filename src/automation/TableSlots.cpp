// SPDX-License-Identifier: MIT
#include "automation/TableSlots.h"

#include "automation/MemberNames.h"

namespace planview {

namespace {

using Name = std::string_view;

/// What the control reads or writes in the table of the same name.
namespace Fields {

constexpr Name GRID_ATTR[] = {
    "CHART",    "HIDDEN_LIST",    "NOMOVE_ALLOWED", "NORESIZE_ALLOWED", "SINGLEVALUE", "SWITCHED",       "ZOOMED",
    "BGCOLOR",  "GRIDLINE_COLOR", "FIRST_COL",      "FIRST_ROW",        "CHART_TYPE",  "NO_AUTOMIN",     "NO_AUTOMAX",
    "MINVALUE", "MAXVALUE",       "MINRANGE",       "MAXRANGE",         "OPTIMUM",     "LABELCOL_WIDTH", "TITELTEXT"};
constexpr Name COLS_INDEX[] = {"GRID_ID",   "COLUMN",     "PERDY",      "COL_WIDTH",  "COL_HEIGHT", "BITMAP",
                               "BMP_ALIGN", "COL_HIDDEN", "COL_MARKED", "SHOW_CHART", "CHART_ID"};
constexpr Name LINE_INDEX[] = {"GRID_ID",  "LINE",       "LINETYPE",   "ROW_WIDTH",  "ROW_HEIGHT", "READONLY",
                               "ROW_TEXT", "ROW_FORMAT", "ROW_FONT",   "ROW_ALIGN",  "ROW_BG",     "ROW_FG",
                               "RELIEF",   "BITMAP",     "BMP_ALIGN",  "LTEXT",      "FREET",      "DDICT",
                               "PLOBT",    "ROW_HIDDEN", "ROW_MARKED", "SHOW_CHART", "CHART_ID",   "CHART_TYPE"};
constexpr Name TAB[] = {"Z", "C", "V"};
constexpr auto& TAB_OLD = TAB;
constexpr Name FIXED_COLS[] = {"COLUMN_FIX", "FLG_POSITION", "COL_WIDTH", "COL_HEIGHT",
                               "COL_FORMAT", "COL_ALIGN",    "READONLY",  "GRID_ID"};
constexpr Name FIXED_LINES[] = {"LINE_FIX",   "FLG_POSITION", "ROW_WIDTH", "ROW_HEIGHT",
                                "ROW_FORMAT", "ROW_ALIGN",    "READONLY",  "GRID_ID"};
constexpr Name FIXED_TAB[] = {"COLUMN",  "FLG_COL_FIX", "LINE",   "FLG_LINE_FIX", "VALUE",    "TOOLTIP",
                              "BGCOLOR", "FGCOLOR",     "BITMAP", "BMP_ALIGN",    "TEXTALIGN"};
constexpr Name CELL_ATTR[] = {"COLUMN", "LINE", "BGCOLOR", "FGCOLOR", "BITMAP", "BMP_ALIGN", "TOOLTIP"};
constexpr std::span<const Name> GRID_TREE{};  // held only
constexpr Name MACRO_TREE[] = {"NODEKEY",  "NODEREF",  "RELATION",  "NODETEXT", "IMAGE",   "IMAGE_SEL",
                               "EXPANDED", "NODETYPE", "NODEVALUE", "NODENAME", "INACTIVE"};
constexpr Name MACROREC[] = {"STEP", "COMMAND", "COLUMN", "LINE", "VALUE", "COLUMN_NAME", "LINE_NAME"};
constexpr Name TEXTS[] = {"ENTRY",      "TEXT",    "CONDSTRING", "CONDITION", "TABLINE",
                          "TABELEMENT", "TABAREA", "OPERATOR",   "FUNCTION",  "MAKLINE",
                          "MAKELEMENT", "MAKAREA", "ATTRIBUTE",  "GENERATE",  "INACTIVE"};
constexpr Name COLMENU[] = {"ENABLED", "TEXT", "PFID"};
constexpr auto& ROWMENU = COLMENU;
constexpr auto& GRIDMENU = COLMENU;
constexpr auto& CELLMENU = COLMENU;

}  // namespace Fields

constexpr TableDescription Tables[] = {
#define PLANVIEW_TABLE(NAME, GETTER_ENTRY, RELEASED_AS) \
    {#NAME, &TableSlots::NAME, Fields::NAME, GETTER_ENTRY, RELEASED_AS},
#include "automation/Tables.def"
};

}  // namespace

std::span<const TableDescription> DescribeTables() noexcept {
    return Tables;
}

const TableDescription& TableNamed(std::string_view name) {
    for (const TableDescription& table : Tables) {
        if (table.name == name) {
            return table;
        }
    }
    ThrowUnknownMember("The host", name);
}

}  // namespace planview
