#include "qt/tree/TreePane.h"

#include <QVBoxLayout>

namespace planview {

namespace {

constexpr int HeadingHeight = 30;

}  // namespace

TreePane::TreePane(TreeControl& tree, GridBitmaps& bitmaps, std::shared_ptr<void> owner, QWidget* parent)
    : QWidget(parent),
      heading_(new EmptyPane(tr("Macros"), EmptyPane::Ground::Panel)),
      view_(new TreeView(tree, bitmaps, std::move(owner))) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(heading_);
    layout->addWidget(view_, 1);
    setFocusProxy(view_);
    setTextScale(1.0);
}

void TreePane::setTheme(const GridTheme& theme) {
    heading_->setTheme(theme);
    view_->setTheme(theme);
}

void TreePane::setTextScale(double scale) {
    heading_->setTextScale(scale);
    heading_->setFixedHeight(qRound(HeadingHeight * scale));
    view_->setTextScale(scale);
}

void TreePane::paintOn(QPainter& painter, const QRect& rect) const {
    const int heading = heading_->height();
    view_->paintOn(painter, rect.adjusted(0, heading, 0, 0));
    heading_->paintOn(painter, QRect(rect.topLeft(), QSize(rect.width(), heading)));
}

}  // namespace planview
