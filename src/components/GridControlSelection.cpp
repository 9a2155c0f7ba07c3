// SPDX-License-Identifier: MIT
#include <algorithm>
#include <type_traits>
#include <utility>

#include "components/GridControl.h"
#include "components/GridState.h"

namespace planview {

namespace {

using Kind = SelectionPlace::Kind;

constexpr int ColumnHeadingKind = 19;
constexpr int RowHeadingKind = 20;

CellKey CornerKey() {
    return {std::string(LabelColumnKey), std::string(HeadingRowKey)};
}

ColumnId PartOf(Cell cell, ColumnId /*wanted*/) noexcept {
    return cell.column;
}

RowId PartOf(Cell cell, RowId /*wanted*/) noexcept {
    return cell.row;
}

}  // namespace

// --- Places by key

/// The label column and the heading row stand for "none": with them, a pair of keys means a whole row or column.
GridStatus GridControl::State::FindPlace(CellKeyView keys, SelectionPlace& place) const {
    if (!settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    const bool noColumn = keys.column.empty() || keys.column == LabelColumnKey;
    const bool noRow = keys.row.empty() || keys.row == HeadingRowKey;
    if (noColumn && noRow) {
        place.kind = Kind::Corner;
        return GridStatus::Ok;
    }
    if (noRow) {
        place.kind = Kind::Column;
        return Find(keys.column, place.cell.column);
    }
    if (noColumn) {
        place.kind = Kind::Row;
        return Find(keys.row, place.cell.row);
    }
    place.kind = Kind::Cell;
    return Find(keys, place.cell);
}

GridStatus GridControl::SetSelection(CellKeyView keys, bool redraw) {
    State& state = *state_;
    SelectionPlace place;
    if (const GridStatus status = state.FindPlace(keys, place); status != GridStatus::Ok) {
        return status;
    }
    const bool wasSelected = IsSelected(keys);
    switch (place.kind) {
        case Kind::Column:
            if (!state.columns.At(place.cell.column).selectable) {
                return GridStatus::NoItemAtLocation;
            }
            state.SetWhole(place.cell.column, true);
            break;
        case Kind::Row:
            if (!state.rows.At(place.cell.row).selectable) {
                return GridStatus::NoItemAtLocation;
            }
            state.SetWhole(place.cell.row, true);
            break;
        case Kind::Cell:
            if (!wasSelected) {
                state.AddCell(place.cell);
            }
            break;
        default:
            return GridStatus::NoItemAtLocation;
    }
    if (!wasSelected) {
        state.anchor.ownsRange = false;
        state.reports.NoteEverything();
    }
    return state.Done(redraw);
}

GridStatus GridControl::DeleteSelection(CellKeyView keys, bool redraw) {
    State& state = *state_;
    SelectionPlace place;
    if (const GridStatus status = state.FindPlace(keys, place); status != GridStatus::Ok) {
        return status;
    }
    const bool wasSelected = place.kind == Kind::Corner ? !state.selection.IsEmpty() : IsSelected(keys);
    if (wasSelected) {
        switch (place.kind) {
            case Kind::Column:
                state.SetWhole(place.cell.column, false);
                break;
            case Kind::Row:
                state.SetWhole(place.cell.row, false);
                break;
            case Kind::Cell:
                state.RemoveCell(place.cell);
                break;
            default:
                state.selection.Clear();
                state.anchor = SelectionAnchor();
                break;
        }
        state.anchor.ownsRange = false;
        state.reports.NoteEverything();
    }
    return state.Done(redraw);
}

int GridControl::HeadingKind(CellKeyView keys) const {
    SelectionPlace place;
    if (state_->FindPlace(keys, place) != GridStatus::Ok) {
        return 0;
    }
    if (place.kind == Kind::Column && state_->columns.At(place.cell.column).selectable) {
        return ColumnHeadingKind;
    }
    return place.kind == Kind::Row && state_->rows.At(place.cell.row).selectable ? RowHeadingKind : 0;
}

bool GridControl::IsSelected(CellKeyView keys) const {
    SelectionPlace place;
    if (state_->FindPlace(keys, place) != GridStatus::Ok) {
        return false;
    }
    switch (place.kind) {
        case Kind::Column:
            return state_->HasWhole(place.cell.column);
        case Kind::Row:
            return state_->HasWhole(place.cell.row);
        case Kind::Cell:
            return state_->HasCell(place.cell);
        default:
            return false;
    }
}

const GridSelection& GridControl::Selection() const noexcept {
    return state_->selection;
}

// --- Cells in blocks

CellRange GridControl::State::RangeOf(Cell from, Cell to) const {
    const std::pair<int, int> across = std::minmax({columns.OrderOf(from.column), columns.OrderOf(to.column)});
    const std::pair<int, int> down = std::minmax({rows.OrderOf(from.row), rows.OrderOf(to.row)});
    return {across.first, across.second, down.first, down.second};
}

bool GridControl::State::HasCell(Cell cell) const {
    return selection.HasCell(cell, columns.OrderOf(cell.column), rows.OrderOf(cell.row));
}

void GridControl::State::AddCell(Cell cell) {
    selection.AddRange(RangeOf(cell, cell));
}

/// A whole column or row around the cell becomes a block, so that what remains of it stays selected.
void GridControl::State::RemoveCell(Cell cell) {
    const int column = columns.OrderOf(cell.column);
    const int row = rows.OrderOf(cell.row);
    if (HasWhole(cell.column)) {
        SetWhole(cell.column, false);
        selection.AddRange({column, column, 0, rows.Count() - 1});
    }
    if (HasWhole(cell.row)) {
        SetWhole(cell.row, false);
        selection.AddRange({0, columns.Count() - 1, row, row});
    }
    selection.RemoveCell(column, row);
}

// --- The current cell

std::optional<Cell> GridControl::State::CurrentCell() {
    if (columns.VisibleCount(ColumnArea::Center) == 0 || rows.VisibleCount(RowArea::Center) == 0) {
        return std::nullopt;
    }
    std::optional<ColumnId> column;
    std::optional<RowId> row;
    if (current) {
        column = columns.NearestVisible(current->column);
        row = rows.NearestVisible(current->row);
    }
    if (!column) {
        column = columns.VisibleFrom(firstColumn.wanted.value_or(columns.Of(ColumnArea::Center).front()));
    }
    if (!row) {
        row = rows.VisibleFrom(firstRow.wanted.value_or(rows.Of(RowArea::Center).front()));
    }
    current = Cell{*column, *row};
    return current;
}

std::optional<Cell> GridControl::CurrentCell() const {
    return state_->CurrentCell();
}

SelectionKind GridControl::ExtendedKind() const {
    const Kind kind = state_->anchor.kind;
    return kind == Kind::Column ? SelectionKind::Columns
           : kind == Kind::Row  ? SelectionKind::Rows
                                : SelectionKind::Cells;
}

std::optional<Cell> GridControl::SelectionEnd() const {
    State& state = *state_;
    const std::optional<Cell> current = state.CurrentCell();
    if (!current || state.anchor.kind == Kind::Nothing) {
        return current;
    }
    const Cell end = state.anchor.end;
    return Cell{state.columns.NearestVisible(end.column).value_or(current->column),
                state.rows.NearestVisible(end.row).value_or(current->row)};
}

// --- What the user selects

void GridControl::State::SelectCell(Cell cell, SelectionMode mode) {
    if (mode == SelectionMode::Extend) {
        if (anchor.kind == Kind::Nothing) {
            anchor.start = CurrentCell().value_or(cell);
        }
        if (anchor.kind != Kind::Cell) {
            selection.Clear();
            anchor.ownsRange = false;
        }
        const CellRange range = RangeOf(anchor.start, cell);
        if (anchor.ownsRange) {
            selection.ReplaceLastRange(range);
        } else {
            selection.AddRange(range);
        }
        anchor = {Kind::Cell, anchor.start, cell, true};
    } else {
        if (mode == SelectionMode::Replace) {
            adding = false;
            selection.Clear();
        }
        const bool add = !HasCell(cell);
        if (add) {
            AddCell(cell);
        } else {
            RemoveCell(cell);
        }
        anchor = {Kind::Cell, cell, cell, add};
    }
    current = anchor.start;
}

template <class Tracks, class Id>
void GridControl::State::SelectTrack(const Tracks& tracks, Id id, SelectionMode mode) {
    constexpr bool IsColumn = std::is_same_v<Id, ColumnId>;
    constexpr Kind OwnKind = IsColumn ? Kind::Column : Kind::Row;
    const std::optional<Cell> place = CurrentCell();
    Cell end = place.value_or(Cell{LabelColumn, HeadingRow});
    if constexpr (IsColumn) {
        end.column = id;
    } else {
        end.row = id;
    }

    const auto setBetween = [this, &tracks](Id from, Id to, bool selected) {
        const auto [first, last] = std::minmax({tracks.OrderOf(from), tracks.OrderOf(to)});
        for (int order = first; order <= last; ++order) {
            const Id between = tracks.AtOrder(order);
            if (tracks.At(between).selectable) {
                SetWhole(between, selected);
            }
        }
    };

    if (mode == SelectionMode::Extend) {
        if (anchor.kind == Kind::Nothing) {
            anchor.start = place.value_or(end);
        }
        if (anchor.kind == OwnKind) {
            setBetween(PartOf(anchor.start, id), PartOf(anchor.end, id), false);
        } else {
            selection.Clear();
        }
        setBetween(PartOf(anchor.start, id), id, true);
        anchor = {OwnKind, anchor.start, end, false};
    } else {
        if (mode == SelectionMode::Replace) {
            adding = false;
            selection.Clear();
        }
        SetWhole(id, !HasWhole(id));
        anchor = {OwnKind, end, end, false};
    }
    if (place) {
        current = anchor.start;
    }
}

/// Reports what the user's action has changed: to the watcher, then to the listener when the selection is another one.
void GridControl::State::Finish(const GridSelection& before, std::optional<Cell> currentBefore, const CellKey& place,
                                bool selected) {
    const bool selectionChanged = !(selection == before);
    if (selectionChanged || current != currentBefore) {
        reports.NoteEverything();
    }
    GridEvents* const listener = events;
    reports.Report(true);
    // The listener may rebuild the grid: nothing of it is used from here on.
    if (selectionChanged && listener) {
        listener->SelectionChanged(place, selected);
    }
}

GridStatus GridControl::SelectCell(Cell cell, SelectionMode mode) {
    State& state = *state_;
    if (const GridStatus status = state.Check(cell); status != GridStatus::Ok) {
        return status;
    }
    const bool isHeading = cell.column == LabelColumn || cell.row == HeadingRow;
    if (isHeading || state.columns.At(cell.column).hidden || state.rows.At(cell.row).hidden) {
        return GridStatus::NoItemAtLocation;
    }
    const GridSelection before = state.selection;
    const std::optional<Cell> currentBefore = state.current;
    state.SelectCell(cell, mode);
    state.Finish(before, currentBefore, state.KeyOf(cell), state.HasCell(cell));
    return GridStatus::Ok;
}

GridStatus GridControl::SelectColumn(ColumnId column, SelectionMode mode) {
    State& state = *state_;
    if (!state.columns.Has(column)) {
        return GridStatus::UnknownColumn;
    }
    if (state.columns.At(column).hidden || !state.columns.At(column).selectable) {
        return GridStatus::NoItemAtLocation;
    }
    const GridSelection before = state.selection;
    const std::optional<Cell> currentBefore = state.current;
    state.SelectTrack(state.columns, column, mode);
    state.Finish(before, currentBefore, state.KeyOf({column, HeadingRow}), state.HasWhole(column));
    return GridStatus::Ok;
}

GridStatus GridControl::SelectRow(RowId row, SelectionMode mode) {
    State& state = *state_;
    if (!state.rows.Has(row)) {
        return GridStatus::UnknownRow;
    }
    if (state.rows.At(row).hidden || !state.rows.At(row).selectable) {
        return GridStatus::NoItemAtLocation;
    }
    const GridSelection before = state.selection;
    const std::optional<Cell> currentBefore = state.current;
    state.SelectTrack(state.rows, row, mode);
    state.Finish(before, currentBefore, state.KeyOf({LabelColumn, row}), state.HasWhole(row));
    return GridStatus::Ok;
}

void GridControl::SelectAll() {
    State& state = *state_;
    if (!state.settings.created) {
        return;
    }
    const GridSelection before = state.selection;
    const auto selectEach = [&state](const auto& tracks) {
        for (int order = 0; order < tracks.Count(); ++order) {
            const auto id = tracks.AtOrder(order);
            if (tracks.At(id).selectable) {
                state.SetWhole(id, true);
            }
        }
    };
    state.selection.ClearRanges();
    selectEach(state.columns);
    selectEach(state.rows);
    state.anchor = SelectionAnchor();
    state.Finish(before, state.current, CornerKey(), true);
}

void GridControl::SetAdding(bool on) {
    State& state = *state_;
    const std::optional<Cell> current = state.CurrentCell();
    state.adding = on && current;
    if (state.adding && state.selection.IsEmpty()) {
        SelectCell(*current, SelectionMode::Add);
    }
}

bool GridControl::IsAdding() const noexcept {
    return state_->adding;
}

GridStatus GridControl::GoToCell(Cell cell) {
    State& state = *state_;
    if (const GridStatus status = state.Check(cell); status != GridStatus::Ok) {
        return status;
    }
    if (cell.column == LabelColumn || cell.row == HeadingRow || state.columns.At(cell.column).hidden ||
        state.rows.At(cell.row).hidden) {
        return GridStatus::NoItemAtLocation;
    }
    const std::optional<Cell> before = state.current;
    state.anchor = {Kind::Cell, cell, cell, false};
    state.current = cell;
    state.Finish(state.selection, before, state.KeyOf(cell), state.HasCell(cell));
    return GridStatus::Ok;
}

void GridControl::ClearSelection() {
    State& state = *state_;
    state.adding = false;
    const GridSelection before = state.selection;
    state.selection.Clear();
    state.anchor = SelectionAnchor();
    state.Finish(before, state.current, CornerKey(), false);
}

}  // namespace planview
