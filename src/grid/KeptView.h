// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <planview/Export.h>

#include "components/GridControl.h"

namespace planview {

/// What of a grid's view can be put away and brought back, by keys.
struct KeptView {
    struct Track {
        std::string key;
        std::int16_t width = 0;
        std::int16_t height = 0;
    };
    std::vector<Track> columns;  ///< all of them, the planning ones in their order on the screen
    std::vector<Track> rows;
    std::int16_t labelWidth = 0;
    std::string firstColumn;  ///< empty where the grid was not scrolled
    std::string firstRow;
};

[[nodiscard]] PLANVIEW_EXPORT KeptView ViewOf(const GridControl& grid);

/// Whether all of it could be what ViewOf() has answered.
[[nodiscard]] PLANVIEW_EXPORT bool IsPossible(const KeptView& view);

/// Brings back what is still there, as one change. The tables and the undo history hear nothing of it.
PLANVIEW_EXPORT void ShowView(GridControl& grid, const KeptView& view);

}  // namespace planview
