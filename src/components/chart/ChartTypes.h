// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace planview {

/// How a series is drawn, and how a chart draws those that have no type of their own. The numbers are fixed: hosts keep
/// them in `CHART_TYPE`.
enum class ChartType : std::int16_t {
    Column = 0,
    StackedColumn = 1,
    StackedColumn100 = 2,
    StackedLine = 21,
    StackedLine100 = 22,
    Line = 23
};

[[nodiscard]] constexpr bool IsChartType(std::int32_t code) noexcept {
    return (code >= 0 && code <= 2) || (code >= 21 && code <= 23);
}
[[nodiscard]] constexpr bool IsColumnType(ChartType type) noexcept {
    return type <= ChartType::StackedColumn100;
}
/// Whether the values of the series are drawn as shares of their category's total.
[[nodiscard]] constexpr bool IsShareType(ChartType type) noexcept {
    return type == ChartType::StackedColumn100 || type == ChartType::StackedLine100;
}
[[nodiscard]] constexpr bool IsStackedType(ChartType type) noexcept {
    return type != ChartType::Column && type != ChartType::Line;
}

/// The kinds of trend line. The numbers are fixed.
enum class TrendKind : std::int32_t { Linear = 0, Logarithmic = 1, Power = 2, Exponential = 3, MovingAverage = 4 };

enum class LegendPosition : std::int16_t { Right = 0, Left = 1, Top = 2, Bottom = 3 };

/// How the texts under the category axis stand. Automatic turns them only where they do not fit.
enum class LabelOrientation : std::int16_t { Automatic = 0, Horizontal = 1, Slanted = 2, Vertical = 3 };

/// What lies at a place of the chart. The numbers are fixed: events carry them.
enum class ChartHitCode : std::int16_t {
    None = 0,
    ChartArea = 1,
    PlotArea = 2,
    Title = 3,
    Legend = 4,
    CategoryAxis = 5,
    ValueAxis = 6,
    Series = 7,  ///< a series as a whole: its line between the points, its legend entry
    Point = 8,   ///< one value of a series: a column, a point of a line
    Trendline = 26
};

/// Series and categories are numbered from 1; 0 where the place has none.
struct ChartHit {
    ChartHitCode code = ChartHitCode::None;
    int series = 0;
    int category = 0;
    friend bool operator==(const ChartHit&, const ChartHit&) = default;
};

struct ChartColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(ChartColor, ChartColor) = default;
};

}  // namespace planview
