// SPDX-License-Identifier: MIT
#include "calculation/GridNames.h"

#include "grid/LineLevels.h"

namespace planview {

GridNames::GridNames(const GridControl& grid, const HostTable& lineIndex)
    : grid_(grid), lines_(grid, PlaceAxis::Lines), periods_(grid, PlaceAxis::Columns), lineIndex_(lineIndex) {}

int GridNames::Level(int line) const {
    if (levels_.empty()) {
        levels_ = LineLevels(grid_, lineIndex_);
    }
    return levels_[static_cast<std::size_t>(line)];
}

int GridNames::Count(FormulaAxis axis) const {
    const PlaceRange planning = Of(axis).Planning();
    return planning.last - planning.first + 1;
}

std::string GridNames::Key(FormulaAxis axis, int place) const {
    return Of(axis).Key(Of(axis).Planning().first + place);
}

std::string GridNames::Caption(FormulaAxis axis, int place) const {
    return Of(axis).Caption(Of(axis).Planning().first + place);
}

std::optional<int> GridNames::Find(FormulaAxis axis, std::string_view key) const {
    const GridPlaces& places = Of(axis);
    const std::optional<int> found = places.FindKey(key);
    return found && places.IsPlanning(*found) ? std::optional(*found - places.Planning().first) : std::nullopt;
}

bool GridNames::IsTextLine(int line) const {
    const std::span<const ColumnId> columns = grid_.Columns(ColumnArea::Center);
    return !columns.empty() &&
           grid_.Look({columns.front(), grid_.Rows(RowArea::Center)[static_cast<std::size_t>(line)]}).textLine;
}

}  // namespace planview
