// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "book/Book.h"
#include "import/Faults.h"
#include "import/FormulaText.h"
#include "import/PlannedColumns.h"
#include "import/SourceTable.h"

namespace planbook {

/// Where the table of numbers has something else than its formula makes of the leaves.
struct Contradictions {
    int count = 0;
    double largest = 0;              ///< of the differences between two numbers
    std::vector<std::string> first;  ///< a line for each of the first ones
};

/// Fills FORMULAS and gives the computed cells of the book what the formulas make of its leaves. The faults, of which
/// there are none before, name the line of the names file; the book is then worth nothing.
[[nodiscard]] Contradictions AddFormulaRows(const Book& book, const SourceTable& source,
                                            const std::vector<PlannedColumn>& columns,
                                            const std::vector<FormulaText>& formulas, Faults& faults);

}  // namespace planbook
