// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "formula/FormulaExpression.h"
#include "formula/FormulaFolding.h"
#include "formula/FormulaValues.h"
#include "formula/PlanningTable.h"

namespace planview {

/// Rounds half away from zero, as ROUND does. A number too large to have decimals stays as it is.
[[nodiscard]] double Rounded(double value, int decimals) noexcept;

/// What expressions are evaluated over. A span stays valid until the next evaluation.
class FormulaSource {
public:
    virtual ~FormulaSource() = default;
    /// The values of a line by period; for the formula of a column, those of a column by line.
    [[nodiscard]] virtual FormulaSpan TableLine(int line) = 0;
    // Of a macro.
    [[nodiscard]] virtual FormulaSpan OwnLine(int /*line*/) { return {}; }
    [[nodiscard]] virtual FormulaValue OwnElement(int /*element*/) { return {}; }
};

/// Evaluates one expression over many periods at once. It speaks of lines and periods; in the formula of a column these
/// are columns and lines.
///
/// An empty cell counts as 0 in arithmetic; functions of many values ignore it, COPY keeps it. Arithmetic with a value
/// outside the table (by a shift) has no value; SUM and the like ignore it. IF, AND and OR evaluate their later
/// arguments only for the periods that need them. Never gives a NaN or an infinity.
class FormulaEvaluation {
public:
    using Values = FormulaValues;
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
        const FormulaValues* own = nullptr;
        const FormulaValues* before = nullptr;
        int statementLine = -1;  ///< index of the line in the table, for error messages
    };

    /// A fault is thrown as a FormulaFault with the place by the table's captions. `chosenPeriods`: those of the macro.
    FormulaEvaluation(FormulaSource& source, const PlanningTable& table, std::span<const int> chosenPeriods)
        : source_(source), table_(&table), periodCount_(table.PeriodCount()), chosen_(chosenPeriods) {}
    /// A fault is a value. `allPeriods`: 0 to their number less 1.
    FormulaEvaluation(FormulaSource& source, std::span<const int> allPeriods)
        : source_(source), periodCount_(static_cast<int>(allPeriods.size())), chosen_(allPeriods) {}

    /// One value for each period of the frame.
    [[nodiscard]] Values Of(const FormulaExpression& expression, const Frame& frame, const Mask& mask);

private:
    [[nodiscard]] Values Operand(const FormulaExpression& operand, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values FromLine(const FormulaExpression& operand, int line, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Arithmetic(const FormulaExpression& expression, const Frame& frame, const Mask& mask);
    void Divide(const FormulaExpression& expression, const Frame& frame, const Mask& mask, Values& left,
                const Values& right) const;
    [[nodiscard]] Values Logic(const FormulaExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Choice(const FormulaExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values OneArgument(const FormulaExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Fold(const FormulaExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values RunningTotal(const FormulaExpression& expression, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values MeanBefore(const FormulaExpression& last, const Frame& frame, const Mask& mask);
    [[nodiscard]] Values Growth(const FormulaExpression& growth, const Frame& frame, const Mask& mask);
    void FoldIn(FormulaFolding& folding, const FormulaExpression& argument, const Frame& frame, const Mask& mask,
                FormulaOperation operation);
    /// Those of one line of the argument; of LAST those of all its periods.
    void FoldLine(FormulaFolding& folding, const FormulaExpression& argument, const Frame& frame, const Mask& mask);
    void FoldPeriodsBefore(FormulaFolding& folding, const FormulaExpression& last, const Frame& frame,
                           const Mask& mask);
    /// Takes the line's values as they stand there, where all of them are numbers; else nothing.
    [[nodiscard]] bool FoldSpan(FormulaFolding& folding, const FormulaExpression& operand, const Frame& frame,
                                const Mask& mask);

    [[nodiscard]] FormulaSpan LineOf(const FormulaExpression& operand, int line, const Frame& frame);
    [[nodiscard]] FormulaValue Taken(FormulaValue value, bool keepEmpty, int line, int period, int node) const;
    /// Finds overflows in periods that need a value.
    void CheckSize(const FormulaExpression& expression, const Frame& frame, Values& values, const Mask& mask) const;
    /// Throws the fault, or makes it the value.
    void Fail(const FormulaExpression& expression, const Frame& frame, Values& values, std::size_t index,
              FormulaKind fault) const;

    FormulaSource& source_;
    const PlanningTable* table_ = nullptr;  // none: faults are values
    int periodCount_;
    std::span<const int> chosen_;
};

}  // namespace planview
