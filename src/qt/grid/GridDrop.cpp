// SPDX-License-Identifier: MIT
#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPointer>

#include "grid/ClipboardCommands.h"
#include "qt/grid/GridView.h"
#include "qt/platform/QtClipboard.h"

// Blocks of cells that are dragged to and from other programs. A dropped block is pasted.

namespace planview {

void GridView::dragSelection() {
    const std::optional<ClipboardContents> contents = ContentsOfSelection(grid_);
    if (!contents) {
        return;
    }
    const QPointer<GridView> self(this);
    auto* drag = new QDrag(this);
    drag->setMimeData(mimeDataOf(*contents).release());  // which takes it
    runDrag_(*drag);
    if (self) {
        drag->deleteLater();
    }
}

bool GridView::takes(const QDropEvent& event) const {
    const QMimeData* offered = event.mimeData();
    return grid_.Settings().dragDrop == DragAllowed && !grid_.IsReadOnly() && offered &&
           (offered->hasFormat(QStringLiteral("text/plain")) || offered->hasHtml()) &&
           event.possibleActions().testFlag(Qt::CopyAction);
}

void GridView::setDropCell(std::optional<Cell> cell) {
    if (dropCell_ != cell) {
        dropCell_ = cell;
        viewport()->update();
    }
}

void GridView::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
}

void GridView::dragMoveEvent(QDragMoveEvent* event) {
    const GridHit hit = hitTest(event->position().toPoint());
    const bool onCell = takes(*event) && hit.place == GridHit::Place::Cell;
    setDropCell(onCell ? std::optional(geometry().cell(hit.horizontal, hit.vertical)) : std::nullopt);
    if (onCell) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void GridView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    setDropCell(std::nullopt);
}

void GridView::dropEvent(QDropEvent* event) {
    setDropCell(std::nullopt);
    const GridHit hit = hitTest(event->position().toPoint());
    if (!takes(*event) || hit.place != GridHit::Place::Cell || !finishEditing()) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const CellKey key = grid_.KeyOf(geometry().cell(hit.horizontal, hit.vertical));
    const ClipboardContents contents = contentsOf(*event->mimeData());
    const QPointer<GridView> self(this);
    if (const std::optional<Cell> cell = grid_.FindCell(key)) {
        selectCurrent(*cell, SelectionMode::Replace);
    }
    // The host may have rebuilt the grid when it heard of the selection, or be gone.
    if (const std::optional<Cell> cell = self ? grid_.FindCell(key) : std::nullopt) {
        grid_.ReportDrop(*cell, contents.text, contents.html);
    }
}

}  // namespace planview
