// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "macro/language/MacroExpression.h"
#include "macro/language/MacroTokens.h"

namespace planview {

/// What the names in a macro stand for, as far as its statements have been read.
struct MacroScope {
    MacroScope(const MacroTokens& source, const PlanningTable& planning) : tokens(source), table(planning) {}

    const MacroTokens& tokens;
    const PlanningTable& table;
    /// What "SELECTED" stands for.
    std::optional<int> selectedLine;
    /// The lines of the macro's own lines and areas, the numbers of its elements; by name.
    std::map<std::string, std::vector<int>, std::less<>> ownLines;
    std::map<std::string, std::vector<int>, std::less<>> ownAreas;
    std::map<std::string, int, std::less<>> ownElements;

    /// What an operand of the table names. Throws MacroFault.
    [[nodiscard]] MacroRange RangeOf(int token) const;
    /// Its lines without those that carry text. Throws MacroFault where none is left.
    [[nodiscard]] std::vector<int> LinesOf(int token, const MacroRange& range) const;
    /// The name of an own line, element or area. Throws MacroFault where it has none.
    [[nodiscard]] std::string OwnNameOf(int token) const;
};

/// Reads what is inside a token as one expression that is a number. Throws MacroFault.
[[nodiscard]] MacroExpression ParseNumberExpression(const MacroScope& scope, int parent);
/// As one that holds or not.
[[nodiscard]] MacroExpression ParseComparison(const MacroScope& scope, int parent);

}  // namespace planview
