// SPDX-License-Identifier: MIT
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTextDocument>
#include <QTimerEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <optional>
#include <utility>

#include "qt/KeyStrokes.h"
#include "qt/grid/GridAccessible.h"
#include "qt/grid/GridPainter.h"
#include "qt/grid/GridView.h"
#include "qt/grid/HiddenMarks.h"

// What the user does with the view. The host may delete it from inside the event that follows.

namespace planview {

namespace {

constexpr double ScaleStep = 0.1;
constexpr int AutoScrollMilliseconds = 60;
constexpr qsizetype LongestToolTip = 2000;

constexpr std::int16_t CharacterReturn = 13;

/// Whether the key begins an entry: it types something or deletes what is there.
bool startsEntry(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers NotTyping = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if ((event.modifiers() & NotTyping) != Qt::NoModifier) {
        return false;
    }
    return event.key() == Qt::Key_Backspace || (!event.text().isEmpty() && event.text().front().isPrint());
}

bool isReturn(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

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
    if (editor_.isOpen()) {
        if (editor_.hasFocus()) {
            event->ignore();  // what the editor itself has no use for
        } else {
            editor_.pass(*event);
        }
        return;
    }
    editor_.hideMessage();
    if (event->key() == Qt::Key_Escape && mouse_.cancel()) {
        return;
    }
    if (!handleMenuKey(*event) && !handleCommand(*event) && !handleGridKey(*event) && !handleTyping(*event)) {
        event->ignore();
    }
}

/// Reported as a key rather than by contextMenuEvent(), which no desktop sends for both keys.
bool GridView::handleMenuKey(const QKeyEvent& event) {
    const bool menuKey = event.key() == Qt::Key_Menu && event.modifiers() == Qt::NoModifier;
    const bool shiftF10 = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    if (!menuKey && !shiftF10) {
        return false;
    }
    if (const std::optional<Cell> current = grid_.CurrentCell()) {
        ensureVisible(*current);
    }
    grid_.ReportMenuKey();
    return true;
}

/// The popup was opened when the button or key was pressed; the host's own must not follow.
void GridView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
}

bool GridView::handleCommand(const QKeyEvent& event) {
    const KeyStroke key = keyStrokeOf(event);
    const bool isCommand = FindCommand(key, KeyScope::Table) != nullptr;
    const bool isGrids = startsEntry(event) || GridKey::of(event);
    if (!isCommand && (isGrids || !key.IsTyped())) {
        return false;
    }
    return grid_.ReportKeyDown(key.shift, key.code) || isCommand;  // the key of a command types nothing
}

bool GridView::handleGridKey(const QKeyEvent& event) {
    const std::optional<GridKey> key = GridKey::of(event);
    if (grid_.IsAdding() && event.key() == Qt::Key_Space && event.modifiers() == Qt::NoModifier) {
        if (const std::optional<Cell> current = grid_.CurrentCell()) {
            grid_.SelectCell(*current, SelectionMode::Add);
        }
        return true;
    }
    const bool nothingToClear = grid_.Selection().IsEmpty() && !grid_.IsAdding();
    if (!key || (key->action == GridKey::Action::ClearSelection && nothingToClear)) {
        return false;
    }
    if (isReturn(event)) {
        finishAndMove(key->move, true);
    } else {
        handleKey(*key);
    }
    return true;
}

bool GridView::handleTyping(QKeyEvent& event) {
    const std::optional<Cell> current = grid_.CurrentCell();
    if (!current) {
        return false;
    }
    if (event.key() == Qt::Key_F2 && event.modifiers() == Qt::NoModifier) {
        editor_.open(*current, GridEditor::Start::Edited);
        return true;
    }
    if (!startsEntry(event)) {
        return false;
    }
    if (editor_.open(*current, GridEditor::Start::Typed)) {
        editor_.pass(event);
    }
    return true;
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
    const std::optional<Cell> current = grid_.CurrentCell();
    const bool nothing = event->preeditString().isEmpty() && event->commitString().isEmpty();
    if (nothing || !current || (!editor_.isOpen() && !editor_.open(*current, GridEditor::Start::Typed))) {
        event->ignore();
        return;
    }
    editor_.pass(*event);
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const {
    const std::optional<Cell> current = grid_.CurrentCell();
    switch (query) {
        case Qt::ImEnabled:
            return current.has_value();
        case Qt::ImCursorRectangle:
            return current ? geometry_.cellRect(*current) : QRect();
        default:
            return QAbstractScrollArea::inputMethodQuery(query);
    }
}

void GridView::finishAndMove(GridMove direction, bool byReturn) {
    const QPointer<GridView> self(this);
    if (!editor_.finish() || !self) {
        return;
    }
    if (byReturn) {
        grid_.ReportKeyPress(CharacterReturn);
    }
    if (self) {
        move(direction, SelectionMode::Replace);
    }
}

void GridView::handleKey(const GridKey& key) {
    switch (key.action) {
        case GridKey::Action::SelectAll:
            grid_.SelectAll();
            return;
        case GridKey::Action::ClearSelection:
            grid_.ClearSelection();
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
    const std::optional<Cell> from = mode == SelectionMode::Extend ? grid_.SelectionEnd() : grid_.CurrentCell();
    if (!from) {
        return;
    }
    const std::optional<Cell> target = GridNavigation(grid_, geometry()).target(*from, move);
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
    if (mode == SelectionMode::Extend && grid_.ExtendedKind() != SelectionKind::Cells) {
        extendHeadings(*from, *target);
    } else if (mode == SelectionMode::Replace && grid_.IsAdding()) {
        const QPointer<GridView> self(this);
        if (grid_.GoToCell(*target) == GridStatus::Ok && self) {
            ensureVisible(*target);
        }
    } else {
        selectCurrent(*target, mode);
    }
}

/// Along the headings; across them there is nothing to extend.
void GridView::extendHeadings(Cell from, Cell to) {
    const QPointer<GridView> self(this);
    GridStatus status = GridStatus::NoItemAtLocation;
    if (grid_.ExtendedKind() == SelectionKind::Columns && from.column != to.column) {
        status = grid_.SelectColumn(to.column, SelectionMode::Extend);
    } else if (grid_.ExtendedKind() == SelectionKind::Rows && from.row != to.row) {
        status = grid_.SelectRow(to.row, SelectionMode::Extend);
    }
    if (self && status == GridStatus::Ok) {
        ensureVisible(to);
    }
}

void GridView::selectCurrent(Cell cell, SelectionMode mode) {
    const QPointer<GridView> self(this);
    const GridStatus status = grid_.SelectCell(cell, mode);
    if (self && status == GridStatus::Ok && grid_.SelectionEnd() == cell) {
        ensureVisible(cell);
    }
}

bool GridView::finishEditing() {
    return guard().run("FinishEntry", [this] { return editor_.finish(); });
}

/// Tab moves within the grid and leaves it only after the last cell.
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
    teller_->focusReturned();
    reportFocus();
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    reportFocus();
}

bool GridView::hasGridFocus() const {
    return hasFocus() || editor_.hasFocus();
}

/// The editor is part of the grid: moving between the two is no change.
void GridView::reportFocus() {
    const bool now = hasGridFocus();
    if (std::exchange(focusReported_, now) == now) {
        return;
    }
    viewport()->update();
    grid_.ReportFocus(now);
}

// --- Mouse

void GridView::mousePressEvent(QMouseEvent* event) {
    if (editor_.finishForMouse()) {
        mouse_.press(event->position().toPoint(), event->button(), event->modifiers());
    }
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (editor_.finishForMouse()) {
        mouse_.doubleClick(event->position().toPoint(), event->button(), event->modifiers());
    }
}

void GridView::edit(Cell cell) {
    editor_.open(cell, GridEditor::Start::Edited);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    viewport()->setCursor(mouse_.cursorAt(point));
    mouse_.move(point);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
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
    mouse_.autoScroll();
}

bool GridView::handleViewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        showToolTip(*static_cast<QHelpEvent*>(event));
        return true;
    }
    return GuardedView::handleViewportEvent(event);
}

