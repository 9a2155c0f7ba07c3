// SPDX-License-Identifier: MIT
#include "commands/CommandSituation.h"

#include <algorithm>

namespace planview {

namespace {

template <class Ids, class IsSelected, class IsHidden>
HeadingState StateOf(const Ids& ids, const IsSelected& isSelected, const IsHidden& isHidden) {
    HeadingState state;
    for (const auto id : ids) {
        const bool selected = isSelected(id);
        const bool hidden = isHidden(id);
        state.any = true;
        state.selected |= selected;
        state.selectedVisible |= selected && !hidden;
        state.selectedHidden |= selected && hidden;
        state.remainsVisible |= !selected && !hidden;
    }
    return state;
}

}  // namespace

const HeadingState& CommandSituation::Columns() const {
    if (!columns_) {
        const GridControl& grid = on.Grid();
        columns_ = StateOf(
            grid.Columns(ColumnArea::Center), [&](ColumnId id) { return grid.Selection().HasColumn(id); },
            [&](ColumnId id) { return grid.Column(id).hidden; });
    }
    return *columns_;
}

const HeadingState& CommandSituation::Rows() const {
    if (!rows_) {
        const GridControl& grid = on.Grid();
        rows_ = StateOf(
            grid.Rows(RowArea::Center), [&](RowId id) { return grid.Selection().HasRow(id); },
            [&](RowId id) { return grid.Row(id).hidden; });
    }
    return *rows_;
}

std::optional<Cell> CommandSituation::AskedCell() const {
    return IsClicked() ? on.Grid().FindCell(place.cell) : on.Grid().CurrentCell();
}

bool CommandSituation::SeveralCellsSelected() const {
    const GridSelection& selection = on.Grid().Selection();
    const std::vector<CellRange>& ranges = selection.Ranges();
    return selection.HasWholeColumns() || selection.HasWholeRows() || ranges.size() > 1 ||
           std::any_of(ranges.begin(), ranges.end(), [](const CellRange& range) {
               return range.firstColumn != range.lastColumn || range.firstRow != range.lastRow;
           });
}

std::optional<ChartType> CommandSituation::SeriesType() const {
    const ChartState& chart = on.chart.State();
    const int series = chart.selected.series;
    return series > 0 && series <= chart.SeriesCount()
               ? std::optional(chart.series[static_cast<std::size_t>(series) - 1].type)
               : std::nullopt;
}

std::string CommandSituation::Node() const {
    if (place.node) {
        return *place.node;
    }
    const TreeNode selected = on.macroTree.control.SelectedItem();
    return selected ? selected.Key() : std::string();
}

}  // namespace planview
