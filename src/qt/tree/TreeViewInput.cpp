// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "qt/InputCodes.h"
#include "qt/tree/TreeDelegate.h"
#include "qt/tree/TreeView.h"

namespace planview {

namespace {

constexpr auto NodeFormat = "application/x-planview-macro-node";

}  // namespace

// --- Keys

bool TreeView::handleKey(const QKeyEvent& event) {
    const TreeNode node = tree_.SelectedItem();
    const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!node || !plain) {
        return false;
    }
    const QModelIndex index = model_.indexOf(node);
    const bool open = isExpanded(index);
    switch (event.key()) {
        case Qt::Key_Left:
            open ? tree_.UserExpand(node, false) : tree_.UserSelect(model_.nodeAt(index.parent()));
            break;
        case Qt::Key_Right:
            open ? tree_.UserSelect(node.FirstChild()) : tree_.UserExpand(node, model_.hasChildren(index));
            break;
        case Qt::Key_Plus:
            tree_.UserExpand(node, model_.hasChildren(index));
            break;
        case Qt::Key_Minus:
            tree_.UserExpand(node, false);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            tree_.UserDoubleClick(node);
            return true;
        case Qt::Key_F2:
            editNode(node);
            return true;
        case Qt::Key_Insert:
            tree_.UserClick(node, true);
            return true;
        default:
            return false;
    }
    return true;
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    const QPointer<TreeView> self(this);
    finishLabel();
    if (!self) {
        return;
    }
    const TreeNode before = tree_.SelectedItem();
    const bool handled = handleKey(*event);
    event->setAccepted(handled);
    if (!self || handled) {
        if (self && tree_.SelectedItem() != before) {
            scrollTo(model_.indexOf(tree_.SelectedItem()));
        }
        return;
    }
    QTreeView::keyPressEvent(event);
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    // A mouse press has already opened its popup.
    if (event->reason() == QContextMenuEvent::Keyboard) {
        tree_.UserMenuKey();
    }
}

void TreeView::focusInEvent(QFocusEvent* event) {
    focusedByPress_ = event->reason() == Qt::MouseFocusReason;
    {
        // Without a current node, the base class would make the first one current; a click is to choose for itself.
        const QScopedValueRollback following(following_, focusedByPress_);
        QTreeView::focusInEvent(event);
    }
    viewport()->update();
    if (event->reason() != Qt::PopupFocusReason) {
        tree_.UserFocus(true);
    }
}

void TreeView::focusOutEvent(QFocusEvent* event) {
    QTreeView::focusOutEvent(event);
    viewport()->update();
    if (event->reason() != Qt::PopupFocusReason) {
        tree_.UserFocus(false);
    }
}

// --- Mouse

void TreeView::mousePressEvent(QMouseEvent* event) {
    const QPointer<TreeView> self(this);
    clickTimer_.stop();
    pressed_ = {};
    const bool bringsFocus = std::exchange(focusedByPress_, false);
    finishLabel();
    if (!self) {
        return;
    }
    const TreeNode node = nodeUnder(event->position().toPoint());
    if (event->button() == Qt::LeftButton && chevronRect(node).contains(event->position().toPoint())) {
        tree_.UserMouseDown(node, MouseButton::Left, shiftOf(event->modifiers()));
        if (self && node) {
            tree_.UserExpand(node, !node.Expanded());
        }
        return;
    }
    // The click that brings the focus does not count as one on the selected node.
    pressedAgain_ = node && node.Selected() && !bringsFocus;
    if (event->button() == Qt::LeftButton) {
        QTreeView::mousePressEvent(event);
        pressed_ = node;
    } else {
        tree_.UserSelect(node);
    }
    tree_.UserMouseDown(node, buttonOf(event->button()), shiftOf(event->modifiers()));
}

/// A click on the selected node opens a popup, but not when it is the first of a double click.
void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    const TreeNode node = std::exchange(pressed_, TreeNode());
    QTreeView::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !node || nodeUnder(event->position().toPoint()) != node) {
        return;
    }
    if (pressedAgain_) {
        clicked_ = node;
        clickTimer_.start(QApplication::doubleClickInterval(), this);
    } else {
        tree_.UserClick(node, false);
    }
}

