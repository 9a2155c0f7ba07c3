// SPDX-License-Identifier: MIT
#include "qt/chart/ChartColors.h"

#include "components/chart/ChartControl.h"
#include "components/chart/SeriesColors.h"

namespace planview {

namespace {

constexpr QRgb White = 0xffffffff;
constexpr QRgb Black = 0xff000000;
constexpr double TextContrast = 4.5;
/// Enough for dots of the same colour on the headings of the grid, too.
constexpr double MarkContrast = 3.5;
constexpr double DarkMarkContrast = 4.0;
constexpr double BandWeight = 0.08;
constexpr double DarkBandWeight = 0.14;
constexpr int PaletteWhite = 0;
constexpr int PaletteBlack = 1;

QRgb rgbOf(ChartColor color) {
    return qRgb(color.red, color.green, color.blue);
}

QRgb readableOn(QRgb wanted, QRgb ground) {
    if (contrastRatio(wanted, ground) >= TextContrast) {
        return wanted;
    }
    return contrastRatio(White, ground) > contrastRatio(Black, ground) ? White : Black;
}

bool isDark(QRgb ground) {
    return contrastRatio(White, ground) > contrastRatio(Black, ground);
}

/// Moved step by step away from the ground until it stands out.
QRgb standingOut(QRgb color, QRgb ground) {
    const bool dark = isDark(ground);
    constexpr double Step = 0.08;
    constexpr int MostSteps = 24;
    for (int i = 0; i < MostSteps && contrastRatio(color, ground) < (dark ? DarkMarkContrast : MarkContrast); ++i) {
        color = mixColors(color, dark ? White : Black, Step);
    }
    return color;
}

}  // namespace

QRgb seriesColor(const ChartSeriesLook& look, QRgb ground) {
    const SeriesColor& own = SeriesColors[static_cast<std::size_t>(look.style)];
    const bool ofStyle = look.color == own.onLight;
    return standingOut(rgbOf(ofStyle && isDark(ground) ? own.onDark : look.color), ground);
}

ChartColors::ChartColors(const ChartState& state, const GridTheme& theme)
    : state_(state),
      theme_(theme),
      ground_(paletteColor(state.chartArea.colorIndex, theme.base)),
      plot_(paletteColor(state.plotArea.colorIndex, ground_)),
      legend_(paletteColor(state.legend.interior.colorIndex, ground_)),
      legendBorder_(paletteColor(state.legend.borderColorIndex, legend_)),
      text_(readableOn(theme.text, ground_)),
      muted_(readableOn(theme.muted, ground_)),
      line_(plot_ == theme.base ? theme.line : mixColors(plot_, isDark(plot_) ? White : Black, 0.15)),
      legendText_(readableOn(theme.text, legend_)),
      legendMuted_(readableOn(theme.muted, legend_)) {}

QRgb ChartColors::paletteColor(int index, QRgb own) const {
    if (index < 0 || index >= ChartPaletteSize) {
        return own;
    }
    switch (index) {
        case PaletteWhite:
            return theme_.base;
        case PaletteBlack:
            return theme_.text;
        default:
            return rgbOf(ChartPaletteColor(index));
    }
}

QRgb ChartColors::band() const {
    return mixColors(plot_, theme_.accent, theme_.dark ? DarkBandWeight : BandWeight);
}

QRgb ChartColors::series(int series) const {
    return seriesColor(*state_.series[static_cast<std::size_t>(series - 1)].look, plot_);
}

QRgb ChartColors::trend(int series, int trend) const {
    const auto& trends = state_.series[static_cast<std::size_t>(series - 1)].look->trends;
    const int index = trends[static_cast<std::size_t>(trend - 1)]->borderColorIndex;
    return index < 0 ? this->series(series) : standingOut(paletteColor(index, theme_.text), plot_);
}

}  // namespace planview
