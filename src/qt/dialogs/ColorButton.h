// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

#include <planview/Platform.h>

#include "qt/grid/GridTheme.h"

namespace planview {

/// A box that shows a colour of the palette with its name, or that it is the view's own, and leads to the choice of
/// another one.
class ColorButton final : public QPushButton {
    Q_OBJECT

public:
    /// `own` is the colour of the view that it may stand for.
    ColorButton(ViewColor own, const QString& what, QWidget* parent);

    void setTheme(const GridTheme& theme);
    /// `index` is a palette index.
    void setColor(int index);
    /// The palette index of what the view's cells have as their background.
    void setViewBackground(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showColor();

    [[nodiscard]] QColor ownColor() const;

    ViewColor own_;
    QString what_;
    GridTheme theme_ = GridTheme::light();
    int index_ = 0;
    int viewBackground_ = 0;
};

}  // namespace planview
