#include "support/SampleTables.h"

namespace planview::test {

namespace {

TableRef MakeTable(std::vector<std::string> fields) {
    return std::make_shared<MemoryTable>(std::move(fields));
}

void SetFields(MemoryTable& table, std::int32_t row, FieldValues values) {
    for (const auto& [field, value] : values) {
        table.SetValue(row, field, value);
    }
}

}  // namespace

std::int32_t AddRow(MemoryTable& table, FieldValues values) {
    const std::int32_t row = table.AddRow();
    SetFields(table, row, values);
    return row;
}

Tables::Tables()
    : gridAttr(
          MakeTable({"CHART",      "HIDDEN_LIST",    "NOMOVE_ALLOWED", "NORESIZE_ALLOWED", "SINGLEVALUE", "SWITCHED",
                     "ZOOMED",     "BGCOLOR",        "GRIDLINE_COLOR", "FIRST_COL",        "FIRST_ROW",   "CHART_TYPE",
                     "NO_AUTOMIN", "NO_AUTOMAX",     "MINVALUE",       "MAXVALUE",         "MINRANGE",    "MAXRANGE",
                     "OPTIMUM",    "LABELCOL_WIDTH", "TITELTEXT"})),
      colsIndex(MakeTable({"GRID_ID", "COLUMN", "PERDY", "COL_WIDTH", "COL_HEIGHT", "BITMAP", "BMP_ALIGN", "COL_HIDDEN",
                           "COL_MARKED", "SHOW_CHART", "CHART_ID"})),
      lineIndex(MakeTable({"GRID_ID",  "LINE",       "LINETYPE",  "ROW_WIDTH",  "ROW_HEIGHT", "READONLY",
                           "ROW_TEXT", "ROW_FORMAT", "ROW_FONT",  "ROW_ALIGN",  "ROW_BG",     "ROW_FG",
                           "RELIEF",   "BITMAP",     "BMP_ALIGN", "ROW_HIDDEN", "ROW_MARKED", "SHOW_CHART",
                           "CHART_ID", "CHART_TYPE", "LTEXT",     "FREET",      "DDICT",      "PLOBT"})),
      tab(MakeTable({"Z", "C", "V"})),
      tabOld(MakeTable({"Z", "C", "V"})),
      fixedCols(MakeTable(
          {"COLUMN_FIX", "FLG_POSITION", "COL_WIDTH", "COL_HEIGHT", "COL_FORMAT", "COL_ALIGN", "READONLY", "GRID_ID"})),
      fixedLines(MakeTable(
          {"LINE_FIX", "FLG_POSITION", "ROW_WIDTH", "ROW_HEIGHT", "ROW_FORMAT", "ROW_ALIGN", "READONLY", "GRID_ID"})),
      fixedTab(MakeTable({"COLUMN", "FLG_COL_FIX", "LINE", "FLG_LINE_FIX", "VALUE", "TOOLTIP", "BGCOLOR", "FGCOLOR",
                          "BITMAP", "BMP_ALIGN", "TEXTALIGN"})),
      cellAttr(MakeTable({"COLUMN", "LINE", "BGCOLOR", "FGCOLOR", "BITMAP", "BMP_ALIGN", "TOOLTIP"})),
      gridTree(MakeTable({})),
      macroTree(MakeTable({"NODEKEY", "NODEREF", "RELATION", "NODETEXT", "IMAGE_SEL", "EXPANDED"})),
      texts(MakeTable({"ENTRY", "TEXT"})),
      colMenu(MakeTable({"ENABLED"})),
      rowMenu(MakeTable({"ENABLED"})),
      gridMenu(MakeTable({"ENABLED"})),
      cellMenu(MakeTable({"ENABLED"})),
      macroRec(MakeTable({})) {
    gridAttr->AddRow();
}

void Tables::GiveTo(PlanView& control) const {
    control.PROP_Set_GRID_ATTR(gridAttr);
    control.PROP_Set_COLS_INDEX(colsIndex);
    control.PROP_Set_LINE_INDEX(lineIndex);
    control.PROP_Set_TAB(tab);
    control.PROP_Set_TAB_OLD(tabOld);
    control.PROP_Set_FIXED_COLS(fixedCols);
    control.PROP_Set_FIXED_LINES(fixedLines);
    control.PROP_Set_FIXED_TAB(fixedTab);
    control.PROP_Set_CELL_ATTR(cellAttr);
    control.PROP_Set_GRID_TREE(gridTree);
    control.PROP_Set_MACRO_TREE(macroTree);
    control.PROP_Set_TEXTS(texts);
    control.PROP_Set_COLMENU(colMenu);
    control.PROP_Set_ROWMENU(rowMenu);
    control.PROP_Set_GRIDMENU(gridMenu);
    control.PROP_Set_CELLMENU(cellMenu);
    control.PROP_Set_MACROREC(macroRec);
}

void Tables::AddColumn(int position, const char* period, FieldValues more) const {
    const std::int32_t row = AddRow(*colsIndex, {{"COLUMN", position}, {"PERDY", period}});
    SetFields(*colsIndex, row, more);
}

void Tables::AddLine(int position, const char* label, FieldValues more) const {
    const std::int32_t row = AddRow(*lineIndex, {{"LINE", position}, {"LTEXT", "F"}, {"FREET", label}, {"ROW_FG", 1}});
    SetFields(*lineIndex, row, more);
}

void Tables::AddValue(int line, int column, Variant value) const {
    AddRow(*tab, {{"Z", line}, {"C", column}, {"V", std::move(value)}});
}

}  // namespace planview::test
