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
    Line,        ///< one line of the table, in the current period
    Element,     ///< one cell of the table
    Area,        ///< several lines, in the current period or in given periods
    OwnLine,     ///< a line of the macro itself
    OwnElement,  ///< a single value of the macro itself
    OwnArea,     ///< an area of the macro itself
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

/// Whether an operand belongs to the table, not to the macro itself.
[[nodiscard]] constexpr bool IsOfTable(MacroOperation operand) noexcept {
    return operand >= MacroOperation::Line && operand <= MacroOperation::Area;
}

/// The most decimals for ROUND and for what a macro writes.
inline constexpr double MostDecimals = 15;

/// A part of an expression or comparison that can be evaluated.
struct MacroExpression {
    MacroOperation operation = MacroOperation::Constant;
    double number = 0;  ///< of a Constant; periods for Shift; decimals for Round
    MacroRange range;   ///< the cell of an Element, the periods of an Area
    /// Indexes of lines in the table or of own lines; of an OwnElement, its index.
    std::vector<int> lines;
    int node = -1;           ///< the token, for faults
    int depth = 1;           ///< of the tree below it
    bool perPeriod = false;  ///< has a value for each period
    /// A shifted operand that reads values which this statement has already computed.
    bool live = false;
    std::vector<MacroExpression> arguments;

    [[nodiscard]] bool IsTruth() const noexcept {
        return operation >= MacroOperation::Equal && operation <= MacroOperation::Or;
    }
    /// SUM, MIN, MAX or AVERAGE: combines many values into one.
    [[nodiscard]] bool IsFold() const noexcept {
        return operation >= MacroOperation::Sum && operation <= MacroOperation::Average;
    }
    /// A line, element or area.
    [[nodiscard]] bool IsOperand() const noexcept {
        return operation > MacroOperation::Constant && operation <= MacroOperation::OwnArea;
    }
};

/// An operator as it is written (`NODEVALUE`).
struct MacroOperatorName {
    std::string_view value;
    MacroOperation operation;
    int strength;  ///< precedence; higher binds tighter
};

/// The binary operators; "(", ")" and ";" are not among them.
[[nodiscard]] PLANVIEW_EXPORT const std::vector<MacroOperatorName>& MacroOperators();

struct MacroFunctionName {
    std::string_view value;
    MacroOperation operation;
    std::size_t leastArguments;
    std::size_t mostArguments;
    std::string_view caption;  ///< on buttons and in popups
    std::string_view takes;    ///< its arguments, a sentence
};

[[nodiscard]] PLANVIEW_EXPORT const std::vector<MacroFunctionName>& MacroFunctions();
/// Null if there is none of that name.
[[nodiscard]] PLANVIEW_EXPORT const MacroOperatorName* FindMacroOperator(std::string_view value) noexcept;
[[nodiscard]] PLANVIEW_EXPORT const MacroFunctionName* FindMacroFunction(std::string_view value) noexcept;

}  // namespace planview
