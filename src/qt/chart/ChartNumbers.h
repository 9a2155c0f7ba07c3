// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "components/chart/ChartScale.h"
#include "components/chart/ChartState.h"

namespace planview {

/// A value as the series' number code writes it, otherwise with grouped digits.
[[nodiscard]] QString valueText(const ChartSeries& series, double value);
/// Always with its sign.
[[nodiscard]] QString differenceText(const ChartSeries& series, double difference);
[[nodiscard]] QString shareText(double share, int decimals);
/// A limit of the value axis.
[[nodiscard]] QString limitText(double value);
[[nodiscard]] QString markText(const ChartScale& scale, int index, bool share);

/// What a dragged value snaps to: the last digit that the series' number code shows. Without a code the largest power
/// of ten that a movement of one pixel can still reach.
[[nodiscard]] double valueStep(const ChartSeries& series, double valueOfPixel);
[[nodiscard]] double snapped(double value, double step);

/// "Retail trade, Jul 08"; numbers from 1.
[[nodiscard]] QString pointName(const ChartState& state, int series, int category);
/// "Linear (Retail trade)"
[[nodiscard]] QString trendName(const ChartState& state, int series, int trend);
/// The caption; for a series without one its number.
[[nodiscard]] QString seriesName(const ChartState& state, int series);

}  // namespace planview
