// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace planview {

/// Ends the check of a statement, or a run.
class FormulaFault : public std::runtime_error {
public:
    FormulaFault(int faultyNode, const std::string& what, std::string whatNow)
        : std::runtime_error(what), node(faultyNode), now(std::move(whatNow)) {}

    int node;         ///< number of the token or statement; see FormulaTokens
    std::string now;  ///< what the user can do
};

}  // namespace planview
