// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "components/GridStyles.h"
#include "components/GridTypes.h"

namespace planview {

/// What the cells of a grid hold: contents and a style densely, row by row; tooltips only where there are any.
class GridCells {
public:
    [[nodiscard]] const std::string& Contents(Cell cell) const noexcept;
    [[nodiscard]] const std::string& Tooltip(Cell cell) const;
    [[nodiscard]] StyleId Style(Cell cell) const noexcept;

    /// `columnCount` is the number of columns that the grid has now; rows make room for all of them at once. False if
    /// the cell already holds the same.
    bool SetContents(Cell cell, std::string_view contents, int columnCount);
    bool SetTooltip(Cell cell, std::string_view tooltip);
    bool SetStyle(Cell cell, StyleId style, int columnCount);

    void Clear();

private:
    struct Line {
        std::vector<std::string> contents;  // by column id; shorter than the grid where nothing was set
        std::vector<StyleId> styles;
    };

    Line& LineOf(RowId row);
    [[nodiscard]] const Line* FindLine(RowId row) const noexcept;

    std::vector<Line> lines_;  // by row id
    std::unordered_map<std::uint64_t, std::string> tooltips_;
};

}  // namespace planview
