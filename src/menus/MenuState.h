// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "components/GridControl.h"
#include "grid/RecordState.h"

namespace planview {

/// What is true of the planning columns or rows when a popup opens.
struct HeadingState {
    bool any = false;
    bool selected = false;  ///< at least one whole one
    bool canHide = false;   ///< a selected one is visible and an unselected one stays so
    bool canShow = false;   ///< a selected one is hidden
};

/// What is true when a popup opens; decides which entries can be chosen and which are checked.
struct MenuState {
    bool layoutMode = false;
    bool treeShown = false;
    bool chartShown = false;
    bool switched = false;
    bool zoomed = false;
    bool traceOn = false;
    RecordState record = RecordState::Off;
    bool canUndoRecord = false;
    HeadingState columns;
    HeadingState rows;
    bool editable = false;  ///< the clicked cell takes values
    bool forecastView = false;
    std::optional<std::int16_t> seriesType;  ///< chart type code of the clicked series
    bool hasTrendline = false;               ///< there is one that commands are about
};

[[nodiscard]] HeadingState ColumnState(const GridControl& grid);
[[nodiscard]] HeadingState RowState(const GridControl& grid);

}  // namespace planview
