// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "macro/language/MacroGrid.h"
#include "macro/tree/MacroOutline.h"

namespace planview {

/// What the nodes of a macro say, in words: "Retail trade = Retail trade * 1,05", "If Total > 100", "Sum of Line 2 to
/// Line 5". Nodes that are not complete are worded as far as they go ("…" where something is missing).
class MacroSentences {
public:
    MacroSentences(const MacroOutline& outline, const MacroGrid& places) : outline_(outline), places_(places) {}

    /// The node with all that it stands for: a statement with its expression, a condition with what it tests, a
    /// function with its arguments.
    [[nodiscard]] std::string Of(int node) const;
    /// The node for a message that stands alone: a part of a statement together with the statement it is in.
    [[nodiscard]] std::string Located(int node) const;
    /// The node alone, as it is called in the tree: "Retail trade", "Sum", "If".
    [[nodiscard]] std::string ShortOf(int node) const;

private:
    [[nodiscard]] std::string At(int node, int level) const;
    [[nodiscard]] std::string Expression(int parent, int level) const;
    [[nodiscard]] std::string Joined(const std::vector<int>& parts, int level, bool bracketed) const;
    [[nodiscard]] std::string Function(int node, int level) const;
    [[nodiscard]] std::string Attribute(const MacroNode& node) const;
    [[nodiscard]] std::string Place(const MacroNode& node) const;

    const MacroOutline& outline_;
    const MacroGrid& places_;
};

}  // namespace planview
