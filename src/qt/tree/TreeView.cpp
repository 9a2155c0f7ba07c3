// SPDX-License-Identifier: MIT
#include "qt/tree/TreeView.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

#include "macro/tree/modMacro.h"
#include "qt/tree/TreeDelegate.h"

namespace planview {

namespace {

/// The least width of the column that a text keeps, however deep its node.
constexpr int LeastText = 64;
/// The same where the tree has to be scrolled sideways anyway.
constexpr int TextWhenScrolled = 240;
constexpr int DropLineWidth = 2;
constexpr qsizetype LongestTip = 2000;

}  // namespace

TreeView::TreeView(TreeControl& tree, GridBitmaps& bitmaps, std::shared_ptr<void> owner, QWidget* parent)
    : GuardedView(EntryGuard(modMacro::Label, std::move(owner)), parent), tree_(tree), model_(tree), painter_(bitmaps) {
    setAccessibleName(tr("Macros"));
    setFrameShape(QFrame::NoFrame);
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(1);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setExpandsOnDoubleClick(false);
    setItemsExpandable(false);  // by the item view itself; the control decides
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setHorizontalScrollMode(ScrollPerPixel);
    viewport()->setAttribute(Qt::WA_Hover);
    auto* delegate = new TreeDelegate(painter_, this);
    setItemDelegate(delegate);
    guard().connect(delegate, &TreeDelegate::textEntered, this, "EnterLabel",
                    [this](const QString& text) { labelEntered(text); });
    setModel(&model_);
    guard().connect(&model_, &TreeModel::expandedChanged, this, "FollowExpanded",
                    [this](const QModelIndex& index) { followExpanded(index); });
    guard().connect(&model_, &TreeModel::selectionChanged, this, "FollowSelection", [this] { followSelection(); });
    guard().connect(&model_, &TreeModel::showWanted, this, "ShowNode",
                    [this](const QModelIndex& index) { scrollTo(index); });
    // Queued: the request comes from a popup opened by a mouse press.
    connect(
        &model_, &TreeModel::editWanted, this,
        [this](const QPersistentModelIndex& index) {
            guard().run("EditLabel", [&] { editNode(model_.nodeAt(index)); });
        },
        Qt::QueuedConnection);
    setTextScale(1.0);
    followExpanded({});
    followSelection();
}

TreeView::~TreeView() {
    disconnect(&model_, nullptr, this, nullptr);
    setModel(nullptr);  // the base outlives the model
}

void TreeView::setTheme(const GridTheme& theme) {
    painter_.setTheme(theme);
    QPalette palette = theme.widgetPalette(this->palette());
    palette.setColor(QPalette::Base, QColor(theme.panel));
    setPalette(palette);
    viewport()->update();
}

void TreeView::setTextScale(double scale) {
    painter_.setTextScale(scale);
    setIndentation(painter_.indentation());
    scheduleDelayedItemsLayout();
    fitColumn();
}

// --- Following the tree

void TreeView::reset() {
    const int scrolled = verticalScrollBar()->value();
    tree_.UserCancelLabelEdit();
    label_.reset();
    drop_.reset();
    QTreeView::reset();
    fitColumn();
    followExpanded({});
    followSelection();
    if (isVisible()) {
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(scrolled);
    }
}

void TreeView::followExpanded(const QModelIndex& index) {
    if (index.isValid()) {
        setExpanded(index, model_.nodeAt(index).Expanded());
        return;
    }
    collapseAll();
    scheduleDelayedItemsLayout();  // one for all, instead of one for each node
    for (const QModelIndex& open : model_.expandedNodes()) {
        setExpanded(open, true);
    }
}

void TreeView::followSelection() {
    const QScopedValueRollback following(following_, true);
    setAutoScroll(false);  // the one who selects decides whether to scroll there
    const QModelIndex index = model_.indexOf(tree_.SelectedItem());
    if (index.isValid()) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    } else {
        selectionModel()->clear();
    }
    setAutoScroll(true);
    viewport()->update();
}

void TreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (!following_ && current.isValid()) {
        guard().run("Select", [&] { tree_.UserSelect(model_.nodeAt(current)); });
    }
}

void TreeView::fitColumn() {
    const int deepest = painter_.textLeft(model_.deepest(), true);
    const int room = viewport()->width();
    header()->resizeSection(0, deepest + LeastText <= room ? room : deepest + TextWhenScrolled);
}

void TreeView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    fitColumn();
}

// --- Places

TreeNode TreeView::nodeUnder(QPoint point) const {
    return model_.nodeAt(indexAt(point));
}

