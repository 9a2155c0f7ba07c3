// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "formula/FormulaExpression.h"

namespace planview {

/// The order in which a statement computes its periods.
enum class MacroDirection {
    Any,      ///< periods do not depend on each other
    Forward,  ///< a period depends on earlier ones of the same line
    Backward
};

/// One statement of a macro: an assignment or a condition.
struct MacroStatement {
    int node = -1;  ///< number of the statement; see FormulaTokens
    bool isCondition = false;

    // Of an assignment
    FormulaOperation target = FormulaOperation::Line;  ///< an operand
    std::vector<int> lines;    ///< indexes in the table or of own lines; of an own element, its index
    std::vector<int> periods;  ///< that it computes; empty for an own element
    FormulaExpression value;
    MacroDirection direction = MacroDirection::Any;

    // Of a condition
    FormulaExpression test;
    std::vector<int> testedPeriods;
    std::vector<MacroStatement> holds;
    std::vector<MacroStatement> fails;
};

/// A checked macro. Lines and periods are 0-based indexes in the table that it was checked against.
struct MacroProgram {
    std::vector<int> periods;  ///< the periods of the macro, in order
    std::optional<int> decimals;
    std::vector<MacroStatement> statements;
    int ownLines = 0;
    int ownElements = 0;
};

}  // namespace planview
