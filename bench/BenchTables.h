// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "support/SampleTables.h"

namespace planview::bench {

/// The numbers, texts and colours of one square plan. Control and peer are filled from the same ones.
class Plan {
public:
    explicit Plan(int side) : side_(side) {}

    [[nodiscard]] int Side() const noexcept { return side_; }
    [[nodiscard]] std::int64_t CellCount() const noexcept { return std::int64_t{side_} * side_; }

    /// Rows and columns from 1.
    [[nodiscard]] double Value(int row, int column) const noexcept;
    /// The value as the grid shows it.
    [[nodiscard]] std::string ValueText(int row, int column) const;
    [[nodiscard]] static std::string ColumnTitle(int column) { return "P" + std::to_string(column); }
    [[nodiscard]] static std::string RowTitle(int row) { return "Line " + std::to_string(row); }
    /// Palette indices.
    [[nodiscard]] static int Background(int row, int column) noexcept { return (row + column) % 3 == 0 ? 15 : 0; }
    [[nodiscard]] static int Foreground(int row, int column) noexcept { return (row * column) % 5 == 0 ? 5 : 1; }

private:
    int side_;
};

inline constexpr int ColumnWidth = 80;
inline constexpr int RowHeight = 22;
inline constexpr int LabelWidth = 160;

/// The host's tables for a plan: a row in TAB and one in CELL_ATTR for every cell.
[[nodiscard]] test::Tables MakeTables(const Plan& plan);
/// Adds two fixed columns at each side and two fixed rows at the top and at the bottom, with contents.
void AddFixedSides(const test::Tables& tables, const Plan& plan);

}  // namespace planview::bench
