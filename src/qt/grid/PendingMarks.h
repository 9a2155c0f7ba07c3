// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "components/GridTypes.h"

namespace planview {

/// The cells that carry the mark of a pending change.
class PendingMarks {
public:
    PendingMarks() = default;
    explicit PendingMarks(const std::vector<Cell>& cells) {
        cells_.reserve(cells.size());
        for (const Cell cell : cells) {
            cells_.insert(keyOf(cell));
        }
    }

    [[nodiscard]] bool contains(Cell cell) const { return !cells_.empty() && cells_.contains(keyOf(cell)); }
    friend bool operator==(const PendingMarks&, const PendingMarks&) = default;

private:
    [[nodiscard]] static std::uint64_t keyOf(Cell cell) {
        return std::uint64_t{static_cast<std::uint32_t>(cell.column.value)} << 32U |
               static_cast<std::uint32_t>(cell.row.value);
    }
    std::unordered_set<std::uint64_t> cells_;
};

}  // namespace planview
