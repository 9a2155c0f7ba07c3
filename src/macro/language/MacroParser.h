// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "macro/language/MacroProgram.h"
#include "macro/tree/MacroOutline.h"

namespace planview {

/// What the names in a macro stand for, as far as its statements have been read.
struct MacroScope {
    MacroScope(const MacroOutline& nodes, const MacroGrid& grid) : outline(nodes), places(grid) {}

    const MacroOutline& outline;
    const MacroGrid& places;
    /// What "SELECTED" stands for.
    std::optional<int> selectedLine;
    /// The lines of the macro's own lines and areas, the numbers of its elements; by name.
    std::map<std::string, std::vector<int>, std::less<>> ownLines;
    std::map<std::string, std::vector<int>, std::less<>> ownAreas;
    std::map<std::string, int, std::less<>> ownElements;

    /// What a table node names. Throws MacroFault.
    [[nodiscard]] MacroPlace PlaceOf(int node) const;
    /// Its lines without those that carry text. Throws MacroFault where none is left.
    [[nodiscard]] std::vector<int> LinesOf(int node, const MacroPlace& place) const;
    /// The name of an own line, element or area. Throws MacroFault where it has none.
    [[nodiscard]] const std::string& OwnNameOf(int node) const;
};

/// Reads the active children of a node as one expression that is a number. Throws MacroFault.
[[nodiscard]] MacroExpression ParseNumberExpression(const MacroScope& scope, int parent);
/// As one that holds or not.
[[nodiscard]] MacroExpression ParseComparison(const MacroScope& scope, int parent);

}  // namespace planview
