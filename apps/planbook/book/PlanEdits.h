// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "book/Book.h"
#include "book/BookChanges.h"

namespace planbook {

// What planbook's own menu entries make of a book's values, for the view to carry out as one action of the user. Lines
// and periods go by their numbers in `LINE` and `COLUMN`. Lines that cannot be edited are left alone, and so are cells
// that hold the value already.

/// A cell and the value that it is to get.
struct PlanEdit {
    CellPosition cell;
    planview::Variant value;
};
using PlanEdits = std::vector<PlanEdit>;

/// The lines whose cells can be edited, in their order.
[[nodiscard]] std::vector<std::int32_t> EditableLines(const Book& book);
/// The period that stands behind this one; 0 when it is the last one.
[[nodiscard]] std::int32_t PeriodBehind(const Book& book, std::int32_t period);
/// The sum of what the line's cells hold.
[[nodiscard]] double TotalOf(const Book& book, std::int32_t line);

[[nodiscard]] PlanEdits CopyLine(const Book& book, std::int32_t from, std::int32_t to);
[[nodiscard]] PlanEdits CopyPeriod(const Book& book, std::int32_t from, std::int32_t to);
/// Gives the cell's value to all periods behind it.
[[nodiscard]] PlanEdits CopyValueOn(const Book& book, CellPosition cell);
/// Spreads a total over the periods that are not hidden: in the proportion of what they hold, evenly where they hold
/// nothing or something below zero. The parts have two decimals and add up to the total.
[[nodiscard]] PlanEdits SpreadTotal(const Book& book, std::int32_t line, double total);
/// Gives the cells for which `which` holds the values back that TAB_OLD keeps for them.
[[nodiscard]] PlanEdits ClearPending(const Book& book, const std::function<bool(CellPosition)>& which);

}  // namespace planbook
