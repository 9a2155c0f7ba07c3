// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "book/Book.h"
#include "book/BookChanges.h"

namespace planbook {

// What planbook's own menu entries do to a book's values. Lines and periods go by their numbers in `LINE` and `COLUMN`.
// Lines that cannot be edited are left alone. Each value that changes leaves its old one in TAB_OLD, as an edit in the
// view does. All of them answer how many cells have another value now.

/// The lines whose cells can be edited, in their order.
[[nodiscard]] std::vector<std::int32_t> EditableLines(const Book& book);
/// The period that stands behind this one; 0 when it is the last one.
[[nodiscard]] std::int32_t PeriodBehind(const Book& book, std::int32_t period);
/// The sum of what the line's cells hold.
[[nodiscard]] double TotalOf(const Book& book, std::int32_t line);

int CopyLine(const Book& book, std::int32_t from, std::int32_t to);
int CopyPeriod(const Book& book, std::int32_t from, std::int32_t to);
/// Gives the cell's value to all periods behind it.
int CopyValueOn(const Book& book, CellPlace cell);
/// Spreads a total over the periods that are not hidden: in the proportion of what they hold, evenly where they hold
/// nothing or something below zero. The parts have two decimals and add up to the total.
int SpreadTotal(const Book& book, std::int32_t line, double total);
/// Gives the cells for which `which` holds their old values back and ends their record in TAB_OLD.
int ClearPending(const Book& book, const std::function<bool(CellPlace)>& which);

}  // namespace planbook
