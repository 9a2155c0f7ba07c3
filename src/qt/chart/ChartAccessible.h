// SPDX-License-Identifier: MIT
#pragma once

namespace planview {

class ChartView;

/// Makes every ChartView known to assistive tools: its children are the series, and theirs the points, each with its
/// name and its value.
void installChartAccessibility();

/// Tells assistive tools, where there are any, what has happened to a point; series and category from 1. The focus has
/// come to it, or its value is another one.
void tellChartFocus(ChartView& view, int series, int category);
void tellChartValue(ChartView& view, int series, int category);
/// The chart has other series or categories than before.
void tellChartShape(ChartView& view);

}  // namespace planview
