// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "automation/FlatMap.h"
#include "automation/HostTable.h"

namespace planview {

/// A cell as tables name it: `Z` and `C`.
struct CellPosition {
    std::int16_t row = 0;
    std::int16_t column = 0;
    friend bool operator==(const CellPosition&, const CellPosition&) = default;
};

struct CellPositionHash {
    std::size_t operator()(CellPosition position) const noexcept {
        // The golden ratio: rows start far from each other. The cells of a row stand behind each other, because tables
        // list them and actions take them row by row.
        constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15U;
        constexpr int Upper = 40;
        return static_cast<std::size_t>((static_cast<std::uint16_t>(position.row) * Spread) >> Upper) +
               static_cast<std::uint16_t>(position.column);
    }
};

/// The table's row of each cell, for one action of the user. So much room that the rows of a full table do not run into
/// each other.
using CellIndex = FlatMap<CellPosition, HostTable::Row, CellPositionHash, 4>;

}  // namespace planview
