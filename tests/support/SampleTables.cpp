// SPDX-License-Identifier: MIT
#include "support/SampleTables.h"

namespace planview::test {

namespace {

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
    : gridAttr(MemoryTable::WithFieldsOf("GRID_ATTR")),
      colsIndex(MemoryTable::WithFieldsOf("COLS_INDEX")),
      lineIndex(MemoryTable::WithFieldsOf("LINE_INDEX")),
      tab(MemoryTable::WithFieldsOf("TAB")),
      tabOld(MemoryTable::WithFieldsOf("TAB_OLD")),
      fixedCols(MemoryTable::WithFieldsOf("FIXED_COLS")),
      fixedLines(MemoryTable::WithFieldsOf("FIXED_LINES")),
      fixedTab(MemoryTable::WithFieldsOf("FIXED_TAB")),
      cellAttr(MemoryTable::WithFieldsOf("CELL_ATTR")),
      gridTree(MemoryTable::WithFieldsOf("GRID_TREE")),
      macroTree(MemoryTable::WithFieldsOf("MACRO_TREE")),
      texts(MemoryTable::WithFieldsOf("TEXTS")),
      colMenu(MemoryTable::WithFieldsOf("COLMENU")),
      rowMenu(MemoryTable::WithFieldsOf("ROWMENU")),
      gridMenu(MemoryTable::WithFieldsOf("GRIDMENU")),
      cellMenu(MemoryTable::WithFieldsOf("CELLMENU")),
      macroRec(MemoryTable::WithFieldsOf("MACROREC")) {
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
