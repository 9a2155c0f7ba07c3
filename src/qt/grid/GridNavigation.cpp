// SPDX-License-Identifier: MIT
#include "qt/grid/GridNavigation.h"

#include <QKeyEvent>
#include <algorithm>

#include "qt/grid/GridLine.h"

namespace planview {

namespace {

struct Arrow {
    int horizontal = 0;
    int vertical = 0;
};

Arrow arrowOf(GridMove move) {
    switch (move) {
        case GridMove::Left:
        case GridMove::EdgeLeft:
        case GridMove::PageLeft:
            return {-1, 0};
        case GridMove::Right:
        case GridMove::EdgeRight:
        case GridMove::PageRight:
            return {1, 0};
        case GridMove::Up:
        case GridMove::EdgeUp:
        case GridMove::PageUp:
            return {0, -1};
        case GridMove::Down:
        case GridMove::EdgeDown:
        case GridMove::PageDown:
            return {0, 1};
        default:
            return {};
    }
}

std::optional<GridMove> moveOf(int key, bool control, bool alt) {
    switch (key) {
        case Qt::Key_Left:
            return control ? GridMove::EdgeLeft : GridMove::Left;
        case Qt::Key_Right:
            return control ? GridMove::EdgeRight : GridMove::Right;
        case Qt::Key_Up:
            return control ? GridMove::EdgeUp : GridMove::Up;
        case Qt::Key_Down:
            return control ? GridMove::EdgeDown : GridMove::Down;
        case Qt::Key_Home:
            return control ? GridMove::GridStart : GridMove::LineStart;
        case Qt::Key_End:
            return control ? GridMove::GridEnd : GridMove::LineEnd;
        case Qt::Key_PageUp:
            return alt ? GridMove::PageLeft : GridMove::PageUp;
        case Qt::Key_PageDown:
            return alt ? GridMove::PageRight : GridMove::PageDown;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<GridMove> entryMove(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return event.modifiers().testFlag(Qt::ShiftModifier) ? GridMove::Up : GridMove::Down;
        case Qt::Key_Tab:
            return GridMove::Next;
        case Qt::Key_Backtab:
            return GridMove::Previous;
        default:
            return std::nullopt;
    }
}

std::optional<GridKey> GridKey::of(const QKeyEvent& event) {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    const int key = event.key();
    const bool paging = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (alt && !paging) {
        return std::nullopt;  // menus and the desktop
    }
    if (key == Qt::Key_A && control && !shift) {
        return GridKey{Action::SelectAll, {}};
    }
    if (key == Qt::Key_Space && control && shift) {
        return GridKey{Action::SelectAll, {}};
    }
    if (key == Qt::Key_Escape) {
        return GridKey{Action::ClearSelection, {}};
    }
    if (const std::optional<GridMove> onward = entryMove(event)) {
        return control ? std::nullopt : std::optional(GridKey{Action::Move, *onward});
    }
    const std::optional<GridMove> move = moveOf(key, control, alt);
    return move ? std::optional(GridKey{shift ? Action::Extend : Action::Move, *move}) : std::nullopt;
}

std::optional<Cell> GridNavigation::target(Cell from, GridMove move) const {
    const GridLine horizontal(geometry_.horizontal.layout());
    const GridLine vertical(geometry_.vertical.layout());
    if (horizontal.size() == 0 || vertical.size() == 0) {
        return from;
    }
    const Place place{horizontal.placeOf(geometry_.horizontalId(from)), vertical.placeOf(geometry_.verticalId(from))};
    if (move == GridMove::Next || move == GridMove::Previous) {
        const std::optional<Place> next = nextInLine(place, move == GridMove::Next ? 1 : -1);
        return next ? std::optional(cellAt(*next)) : std::nullopt;
    }
    const Place to = step(place, move);
    return cellAt({horizontal.clamped(to.horizontal), vertical.clamped(to.vertical)});
}

GridNavigation::Place GridNavigation::step(Place from, GridMove move) const {
    const GridLine horizontal(geometry_.horizontal.layout());
    const GridLine vertical(geometry_.vertical.layout());
    const Arrow arrow = arrowOf(move);
    switch (move) {
        case GridMove::LineStart:
            return {horizontal.firstCenter(), from.vertical};
        case GridMove::LineEnd:
            return {horizontal.lastCenter(), from.vertical};
        case GridMove::GridStart:
            return {horizontal.firstCenter(), vertical.firstCenter()};
        case GridMove::GridEnd:
            return {horizontal.lastCenter(), vertical.lastCenter()};
        case GridMove::PageLeft:
        case GridMove::PageRight: {
            const auto [first, last] = horizontal.areaAround(from.horizontal);
            const int page = geometry_.horizontal.page();
            return {std::clamp(from.horizontal + arrow.horizontal * page, first, last), from.vertical};
        }
        case GridMove::PageUp:
        case GridMove::PageDown: {
            const auto [first, last] = vertical.areaAround(from.vertical);
            const int page = geometry_.vertical.page();
            return {from.horizontal, std::clamp(from.vertical + arrow.vertical * page, first, last)};
        }
        case GridMove::EdgeLeft:
        case GridMove::EdgeRight:
            return {dataEdge(from, true, arrow.horizontal), from.vertical};
        case GridMove::EdgeUp:
        case GridMove::EdgeDown:
            return {from.horizontal, dataEdge(from, false, arrow.vertical)};
        default:
            return {from.horizontal + arrow.horizontal, from.vertical + arrow.vertical};
    }
}

/// As spreadsheets do: from within data to its last cell, else to the first cell of the next data; within one area.
int GridNavigation::dataEdge(Place from, bool horizontal, int direction) const {
    const GridLine line(horizontal ? geometry_.horizontal.layout() : geometry_.vertical.layout());
    const int start = horizontal ? from.horizontal : from.vertical;
    const auto [first, last] = line.areaAround(start);
    const int end = direction > 0 ? last : first;
    const auto hasData = [&](int place) {
        const Place at = horizontal ? Place{place, from.vertical} : Place{from.horizontal, place};
        return !grid_.Contents(cellAt(at)).empty();
    };
    if (start == end) {
        return line.clamped(start + direction);
    }
    int place = start + direction;
    const bool throughData = hasData(start) && hasData(place);
    while (place != end && (throughData ? hasData(place + direction) : !hasData(place))) {
        place += direction;
    }
    return place;
}

std::optional<GridNavigation::Place> GridNavigation::nextInLine(Place from, int direction) const {
    const GridLine horizontal(geometry_.horizontal.layout());
    const GridLine vertical(geometry_.vertical.layout());
    const auto [first, last] = horizontal.areaAround(from.horizontal);
    const int next = from.horizontal + direction;
    if (next >= first && next <= last) {
        return Place{next, from.vertical};
    }
    const int line = from.vertical + direction;
    if (line < 0 || line >= vertical.size()) {
        return std::nullopt;
    }
    return Place{direction > 0 ? first : last, line};
}

Cell GridNavigation::cellAt(Place place) const {
    return geometry_.cell(GridLine(geometry_.horizontal.layout()).trackAt(place.horizontal),
                          GridLine(geometry_.vertical.layout()).trackAt(place.vertical));
}

}  // namespace planview
