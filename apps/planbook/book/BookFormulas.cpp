// SPDX-License-Identifier: MIT
#include "book/BookFormulas.h"

#include <string>
#include <utility>

#include "book/BookSnapshot.h"
#include "book/CellValue.h"

namespace planbook {

using planview::MemoryTable;
using planview::PlanView;

void GiveTables(PlanView& view, const Book& book) {
    for (const TableDescription& table : BookSchema()) {
        if (table.table != BookTable::Formulas) {
            view.SetTable(table.name, book.Share(table.table));
        }
    }
    view.Calculation().SetFormulas(book.Share(BookTable::Formulas));
}

void TakeTables(PlanView& view) {
    for (const TableDescription& table : BookSchema()) {
        if (table.table != BookTable::Formulas) {
            view.SetTable(table.name, MemoryTable::WithFieldsOf(table.name));
        }
    }
    view.Calculation().SetFormulas(nullptr);
}

planview::CellKey KeysOf(CellPosition cell) {
    return {"COL" + std::to_string(cell.column), "ROW" + std::to_string(cell.row)};
}

void MarkComputed(PlanView& view, BookChanges& changes) {
    const planview::Calculation calculation = view.Calculation();
    for (CellEdit& edit : changes.cells) {
        edit.computed = calculation.IsComputed(KeysOf(edit.cell));
    }
    std::erase_if(changes.oldValues, [&](const OldValue& old) { return calculation.IsComputed(KeysOf(old.cell)); });
}

void AddFormulaFaults(PlanView& view, BookReport& report) {
    for (const planview::FormulaProblem& problem : view.Calculation().Problems()) {
        report.AddFormulaFault(problem.row, problem.row == 0 ? problem.what : problem.target + ": " + problem.what);
    }
}

std::vector<CellEdit> Recompute(const Book& book) {
    const BookSnapshot before(book);
    PlanView view;
    GiveTables(view, book);
    view.DP_Import_Attribute();
    view.DP_Import_Create();
    BookChanges changes = before.ChangesIn(book);
    MarkComputed(view, changes);
    std::erase_if(changes.cells,
                  [](const CellEdit& edit) { return !edit.computed || SameValue(edit.before, edit.after); });
    return std::move(changes.cells);
}

}  // namespace planbook
