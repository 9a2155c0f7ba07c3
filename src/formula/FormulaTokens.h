// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace planview {

/// A token of an expression.
struct FormulaToken {
    enum class Kind : std::uint8_t {
        Reference,  ///< of a formula: any place, by keys
        Line,       ///< one line of the table; `value` is its key, or "SELECTED"
        Element,    ///< one cell
        Area,       ///< several lines, in the current period or in given periods
        OwnLine,    ///< a line of the macro itself; `value` is its name
        OwnElement,
        OwnArea,
        Operator,  ///< also "(", ")" and ";"
        Function,  ///< its arguments are inside it, separated by ";"
        Constant,
        Other  ///< not allowed in an expression
    };

    Kind kind = Kind::Other;
    std::string_view value;
    std::string_view captions;  ///< of the keys in `value`

    [[nodiscard]] bool Is(std::string_view operation) const noexcept {
        return kind == Kind::Operator && value == operation;
    }
    /// A line, element or area of the table or of the macro itself.
    [[nodiscard]] bool IsOperand() const noexcept { return kind <= Kind::OwnArea; }
    [[nodiscard]] bool IsOwn() const noexcept { return kind >= Kind::OwnLine && kind <= Kind::OwnArea; }
};

/// The source of expressions. It gives each token a number of its choice, by which faults refer to it.
class FormulaTokens {
public:
    virtual ~FormulaTokens() = default;
    /// The tokens of an expression or of the arguments of a function, in order.
    [[nodiscard]] virtual std::vector<int> Inside(int parent) const = 0;
    [[nodiscard]] virtual FormulaToken At(int token) const = 0;

protected:
    FormulaTokens() = default;
    FormulaTokens(const FormulaTokens&) = default;
    FormulaTokens& operator=(const FormulaTokens&) = default;
};

}  // namespace planview
