// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "formula/ExpressionSentences.h"
#include "macro/run/MacroGrid.h"
#include "macro/run/NodeTokens.h"

namespace planview {

/// The nodes of a macro in words: "Retail trade = Retail trade * 1,05", "If Total > 100", "Sum of Line 2 to Line 5".
/// What is missing in incomplete nodes reads "…".
class MacroSentences final : private ExpressionSentences {
public:
    MacroSentences(const MacroOutline& outline, const MacroGrid& table)
        : ExpressionSentences(tokens_, table), outline_(outline), table_(table), tokens_(outline) {}

    /// The node and what belongs to it: a statement with its expression, a condition with its test, a function with its
    /// arguments.
    [[nodiscard]] std::string Of(int node) const;
    /// The node for a message without context: a part of a statement is worded with its statement.
    [[nodiscard]] std::string Located(int node) const;
    /// The node alone, as the tree shows it: "Retail trade", "Sum", "If".
    [[nodiscard]] std::string ShortOf(int node) const;

private:
    [[nodiscard]] std::string OtherText(int node, int level) const override;
    [[nodiscard]] std::string Attribute(const MacroNode& node) const;

    const MacroOutline& outline_;
    const MacroGrid& table_;
    NodeTokens tokens_;
};

}  // namespace planview
