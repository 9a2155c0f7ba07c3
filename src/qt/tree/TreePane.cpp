// SPDX-License-Identifier: MIT
#include "qt/tree/TreePane.h"

#include <QPainter>

namespace planview {

TreePane::TreePane(TreeControl& tree, GridBitmaps& bitmaps, std::shared_ptr<void> owner, QWidget* parent)
    : QWidget(parent),
      heading_(new PaneHeading(tr("Macros"), this)),
      view_(new TreeView(tree, bitmaps, std::move(owner), this)) {
    setFocusProxy(view_);
    setTextScale(1.0);
}

void TreePane::setTheme(const GridTheme& theme) {
    heading_->setTheme(theme);
    view_->setTheme(theme);
}

void TreePane::setTextScale(double scale) {
    heading_->setTextScale(scale);
    view_->setTextScale(scale);
    placeParts();
}

void TreePane::placeParts() {
    const int top = heading_->height();
    heading_->setGeometry(0, 0, width(), top);
    view_->setGeometry(0, top, width(), height() - top);
}

void TreePane::resizeEvent(QResizeEvent* /*event*/) {
    placeParts();
}

void TreePane::paintOn(QPainter& painter, const QRect& rect) const {
    const int top = heading_->height();
    view_->paintOn(painter, rect.adjusted(0, top, 0, 0));
    heading_->paintOn(painter, QRect(rect.topLeft(), QSize(rect.width(), top)));
}

}  // namespace planview
