// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <planview/PlanView.h>

#include "book/Book.h"
#include "book/BookChanges.h"
#include "book/BookCheck.h"

namespace planbook {

/// Hands all tables of the book to the control; they count from its next import on.
void GiveTables(planview::PlanView& view, const Book& book);
/// Takes the book's tables from the control again: empty ones stand in their places.
void TakeTables(planview::PlanView& view);

/// The keys of a planning cell.
[[nodiscard]] planview::CellKey KeysOf(CellPosition cell);

/// Marks the edits of computed cells, whose values nobody has entered, and drops their old values: they are never
/// pending.
void MarkComputed(planview::PlanView& view, BookChanges& changes);

/// Adds what is wrong with the formulas that the control has read.
void AddFormulaFaults(planview::PlanView& view, BookReport& report);

/// What computed cells would hold if everything were computed from the leaves, where that is not what they hold. Takes
/// a readable book for its own: keys and computed values are written into it.
[[nodiscard]] std::vector<CellEdit> Recompute(const Book& book);

}  // namespace planbook
