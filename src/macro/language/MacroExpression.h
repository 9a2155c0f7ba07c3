// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "macro/language/PlanningTable.h"

namespace planview {

enum class MacroOperation : std::uint8_t {
    // Operands
    Constant,
    Line,        ///< one line of the table, in the period at hand
    Element,     ///< one cell of the table
    Area,        ///< some lines, in the period at hand or in periods of their own
    OwnLine,     ///< as Line, of the macro's own
    OwnElement,  ///< one value of the macro's own
    OwnArea,     ///< as Area, of the macro's own
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
    Copy,
    Shift,
    If,
    Absolute,
    Round
};

/// Whether an operand is of the table, not of the macro's own.
[[nodiscard]] constexpr bool IsOfTable(MacroOperation operand) noexcept {
    return operand >= MacroOperation::Line && operand <= MacroOperation::Area;
}

/// ROUND, and what a macro writes, have at most so many decimals.
inline constexpr double MostDecimals = 15;

/// A part of a statement's right side, or of a condition, that can be evaluated.
struct MacroExpression {
    MacroOperation operation = MacroOperation::Constant;
    double number = 0;  ///< of a Constant; periods of a Shift; decimals of a Round
    MacroRange range;   ///< of an Element its cell; of an Area its periods
    /// Of lines and areas: which lines of the table, or of the macro's own; of an OwnElement: which element.
    std::vector<int> lines;
    int node = -1;           ///< the token that faults name
    int depth = 1;           ///< of the tree below it
    bool perPeriod = false;  ///< has a value for each period
    /// A shifted operand: reads what the statement has given its own line already.
    bool live = false;
    std::vector<MacroExpression> arguments;

    [[nodiscard]] bool IsTruth() const noexcept {
        return operation >= MacroOperation::Equal && operation <= MacroOperation::Or;
    }
    /// SUM, MIN, MAX or AVERAGE: makes one value of many.
    [[nodiscard]] bool IsFold() const noexcept {
        return operation >= MacroOperation::Sum && operation <= MacroOperation::Average;
    }
    /// Reads cells or own values as they are.
    [[nodiscard]] bool IsOperand() const noexcept {
        return operation > MacroOperation::Constant && operation <= MacroOperation::OwnArea;
    }
};

/// An operator or function as it stands in `NODEVALUE`, with what the editor calls it.
struct MacroOperatorName {
    std::string_view value;
    MacroOperation operation;
    int strength;  ///< binds the more strongly the higher it is
};

/// The operators with two sides. "(" ")" and ";" are none of them.
[[nodiscard]] PLANVIEW_EXPORT const std::vector<MacroOperatorName>& MacroOperators();

struct MacroFunctionName {
    std::string_view value;
    MacroOperation operation;
    std::size_t leastArguments;
    std::size_t mostArguments;
    std::string_view caption;  ///< for a button or a popup
    std::string_view takes;    ///< a sentence on its arguments
};

[[nodiscard]] PLANVIEW_EXPORT const std::vector<MacroFunctionName>& MacroFunctions();
/// Null where there is none of that name.
[[nodiscard]] PLANVIEW_EXPORT const MacroOperatorName* FindMacroOperator(std::string_view value) noexcept;
[[nodiscard]] PLANVIEW_EXPORT const MacroFunctionName* FindMacroFunction(std::string_view value) noexcept;

}  // namespace planview
