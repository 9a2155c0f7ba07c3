// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "automation/HostTable.h"
#include "components/GridControl.h"
#include "grid/IndexAxis.h"

namespace planview {

/// The order of planning columns or rows on the screen. A table keeps it in an optional field (IndexAxis::orderField):
/// the place of each, from 1 on, or 0 or nothing for that of the table.

/// The keys of the planning columns or rows as they stand, hidden ones too.
[[nodiscard]] std::vector<std::string> OrderedKeys(const GridControl& grid, const IndexAxis& axis);

/// Puts the planning columns or rows into this order, without redraw; nothing where the keys are not all of them.
void Arrange(GridControl& grid, const IndexAxis& axis, const std::vector<std::string>& keys);

/// Puts those of these keys that are there into this order; they share the places that they have now.
void ArrangeAmong(GridControl& grid, const IndexAxis& axis, const std::vector<std::string>& keys);

/// Puts them into the order that the table keeps; one that keeps none leaves them as they are.
void ArrangeAsKept(GridControl& grid, const IndexAxis& axis, const HostTable& table) noexcept;

/// What the table keeps, row by row; nothing where it has no field for it.
struct KeptPlace {
    std::string key;
    Variant place;
};
[[nodiscard]] std::vector<KeptPlace> KeptOrder(const IndexAxis& axis, const HostTable& table);

/// Writes their order into the table; false where it has no field for it.
[[nodiscard]] bool KeepOrder(const GridControl& grid, const IndexAxis& axis, const HostTable& table);

}  // namespace planview
