// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "macro/language/MacroExpression.h"
#include "macro/language/MacroSheet.h"

namespace planview {

/// Rounds half away from zero, as ROUND does. A number too large to have decimals stays as it is.
[[nodiscard]] double Rounded(double value, int decimals) noexcept;

/// Evaluates one expression over many periods at once.
///
/// An empty cell counts as 0 in arithmetic; SUM, MIN, MAX and AVERAGE ignore it, COPY keeps it. Arithmetic with a value
/// outside the table (by a shift) has no value; SUM and the like ignore it. IF, AND and OR evaluate their later
/// arguments only for the periods that need them.
class MacroEvaluation {
public:
    using Values = MacroValues;
    using Mask = std::vector<std::uint8_t>;  ///< periods that need a value; the others may get any

    /// What to evaluate for.
    struct Frame {
        std::span<const int> periods;
        int firstIndex = 0;     ///< of periods.front() among the statement's periods
        int shift = 0;          ///< added to each period
        int line = 0;           ///< index in each area, which are taken line by line
        bool oneValue = false;  ///< one value without a period; `periods` still has one item
        bool keepEmpty = false;
        /// The line that is assigned, and what it held before the statement.
        const MacroValues* own = nullptr;
        const MacroValues* before = nullptr;
        int statementLine = -1;  ///< index of the line in the table, for error messages
    };

    MacroEvaluation(MacroSheet& sheet, const PlanningTable& table, const std::vector<int>& chosenPeriods)
        : sheet_(sheet), table_(table), chosen_(chosenPeriods) {}

    /// One value for each period of the frame. Throws MacroFault on a division by zero, an overflow, or a text in a
    /// cell.
    [[nodiscard]] Values Of(const MacroExpression& expression, const Frame& frame, const Mask& mask);

private:
    [[nodiscard]] Values Operand(const MacroExpression& operand, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values FromLine(const MacroExpression& operand, int line, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Arithmetic(const MacroExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Logic(const MacroExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Choice(const MacroExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values OneArgument(const MacroExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Fold(const MacroExpression& expression, const Frame& frame, const Mask& mask);
    struct Folding;
    void FoldIn(Folding& folding, const MacroExpression& argument, const Frame& frame, const Mask& mask);

    [[nodiscard]] const MacroValues& LineOf(const MacroExpression& operand, int line, const Frame& frame);
    [[nodiscard]] MacroValue Taken(MacroValue value, bool keepEmpty, int line, int period, int node) const;
    /// Throws MacroFault on an overflow in a period that needs a value.
    void CheckSize(const MacroExpression& expression, const Frame& frame, const Values& values, const Mask& mask) const;
    [[noreturn]] void Fail(const MacroExpression& expression, const Frame& frame, std::size_t index,
                           const char* what) const;

    MacroSheet& sheet_;
    const PlanningTable& table_;
    const std::vector<int>& chosen_;
};

}  // namespace planview
