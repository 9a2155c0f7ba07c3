// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

#include "import/CsvNumbers.h"
#include "import/FormulaRows.h"
#include "import/PlannedColumns.h"

namespace planbook {

struct ImportRequest {
    std::filesystem::path source;
    std::filesystem::path book;
    std::optional<std::filesystem::path> names;
    DecimalMark decimalMark = DecimalMark::Automatic;
    /// Whether an existing book may be replaced. Any other existing file is never replaced.
    bool force = false;
    PeriodTotals totals{};
};

struct ImportResult {
    int periods = 0;
    int lines = 0;
    int cells = 0;  ///< of the table of numbers that are not empty
    Contradictions contradictions;
};

/// Makes a book from a table of numbers. The book is written beside its place and moved there when it is complete.
/// Throws BookError; then neither the book nor anything beside it has changed.
ImportResult ImportBook(const ImportRequest& request);

}  // namespace planbook
