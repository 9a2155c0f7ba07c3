// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "formula/PlanningTable.h"

namespace planview {

/// The values of a run by line and period: those of the table, each line read when first needed, and those of the macro
/// itself. Never writes to the table.
class MacroSheet {
public:
    explicit MacroSheet(const PlanningTable& table);
    /// Replaces the macro's own values by so many empty ones.
    void StartOwn(int lines, int elements);

    [[nodiscard]] FormulaValues& TableLine(int line);
    [[nodiscard]] FormulaValues& OwnLine(int line) { return ownLines_[static_cast<std::size_t>(line)]; }
    [[nodiscard]] FormulaValue& OwnElement(int element) { return ownElements_[static_cast<std::size_t>(element)]; }

    /// Notes that the macro has set a cell of the table.
    void Touch(int line, int period);
    [[nodiscard]] bool IsTouched(int line, int period) const;
    /// What the table holds; the line must have been read.
    [[nodiscard]] const FormulaValues& Before(int line) const { return lines_[static_cast<std::size_t>(line)].before; }
    [[nodiscard]] bool HasTouched(int line) const { return !lines_[static_cast<std::size_t>(line)].touched.empty(); }

private:
    struct Line {
        bool isRead = false;
        FormulaValues values;
        FormulaValues before;
        std::vector<bool> touched;  // empty: no cell is
    };

    const PlanningTable& table_;
    std::vector<Line> lines_;
    std::vector<FormulaValues> ownLines_;
    std::vector<FormulaValue> ownElements_;
};

}  // namespace planview
