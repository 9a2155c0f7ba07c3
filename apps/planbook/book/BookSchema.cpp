// SPDX-License-Identifier: MIT
#include "book/BookSchema.h"

namespace planbook {

namespace {

using enum FieldType;
using Field = FieldDescription;

// Flags are texts: "X" is set, anything else is not.

constexpr Field GridAttr[] = {
    {"CHART", Text},
    {"HIDDEN_LIST", Text},
    {"NOMOVE_ALLOWED", Text},
    {"NORESIZE_ALLOWED", Text},
    {"SINGLEVALUE", Text},
    {"SWITCHED", Text},
    {"ZOOMED", Text},
    {"BGCOLOR", Integer},
    {"GRIDLINE_COLOR", Integer},
    {"FIRST_COL", Integer},
    {"FIRST_ROW", Integer},
    {"CHART_TYPE", Integer},
    {"NO_AUTOMIN", Text},
    {"NO_AUTOMAX", Text},
    {"MINVALUE", Real},
    {"MAXVALUE", Real},
    {"MINRANGE", Real},
    {"MAXRANGE", Real},
    {"OPTIMUM", Real},
    {"LABELCOL_WIDTH", Integer},
    {"TITELTEXT", Text},
};

constexpr Field ColsIndex[] = {
    {"GRID_ID", Text},         {"COLUMN", Integer},  {"PERDY", Text},        {"COL_WIDTH", Integer},
    {"COL_HEIGHT", Integer},   {"BITMAP", Text},     {"BMP_ALIGN", Integer}, {"COL_HIDDEN", Text},
    {"COL_MARKED", Text},      {"SHOW_CHART", Text}, {"CHART_ID", Integer},  {"CHART_TYPE", Integer},
    {"COL_ORDER", Integer, 3},
};

constexpr Field LineIndex[] = {
    {"GRID_ID", Text},         {"LINE", Integer},      {"LINETYPE", Text},     {"ROW_WIDTH", Integer},
    {"ROW_HEIGHT", Integer},   {"READONLY", Text},     {"ROW_TEXT", Text},     {"ROW_FORMAT", Text},
    {"ROW_FONT", Text},        {"ROW_ALIGN", Integer}, {"ROW_BG", Integer},    {"ROW_FG", Integer},
    {"RELIEF", Text},          {"BITMAP", Text},       {"BMP_ALIGN", Integer}, {"LTEXT", Text},
    {"FREET", Text},           {"DDICT", Text},        {"PLOBT", Text},        {"ROW_HIDDEN", Text},
    {"ROW_MARKED", Text},      {"SHOW_CHART", Text},   {"CHART_ID", Integer},  {"CHART_TYPE", Integer},
    {"ROW_ORDER", Integer, 3},
};

// TAB and TAB_OLD.
constexpr Field PlanningCells[] = {{"Z", Integer}, {"C", Integer}, {"V", Any}};

constexpr Field FixedCols[] = {
    {"COLUMN_FIX", Integer}, {"FLG_POSITION", Text}, {"COL_WIDTH", Integer}, {"COL_HEIGHT", Integer},
    {"COL_FORMAT", Text},    {"COL_ALIGN", Integer}, {"READONLY", Text},     {"GRID_ID", Text},
};

constexpr Field FixedLines[] = {
    {"LINE_FIX", Integer}, {"FLG_POSITION", Text}, {"ROW_WIDTH", Integer}, {"ROW_HEIGHT", Integer},
    {"ROW_FORMAT", Text},  {"ROW_ALIGN", Integer}, {"READONLY", Text},     {"GRID_ID", Text},
};

constexpr Field FixedTab[] = {
    {"COLUMN", Integer}, {"FLG_COL_FIX", Text},  {"LINE", Integer},      {"FLG_LINE_FIX", Text},
    {"VALUE", Any},      {"TOOLTIP", Text},      {"BGCOLOR", Integer},   {"FGCOLOR", Integer},
    {"BITMAP", Text},    {"BMP_ALIGN", Integer}, {"TEXTALIGN", Integer},
};

constexpr Field CellAttr[] = {
    {"COLUMN", Integer}, {"LINE", Integer},      {"BGCOLOR", Integer}, {"FGCOLOR", Integer},
    {"BITMAP", Text},    {"BMP_ALIGN", Integer}, {"TOOLTIP", Text},
};

constexpr Field MacroTree[] = {
    {"NODEKEY", Text},      {"NODEREF", Text},     {"RELATION", Integer}, {"NODETEXT", Text},
    {"IMAGE", Any},         {"IMAGE_SEL", Any},    {"EXPANDED", Text},    {"NODETYPE", Text, 2},
    {"NODEVALUE", Text, 2}, {"NODENAME", Text, 2}, {"INACTIVE", Text, 2},
};

constexpr Field Texts[] = {
    {"ENTRY", Integer},   {"TEXT", Text},    {"CONDSTRING", Text}, {"CONDITION", Text}, {"TABLINE", Text},
    {"TABELEMENT", Text}, {"TABAREA", Text}, {"OPERATOR", Text},   {"FUNCTION", Text},  {"MAKLINE", Text},
    {"MAKELEMENT", Text}, {"MAKAREA", Text}, {"ATTRIBUTE", Text},  {"GENERATE", Text},  {"INACTIVE", Text},
};

// COLMENU, ROWMENU, GRIDMENU and CELLMENU.
constexpr Field Menu[] = {{"PFID", Integer}, {"TEXT", Text}, {"ENABLED", Text}};

constexpr Field MacroRec[] = {
    {"STEP", Integer, 2}, {"COMMAND", Text, 2},     {"COLUMN", Text, 2},    {"LINE", Text, 2},
    {"VALUE", Text, 2},   {"COLUMN_NAME", Text, 2}, {"LINE_NAME", Text, 2},
};

constexpr Field Formulas[] = {
    {"TARGET", Text, 4}, {"FORMULA", Text, 4}, {"SOLVE_ORDER", Integer, 4}, {"ENTRY", Text, 4}};

// GRID_TREE is held by the control, which reads no field of it.
constexpr std::span<const Field> NoFields;

constexpr std::array<TableDescription, BookTableCount> Schema = {{
    {BookTable::GridAttr, "GRID_ATTR", GridAttr},
    {BookTable::ColsIndex, "COLS_INDEX", ColsIndex},
    {BookTable::LineIndex, "LINE_INDEX", LineIndex},
    {BookTable::Tab, "TAB", PlanningCells},
    {BookTable::TabOld, "TAB_OLD", PlanningCells},
    {BookTable::FixedCols, "FIXED_COLS", FixedCols},
    {BookTable::FixedLines, "FIXED_LINES", FixedLines},
    {BookTable::FixedTab, "FIXED_TAB", FixedTab},
    {BookTable::CellAttr, "CELL_ATTR", CellAttr},
    {BookTable::GridTree, "GRID_TREE", NoFields},
    {BookTable::MacroTree, "MACRO_TREE", MacroTree},
    {BookTable::Texts, "TEXTS", Texts},
    {BookTable::ColMenu, "COLMENU", Menu},
    {BookTable::RowMenu, "ROWMENU", Menu},
    {BookTable::GridMenu, "GRIDMENU", Menu},
    {BookTable::CellMenu, "CELLMENU", Menu},
    {BookTable::MacroRec, "MACROREC", MacroRec},
    {BookTable::Formulas, "FORMULAS", Formulas, 4},
}};

constexpr std::array<BookTable, BookTableCount> TablesInOrder() {
    std::array<BookTable, BookTableCount> tables{};
    for (std::size_t i = 0; i < tables.size(); ++i) {
        tables[i] = Schema[i].table;
    }
    return tables;
}

constexpr std::array<BookTable, BookTableCount> Tables = TablesInOrder();

/// Describe() finds a table by its number.
constexpr bool SchemaStandsInOrder() {
    for (std::size_t i = 0; i < Tables.size(); ++i) {
        if (static_cast<std::size_t>(Tables[i]) != i) {
            return false;
        }
    }
    return true;
}
static_assert(SchemaStandsInOrder());

}  // namespace

std::span<const TableDescription, BookTableCount> BookSchema() noexcept {
    return Schema;
}

const TableDescription& Describe(BookTable table) noexcept {
    return Schema[static_cast<std::size_t>(table)];
}

std::span<const BookTable, BookTableCount> AllBookTables() noexcept {
    return Tables;
}

}  // namespace planbook
