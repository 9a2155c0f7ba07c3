// SPDX-License-Identifier: MIT
#include "menus/MenuState.h"

namespace planview {

namespace {

template <class Ids, class IsSelected, class IsHidden>
HeadingState StateOf(const Ids& ids, const IsSelected& isSelected, const IsHidden& isHidden) {
    HeadingState state;
    bool hideable = false;
    bool remains = false;
    for (const auto id : ids) {
        const bool selected = isSelected(id);
        const bool hidden = isHidden(id);
        state.any = true;
        state.selected |= selected;
        state.canShow |= selected && hidden;
        hideable |= selected && !hidden;
        remains |= !selected && !hidden;
    }
    // With every one hidden there would be no heading left to show them again from.
    state.canHide = hideable && remains;
    return state;
}

}  // namespace

HeadingState ColumnState(const GridControl& grid) {
    return StateOf(
        grid.Columns(ColumnArea::Center), [&](ColumnId id) { return grid.Selection().HasColumn(id); },
        [&](ColumnId id) { return grid.Column(id).hidden; });
}

HeadingState RowState(const GridControl& grid) {
    return StateOf(
        grid.Rows(RowArea::Center), [&](RowId id) { return grid.Selection().HasRow(id); },
        [&](RowId id) { return grid.Row(id).hidden; });
}

}  // namespace planview
