// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

namespace planview {

/// The view's own colours; all others come from the palette that the control registers.
struct GridTheme {
    bool dark = false;
    QRgb base = 0;      ///< planning cells
    QRgb panel = 0;     ///< fixed columns and rows that only describe, and the ground beside the cells
    QRgb heading = 0;   ///< headings and labels
    QRgb total = 0;     ///< fixed columns and rows that sum up
    QRgb readOnly = 0;  ///< planning cells that cannot be edited
    QRgb helpLine = 0;  ///< help lines
    QRgb line = 0;      ///< between cells; twice as wide between areas
    QRgb text = 0;
    QRgb muted = 0;        ///< subdued text
    QRgb accent = 0;       ///< current cell, selected headings
    QRgb accentTint = 0;   ///< selected cells
    QRgb negative = 0;     ///< numbers below zero
    QRgb reliefLight = 0;  ///< the upper left edge of a relief, with its opacity
    QRgb reliefShade = 0;  ///< the lower right edge of a relief, with its opacity

    [[nodiscard]] static const GridTheme& light();
    [[nodiscard]] static const GridTheme& darkTheme();
    /// The theme that suits a palette: dark where its text is lighter than its base. A palette of high contrast is
    /// kept: the theme then has its colours.
    [[nodiscard]] static GridTheme forPalette(const QPalette& palette);

    /// A palette for the standard widgets around the grid, such as its scroll bars.
    [[nodiscard]] QPalette widgetPalette(const QPalette& origin) const;
};

/// The contrast ratio of two opaque colours, 1 .. 21.
[[nodiscard]] double contrastRatio(QRgb first, QRgb second);
/// `over` laid on `under` with this weight, 0 .. 1.
[[nodiscard]] QRgb mixColors(QRgb under, QRgb over, double weight);

}  // namespace planview
