// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "automation/HostTable.h"
#include "components/GridTypes.h"

namespace planview {

/// What COLS_INDEX and LINE_INDEX have in common: one row per column or row of the grid, found by `GRID_ID`, with a
/// flag for marked and one for hidden. Selection and hiding work on either through this.
struct IndexAxis {
    std::string_view traceLabel;  ///< "{cid: " or "{rid: "
    std::string_view keyPrefix;   ///< "COL" or "ROW"
    std::string_view markedField;
    std::string_view hiddenField;
    std::string_view orderField;  ///< optional in the table
    bool columns;

    [[nodiscard]] CellKeyView KeysOf(std::string_view key) const noexcept {
        return columns ? CellKeyView{key, {}} : CellKeyView{{}, key};
    }
};

inline constexpr IndexAxis ColumnAxis{"{cid: ", "COL", "COL_MARKED", "COL_HIDDEN", "COL_ORDER", true};
inline constexpr IndexAxis RowAxis{"{rid: ", "ROW", "ROW_MARKED", "ROW_HIDDEN", "ROW_ORDER", false};

}  // namespace planview
