// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "import/Faults.h"
#include "import/FormulaText.h"
#include "import/NamesFile.h"

namespace planbook {

/// The totals over time that stand behind their periods.
struct PeriodTotals {
    bool quarters = false;
    bool years = false;
    [[nodiscard]] bool Any() const noexcept { return quarters || years; }
};

/// One column of the book to be.
struct PlannedColumn {
    std::string caption;
    std::string year;                     ///< above it, where a year begins; empty elsewhere
    std::optional<std::size_t> period{};  ///< of the table of numbers; none for a total
    std::string formula{};                ///< of a total, by keys
};

/// The periods as columns, and behind the last one of each quarter and year its total, which adds up the columns of its
/// periods. Periods that are no dates have no totals.
[[nodiscard]] std::vector<PlannedColumn> PlanColumns(const std::vector<std::string>& periods,
                                                     const PeriodTotals& totals);

/// The formulas of the totals; numbers can be entered into them.
[[nodiscard]] std::vector<FormulaText> TotalFormulas(const std::vector<PlannedColumn>& columns);

/// Adds a fault for every formula and macro that counts periods: it would count the totals, too.
void CheckTotalsAgainst(const NamesFile& names, Faults& faults);

}  // namespace planbook