/// The base class looks only at the column, which begins far to the left of a deep node.
void TreeView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QScrollBar& sideways = *horizontalScrollBar();
    const int scrolled = sideways.value();
    QTreeView::scrollTo(index, hint);
    sideways.setValue(scrolled);
    const TreeNode node = model_.nodeAt(index);
    if (!node) {
        return;
    }
    const int left = painter_.textLeft(TreeModel::levelOf(node), false) - indentation();
    const int right = painter_.textLeft(TreeModel::levelOf(node), true) + LeastText;
    if (left < scrolled || right > scrolled + viewport()->width()) {
        sideways.setValue(right <= viewport()->width() ? 0 : left);
    }
}

QRect TreeView::nodeRect(TreeNode node) const {
    return visualRect(model_.indexOf(node)) & viewport()->rect();
}

QRect TreeView::chevronRect(TreeNode node) const {
    const QModelIndex index = model_.indexOf(node);
    const QRect item = visualRect(index);
    if (item.isEmpty() || !model_.hasChildren(index)) {
        return {};
    }
    const int left = painter_.textLeft(TreeModel::levelOf(node), false) - indentation() - horizontalOffset();
    return {left, item.top(), indentation(), item.height()};
}

bool TreeView::hasTreeFocus() const {
    return hasFocus() || viewport()->hasFocus() || state() == EditingState;
}

// --- Painting

TreeRowPainter::State TreeView::stateOf(TreeNode node, bool onScreen) const {
    TreeRowPainter::State state;
    state.level = TreeModel::levelOf(node);
    state.hasChildren = model_.hasChildren(model_.indexOf(node));
    state.focused = onScreen && hasTreeFocus();
    if (onScreen && viewport()->underMouse()) {
        state.hovered = nodeUnder(viewport()->mapFromGlobal(QCursor::pos())) == node;
    }
    return state;
}

void TreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const TreeNode node = model_.nodeAt(index);
    if (!node) {
        return;  // the tree is being changed; the model hears of it when that is done
    }
    const QRect row(-horizontalOffset(), option.rect.top(), std::max(header()->sectionSize(0), viewport()->width()),
                    option.rect.height());
    painter->setFont(font());
    painter_.paint(*painter, row, node, stateOf(node, true));
}

void TreeView::paintEvent(QPaintEvent* event) {
    // A host's style sheet takes the palette away.
    QPainter(viewport()).fillRect(event->rect(), QColor(painter_.theme().panel));
    QTreeView::paintEvent(event);
    if (drop_) {
        QPainter painter(viewport());
        paintDropMark(painter);
    }
}

void TreeView::paintDropMark(QPainter& painter) const {
    const QRect row = drop_->target ? nodeRect(drop_->target).adjusted(-2, 0, -2, 0) : QRect();
    if (row.isEmpty()) {
        return;
    }
    const QColor accent(painter_.theme().accent);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(accent, DropLineWidth));
    if (drop_->place == TreeDrop::Below) {
        painter.drawRoundedRect(QRectF(row).adjusted(1, 1, -1, -1), 4, 4);
        return;
    }
    const int y = drop_->place == TreeDrop::Before ? row.top() : row.bottom() + 1;
    painter.drawLine(row.left() + DropLineWidth, y, row.right(), y);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPoint(row.left(), y), DropLineWidth, DropLineWidth);
}

void TreeView::paintOn(QPainter& painter, const QRect& rect) const {
    painter.save();
    painter.setClipRect(rect);
    painter.fillRect(rect, QColor(painter_.theme().panel));
    painter.setFont(font());
    const TreeNode top = isVisible() ? nodeUnder(QPoint(1, 1)) : TreeNode();
    const int height = painter_.rowHeight();
    TreeNode node = top ? top : tree_.Nodes().FirstRoot();
    for (int y = rect.top(); node && y < rect.bottom(); y += height) {
        painter_.paint(painter, QRect(rect.left(), y, rect.width(), height), node, stateOf(node, false));
        TreeNode next = node.Expanded() ? node.FirstChild() : TreeNode();
        while (!next && node) {
            next = node.NextSibling();
            node = node.Parent();
        }
        node = next;
    }
    painter.restore();
}

bool TreeView::handleViewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const TreeNode node = nodeUnder(help.pos());
        const QRect row = node ? visualRect(model_.indexOf(node)) : QRect();
        const QString text = node ? QString::fromStdString(node.Text()) : QString();
        const int left = node ? painter_.textLeft(TreeModel::levelOf(node), painter_.hasPicture(node)) : 0;
        const int room = std::min(row.right(), viewport()->width()) - left + horizontalOffset();
        if (node && QFontMetrics(painter_.font(font())).horizontalAdvance(text) > room) {
            QToolTip::showText(help.globalPos(), Qt::convertFromPlainText(text.left(LongestTip)), viewport(), row);
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return GuardedView::handleViewportEvent(event);
}

}  // namespace planview
