// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <Qt>
#include <cstdint>
#include <optional>

#include "components/GridSelection.h"
#include "qt/grid/GridHit.h"
#include "qt/grid/HeadingDrag.h"

namespace planview {

class GridView;

/// What the mouse does in the grid: selects cells, columns and rows, drags heading borders and headings, and the
/// selected block by its edge to another program.
///
/// Every method may end with the view deleted, because the host may do so when it hears what happened; so none uses
/// anything after telling the grid.
class GridMouse {
public:
    explicit GridMouse(GridView& view) : view_(view), heading_(view) {}

    void press(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void doubleClick(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void move(QPoint point);
    void release();
    /// Cancels a resize or move in progress; false if there is none.
    bool cancel();
    /// Scrolls towards a pointer beyond the cells and takes the selection along.
    void autoScroll();

    [[nodiscard]] Qt::CursorShape cursorAt(QPoint point) const;

private:
    enum class Doing { Nothing, Cells, TopHeadings, LeftHeadings, Resizing, Moving, Dragging };
    struct Resizing {
        GridHit::Border axis = GridHit::Border::None;
        int direction = 1;
        int start = 0;  ///< of the pointer, in pixels of the device
        int size = 0;   ///< of the track, in logical pixels
    };

    void report(const GridHit& hit, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    bool pressBorder(const GridHit& hit, QPoint point);
    [[nodiscard]] Cell cellOf(const GridHit& hit) const;
    [[nodiscard]] bool hasScrolledAway(QPoint point) const;
    void reportDoubleClick(Cell cell);
    void reportSimpleClick(const CellKey& key);
    void releaseHeading(const std::optional<CellKey>& clicked);
    void releaseEdge(const std::optional<CellKey>& clicked);
    bool showHidden(QPoint point);
    void fitContents(const GridHit& hit);
    void select(const GridHit& hit, SelectionMode mode);
    void extendTo(QPoint point);
    void resizeTo(QPoint point);
    [[nodiscard]] QPoint scrollDirection(QPoint point) const;
    [[nodiscard]] bool isAtSelectionEdge(const GridHit& hit, QPoint point) const;

    GridView& view_;
    Doing doing_ = Doing::Nothing;
    Resizing resizing_;
    HeadingDrag heading_;
    // Whether the drag began in the centre area, which then scrolls along.
    bool scrollsAcross_ = false;
    bool scrollsDown_ = false;
    QPoint last_;
    struct Pressed {
        QPoint point;
        std::uint64_t built = 0;  ///< the grid's BuildVersion()
        Cell cell;
        std::optional<ColumnId> firstColumn;  ///< on screen, before the press
        std::optional<RowId> firstRow;
    };
    /// The last press.
    std::optional<Pressed> pressed_;
    /// The cell or heading of a press that may become a simple click.
    std::optional<CellKey> clicked_;
};

}  // namespace planview
