// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "macro/language/MacroExpression.h"
#include "macro/language/MacroTokens.h"

namespace planview {

/// What the names in a macro stand for, as far as it has been read.
struct MacroScope {
    MacroScope(const MacroTokens& source, const PlanningTable& planning) : tokens(source), table(planning) {}

    const MacroTokens& tokens;
    const PlanningTable& table;
    /// What "SELECTED" stands for.
    std::optional<int> selectedLine;
    /// Indexes of the macro's own lines, areas and elements by name.
    std::map<std::string, std::vector<int>, std::less<>> ownLines;
    std::map<std::string, std::vector<int>, std::less<>> ownAreas;
    std::map<std::string, int, std::less<>> ownElements;

    /// The range that an operand names. Throws MacroFault.
    [[nodiscard]] MacroRange RangeOf(int token) const;
    /// The lines of the range without text lines. Throws MacroFault if none is left.
    [[nodiscard]] std::vector<int> LinesOf(int token, const MacroRange& range) const;
    /// The name of an own line, element or area. Throws MacroFault if it has none.
    [[nodiscard]] std::string OwnNameOf(int token) const;
};

/// Parses what is inside a token as an expression for a number. Throws MacroFault.
[[nodiscard]] MacroExpression ParseNumberExpression(const MacroScope& scope, int parent);
/// The same for an expression that is true or false.
[[nodiscard]] MacroExpression ParseComparison(const MacroScope& scope, int parent);

}  // namespace planview