void GridView::showToolTip(const QHelpEvent& event) {
    if (const std::optional<HiddenMark> mark = hiddenMarkAt(grid_, geometry(), toDevice(event.pos()))) {
        const QString text = mark->columns ? QStringLiteral("Hidden columns: a double click shows them")
                                           : QStringLiteral("Hidden rows: a double click shows them");
        QToolTip::showText(event.globalPos(), text, viewport());
        return;
    }
    const GridHit hit = hitTest(event.pos());
    if (hit.place == GridHit::Place::Nothing) {
        QToolTip::hideText();
        return;
    }
    const Cell cell = geometry().cell(hit.horizontal, hit.vertical);
    QStringList lines;
    GridPainter painter({grid_, geometry(), theme_, fonts(), bitmaps_, pending_, dots_, true});
    if (painter.isCut(cell)) {
        lines << QString::fromStdString(grid_.DisplayText(cell)).left(LongestToolTip);
    }
    const QString tip = QString::fromStdString(grid_.Tooltip(cell)).left(LongestToolTip);
    if (!tip.isEmpty() && !lines.contains(tip)) {
        lines << tip;
    }
    if (const QString formula = explain_ ? explain_(cell).left(LongestToolTip) : QString(); !formula.isEmpty()) {
        lines << formula;
    }
    // Not plain, because the tip might look like markup and because only rich text is wrapped.
    const QString text = lines.isEmpty() ? QString() : Qt::convertFromPlainText(lines.join(QLatin1Char('\n')));
    QToolTip::showText(event.globalPos(), text, viewport(), cellRect(cell));
}

}  // namespace planview
