// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace planview {

/// One piece of an expression.
struct MacroToken {
    enum class Kind : std::uint8_t {
        Line,     ///< one line of the table; `value` is its key, or "SELECTED"
        Element,  ///< one cell
        Area,     ///< some lines, in the period at hand or in periods of their own
        OwnLine,  ///< as Line, of the macro's own; `value` is its name
        OwnElement,
        OwnArea,
        Operator,  ///< also "(", ")" and ";"
        Function,  ///< its arguments are inside it, with ";" between them
        Constant,
        Other  ///< nothing that an expression can hold
    };

    Kind kind = Kind::Other;
    std::string_view value;
    std::string_view captions;  ///< of the keys in `value`

    [[nodiscard]] bool Is(std::string_view operation) const noexcept {
        return kind == Kind::Operator && value == operation;
    }
    /// A line, an element or an area, of the table or the macro's own.
    [[nodiscard]] bool IsOperand() const noexcept { return kind <= Kind::OwnArea; }
    [[nodiscard]] bool IsOwn() const noexcept { return kind >= Kind::OwnLine && kind <= Kind::OwnArea; }
};

/// Where expressions are read from. Tokens are known by numbers of the reader's own, which faults name.
class MacroTokens {
public:
    virtual ~MacroTokens() = default;
    /// The tokens of an expression, or of the arguments of a function, in their order.
    [[nodiscard]] virtual std::vector<int> Inside(int parent) const = 0;
    [[nodiscard]] virtual MacroToken At(int token) const = 0;

protected:
    MacroTokens() = default;
    MacroTokens(const MacroTokens&) = default;
    MacroTokens& operator=(const MacroTokens&) = default;
};

}  // namespace planview
