// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

#include "qt/grid/GridTheme.h"

namespace planview {

/// A box that shows a colour of the palette with its name and leads to the choice of another one.
class ColorButton final : public QPushButton {
    Q_OBJECT

public:
    /// What the colour is for: each has an index that means the view's own colour.
    enum class Use { Background, Foreground, GridLines };

    ColorButton(Use use, const QString& what, QWidget* parent);

    void setTheme(const GridTheme& theme);
    /// `index` is a palette index.
    void setColor(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showColor();

    Use use_;
    QString what_;
    GridTheme theme_ = GridTheme::light();
    int index_ = 0;
};

}  // namespace planview
