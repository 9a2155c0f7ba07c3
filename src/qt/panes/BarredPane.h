// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <algorithm>

namespace planview {

/// A bar above a pane. The bar gets the height that it wants at this width, as long as the pane keeps its minimum.
class BarredPane final : public QWidget {
public:
    /// Takes ownership of both.
    BarredPane(QWidget* bar, QWidget* pane) : bar_(bar), pane_(pane) {
        bar_->setParent(this);
        pane_->setParent(this);
    }

    /// Where the two stand within a rectangle.
    struct Places {
        QRect bar;
        QRect pane;
    };
    [[nodiscard]] Places placesIn(const QRect& rect) const {
        const int wanted = bar_->hasHeightForWidth() ? bar_->heightForWidth(rect.width()) : bar_->sizeHint().height();
        const int most = std::max(0, rect.height() - pane_->minimumSizeHint().height());
        const int height = std::min(wanted, most);
        return {QRect(rect.topLeft(), QSize(rect.width(), height)), rect.adjusted(0, height, 0, 0)};
    }
    [[nodiscard]] QWidget* bar() const { return bar_; }
    [[nodiscard]] QWidget* pane() const { return pane_; }
    /// Call it when the bar wants a different height.
    void placeParts() {
        const Places places = placesIn(rect());
        bar_->setGeometry(places.bar);
        pane_->setGeometry(places.pane);
    }

    [[nodiscard]] QSize minimumSizeHint() const override { return pane_->minimumSizeHint(); }

protected:
    void resizeEvent(QResizeEvent* /*event*/) override { placeParts(); }

private:
    QWidget* bar_;  // both are children
    QWidget* pane_;
};

}  // namespace planview
