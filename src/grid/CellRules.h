// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <planview/Export.h>

#include "components/GridControl.h"

namespace planview {

/// Why a cell does not take a value.
enum class Refusal {
    None,
    ReadOnly,       ///< the cell, its line or its column cannot be edited
    Computed,       ///< a formula computes the cell, and its row in FORMULAS lets nothing be entered
    TextLine,       ///< the line carries text and no planning values
    Heading,        ///< a label or a period heading
    TableReadOnly,  ///< the host lets nothing be edited
    NoNumber        ///< a planning cell takes a number or nothing
};

[[nodiscard]] PLANVIEW_EXPORT bool IsPlanningCell(CellKeyView keys) noexcept;
/// Whether the user may change the cell at all: any but NoNumber.
[[nodiscard]] PLANVIEW_EXPORT Refusal RefusalOf(const GridControl& grid, Cell cell);
/// Whether the cell takes this text.
[[nodiscard]] PLANVIEW_EXPORT Refusal RefusalOf(const GridControl& grid, Cell cell, std::string_view text);
/// A sentence for the user: what it is and what now.
[[nodiscard]] PLANVIEW_EXPORT std::string_view RefusalText(Refusal refusal) noexcept;

}  // namespace planview
