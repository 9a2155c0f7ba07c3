#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTextDocument>
#include <QTimerEvent>
#include <QToolTip>
#include <QWheelEvent>

#include "qt/grid/GridPainter.h"
#include "qt/grid/GridView.h"

// What the user does with the view. Before the grid is told, its owner is held: the host may delete the view from
// inside the event that follows.

namespace planview {

namespace {

constexpr double ScaleStep = 0.1;
constexpr int AutoScrollMilliseconds = 60;
constexpr qsizetype LongestToolTip = 2000;

}  // namespace

void GridView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        setTextScale(textScale_ + ScaleStep * wheel_.scaleSteps(*event));
    } else {
        const QPoint steps = wheel_.scrollSteps(*event);
        scrollBy(steps.x(), steps.y());
    }
    event->accept();
}

// --- Keyboard

void GridView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && mouse_.cancel()) {
        return;
    }
    const std::optional<GridKey> key = GridKey::of(*event);
    const bool nothingToClear = grid_.Selection().IsEmpty();
    if (!key || (key->action == GridKey::Action::ClearSelection && nothingToClear)) {
        event->ignore();
        return;
    }
    event->accept();
    handleKey(*key);
}

void GridView::handleKey(const GridKey& key) {
    const std::shared_ptr<void> keepGrid = owner_;
    const std::optional<Cell> current = grid_.CurrentCell();
    switch (key.action) {
        case GridKey::Action::SelectAll:
            grid_.SelectAll();
            return;
        case GridKey::Action::ClearSelection:
            grid_.ClearSelection();
            return;
        case GridKey::Action::SelectColumn:
            if (current) {
                grid_.SelectColumn(current->column, SelectionMode::Replace);
            }
            return;
        case GridKey::Action::SelectRow:
            if (current) {
                grid_.SelectRow(current->row, SelectionMode::Replace);
            }
            return;
        case GridKey::Action::Move:
            move(key.move, SelectionMode::Replace);
            return;
        case GridKey::Action::Extend:
            move(key.move, SelectionMode::Extend);
            return;
    }
}

void GridView::move(GridMove move, SelectionMode mode) {
    const std::optional<Cell> current = grid_.CurrentCell();
    if (!current) {
        return;
    }
    const std::optional<Cell> target = GridNavigation(grid_, geometry()).target(*current, move);
    if (!target) {
        QAbstractScrollArea::focusNextPrevChild(move == GridMove::Next);
        return;
    }
    const GridGeometry& now = geometry();
    switch (move) {
        case GridMove::PageUp:
        case GridMove::PageDown:
            scrollBy(0, move == GridMove::PageDown ? now.vertical.page() : -now.vertical.page());
            break;
        case GridMove::PageLeft:
        case GridMove::PageRight:
            scrollBy(move == GridMove::PageRight ? now.horizontal.page() : -now.horizontal.page(), 0);
            break;
        default:
            break;
    }
    selectCurrent(*target, mode);
}

void GridView::selectCurrent(Cell cell, SelectionMode mode) {
    const std::shared_ptr<void> keepGrid = owner_;
    const QPointer<GridView> self(this);
    const GridStatus status = grid_.SelectCell(cell, mode);
    if (self && status == GridStatus::Ok && grid_.CurrentCell() == cell) {
        ensureVisible(cell);
    }
}

/// Tab moves within the grid and leaves it behind the last cell only.
bool GridView::focusNextPrevChild(bool next) {
    const std::optional<Cell> current = grid_.CurrentCell();
    const GridMove move = next ? GridMove::Next : GridMove::Previous;
    if (hasFocus() && current && GridNavigation(grid_, geometry()).target(*current, move)) {
        return false;
    }
    return QAbstractScrollArea::focusNextPrevChild(next);
}

void GridView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    const std::shared_ptr<void> keepGrid = owner_;
    grid_.ReportFocus(true);
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
    const std::shared_ptr<void> keepGrid = owner_;
    grid_.ReportFocus(false);
}

// --- Mouse

void GridView::mousePressEvent(QMouseEvent* event) {
    const std::shared_ptr<void> keepGrid = owner_;
    mouse_.press(event->position().toPoint(), event->button(), event->modifiers());
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const std::shared_ptr<void> keepGrid = owner_;
    mouse_.press(event->position().toPoint(), event->button(), event->modifiers());
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    const std::shared_ptr<void> keepGrid = owner_;
    const QPoint point = event->position().toPoint();
    viewport()->setCursor(mouse_.cursorAt(point));
    mouse_.move(point);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    const std::shared_ptr<void> keepGrid = owner_;
    if (event->button() == Qt::LeftButton) {
        mouse_.release();
    }
}

void GridView::setAutoScroll(bool on) {
    if (on && !autoScroll_.isActive()) {
        autoScroll_.start(AutoScrollMilliseconds, this);
    } else if (!on) {
        autoScroll_.stop();
    }
}

void GridView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != autoScroll_.timerId()) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    const std::shared_ptr<void> keepGrid = owner_;
    mouse_.autoScroll();
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        showToolTip(*static_cast<QHelpEvent*>(event));
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void GridView::showToolTip(const QHelpEvent& event) {
    const GridHit hit = hitTest(event.pos());
    if (hit.place == GridHit::Place::Nothing) {
        QToolTip::hideText();
        return;
    }
    const Cell cell = geometry().cell(hit.horizontal, hit.vertical);
    QStringList lines;
    GridPainter painter({grid_, geometry(), *theme_, fonts(), bitmaps_, true});
    if (painter.isCut(cell)) {
        lines << QString::fromStdString(grid_.DisplayText(cell)).left(LongestToolTip);
    }
    const QString tip = QString::fromStdString(grid_.Tooltip(cell)).left(LongestToolTip);
    if (!tip.isEmpty() && !lines.contains(tip)) {
        lines << tip;
    }
    // Not plain, because the tip might look like markup and because only rich text is wrapped.
    const QString text = lines.isEmpty() ? QString() : Qt::convertFromPlainText(lines.join(QLatin1Char('\n')));
    QToolTip::showText(event.globalPos(), text, viewport(), cellRect(cell));
}

}  // namespace planview
