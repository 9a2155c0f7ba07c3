// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "formula/PlanningTable.h"

namespace planview {

enum class FormulaOperation : std::uint8_t {
    // Operands
    Constant,
    Line,        ///< one line of the table, in the current period
    Element,     ///< one cell of the table
    Area,        ///< several lines, in the current period or in given periods
    OwnLine,     ///< a line of the macro itself
    OwnElement,  ///< a single value of the macro itself
    OwnArea,     ///< an area of the macro itself
    Gap,         ///< what is not there any more
    // Operators
    Negate,
    Add,
    Subtract,
    Multiply,
    Divide,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    And,
    Or,
    // Functions
    Sum,
    Minimum,
    Maximum,
    Average,
    Product,
    Count,
    Last,  ///< the periods before, all of them in a function of many values, else their mean
    Copy,
    Shift,
    If,
    Absolute,
    Round,
    Modulo,
    Integer,
    Cumulate,
    Growth,  ///< over the periods of a Last
    Members  ///< while it is parsed; then an Area
};

/// Whether an operand belongs to the table, not to the macro itself.
[[nodiscard]] constexpr bool IsOfTable(FormulaOperation operand) noexcept {
    return operand >= FormulaOperation::Line && operand <= FormulaOperation::Area;
}

/// The most periods for SHIFT and LAST.
inline constexpr double MostPeriods = 32767;
/// The most decimals for ROUND and for what a macro writes.
inline constexpr double MostDecimals = 15;

/// A part of an expression or comparison that can be evaluated.
struct FormulaExpression {
    FormulaOperation operation = FormulaOperation::Constant;
    double number = 0;    ///< of a Constant; periods for Shift and Last; decimals for Round
    PlanningRange range;  ///< the cell of an Element, the periods of an Area
    /// Indexes of lines in the table or of own lines; of an OwnElement, its index.
    std::vector<int> lines;
    int node = -1;           ///< the token, for faults
    int depth = 1;           ///< of the tree below it
    bool perPeriod = false;  ///< has a value for each period
    /// A shifted operand that reads values which this statement has already computed.
    bool live = false;
    std::vector<FormulaExpression> arguments;

    [[nodiscard]] bool IsTruth() const noexcept {
        return operation >= FormulaOperation::Equal && operation <= FormulaOperation::Or;
    }
    /// Combines many values into one: SUM, MIN, MAX, AVERAGE, PRODUCT, COUNT.
    [[nodiscard]] bool IsFold() const noexcept {
        return operation >= FormulaOperation::Sum && operation <= FormulaOperation::Count;
    }
    /// A line, element or area, or what was one.
    [[nodiscard]] bool IsOperand() const noexcept {
        return operation > FormulaOperation::Constant && operation <= FormulaOperation::Gap;
    }
    [[nodiscard]] bool IsArea() const noexcept {
        return operation == FormulaOperation::Area || operation == FormulaOperation::OwnArea;
    }
};

/// An operator as it is written (`NODEVALUE`).
struct FormulaOperatorName {
    std::string_view value;
    FormulaOperation operation;
    int strength;  ///< precedence; higher binds tighter
};

/// The binary operators; "(", ")" and ";" are not among them.
[[nodiscard]] PLANVIEW_EXPORT const std::vector<FormulaOperatorName>& FormulaOperators();

struct FormulaFunctionName {
    std::string_view value;
    FormulaOperation operation;
    std::size_t leastArguments;
    std::size_t mostArguments;
    std::string_view caption;  ///< on buttons and in popups
    std::string_view takes;    ///< its arguments, a sentence
};

[[nodiscard]] PLANVIEW_EXPORT const std::vector<FormulaFunctionName>& FormulaFunctions();
/// Null if there is none of that name.
[[nodiscard]] PLANVIEW_EXPORT const FormulaOperatorName* FindFormulaOperator(std::string_view value) noexcept;
[[nodiscard]] PLANVIEW_EXPORT const FormulaFunctionName* FindFormulaFunction(std::string_view value) noexcept;

}  // namespace planview