void TreeView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != clickTimer_.timerId()) {
        QTreeView::timerEvent(event);
        return;
    }
    clickTimer_.stop();
    if (const TreeNode node = std::exchange(clicked_, TreeNode())) {
        tree_.UserClick(node, true);
    }
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPointer<TreeView> self(this);
    clickTimer_.stop();
    const TreeNode node = nodeUnder(event->position().toPoint());
    if (chevronRect(node).contains(event->position().toPoint())) {
        mousePressEvent(event);  // two clicks in a row on a chevron are two clicks
        return;
    }
    if (event->button() != Qt::LeftButton || !node) {
        return;
    }
    tree_.UserDoubleClick(node);
    if (self && node && model_.hasChildren(model_.indexOf(node))) {
        tree_.UserExpand(node, !node.Expanded());
    }
}

// --- Label

void TreeView::editNode(TreeNode node) {
    const QPointer<TreeView> self(this);
    if (tree_.UserBeginLabelEdit(node) && self && node) {
        scrollTo(model_.indexOf(node));
        edit(model_.indexOf(node));
    }
}

void TreeDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
    constexpr int EditorInset = 5;  // its border and padding
    const TreeNode node = static_cast<const TreeModel*>(index.model())->nodeAt(index);
    const int picture = painter_.textLeft(0, node && painter_.hasPicture(node)) - painter_.textLeft(0, false);
    const int left = painter_.textLeft(0, false) - painter_.indentation() + picture - EditorInset;
    QRect place = option.rect.adjusted(left, 0, 0, 0);
    place.setRight(std::min(place.right(), editor->parentWidget()->width() - 2));
    editor->setGeometry(place);
}

void TreeView::labelEntered(const QString& text) {
    label_ = text;
    // Later: on hearing of the new text the host may do anything to the view, while the editor is still closing.
    guard().later(this, "EndLabelEdit", [this] { finishLabel(); });
}

void TreeView::finishLabel() {
    if (const std::optional<QString> text = std::exchange(label_, std::nullopt)) {
        tree_.UserEndLabelEdit(text->simplified().toStdString());
    }
}

void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    QTreeView::closeEditor(editor, hint);
    if (!label_) {
        tree_.UserCancelLabelEdit();
    }
}

// --- Dragging a node

void TreeView::startDrag(Qt::DropActions /*actions*/) {
    const TreeNode node = std::exchange(pressed_, TreeNode());
    if (!node) {
        return;
    }
    const QPointer<TreeView> self(this);
    beginDrag(node);
    auto* drag = new QDrag(this);
    auto* content = new QMimeData;
    content->setData(QLatin1String(NodeFormat), QByteArray::fromStdString(node.Key()));
    content->setText(QString::fromStdString(node.Text()));
    drag->setMimeData(content);
    drag->exec(Qt::MoveAction);
    if (self) {
        endDrag();
    }
}

void TreeView::endDrag() {
    dragged_ = {};
    setDropMark(std::nullopt);
}

std::optional<TreeView::DropMark> TreeView::dropAt(const QDropEvent& event) const {
    const QPoint point = event.position().toPoint();
    const TreeNode target = nodeUnder(point);
    // While a node of this tree is dragged, no other one is.
    if (!event.mimeData()->hasFormat(QLatin1String(NodeFormat)) || !dragged_ || !target) {
        return std::nullopt;
    }
    for (TreeNode above = target; above; above = above.Parent()) {
        if (above == dragged_) {
            return std::nullopt;
        }
    }
    const QRect row = visualRect(model_.indexOf(target));
    const int edge = row.height() / 4;
    const TreeDrop place = point.y() < row.top() + edge      ? TreeDrop::Before
                           : point.y() > row.bottom() - edge ? TreeDrop::After
                                                             : TreeDrop::Below;
    return DropMark{target, place};
}

void TreeView::setDropMark(std::optional<DropMark> mark) {
    drop_ = mark;
    viewport()->update();
}

void TreeView::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(static_cast<bool>(dragged_));
}

void TreeView::dragMoveEvent(QDragMoveEvent* event) {
    QTreeView::dragMoveEvent(event);  // scrolls at the edges
    setDropMark(dropAt(*event));
    event->setAccepted(drop_.has_value());
}

void TreeView::dragLeaveEvent(QDragLeaveEvent* event) {
    QTreeView::dragLeaveEvent(event);
    setDropMark(std::nullopt);
}

void TreeView::dropEvent(QDropEvent* event) {
    const std::optional<DropMark> mark = dropAt(*event);
    QDragLeaveEvent left;
    QTreeView::dragLeaveEvent(&left);  // ends its scrolling
    setDropMark(std::nullopt);
    event->setAccepted(mark.has_value());
    if (mark) {
        // Later: the drag is still under way.
        guard().later(this, "Drop",
                      [this, dragged = dragged_, mark] { tree_.UserDrop(dragged, mark->target, mark->place); });
    }
}

}  // namespace planview
