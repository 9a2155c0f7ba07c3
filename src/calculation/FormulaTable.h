// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/FormulaProblem.h>
#include <planview/FormulaReading.h>

#include "automation/HostTable.h"
#include "calculation/PlanFormula.h"

namespace planview {

/// A row of FORMULAS that computes something.
struct FormulaRow {
    int row = 0;  ///< of the table, from 1
    Formula formula;
    PlanFormula plan;
};

/// Reads FORMULAS: `TARGET` (the key of a line or a column, or "ROW3/COL7" for one cell), `FORMULA` (by keys or
/// captions), `SOLVE_ORDER` (a number, 0 without one), `ENTRY` ("X": what is typed is spread). Of several rows for one
/// target the first one counts. The others, and rows that cannot be read, become problems; so do gaps, whose values are
/// not computed.
[[nodiscard]] std::vector<FormulaRow> ReadFormulas(const HostTable& formulas, const FormulaNames& names,
                                                   std::vector<FormulaProblem>& problems);

/// Reads one formula for a target.
[[nodiscard]] FormulaReading ReadFormula(std::string_view target, std::string_view text, const FormulaNames& names);

}  // namespace planview
