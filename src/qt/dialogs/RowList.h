// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>
#include <QPainter>
#include <QTreeView>

#include "qt/GuardedWidget.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// A list of rows in a dialog, of which several can be selected. The current row has a frame in the theme's accent,
/// selected or not, while the list has the focus; a style's own frame would dim the row's texts.
class RowList final : public GuardedView<QTreeView> {
public:
    RowList(const EntryGuard& guard, QWidget* parent) : GuardedView(guard, parent) {
        setRootIsDecorated(false);
        setUniformRowHeights(true);
        setSelectionMode(ExtendedSelection);
        setTextElideMode(Qt::ElideRight);
        header()->setStretchLastSection(true);
    }

    void setTheme(const GridTheme& theme) {
        frame_ = QColor(theme.accent);
        viewport()->update();
    }

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QTreeView::drawRow(painter, option, index);
        if (hasFocus() && index.row() == currentIndex().row()) {
            painter->setPen(frame_);
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
    }

private:
    QColor frame_;
};

}  // namespace planview
