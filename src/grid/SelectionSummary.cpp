// SPDX-License-Identifier: MIT
#include "grid/SelectionSummary.h"

#include <cmath>

#include "grid/SelectedCells.h"

namespace planview {

namespace {

/// Adds up without losing the small numbers among large ones.
class ExactSum {
public:
    void Add(double value) noexcept {
        const double next = sum_ + value;
        lost_ += std::abs(sum_) >= std::abs(value) ? (sum_ - next) + value : (value - next) + sum_;
        sum_ = next;
    }
    [[nodiscard]] double Value() const noexcept { return sum_ + lost_; }

private:
    double sum_ = 0;
    double lost_ = 0;
};

}  // namespace

SelectionSummary SummaryOfSelection(const GridControl& grid) {
    SelectionSummary summary;
    ExactSum sum;
    for (const Cell cell : CellsOfSelection(grid, HiddenCells::LeftOut)) {
        ++summary.cells;
        if (grid.Contents(cell).empty()) {
            continue;
        }
        if (const std::optional<double> number = grid.Number(cell, grid.Look(cell))) {
            ++summary.numbers;
            sum.Add(*number);
        }
    }
    summary.sum = sum.Value();
    return summary;
}

}  // namespace planview
