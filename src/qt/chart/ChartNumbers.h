// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>

#include "components/chart/ChartScale.h"
#include "components/chart/ChartStacking.h"
#include "components/chart/ChartState.h"

namespace planview {

/// A value as the series' number code writes it, otherwise with grouped digits.
[[nodiscard]] QString valueText(const ChartSeries& series, double value);
/// Always with its sign.
[[nodiscard]] QString differenceText(const ChartSeries& series, double difference);
[[nodiscard]] QString shareText(double share, int decimals);
/// The value of a point, with its share where the series is drawn by shares: "7.476,0 (20,3%)"; numbers from 1.
[[nodiscard]] QString pointValueText(const ChartState& state, const ChartStack& stack, int series, int category);
/// A limit of the value axis.
[[nodiscard]] QString limitText(double value);
/// A mark of an axis of values, as `format` writes it where that can tell its neighbours apart.
[[nodiscard]] QString markText(const ChartScale& scale, int index, const std::string& format);
[[nodiscard]] QString shareMarkText(const ChartScale& scale, int index);

/// The last digit that the series' number code shows. Without a code the largest power of ten that a movement of one
/// pixel can still reach.
[[nodiscard]] double valueStep(const ChartSeries& series, double valueOfPixel);
/// What a dragged value snaps to: 1, 2 or 5 times a power of ten that a hand can aim at, and no finer than valueStep().
[[nodiscard]] double dragStep(const ChartSeries& series, double valueOfPixel);
[[nodiscard]] double snapped(double value, double step);

/// "Retail trade, Jul 08"; numbers from 1.
[[nodiscard]] QString pointName(const ChartState& state, int series, int category);
/// "Linear (Retail trade)"
[[nodiscard]] QString trendName(const ChartState& state, int series, int trend);
/// The caption; for a series without one its number.
[[nodiscard]] QString seriesName(const ChartState& state, int series);

}  // namespace planview
