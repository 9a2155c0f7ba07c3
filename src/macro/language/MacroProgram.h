// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "macro/language/MacroExpression.h"
#include "macro/language/MacroProblem.h"
#include "macro/tree/MacroNodes.h"

namespace planview {

/// In which order a statement goes through its periods.
enum class MacroDirection {
    Any,      ///< no period depends on another one
    Forward,  ///< a period reads earlier ones of its own line
    Backward
};

/// One statement of a macro: gives something its value, or decides.
struct MacroStatement {
    int node = -1;  ///< in the outline
    bool isCondition = false;

    // Of one that gives a value
    MacroNodeType target = MacroNodeType::TableLine;
    std::vector<int> lines;    ///< of the grid or the macro's own; of an own element: its number
    std::vector<int> periods;  ///< those it runs over; empty for an own element
    MacroExpression value;
    MacroDirection direction = MacroDirection::Any;

    // Of a condition
    MacroExpression test;
    std::vector<int> testedPeriods;
    std::vector<MacroStatement> holds;
    std::vector<MacroStatement> fails;
};

/// A macro that has been checked: lines and periods are 0-based places in the MacroGrid that it was checked against.
struct MacroProgram {
    std::vector<int> periods;  ///< the chosen ones, in their order
    std::optional<int> decimals;
    std::vector<MacroStatement> statements;
    int ownLines = 0;
    int ownElements = 0;
};

/// Ends the check of one statement, or a run.
class MacroFault : public std::runtime_error {
public:
    MacroFault(int faultyNode, const std::string& what, std::string whatNow)
        : std::runtime_error(what), node(faultyNode), now(std::move(whatNow)) {}

    int node;  ///< in the outline
    std::string now;
};

}  // namespace planview
