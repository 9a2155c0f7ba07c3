// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QWidget>

#include "qt/grid/GridTheme.h"

namespace planview {

/// A sentence for the user beside a cell, painted over the grid.
class GridBubble final : public QWidget {
public:
    enum class Stay {
        ForAMoment,  ///< disappears by itself
        UntilHidden
    };

    /// `ground` is what the bubble stays within.
    explicit GridBubble(QWidget* ground);

    /// Shows the text below the place or, where there is no room, above it. `scale` is that of the grid's texts.
    void say(const QString& text, const QRect& place, const GridTheme& theme, double scale, Stay stay);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    [[nodiscard]] QRect textRect() const;

    QString text_;
    GridTheme theme_ = GridTheme::light();
    double scale_ = 1.0;
    QBasicTimer goes_;
};

}  // namespace planview
