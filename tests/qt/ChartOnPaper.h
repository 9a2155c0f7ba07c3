// SPDX-License-Identifier: MIT
#pragma once

#include "qt/ChartOnScreen.h"
#include "qt/chart/ChartPainter.h"
#include "qt/chart/ChartPicture.h"

namespace planview {

inline constexpr QSize Size(900, 480);

inline QFont testFont() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    return font;
}

inline ChartPicture pictureOf(const ChartState& state, const GridTheme& theme = GridTheme::light(),
                              double scale = 1.0) {
    return {state, theme, testFont(), scale};
}

/// A chart laid out as in a picture of it.
struct LaidOut {
    explicit LaidOut(const ChartState& state, QSize size = Size, double scale = 1.0)
        : scene{state, GridTheme::light(), testFont(), scale, QRectF(QPointF(0, 0), QSizeF(size)), 1.0, false, false},
          layout(scene) {}
    ChartScene scene;
    ChartLayout layout;
};

}  // namespace planview
