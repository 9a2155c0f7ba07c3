// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "book/Book.h"
#include "import/NamesFile.h"
#include "import/PlannedColumns.h"
#include "import/SourceTable.h"

namespace planbook {

/// Lays out a table of numbers as a planning book: a column per period, a row per line, the years above the months, the
/// unit at the left, the mean at the right, the source at the bottom, negative numbers coloured. Empty cells get no row
/// in TAB. The tables may be longer than a book file can hold.
[[nodiscard]] Book BuildBook(const SourceTable& source, const NamesFile& names,
                             const std::vector<PlannedColumn>& columns);

}  // namespace planbook
