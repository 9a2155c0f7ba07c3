// SPDX-License-Identifier: MIT
#pragma once

#include "formula/FormulaTokens.h"
#include "macro/tree/MacroOutline.h"

namespace planview {

/// The active nodes of a macro as tokens, numbered by their index in the outline.
class NodeTokens final : public FormulaTokens {
public:
    explicit NodeTokens(const MacroOutline& outline) : outline_(outline) {}

    [[nodiscard]] std::vector<int> Inside(int parent) const override { return outline_.ActiveChildren(parent); }
    [[nodiscard]] FormulaToken At(int token) const override;

private:
    const MacroOutline& outline_;
};

}  // namespace planview
