// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace planview {

/// Names a cell without owning the texts; empty where a call has no column or no row.
struct CellKeyView {
    std::string_view column;  ///< "COL3"
    std::string_view row;     ///< "ROW2"
};

/// Names a cell by the keys that the control writes into the tables' `GRID_ID`.
struct CellKey {
    std::string column;  ///< "COL3"
    std::string row;     ///< "ROW2"
    /// The same keys, valid while this object is unchanged.
    operator CellKeyView() const noexcept { return {column, row}; }
    /// Whether both keys are the same.
    friend bool operator==(const CellKey&, const CellKey&) = default;
};

}  // namespace planview
