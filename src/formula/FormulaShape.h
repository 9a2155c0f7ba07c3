// SPDX-License-Identifier: MIT
#pragma once

#include "formula/FormulaExpression.h"

namespace planview {

/// The size of an expression.
struct FormulaShape {
    int lines = 1;        ///< more than 1: it is computed line by line
    int areaPeriods = 0;  ///< more than 0: it contains an area with given periods
};

/// The shape of an expression; `oneValue`: it is to have one value without a period. Throws FormulaFault if parts of it
/// do not fit each other.
[[nodiscard]] FormulaShape ShapeOf(const FormulaExpression& expression, bool oneValue);

/// Throws FormulaFault for an expression that has more than one line, or periods of its own.
void CheckOneLine(const FormulaExpression& expression, const char* what);

}  // namespace planview
