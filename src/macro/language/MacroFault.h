// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace planview {

/// Ends the check of one statement, or a run.
class MacroFault : public std::runtime_error {
public:
    MacroFault(int faultyNode, const std::string& what, std::string whatNow)
        : std::runtime_error(what), node(faultyNode), now(std::move(whatNow)) {}

    int node;         ///< the token or statement that it is about, by the number that its reader has given it
    std::string now;  ///< what the user can do
};

}  // namespace planview
