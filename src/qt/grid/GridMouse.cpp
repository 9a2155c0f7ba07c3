// SPDX-License-Identifier: MIT
#include "qt/grid/GridMouse.h"

#include <QApplication>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/InputCodes.h"
#include "qt/grid/GridFit.h"
#include "qt/grid/GridView.h"
#include "qt/grid/HiddenMarks.h"

namespace planview {

namespace {

using Area = AxisLayout::Area;
using Border = GridHit::Border;
using Place = GridHit::Place;

// As the grid's listener counts them.

SelectionMode modeFor(Qt::KeyboardModifiers modifiers) {
    return modifiers.testFlag(Qt::ShiftModifier)     ? SelectionMode::Extend
           : modifiers.testFlag(Qt::ControlModifier) ? SelectionMode::Add
                                                     : SelectionMode::Replace;
}

int sizeOf(const AxisLayout& layout, std::int32_t track) {
    for (const Area area : {Area::Leading, Area::Center, Area::Trailing}) {
        const int index = layout.IndexOf(area, track);
        if (index >= 0) {
            return layout.Items(area)[static_cast<std::size_t>(index)].size;
        }
    }
    return 0;
}

/// The nearest position that has a cell and no heading.
int clampToCells(const GridAxis& axis, int position) {
    const GridTrack* heading = axis.heading();
    const int inside = std::clamp(position, 0, std::max(0, axis.contentEnd() - 1));
    return heading && inside >= heading->start && inside < heading->end ? heading->end : inside;
}

int clampToCenter(const GridAxis& axis, int position) {
    const GridBand center = axis.band(Area::Center);
    return std::clamp(position, center.start, std::max(center.start, center.end - 1));
}

/// -1 or 1 where the position lies beyond the centre on a side that it can be scrolled to.
int directionBeyond(const GridAxis& axis, int position) {
    const GridBand center = axis.band(Area::Center);
    if (position < center.start && axis.first() > 0) {
        return -1;
    }
    return position >= center.end && axis.first() < axis.maxFirst() ? 1 : 0;
}

bool isInCenter(const GridAxis& axis, std::int32_t track) {
    return axis.layout().IndexOf(Area::Center, track) >= 0;
}

/// Selects the column or row that a track of the axis shows.
void selectTrack(GridControl& grid, const GridAxis& axis, std::int32_t track, SelectionMode mode) {
    if (axis.showsColumns()) {
        grid.SelectColumn(ColumnId{track}, mode);
    } else {
        grid.SelectRow(RowId{track}, mode);
    }
}

bool isSelected(GridControl& grid, const GridGeometry& geometry, const GridHit& hit) {
    const Cell cell = geometry.cell(hit.horizontal, hit.vertical);
    return grid.Selection().HasCell(cell, grid.OrderOf(cell.column), grid.OrderOf(cell.row));
}

}  // namespace

void GridMouse::press(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    const GridHit hit = view_.hitTest(point);
    last_ = point;
    clicked_.reset();
    pressed_.reset();
    if (hit.place != Place::Nothing) {
        const GridControl& grid = view_.grid();
        pressed_ = {point, grid.BuildVersion(), cellOf(hit), grid.FirstColumn(), grid.FirstRow()};
    }
    const QPointer<GridView> view(&view_);
    if (button == Qt::RightButton) {
        // The menu that follows is about what was clicked; a selection around it stays.
        if (doing_ == Doing::Nothing && hit.place != Place::Nothing && hit.place != Place::Corner &&
            !isSelected(view_.grid(), view_.geometry(), hit)) {
            select(hit, SelectionMode::Replace);
        }
    } else if (button == Qt::LeftButton && doing_ == Doing::Nothing) {
        if (hit.border != Border::None && pressBorder(hit, point)) {
            return;
        }
        if (modifiers == Qt::NoModifier && heading_.press(hit, point)) {
            doing_ = Doing::Moving;
            clicked_ = view_.grid().KeyOf(cellOf(hit));
            report(hit, button, modifiers);
            return;
        }
        if (modifiers == Qt::NoModifier && isAtSelectionEdge(hit, point)) {
            doing_ = Doing::Dragging;
            clicked_ = view_.grid().KeyOf(cellOf(hit));
            report(hit, button, modifiers);
            return;
        }
        doing_ = hit.place == Place::TopHeading    ? Doing::TopHeadings
                 : hit.place == Place::LeftHeading ? Doing::LeftHeadings
                 : hit.place == Place::Cell        ? Doing::Cells
                                                   : Doing::Nothing;
        const GridGeometry& geometry = view_.geometry();
        scrollsAcross_ = doing_ != Doing::LeftHeadings && isInCenter(geometry.horizontal, hit.horizontal);
        scrollsDown_ = doing_ != Doing::TopHeadings && isInCenter(geometry.vertical, hit.vertical);
        if (doing_ != Doing::Nothing && modeFor(modifiers) == SelectionMode::Replace) {
            clicked_ = view_.grid().KeyOf(cellOf(hit));
        }
        select(hit, modeFor(modifiers));
    } else {
        return;
    }
    if (view && hit.place != Place::Nothing) {
        report(hit, button, modifiers);
    }
}

void GridMouse::report(const GridHit& hit, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    view_.grid().ReportMouseDown(cellOf(hit), buttonOf(button), shiftOf(modifiers));
}

void GridMouse::doubleClick(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    const GridHit hit = view_.hitTest(point);
    const bool plain = button == Qt::LeftButton && modifiers == Qt::NoModifier;
    if (plain && hasScrolledAway(point)) {
        reportDoubleClick(pressed_->cell);
        return;
    }
    if (plain && showHidden(point)) {
        return;
    }
    if (button == Qt::LeftButton && hit.border != Border::None && pressBorder(hit, point)) {
        fitContents(hit);
        return;
    }
    if (!plain || hit.place == Place::Nothing) {
        press(point, button, modifiers);
        return;
    }
    reportDoubleClick(cellOf(hit));
}

Cell GridMouse::cellOf(const GridHit& hit) const {
    return view_.geometry().cell(hit.horizontal, hit.vertical);
}

/// Whether the press scrolled its cell into sight and so brought another cell under the pointer. Until the pointer
/// moves, what follows is still about the pressed cell.
bool GridMouse::hasScrolledAway(QPoint point) const {
    constexpr int Steady = 4;
    const GridControl& grid = view_.grid();
    return pressed_ && pressed_->built == grid.BuildVersion() &&
           (point - pressed_->point).manhattanLength() <= Steady &&
           (pressed_->firstColumn != grid.FirstColumn() || pressed_->firstRow != grid.FirstRow());
}

void GridMouse::reportDoubleClick(Cell cell) {
    GridControl& grid = view_.grid();
    const std::uint64_t built = grid.BuildVersion();
    const QPointer<GridView> view(&view_);
    grid.ReportDoubleClick(cell);
    // The host may have rebuilt the grid, or be gone.
    if (view && grid.BuildVersion() == built) {
        view->edit(cell);
    }
}

/// Shows what a mark at a heading border stands for; false if there is none.
bool GridMouse::showHidden(QPoint point) {
    const std::optional<HiddenMark> mark = hiddenMarkAt(view_.grid(), view_.geometry(), view_.toDevice(point));
    if (!mark) {
        return false;
    }
    if (mark->columns) {
        view_.grid().ReportShowHidden(ColumnId{mark->track}, mark->side);
    } else {
        view_.grid().ReportShowHidden(RowId{mark->track}, mark->side);
    }
    return true;
}

/// As if the user had dragged the border to where everything fits.
void GridMouse::fitContents(const GridHit& hit) {
    const GridGeometry& geometry = view_.geometry();
    GridControl& grid = view_.grid();
    const QFont font = view_.font();
    const bool across = hit.border == Border::Horizontal;
    doing_ = Doing::Nothing;
    int size = 0;
    if ((across ? geometry.horizontal : geometry.vertical).showsColumns()) {
        const ColumnId column{hit.borderTrack};
        size = across ? fittingWidth(grid, font, column) : fittingHeight(grid, font, column);
    } else {
        const RowId row{hit.borderTrack};
        size = across ? fittingWidth(grid, font, row) : fittingHeight(grid, font, row);
    }
    grid.DragBorder(size);
    grid.ReleaseBorder();
}

void GridMouse::select(const GridHit& hit, SelectionMode mode) {
    const GridGeometry& geometry = view_.geometry();
    switch (hit.place) {
        case Place::Corner:
            view_.grid().SelectAll();
            break;
        case Place::TopHeading:
            selectTrack(view_.grid(), geometry.horizontal, hit.horizontal, mode);
            break;
        case Place::LeftHeading:
            selectTrack(view_.grid(), geometry.vertical, hit.vertical, mode);
            break;
        case Place::Cell:
            view_.selectCurrent(geometry.cell(hit.horizontal, hit.vertical), mode);
            break;
        case Place::Nothing:
            break;
    }
}

bool GridMouse::pressBorder(const GridHit& hit, QPoint point) {
    const GridGeometry& geometry = view_.geometry();
    const bool horizontal = hit.border == Border::Horizontal;
    const GridAxis& axis = horizontal ? geometry.horizontal : geometry.vertical;
    GridControl& grid = view_.grid();
    // Columns have their own size across the screen, rows down the screen; the other way round counts when switched.
    const GridStatus status = axis.showsColumns() ? grid.PressColumnBorder(ColumnId{hit.borderTrack}, !horizontal)
                                                  : grid.PressRowBorder(RowId{hit.borderTrack}, horizontal);
    if (status != GridStatus::Ok) {
        return false;
    }
    const QPoint device = view_.toDevice(point);
    resizing_ = {hit.border, hit.borderDirection, horizontal ? device.x() : device.y(),
                 sizeOf(axis.layout(), hit.borderTrack)};
    doing_ = Doing::Resizing;
    return true;
}

void GridMouse::move(QPoint point) {
    last_ = point;
    if (doing_ == Doing::Resizing) {
        resizeTo(point);
        return;
    }
    if (doing_ == Doing::Moving) {
        heading_.move(point);
        return;
    }
    if (doing_ == Doing::Dragging) {
        if (pressed_ && (point - pressed_->point).manhattanLength() >= QApplication::startDragDistance()) {
            doing_ = Doing::Nothing;
            clicked_.reset();
            view_.dragSelection();
        }
        return;
    }
    if (doing_ == Doing::Nothing || hasScrolledAway(point)) {
        return;
    }
    const GridHit hit = view_.hitTest(point);
    if (clicked_ && (hit.place == Place::Nothing || view_.grid().KeyOf(cellOf(hit)) != *clicked_)) {
        clicked_.reset();
    }
    view_.setAutoScroll(!scrollDirection(point).isNull());
    extendTo(point);
}

void GridMouse::resizeTo(QPoint point) {
    const QPoint device = view_.toDevice(point);
    const int moved = (resizing_.axis == Border::Horizontal ? device.x() : device.y()) - resizing_.start;
    const double logical = moved / view_.geometry().unit;
    view_.grid().DragBorder(resizing_.size + resizing_.direction * static_cast<int>(std::lround(logical)));
}

void GridMouse::extendTo(QPoint point) {
    const GridGeometry& geometry = view_.geometry();
    const QPoint device = view_.toDevice(point);
    const QPoint beyond = scrollDirection(point);
    const auto trackNear = [](const GridAxis& axis, int position, bool scrolls) {
        return axis.at(scrolls ? clampToCenter(axis, position) : clampToCells(axis, position));
    };
    const GridTrack* h = trackNear(geometry.horizontal, device.x(), beyond.x() != 0);
    const GridTrack* v = trackNear(geometry.vertical, device.y(), beyond.y() != 0);
    switch (doing_) {
        case Doing::TopHeadings:
            if (h) {
                selectTrack(view_.grid(), geometry.horizontal, h->id, SelectionMode::Extend);
            }
            break;
        case Doing::LeftHeadings:
            if (v) {
                selectTrack(view_.grid(), geometry.vertical, v->id, SelectionMode::Extend);
            }
            break;
        case Doing::Cells:
            if (h && v && view_.grid().SelectionEnd() != geometry.cell(h->id, v->id)) {
                view_.grid().SelectCell(geometry.cell(h->id, v->id), SelectionMode::Extend);
            }
            break;
        default:
            break;
    }
}

void GridMouse::release() {
    const Doing done = std::exchange(doing_, Doing::Nothing);
    const std::optional<CellKey> clicked = std::exchange(clicked_, std::nullopt);
    view_.setAutoScroll(false);
    if (done == Doing::Resizing) {
        view_.grid().ReleaseBorder();
    } else if (done == Doing::Moving) {
        releaseHeading(clicked);
    } else if (done == Doing::Dragging) {
        releaseEdge(clicked);
    } else if (clicked) {
        reportSimpleClick(*clicked);
    }
}

/// The host may have rebuilt the grid since the press: the cell is the one with the same keys.
void GridMouse::reportSimpleClick(const CellKey& key) {
    if (const std::optional<Cell> cell = view_.grid().FindCell(key)) {
        view_.grid().ReportSimpleClick(*cell);
    }
}

void GridMouse::releaseHeading(const std::optional<CellKey>& clicked) {
    if (heading_.release()) {
        return;
    }
    // It was a click on a selected heading after all.
    const QPointer<GridView> view(&view_);
    select(heading_.taken(), SelectionMode::Replace);
    if (view && clicked) {
        reportSimpleClick(*clicked);
    }
}

/// It was a click on a cell of the selected block after all.
void GridMouse::releaseEdge(const std::optional<CellKey>& clicked) {
    const std::optional<Cell> cell = clicked ? view_.grid().FindCell(*clicked) : std::nullopt;
    if (!cell) {
        return;
    }
    const QPointer<GridView> view(&view_);
    view_.selectCurrent(*cell, SelectionMode::Replace);
    if (view) {
        reportSimpleClick(*clicked);
    }
}

/// Whether the point lies in a selected cell beside one that is not, where blocks may leave the grid.
bool GridMouse::isAtSelectionEdge(const GridHit& hit, QPoint point) const {
    constexpr int EdgeWidth = 3;
    GridControl& grid = view_.grid();
    if (hit.place != Place::Cell || grid.Settings().dragDrop != DragAllowed ||
        !isSelected(grid, view_.geometry(), hit)) {
        return false;
    }
    const QRect inside = view_.cellRect(cellOf(hit)).adjusted(EdgeWidth, EdgeWidth, -EdgeWidth, -EdgeWidth);
    if (inside.width() < EdgeWidth || inside.height() < EdgeWidth || inside.contains(point)) {
        return false;
    }
    for (const QPoint beside :
         {QPoint(EdgeWidth, 0), QPoint(-EdgeWidth, 0), QPoint(0, EdgeWidth), QPoint(0, -EdgeWidth)}) {
        const GridHit other = view_.hitTest(point + beside);
        if (other.place != Place::Cell || !isSelected(grid, view_.geometry(), other)) {
            return true;
        }
    }
    return false;
}

bool GridMouse::cancel() {
    if (doing_ == Doing::Dragging) {
        doing_ = Doing::Nothing;
        clicked_.reset();
        return true;
    }
    if (doing_ == Doing::Moving) {
        doing_ = Doing::Nothing;
        clicked_.reset();
        heading_.cancel();
        return true;
    }
    if (doing_ != Doing::Resizing) {
        return false;
    }
    doing_ = Doing::Nothing;
    view_.grid().CancelBorder();
    return true;
}

QPoint GridMouse::scrollDirection(QPoint point) const {
    const GridGeometry& geometry = view_.geometry();
    const QPoint device = view_.toDevice(point);
    return {scrollsAcross_ ? directionBeyond(geometry.horizontal, device.x()) : 0,
            scrollsDown_ ? directionBeyond(geometry.vertical, device.y()) : 0};
}

void GridMouse::autoScroll() {
    const QPoint direction = scrollDirection(last_);
    if (direction.isNull()) {
        view_.setAutoScroll(false);
        return;
    }
    view_.scrollBy(direction.x(), direction.y());
    extendTo(last_);
}

Qt::CursorShape GridMouse::cursorAt(QPoint point) const {
    if (doing_ == Doing::Dragging || (doing_ == Doing::Nothing && isAtSelectionEdge(view_.hitTest(point), point))) {
        return Qt::SizeAllCursor;
    }
    const Border border = doing_ == Doing::Resizing  ? resizing_.axis
                          : doing_ == Doing::Nothing ? view_.hitTest(point).border
                                                     : Border::None;
    if (border == Border::None || !view_.grid().Settings().resizeAllowed) {
        return Qt::ArrowCursor;
    }
    return border == Border::Horizontal ? Qt::SplitHCursor : Qt::SplitVCursor;
}

}  // namespace planview
