// SPDX-License-Identifier: MIT
#pragma once

#include "formula/FormulaExpression.h"
#include "formula/FormulaTokens.h"

namespace planview {

/// What the operands among the tokens stand for.
class FormulaScope {
public:
    explicit FormulaScope(const FormulaTokens& source) : tokens(source) {}
    virtual ~FormulaScope() = default;
    FormulaScope(const FormulaScope&) = delete;
    FormulaScope& operator=(const FormulaScope&) = delete;

    /// The expression of a token that is an operand, without its `node`. Throws FormulaFault.
    [[nodiscard]] virtual FormulaExpression Operand(int token) const = 0;
    /// The lines one level below the one that is computed, as an Area. Throws FormulaFault.
    [[nodiscard]] virtual FormulaExpression Members(int token) const = 0;

    const FormulaTokens& tokens;
};

/// Parses what is inside a token as an expression for a number. Throws FormulaFault.
[[nodiscard]] FormulaExpression ParseNumberExpression(const FormulaScope& scope, int parent);
/// The same for an expression that is true or false.
[[nodiscard]] FormulaExpression ParseComparison(const FormulaScope& scope, int parent);

}  // namespace planview
