// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "macro/language/ExpressionSentences.h"
#include "macro/run/MacroGrid.h"
#include "macro/run/NodeTokens.h"

namespace planview {

/// What the nodes of a macro say, in words: "Retail trade = Retail trade * 1,05", "If Total > 100", "Sum of Line 2 to
/// Line 5". Nodes that are not complete are worded as far as they go ("…" where something is missing).
class MacroSentences final : private ExpressionSentences {
public:
    MacroSentences(const MacroOutline& outline, const MacroGrid& table)
        : ExpressionSentences(tokens_, table), outline_(outline), table_(table), tokens_(outline) {}

    /// The node with all that it stands for: a statement with its expression, a condition with what it tests, a
    /// function with its arguments.
    [[nodiscard]] std::string Of(int node) const;
    /// The node for a message that stands alone: a part of a statement together with the statement it is in.
    [[nodiscard]] std::string Located(int node) const;
    /// The node alone, as it is called in the tree: "Retail trade", "Sum", "If".
    [[nodiscard]] std::string ShortOf(int node) const;

private:
    [[nodiscard]] std::string OtherText(int node, int level) const override;
    [[nodiscard]] std::string Attribute(const MacroNode& node) const;

    const MacroOutline& outline_;
    const MacroGrid& table_;
    NodeTokens tokens_;
};

}  // namespace planview
