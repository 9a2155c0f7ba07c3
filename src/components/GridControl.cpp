// SPDX-License-Identifier: MIT
#include "components/GridControl.h"

#include <limits>
#include <utility>

#include "automation/Numbers.h"
#include "automation/Utf8.h"
#include "components/GridKeys.h"
#include "components/GridState.h"

namespace planview {

namespace {

constexpr int MaxTracks = std::numeric_limits<std::int16_t>::max();

/// The label column and the heading row do not count as places of their areas: the label column is the first of its
/// area, the heading row the last one, next to the cells that it heads.
constexpr int LabelsIn(ColumnArea area) noexcept {
    return area == ColumnArea::Left ? 1 : 0;
}

constexpr int LabelsIn(RowArea area) noexcept {
    return area == RowArea::Top ? 1 : 0;
}

constexpr std::size_t FirstPlaceIn(ColumnArea area) noexcept {
    return area == ColumnArea::Left ? 1 : 0;
}

constexpr std::size_t FirstPlaceIn(RowArea) noexcept {
    return 0;
}

/// The 0-based place of a new track for a 1-based position, 0 meaning behind the last one; no value outside.
template <class Tracks, class Area>
std::optional<std::size_t> PlaceForNew(const Tracks& tracks, Area area, int position) {
    const int others = static_cast<int>(tracks.Of(area).size()) - LabelsIn(area);
    const int place = position == 0 ? others : position - 1;
    return position >= 0 && place <= others ? std::optional(FirstPlaceIn(area) + static_cast<std::size_t>(place))
                                            : std::nullopt;
}

/// The same for a track that is moved within its area, where there is no 0.
template <class Tracks, class Area>
std::optional<std::size_t> PlaceForMoved(const Tracks& tracks, Area area, int position) {
    const int others = static_cast<int>(tracks.Of(area).size()) - LabelsIn(area);
    const int place = position - 1;
    return position >= 1 && place < others ? std::optional(FirstPlaceIn(area) + static_cast<std::size_t>(place))
                                           : std::nullopt;
}

template <class Tracks, class Area>
bool IsFull(const Tracks& tracks, Area area) {
    return static_cast<int>(tracks.Of(area).size()) - LabelsIn(area) >= MaxTracks;
}

/// Keeps the scroll position in place when its track is moved away: the neighbour that takes its place becomes first.
template <class Tracks, class Id>
void LeaveBehind(ScrollPlace<Id>& scroll, const Tracks& tracks, Id moved) {
    if (scroll.wanted != moved) {
        return;
    }
    const auto& order = tracks.Of(tracks.At(moved).area);
    const auto place = static_cast<std::size_t>(tracks.PlaceOf(moved));
    if (place + 1 < order.size()) {
        scroll.Want(order[place + 1]);
    }
}

}  // namespace

GridControl::GridControl() : state_(std::make_unique<State>()) {}
GridControl::~GridControl() = default;

void GridControl::SetWatcher(GridWatcher* watcher) noexcept {
    state_->reports.SetWatcher(watcher);
}

void GridControl::SetEvents(GridEvents* events) noexcept {
    state_->events = events;
}

// --- Building

GridStatus GridControl::CreateLabelled(bool redraw) {
    if (state_->reports.IsReporting()) {
        return GridStatus::Busy;
    }
    if (state_->settings.created) {
        return GridStatus::ColumnDefined;
    }
    state_->settings.created = true;
    ++state_->buildVersion;
    ColumnTrack label;
    label.key = LabelColumnKey;
    label.area = ColumnArea::Left;
    label.width = DefaultLabelColumnWidth;
    label.selectable = false;
    state_->columns.Insert(std::move(label), 0);
    RowTrack heading;
    heading.key = HeadingRowKey;
    heading.area = RowArea::Top;
    heading.selectable = false;
    state_->rows.Insert(std::move(heading), 0);
    state_->LayoutChanged();
    return state_->Done(redraw);
}

GridStatus GridControl::Destroy(bool redraw) {
    State& state = *state_;
    if (state.reports.IsReporting()) {
        return GridStatus::Busy;
    }
    const bool wasCreated = state.settings.created;
    state.settings = GridSettingsState();
    state.columns.Clear();
    state.rows.Clear();
    state.cells.Clear();
    state.styles.Clear();
    state.gridStyle = PlainStyle;
    state.selection.Clear();
    state.anchor = SelectionAnchor();
    state.adding = false;
    state.current.reset();
    state.firstColumn = {};
    state.firstRow = {};
    state.pressed.reset();
    if (wasCreated) {
        ++state.buildVersion;
        state.LayoutChanged();
        state.reports.NoteEverything();
    }
    return state.Done(redraw);
}

GridStatus GridControl::CreateColumn(std::string_view key, std::int16_t position, bool redraw) {
    State& state = *state_;
    if (state.reports.IsReporting()) {
        return GridStatus::Busy;
    }
    if (!state.settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    const std::optional<ColumnArea> area = ColumnAreaOf(key);
    if (!area) {
        return GridStatus::InvalidName;
    }
    if (state.columns.Has(state.columns.Find(key))) {
        return GridStatus::ColumnDefined;
    }
    const std::optional<std::size_t> place = PlaceForNew(state.columns, *area, position);
    if (!place) {
        return GridStatus::InvalidColumnPosition;
    }
    if (IsFull(state.columns, *area)) {
        return GridStatus::TooManyElements;
    }
    ColumnTrack column;
    column.key = key;
    column.area = *area;
    const ColumnId created = state.columns.Insert(std::move(column), *place);
    if (!state.selection.Ranges().empty()) {
        state.selection.ColumnInserted(state.columns.OrderOf(created));
    }
    state.LayoutChanged();
    return state.Done(redraw);
}

GridStatus GridControl::CreateRow(std::string_view key, std::int16_t position, bool redraw) {
    State& state = *state_;
    if (state.reports.IsReporting()) {
        return GridStatus::Busy;
    }
    if (!state.settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    const std::optional<RowArea> area = RowAreaOf(key);
    if (!area) {
        return GridStatus::InvalidName;
    }
    if (state.rows.Has(state.rows.Find(key))) {
        return GridStatus::RowDefined;
    }
    const std::optional<std::size_t> place = PlaceForNew(state.rows, *area, position);
    if (!place) {
        return GridStatus::InvalidRowPosition;
    }
    if (IsFull(state.rows, *area)) {
        return GridStatus::TooManyElements;
    }
    RowTrack row;
    row.key = key;
    row.area = *area;
    const RowId created = state.rows.Insert(std::move(row), *place);
    if (!state.selection.Ranges().empty()) {
        state.selection.RowInserted(state.rows.OrderOf(created));
    }
    state.LayoutChanged();
    return state.Done(redraw);
}

GridStatus GridControl::CreateColor(std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return state_->reports.IsReporting() ? GridStatus::Busy : state_->styles.CreateColor(name, red, green, blue);
}

void GridControl::RegisterBitmap(std::string_view name) {
    state_->styles.RegisterBitmap(name);
}

void GridControl::RegisterFonts(std::vector<std::string> names) {
    state_->styles.RegisterFonts(std::move(names));
}

GridStatus GridControl::MoveColumn(std::string_view key, std::int16_t position, bool redraw) {
    State& state = *state_;
    if (state.reports.IsReporting()) {
        return GridStatus::Busy;
    }
    ColumnId column;
    if (const GridStatus status = state.Find(key, column); status != GridStatus::Ok) {
        return status;
    }
    if (column == LabelColumn) {
        return GridStatus::AttributeNotPossible;
    }
    const std::optional<std::size_t> place = PlaceForMoved(state.columns, state.columns.At(column).area, position);
    if (!place) {
        return GridStatus::InvalidColumnPosition;
    }
    if (static_cast<std::size_t>(state.columns.PlaceOf(column)) != *place) {
        LeaveBehind(state.firstColumn, state.columns, column);
        state.columns.Move(column, *place);
        state.selection.ClearRanges();
        state.anchor.ownsRange = false;
        state.LayoutChanged();
    }
    return state.Done(redraw);
}

GridStatus GridControl::MoveRow(std::string_view key, std::int16_t position, bool redraw) {
    State& state = *state_;
    if (state.reports.IsReporting()) {
        return GridStatus::Busy;
    }
    RowId row;
    if (const GridStatus status = state.Find(key, row); status != GridStatus::Ok) {
        return status;
    }
    if (row == HeadingRow) {
        return GridStatus::AttributeNotPossible;
    }
    const std::optional<std::size_t> place = PlaceForMoved(state.rows, state.rows.At(row).area, position);
    if (!place) {
        return GridStatus::InvalidRowPosition;
    }
    if (static_cast<std::size_t>(state.rows.PlaceOf(row)) != *place) {
        LeaveBehind(state.firstRow, state.rows, row);
        state.rows.Move(row, *place);
        state.selection.ClearRanges();
        state.anchor.ownsRange = false;
        state.LayoutChanged();
    }
    return state.Done(redraw);
}

void GridControl::SetRedraw(bool on) {
    state_->reports.SetRedraw(on);
    state_->reports.Report(on);
}

bool GridControl::RedrawOn() const noexcept {
    return state_->reports.RedrawOn();
}

void GridControl::SetWaiting(bool waiting) {
    if (state_->settings.waiting != waiting) {
        state_->settings.waiting = waiting;
        state_->reports.ReportPointer();
    }
}

void GridControl::Redraw() {
    state_->reports.Report(true);
}

// --- Look-up by key

GridStatus GridControl::State::Find(std::string_view key, ColumnId& column) const {
    if (!settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    column = columns.Find(key);
    if (columns.Has(column)) {
        return GridStatus::Ok;
    }
    return ColumnAreaOf(key) ? GridStatus::UnknownColumn : GridStatus::InvalidName;
}

GridStatus GridControl::State::Find(std::string_view key, RowId& row) const {
    if (!settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    row = rows.Find(key);
    if (rows.Has(row)) {
        return GridStatus::Ok;
    }
    return RowAreaOf(key) ? GridStatus::UnknownRow : GridStatus::InvalidName;
}

GridStatus GridControl::State::Find(CellKeyView keys, Cell& cell) const {
    const GridStatus columnStatus = Find(keys.column, cell.column);
    if (columnStatus == GridStatus::Ok) {
        return Find(keys.row, cell.row);
    }
    if (columnStatus == GridStatus::UnknownColumn) {
        const GridStatus rowStatus = Find(keys.row, cell.row);
        if (rowStatus == GridStatus::UnknownRow) {
            return GridStatus::InvalidCellPosition;
        }
        return rowStatus == GridStatus::Ok ? columnStatus : rowStatus;
    }
    return columnStatus;
}

GridStatus GridControl::State::Check(Cell cell) const noexcept {
    if (!columns.Has(cell.column)) {
        return GridStatus::UnknownColumn;
    }
    return rows.Has(cell.row) ? GridStatus::Ok : GridStatus::UnknownRow;
}

// --- Reading

const GridSettingsState& GridControl::Settings() const noexcept {
    return state_->settings;
}

std::span<const GridColor> GridControl::Colors() const noexcept {
    return state_->styles.Colors();
}

std::span<const ColumnId> GridControl::Columns(ColumnArea area) const noexcept {
    return state_->columns.Of(area);
}

std::span<const RowId> GridControl::Rows(RowArea area) const noexcept {
    return state_->rows.Of(area);
}

const GridColumn& GridControl::Column(ColumnId column) const {
    return state_->columns.At(column);
}

const GridRow& GridControl::Row(RowId row) const {
    return state_->rows.At(row);
}

std::optional<ColumnId> GridControl::FindColumn(std::string_view key) const {
    const ColumnId column = state_->columns.Find(key);
    return state_->columns.Has(column) ? std::optional(column) : std::nullopt;
}

std::optional<RowId> GridControl::FindRow(std::string_view key) const {
    const RowId row = state_->rows.Find(key);
    return state_->rows.Has(row) ? std::optional(row) : std::nullopt;
}

std::optional<Cell> GridControl::FindCell(CellKeyView keys) const {
    const Cell cell{state_->columns.Find(keys.column), state_->rows.Find(keys.row)};
    return state_->Check(cell) == GridStatus::Ok ? std::optional(cell) : std::nullopt;
}

CellKey GridControl::KeyOf(Cell cell) const {
    return state_->KeyOf(cell);
}

int GridControl::OrderOf(ColumnId column) const {
    return state_->columns.OrderOf(column);
}

int GridControl::OrderOf(RowId row) const {
    return state_->rows.OrderOf(row);
}

const std::string& GridControl::Contents(Cell cell) const {
    return state_->cells.Contents(cell);
}

const std::string& GridControl::Tooltip(Cell cell) const {
    return state_->cells.Tooltip(cell);
}

CellLook GridControl::Look(Cell cell) const {
    return state_->styles.LookOf(state_->MergedStyle(cell));
}

std::optional<double> GridControl::Number(Cell cell, const CellLook& look) const {
    return look.textLine ? std::nullopt : TryParseNumber(Contents(cell));
}

GridAlignment GridControl::Alignment(Cell cell, const CellLook& look) const {
    if (look.hasAlignment) {
        return look.alignment;
    }
    return Number(cell, look) ? GridAlignment::Right : GridAlignment::Left;
}

std::string GridControl::DisplayText(Cell cell) const {
    return DisplayText(cell, Look(cell));
}

std::string GridControl::DisplayText(Cell cell, const CellLook& look) const {
    return DisplayText(cell, look, look.format ? Number(cell, look) : std::nullopt);
}

std::string GridControl::DisplayText(Cell cell, const CellLook& look, std::optional<double> number) const {
    const std::string& contents = Contents(cell);
    if (!look.format || contents.empty()) {
        return contents;
    }
    if (number) {
        return look.format->Format(*number);
    }
    // A code for values says nothing about captions.
    const bool heading = Column(cell.column).key == LabelColumnKey || Row(cell.row).key == HeadingRowKey;
    return heading ? contents : look.format->FormatText(contents);
}

void GridControl::SetReadOnly(bool readOnly) noexcept {
    state_->readOnly = readOnly;
}

bool GridControl::IsReadOnly() const noexcept {
    return state_->readOnly;
}

std::uint64_t GridControl::BuildVersion() const noexcept {
    return state_->buildVersion;
}

std::uint64_t GridControl::LayoutVersion() const noexcept {
    return state_->layoutVersion;
}

std::uint64_t GridControl::ChangeVersion() const noexcept {
    return state_->layoutVersion + state_->reports.Changes();
}

}  // namespace planview
