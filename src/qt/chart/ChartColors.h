// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include "components/chart/ChartState.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// The colour of a series on a background: that of its style for such a background, or the host's own. Unchanged, or
/// moved step by step away from a background on which it would not stand out.
[[nodiscard]] QRgb seriesColor(const ChartSeriesLook& look, QRgb ground);

/// The colours of a chart in a theme.
///
/// The palette's white and black mean the theme's own base and text, as they do in the grid; every other colour of an
/// area is drawn as it is, and texts on it are chosen so that they can be read. Series and trend lines stand out.
class ChartColors {
public:
    ChartColors(const ChartState& state, const GridTheme& theme);

    [[nodiscard]] QRgb ground() const { return ground_; }
    [[nodiscard]] QRgb plot() const { return plot_; }
    [[nodiscard]] QRgb legend() const { return legend_; }
    /// Around the legend; that of the legend where there is no border.
    [[nodiscard]] QRgb legendBorder() const { return legendBorder_; }
    [[nodiscard]] QRgb text() const { return text_; }
    [[nodiscard]] QRgb muted() const { return muted_; }
    /// Grid lines, faint on whatever the plot area stands on.
    [[nodiscard]] QRgb line() const { return line_; }
    [[nodiscard]] QRgb legendText() const { return legendText_; }
    [[nodiscard]] QRgb legendMuted() const { return legendMuted_; }
    [[nodiscard]] QRgb accent() const { return theme_.accent; }
    [[nodiscard]] QRgb focus(bool focused) const { return focused ? theme_.accent : muted_; }
    /// Where the second of two compared series lies above the first, and below it.
    [[nodiscard]] QRgb above() const { return theme_.accent; }
    [[nodiscard]] QRgb below() const { return theme_.negative; }
    /// Of the range of values that is wanted.
    [[nodiscard]] QRgb band() const;
    [[nodiscard]] const GridTheme& theme() const { return theme_; }

    /// Numbers from 1.
    [[nodiscard]] QRgb series(int series) const;
    [[nodiscard]] QRgb trend(int series, int trend) const;

private:
    [[nodiscard]] QRgb paletteColor(int index, QRgb own) const;

    const ChartState& state_;
    GridTheme theme_;
    QRgb ground_;
    QRgb plot_;
    QRgb legend_;
    QRgb legendBorder_;
    QRgb text_;
    QRgb muted_;
    QRgb line_;
    QRgb legendText_;
    QRgb legendMuted_;
};

}  // namespace planview
