// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "formula/FormulaEvaluation.h"
#include "formula/FormulaValues.h"

namespace planview {

/// A cell of a plan, by 0-based indexes. Fixed rows stand behind the planning lines, fixed columns behind the periods.
struct PlanCell {
    int line = 0;
    int period = 0;
    friend auto operator<=>(const PlanCell&, const PlanCell&) = default;
};

/// What the cells of a plan hold, as numbers.
class PlanValues {
public:
    PlanValues(int lines, int periods)
        : lines_(lines),
          periods_(periods),
          values_(static_cast<std::size_t>(lines) * static_cast<std::size_t>(periods), FormulaValue{}) {}

    [[nodiscard]] int Lines() const noexcept { return lines_; }
    [[nodiscard]] int Periods() const noexcept { return periods_; }
    [[nodiscard]] FormulaValue At(PlanCell cell) const { return values_.At(Index(cell)); }
    void Set(PlanCell cell, FormulaValue value) { values_.Set(Index(cell), value); }

    [[nodiscard]] FormulaSpan Line(int line, int periods) const {
        const std::size_t first = Index({line, 0});
        return {values_.numbers.data() + first, values_.kinds.data() + first, static_cast<std::size_t>(periods), 1};
    }
    [[nodiscard]] FormulaSpan Column(int period, int lines) const {
        const auto first = static_cast<std::size_t>(period);
        return {values_.numbers.data() + first, values_.kinds.data() + first, static_cast<std::size_t>(lines),
                static_cast<std::ptrdiff_t>(periods_)};
    }

private:
    [[nodiscard]] std::size_t Index(PlanCell cell) const noexcept {
        return static_cast<std::size_t>(cell.line) * static_cast<std::size_t>(periods_) +
               static_cast<std::size_t>(cell.period);
    }

    int lines_;
    int periods_;
    FormulaValues values_;
};

}  // namespace planview
