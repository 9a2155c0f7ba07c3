// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <planview/CellKey.h>

namespace planview {

/// Where the user is in a grid and what is selected, by keys, so that it can be found again in another build.
struct GridViewState {
    std::string firstColumn;  ///< the first planning one on screen; empty where the grid was not scrolled
    std::string firstRow;
    std::optional<CellKey> current;
    std::vector<std::string> columns;  ///< selected as a whole
    std::vector<std::string> rows;
    /// Selected blocks of cells by two opposite corners.
    std::vector<std::pair<CellKey, CellKey>> blocks;
    /// The end opposite the current cell, where the last block goes on to be extended.
    std::optional<CellKey> blockEnd;
};

}  // namespace planview
