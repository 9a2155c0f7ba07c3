// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "qt/grid/GridTheme.h"

namespace planview {

/// The heading of a pane: a line of small capitals on the ground of the pane.
class PaneHeading final : public QWidget {
public:
    explicit PaneHeading(const QString& heading, QWidget* parent = nullptr);

    void setTheme(const GridTheme& theme);
    /// That of the grid's texts; gives the heading its height. In a narrow pane the text is smaller before it is
    /// shortened.
    void setTextScale(double scale);
    /// Paints the heading elsewhere.
    void paintOn(QPainter& painter, const QRect& rect) const;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int scaled(int logical) const;
    [[nodiscard]] QFont headingFont(int width) const;

    QString heading_;
    GridTheme theme_ = GridTheme::light();
    double textScale_ = 1.0;
};

}  // namespace planview
