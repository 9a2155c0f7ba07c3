// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "macro/language/MacroExpression.h"

namespace planview {

/// In which order a statement goes through its periods.
enum class MacroDirection {
    Any,      ///< no period depends on another one
    Forward,  ///< a period reads earlier ones of its own line
    Backward
};

/// One statement of a macro: gives something its value, or decides.
struct MacroStatement {
    int node = -1;  ///< the number by which faults name it
    bool isCondition = false;

    // Of one that gives a value
    MacroOperation target = MacroOperation::Line;  ///< one of the operands
    std::vector<int> lines;                        ///< of the table or the macro's own; of an own element: its number
    std::vector<int> periods;                      ///< those it runs over; empty for an own element
    MacroExpression value;
    MacroDirection direction = MacroDirection::Any;

    // Of a condition
    MacroExpression test;
    std::vector<int> testedPeriods;
    std::vector<MacroStatement> holds;
    std::vector<MacroStatement> fails;
};

/// A macro that has been checked: lines and periods are 0-based indexes in the table that it was checked against.
struct MacroProgram {
    std::vector<int> periods;  ///< the chosen ones, in their order
    std::optional<int> decimals;
    std::vector<MacroStatement> statements;
    int ownLines = 0;
    int ownElements = 0;
};

}  // namespace planview
