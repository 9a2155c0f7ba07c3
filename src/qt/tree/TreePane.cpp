// SPDX-License-Identifier: MIT
#include "qt/tree/TreePane.h"

#include <QPainter>

namespace planview {

namespace {

constexpr int HeadingHeight = 30;

}  // namespace

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
    headingHeight_ = qRound(HeadingHeight * scale);
    view_->setTextScale(scale);
    placeParts();
}

void TreePane::placeParts() {
    heading_->setGeometry(0, 0, width(), headingHeight_);
    view_->setGeometry(0, headingHeight_, width(), height() - headingHeight_);
}

void TreePane::resizeEvent(QResizeEvent* /*event*/) {
    placeParts();
}

void TreePane::paintOn(QPainter& painter, const QRect& rect) const {
    view_->paintOn(painter, rect.adjusted(0, headingHeight_, 0, 0));
    heading_->paintOn(painter, QRect(rect.topLeft(), QSize(rect.width(), headingHeight_)));
}

}  // namespace planview
