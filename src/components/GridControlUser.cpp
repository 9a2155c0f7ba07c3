// SPDX-License-Identifier: MIT
#include <algorithm>

#include "components/GridControl.h"
#include "components/GridState.h"

namespace planview {

namespace {

using Size = PressedBorder::Size;

/// Looked up once per layout, not for every painted cell: thousands of hidden rows may precede the next visible one.
template <class Tracks, class Area, class Id>
std::optional<Id> FirstOnScreen(const Tracks& tracks, Area center, ScrollPlace<Id>& scroll, std::uint64_t version) {
    if (scroll.foundFor != version) {
        scroll.found.reset();
        if (!tracks.Of(center).empty()) {
            scroll.found = tracks.VisibleFrom(scroll.wanted.value_or(tracks.Of(center).front()));
        }
        scroll.foundFor = version;
    }
    return scroll.found;
}

/// The keys of the hidden tracks on one side of a track up to the next visible one, in their order.
template <class Tracks, class Id>
std::vector<std::string> HiddenKeysBeside(const Tracks& tracks, Id beside, HiddenSide side) {
    const int step = side == HiddenSide::Before ? -1 : 1;
    std::vector<std::string> keys;
    for (int order = tracks.OrderOf(beside) + step; order >= 0 && order < tracks.Count(); order += step) {
        const auto& track = tracks.At(tracks.AtOrder(order));
        if (!track.hidden) {
            break;
        }
        keys.push_back(track.key);
    }
    if (side == HiddenSide::Before) {
        std::reverse(keys.begin(), keys.end());
    }
    return keys;
}

}  // namespace

// --- Scroll position

std::optional<ColumnId> GridControl::FirstColumn() const {
    return FirstOnScreen(state_->columns, ColumnArea::Center, state_->firstColumn, state_->layoutVersion);
}

std::optional<RowId> GridControl::FirstRow() const {
    return FirstOnScreen(state_->rows, RowArea::Center, state_->firstRow, state_->layoutVersion);
}

GridStatus GridControl::SetFirstColumn(std::string_view key, bool redraw) {
    ColumnId column;
    if (const GridStatus status = state_->Find(key, column); status != GridStatus::Ok) {
        return status;
    }
    if (state_->columns.At(column).area != ColumnArea::Center) {
        return GridStatus::NoItemAtLocation;
    }
    const std::optional<ColumnId> before = FirstColumn();
    state_->firstColumn.Want(column);
    if (FirstColumn() != before) {
        state_->reports.NoteLayout();
    }
    return state_->Done(redraw);
}

GridStatus GridControl::SetFirstRow(std::string_view key, bool redraw) {
    RowId row;
    if (const GridStatus status = state_->Find(key, row); status != GridStatus::Ok) {
        return status;
    }
    if (state_->rows.At(row).area != RowArea::Center) {
        return GridStatus::NoItemAtLocation;
    }
    const std::optional<RowId> before = FirstRow();
    state_->firstRow.Want(row);
    if (FirstRow() != before) {
        state_->reports.NoteLayout();
    }
    return state_->Done(redraw);
}

GridStatus GridControl::ScrollToColumn(ColumnId column) {
    return state_->columns.Has(column) ? SetFirstColumn(state_->columns.At(column).key, true)
                                       : GridStatus::UnknownColumn;
}

GridStatus GridControl::ScrollToRow(RowId row) {
    return state_->rows.Has(row) ? SetFirstRow(state_->rows.At(row).key, true) : GridStatus::UnknownRow;
}

// --- Borders of headings

std::int16_t& GridControl::State::SizeOf(const PressedBorder& which) {
    switch (which.size) {
        case Size::ColumnWidth:
            return columns.Change(ColumnId{which.track}).width;
        case Size::ColumnHeight:
            return columns.Change(ColumnId{which.track}).height;
        case Size::RowWidth:
            return rows.Change(RowId{which.track}).width;
        case Size::RowHeight:
            return rows.Change(RowId{which.track}).height;
        case Size::LabelWidth:
            break;
    }
    return settings.labelColumnWidth;
}

bool GridControl::State::Resize(const PressedBorder& which, std::int16_t size) {
    std::int16_t& target = SizeOf(which);
    if (target == size) {
        return false;
    }
    target = size;
    if (which.size == Size::LabelWidth) {
        columns.Change(LabelColumn).width = size;
    }
    LayoutChanged();
    return true;
}

bool GridControl::State::CanHide(const PressedBorder& which) const {
    if (which.size == Size::RowHeight || which.size == Size::RowWidth) {
        return rows.At(RowId{which.track}).area == RowArea::Center && rows.VisibleCount(RowArea::Center) > 1;
    }
    return columns.At(ColumnId{which.track}).area == ColumnArea::Center && columns.VisibleCount(ColumnArea::Center) > 1;
}

GridStatus GridControl::State::Press(PressedBorder border) {
    const bool followsTexts = border.size == Size::LabelWidth && settings.labelAutoFit;
    border.hides = border.hides && CanHide(border);
    if (!settings.resizeAllowed || followsTexts) {
        return GridStatus::AttributeNotPossible;
    }
    border.before = SizeOf(border);
    pressed = border;
    return GridStatus::Ok;
}

/// A heading has no size of its own: its lower border is that of the first planning column's heading, and when the grid
/// is switched, that of the first planning row's.
GridStatus GridControl::PressColumnBorder(ColumnId column, bool switchedSize) {
    State& state = *state_;
    if (!state.columns.Has(column)) {
        return GridStatus::UnknownColumn;
    }
    if (column != LabelColumn) {
        return state.Press({switchedSize ? Size::ColumnHeight : Size::ColumnWidth, column.value, 0, true});
    }
    if (!switchedSize) {
        return state.Press({Size::LabelWidth});
    }
    const std::vector<RowId>& rows = state.rows.Of(RowArea::Center);
    return rows.empty() ? GridStatus::NoItemAtLocation : state.Press({Size::RowHeight, rows.front().value});
}

GridStatus GridControl::PressRowBorder(RowId row, bool switchedSize) {
    State& state = *state_;
    if (!state.rows.Has(row)) {
        return GridStatus::UnknownRow;
    }
    if (row != HeadingRow) {
        return state.Press({switchedSize ? Size::RowWidth : Size::RowHeight, row.value, 0, true});
    }
    if (switchedSize) {
        return state.Press({Size::LabelWidth});
    }
    const std::vector<ColumnId>& columns = state.columns.Of(ColumnArea::Center);
    return columns.empty() ? GridStatus::NoItemAtLocation : state.Press({Size::ColumnHeight, columns.front().value});
}

GridStatus GridControl::DragBorder(int size) {
    State& state = *state_;
    if (!state.pressed) {
        return GridStatus::NoRegisterPress;
    }
    // A smaller size that the host has given stays possible.
    const int least = state.pressed->hides ? 1 : std::clamp<int>(state.pressed->before, 1, LeastTrackSize);
    state.Resize(*state.pressed, static_cast<std::int16_t>(std::clamp(size, least, MaxTrackSize)));
    return state.Done(true);
}

GridStatus GridControl::ReleaseBorder() {
    State& state = *state_;
    if (!state.pressed) {
        return GridStatus::NoRegisterPress;
    }
    const PressedBorder released = *state.pressed;
    state.pressed.reset();
    const std::int16_t size = state.SizeOf(released);
    if (size == released.before) {
        return GridStatus::Ok;
    }
    if (released.hides && size < LeastTrackSize) {
        state.Resize(released, released.before);
        state.reports.Report(true);
        state.ReportHide(released);
    } else {
        state.ReportResized(released);
    }
    return GridStatus::Ok;
}

GridStatus GridControl::CancelBorder() {
    State& state = *state_;
    if (!state.pressed) {
        return GridStatus::NoRegisterPress;
    }
    const PressedBorder cancelled = *state.pressed;
    state.pressed.reset();
    state.Resize(cancelled, cancelled.before);
    return state.Done(true);
}

void GridControl::State::ReportHide(const PressedBorder& released) {
    const bool isRow = released.size == Size::RowWidth || released.size == Size::RowHeight;
    const std::string key = isRow ? rows.At(RowId{released.track}).key : columns.At(ColumnId{released.track}).key;
    if (events && isRow) {
        events->HideRow(key);
    } else if (events) {
        events->HideColumn(key);
    }
}

void GridControl::State::ReportResized(const PressedBorder& released) {
    if (!events) {
        return;
    }
    const int size = SizeOf(released);
    // The listener may destroy the grid and the key with it.
    const bool isRow = released.size == Size::RowWidth || released.size == Size::RowHeight;
    std::string key(LabelColumnKey);
    if (released.track >= 0) {
        key = isRow ? rows.At(RowId{released.track}).key : columns.At(ColumnId{released.track}).key;
    }
    switch (released.size) {
        case Size::ColumnWidth:
        case Size::LabelWidth:
            events->ColumnResized(key, size);
            break;
        case Size::ColumnHeight:
            events->HeadingHeightResized(key, size);
            break;
        case Size::RowHeight:
            events->RowResized(key, size);
            break;
        case Size::RowWidth:
            events->HeadingWidthResized(key, size);
            break;
    }
}

// --- Entries, keys and clicks

GridStatus GridControl::EnterText(Cell cell, const std::string& text) {
    State& state = *state_;
    if (const GridStatus status = state.Check(cell); status != GridStatus::Ok) {
        return status;
    }
    if (state.events) {
        state.events->TextEntered(state.KeyOf(cell), text);
        return GridStatus::Ok;
    }
    const GridStatus status = state.SetOnCell(cell, GridAttribute::Contents, text);
    return status == GridStatus::Ok ? state.Done(true) : status;
}

void GridControl::ReportMoved(MovedTracks moved, const std::vector<std::string>& before) {
    if (state_->events) {
        state_->events->Moved(moved, before);
    }
}

void GridControl::ReportStay() {
    if (state_->events) {
        state_->events->StayCell();
    }
}

void GridControl::ReportDoubleClick(Cell cell) {
    if (state_->events && state_->Check(cell) == GridStatus::Ok) {
        state_->events->DoubleClick(state_->KeyOf(cell));
    }
}

void GridControl::ReportSimpleClick(Cell cell) {
    if (state_->events && state_->Check(cell) == GridStatus::Ok) {
        state_->events->SimpleClick(state_->KeyOf(cell));
    }
}

void GridControl::ReportDrop(Cell cell, const std::string& text, const std::string& html) {
    if (state_->events && state_->Check(cell) == GridStatus::Ok) {
        state_->events->Dropped(state_->KeyOf(cell), text, html);
    }
}

void GridControl::ReportMouseDown(Cell cell, MouseButton button, ShiftState shift) {
    if (state_->events && state_->Check(cell) == GridStatus::Ok) {
        state_->events->MouseDown(state_->KeyOf(cell), button, shift);
    }
}

void GridControl::ReportMenuKey() {
    if (!state_->events || !state_->settings.created) {
        return;
    }
    CellKey key{std::string(LabelColumnKey), std::string(HeadingRowKey)};
    if (const std::optional<Cell> current = CurrentCell()) {
        const CellKey cell = state_->KeyOf(*current);
        // A whole column is named by its heading, a whole row by its label, both together by the corner.
        key.column = Selection().HasRow(current->row) ? key.column : cell.column;
        key.row = Selection().HasColumn(current->column) ? key.row : cell.row;
    }
    state_->events->MenuKey(key);
}

bool GridControl::ReportKeyDown(std::int16_t shift, std::int16_t keyCode) {
    return state_->events && state_->events->KeyDown(shift, keyCode);
}

void GridControl::ReportKeyPress(std::int16_t character) {
    if (state_->events) {
        state_->events->KeyPress(character);
    }
}

GridStatus GridControl::ReportShowHidden(ColumnId beside, HiddenSide side) {
    if (!state_->columns.Has(beside)) {
        return GridStatus::UnknownColumn;
    }
    const std::vector<std::string> keys = HiddenKeysBeside(state_->columns, beside, side);
    if (keys.empty()) {
        return GridStatus::NoItemAtLocation;
    }
    if (state_->events) {
        state_->events->ShowHiddenColumns(keys);
    }
    return GridStatus::Ok;
}

GridStatus GridControl::ReportShowHidden(RowId beside, HiddenSide side) {
    if (!state_->rows.Has(beside)) {
        return GridStatus::UnknownRow;
    }
    const std::vector<std::string> keys = HiddenKeysBeside(state_->rows, beside, side);
    if (keys.empty()) {
        return GridStatus::NoItemAtLocation;
    }
    if (state_->events) {
        state_->events->ShowHiddenRows(keys);
    }
    return GridStatus::Ok;
}

void GridControl::ReportFocus(bool in) {
    if (!state_->events) {
        return;
    }
    if (in) {
        state_->events->FocusIn();
    } else {
        state_->events->FocusOut();
    }
}

}  // namespace planview
