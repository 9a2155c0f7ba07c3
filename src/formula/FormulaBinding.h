// SPDX-License-Identifier: MIT
#pragma once

#include "formula/Formula.h"
#include "formula/FormulaParser.h"

namespace planview {

/// A formula whose names stand for no places yet: one of its lines or periods is any one, a range is any two. Enough to
/// tell whether its parts fit each other.
class UnboundScope final : public FormulaScope {
public:
    explicit UnboundScope(const Formula& formula) : FormulaScope(formula), formula_(formula) {}

    [[nodiscard]] FormulaExpression Operand(int token) const override;
    [[nodiscard]] FormulaExpression Members(int token) const override;

private:
    const Formula& formula_;
};

}  // namespace planview
