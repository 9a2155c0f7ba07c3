// SPDX-License-Identifier: MIT
#include "macro/tree/SelectionText.h"

#include "grid/SelectedCells.h"

namespace planview {

namespace {

/// "KEY" or "FIRST:LAST" of those in the planning area; empty if none is.
template <class Id, class Track>
std::string RangeText(const std::vector<Id>& ids, const Track& track) {
    std::string first;
    std::string last;
    for (const Id id : ids) {
        const auto& found = track(id);
        if (found.area == decltype(found.area)::Center) {
            first = first.empty() ? found.key : first;
            last = found.key;
        }
    }
    return first == last ? first : first + ":" + last;
}

}  // namespace

std::string SelectionText(const GridControl& grid) {
    const SelectedBlock block = BlockOfSelection(grid);
    const std::string rows = RangeText(block.rows, [&](RowId id) -> const GridRow& { return grid.Row(id); });
    const std::string columns =
        RangeText(block.columns, [&](ColumnId id) -> const GridColumn& { return grid.Column(id); });
    if (rows.empty() || columns.empty()) {
        return {};
    }
    const GridSelection& selection = grid.Selection();
    const bool linesAlone = selection.HasWholeRows() && !selection.HasWholeColumns() && selection.Ranges().empty();
    return linesAlone ? rows : rows + "/" + columns;
}

}  // namespace planview
