// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "macro/tree/MacroOutline.h"
#include "macro/tree/MacroTable.h"

namespace planview {

/// Where an element goes relative to an element of the macro.
struct ElementSpot {
    int node;  ///< index in the outline
    MacroSpot spot;
};

/// True for a macro and a condition.
[[nodiscard]] bool HoldsStatements(MacroNodeType type) noexcept;
/// Where a new element goes by default: inside this one if it can hold others, else after it.
[[nodiscard]] MacroSpot UsualSpot(const MacroOutline& outline, int node);
/// The spot nearest to the wanted one that can take an element of this type. Returns no value if there is none;
/// `refusal` then says what to do first.
[[nodiscard]] std::optional<ElementSpot> SpotFor(const MacroOutline& outline, ElementSpot wanted, MacroNodeType type,
                                                 std::string& refusal);

/// The IF that the element is or belongs to; MacroNode::None if there is none.
[[nodiscard]] int ConditionAround(const MacroOutline& outline, int node);
/// The comparison of an IF; MacroNode::None if it has none yet.
[[nodiscard]] int ComparisonOf(const MacroOutline& outline, int condition);
/// The function whose arguments contain the spot, unless a bracket is open before it; else MacroNode::None.
[[nodiscard]] int FunctionAround(const MacroOutline& outline, ElementSpot at);

}  // namespace planview
