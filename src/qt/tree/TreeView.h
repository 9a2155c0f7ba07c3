// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QTreeView>
#include <memory>
#include <optional>

#include "components/TreeControl.h"
#include "qt/GuardedWidget.h"
#include "qt/tree/TreeModel.h"
#include "qt/tree/TreeRowPainter.h"

namespace planview {

/// Shows a TreeControl and hands it what the user does. What is open and what is selected is the TreeControl's; the
/// view follows it.
///
/// The host may delete the view, or change the tree, from inside an event that an input raised; so every handler checks
/// that the view still exists after telling the tree, and what a standard item view does by itself is reported only
/// after it has returned.
class TreeView final : public GuardedView<QTreeView> {
    Q_OBJECT

public:
    /// `owner` keeps the tree alive while the view handles an input; it may be null if the tree outlives the view.
    TreeView(TreeControl& tree, GridBitmaps& bitmaps, std::shared_ptr<void> owner = nullptr, QWidget* parent = nullptr);
    ~TreeView() override;

    [[nodiscard]] TreeControl& tree() const { return tree_; }
    [[nodiscard]] const TreeModel& nodes() const { return model_; }

    void setTheme(const GridTheme& theme);
    void setTextScale(double scale);

    /// Opens the label of a node for editing, if the control allows it.
    void editNode(TreeNode node);
    /// Paints the rows elsewhere, scrolled as they are now.
    void paintOn(QPainter& painter, const QRect& rect) const;
    /// The row of a node in the viewport's coordinates, from its picture on; empty when it is out of sight.
    [[nodiscard]] QRect nodeRect(TreeNode node) const;
    /// Where a node's chevron is; empty when it has none or is out of sight.
    [[nodiscard]] QRect chevronRect(TreeNode node) const;

    void reset() override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    /// The node that the user is dragging; null while none is.
    void beginDrag(TreeNode node) { dragged_ = node; }
    void endDrag();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paintEvent(QPaintEvent* event) override;
    bool handleViewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Where a dragged node would go.
    struct DropMark {
        TreeNode target;
        TreeDrop place = TreeDrop::Below;
    };

    // The view follows the tree.
    void followExpanded(const QModelIndex& index);
    void followSelection();
    void fitColumn();
    [[nodiscard]] TreeNode nodeUnder(QPoint point) const;
    [[nodiscard]] TreeRowPainter::State stateOf(TreeNode node, bool onScreen) const;
    [[nodiscard]] bool hasTreeFocus() const;

    // What the user does.
    bool handleKey(const QKeyEvent& event);
    void pressed(TreeNode node, const QMouseEvent& event);
    void labelEntered(const QString& text);
    void finishLabel();
    [[nodiscard]] std::optional<DropMark> dropAt(const QDropEvent& event) const;
    void setDropMark(std::optional<DropMark> mark);
    void paintDropMark(QPainter& painter) const;

    TreeControl& tree_;
    TreeModel model_;
    TreeRowPainter painter_;
    bool following_ = false;

    TreeNode pressed_;           // by the left button, which is still down
    bool pressedAgain_ = false;  // and was the selected one before
    bool focusedByPress_ = false;
    QBasicTimer clickTimer_;  // until no second click can follow
    TreeNode clicked_;        // the node of that click
    TreeNode dragged_;
    std::optional<DropMark> drop_;
    std::optional<QString> label_;  // entered, not reported yet
};

}  // namespace planview
