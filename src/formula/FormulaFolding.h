// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "formula/FormulaExpression.h"
#include "formula/FormulaValues.h"

namespace planview {

/// Combines many values into one for each period, as SUM, MIN, MAX, AVERAGE, PRODUCT and COUNT do. Sums are
/// compensated: what rounding has lost is added at the end, so that ten thousand cents add up.
class FormulaFolding {
public:
    FormulaFolding(FormulaOperation operation, std::size_t periods);

    /// Empty cells are left out; a fault stays.
    void Take(std::size_t period, FormulaValue value);
    /// Takes the single result of another one into every period.
    void TakeAll(const FormulaFolding& other);
    /// Takes one value into each period, the first from `from` on; all of them are numbers.
    void TakeNumbers(const FormulaSpan& values, std::size_t from);
    /// Whether TakeNumbers() may be called.
    [[nodiscard]] bool TakesNumbers() const noexcept { return !lost_.empty(); }

    /// The result so far.
    [[nodiscard]] FormulaValue At(std::size_t period) const;
    [[nodiscard]] FormulaValues Result() &&;

private:
    void Add(std::size_t period, double number) noexcept;

    FormulaOperation operation_;
    FormulaValues result_;      // a kind other than Number is a fault
    std::vector<double> lost_;  // of sums, by rounding
    int common_ = 0;            // numbers that every period has taken
    // Of what came one by one; empty where nothing did
    std::vector<int> counts_;            // of the numbers
    std::vector<std::uint8_t> outside_;  // 1: a value was outside the table
};

}  // namespace planview
