// SPDX-License-Identifier: MIT
#include "support/SampleTables.h"

namespace planview::test {

namespace {

void SetFields(MemoryTable& table, std::int32_t row, FieldValues values) {
    for (const auto& [field, value] : values) {
        table.SetValue(row, field, value);
    }
}

/// Each table with the setter that the control has for it, and with its slot.
template <class Take>
void ForEach(const Tables& tables, const Take& take) {
    take(&PlanView::PROP_Set_GRID_ATTR, &TableSlots::GRID_ATTR, tables.gridAttr);
    take(&PlanView::PROP_Set_COLS_INDEX, &TableSlots::COLS_INDEX, tables.colsIndex);
    take(&PlanView::PROP_Set_LINE_INDEX, &TableSlots::LINE_INDEX, tables.lineIndex);
    take(&PlanView::PROP_Set_TAB, &TableSlots::TAB, tables.tab);
    take(&PlanView::PROP_Set_TAB_OLD, &TableSlots::TAB_OLD, tables.tabOld);
    take(&PlanView::PROP_Set_FIXED_COLS, &TableSlots::FIXED_COLS, tables.fixedCols);
    take(&PlanView::PROP_Set_FIXED_LINES, &TableSlots::FIXED_LINES, tables.fixedLines);
    take(&PlanView::PROP_Set_FIXED_TAB, &TableSlots::FIXED_TAB, tables.fixedTab);
    take(&PlanView::PROP_Set_CELL_ATTR, &TableSlots::CELL_ATTR, tables.cellAttr);
    take(&PlanView::PROP_Set_GRID_TREE, &TableSlots::GRID_TREE, tables.gridTree);
    take(&PlanView::PROP_Set_MACRO_TREE, &TableSlots::MACRO_TREE, tables.macroTree);
    take(&PlanView::PROP_Set_TEXTS, &TableSlots::TEXTS, tables.texts);
    take(&PlanView::PROP_Set_COLMENU, &TableSlots::COLMENU, tables.colMenu);
    take(&PlanView::PROP_Set_ROWMENU, &TableSlots::ROWMENU, tables.rowMenu);
    take(&PlanView::PROP_Set_GRIDMENU, &TableSlots::GRIDMENU, tables.gridMenu);
    take(&PlanView::PROP_Set_CELLMENU, &TableSlots::CELLMENU, tables.cellMenu);
    take(&PlanView::PROP_Set_MACROREC, &TableSlots::MACROREC, tables.macroRec);
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
    ForEach(*this, [&](auto set, auto /*slot*/, const TableRef& table) { (control.*set)(table); });
}

void Tables::GiveTo(TableSlots& slots) const {
    ForEach(*this, [&](auto /*set*/, auto slot, const TableRef& table) { slots.*slot = HostTable(table); });
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
