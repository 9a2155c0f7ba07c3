// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "macro/language/MacroExpression.h"
#include "macro/language/MacroSheet.h"

namespace planview {

/// As ROUND does: half away from zero. A number too large to have decimals stays as it is.
[[nodiscard]] double Rounded(double value, int decimals) noexcept;

/// Evaluates one expression over many periods at once.
///
/// An empty cell counts as 0 in arithmetic; SUM, MIN, MAX and AVERAGE leave it out, COPY keeps it. A value that lies
/// outside the table (by a shift) makes what is computed with it no value; the functions of many values leave it out.
/// IF, AND and OR evaluate their later arguments only where the first one leaves it open.
class MacroEvaluation {
public:
    using Values = MacroValues;
    using Mask = std::vector<std::uint8_t>;  ///< where a value is needed; elsewhere it may be anything

    /// What an evaluation is for.
    struct Frame {
        std::span<const int> periods;
        int firstIndex = 0;     ///< of the first of them among the statement's periods
        int shift = 0;          ///< periods to be added to each
        int line = 0;           ///< 0-based, where areas are taken line by line
        bool oneValue = false;  ///< there is no period at hand; `periods` has one item all the same
        bool keepEmpty = false;
        /// The statement's own line, and what it held before the statement.
        const MacroValues* own = nullptr;
        const MacroValues* before = nullptr;
        int statementLine = -1;  ///< of the table, to name it in an error
    };

    MacroEvaluation(MacroSheet& sheet, const PlanningTable& table, const std::vector<int>& chosenPeriods)
        : sheet_(sheet), table_(table), chosen_(chosenPeriods) {}

    /// As many values as the frame has periods. Throws MacroFault: division by zero, a number too large, a cell that
    /// holds a text.
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
    /// Throws MacroFault where a number that is needed is none any more.
    void CheckSize(const MacroExpression& expression, const Frame& frame, const Values& values, const Mask& mask) const;
    [[noreturn]] void Fail(const MacroExpression& expression, const Frame& frame, std::size_t index,
                           const char* what) const;

    MacroSheet& sheet_;
    const PlanningTable& table_;
    const std::vector<int>& chosen_;
};

}  // namespace planview
