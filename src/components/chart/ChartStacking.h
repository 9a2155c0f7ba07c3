// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <planview/Export.h>

#include "components/chart/ChartState.h"

namespace planview {

/// Where one value of a series stands on its value axis: a column reaches from `from` to `to`, a line passes `to`.
struct ChartSpan {
    double from = 0;
    double to = 0;
};

/// What is drawn of the values, once stacking has been worked out.
struct ChartStack {
    /// By series and category, both from 0.
    std::vector<std::vector<ChartSpan>> spans;
    /// By series: it stands on the axis of shares (0 .. 1) instead of that of values.
    std::vector<bool> onShares;
    bool anyOnValues = false;
    bool anyOnShares = false;
    /// The extremes of what stands on each axis, seen or not, so that an axis stays where it is while the user scrolls;
    /// 0 where there is nothing.
    double valueMinimum = 0;
    double valueMaximum = 0;
    double shareMinimum = 0;
    double shareMaximum = 0;
};

/// Stacked columns pile positive values up and negative ones down, each kind of column by itself; stacked lines add
/// up in series order whatever their sign. In a share type each value is divided by the sum of the absolute values of
/// its kind in its category; a category whose sum is 0 has shares of 0.
[[nodiscard]] PLANVIEW_EXPORT ChartStack StackSeries(const ChartState& state);

/// What a trend line of a series (from 0) is fitted to: its values, or where the points of a stacked one stand.
[[nodiscard]] PLANVIEW_EXPORT std::vector<double> TrendValues(const ChartState& state, const ChartStack& stack,
                                                              std::size_t series);

/// The own value that a series must have in a category (both from 0) so that its span ends at `to`, in the units of its
/// axis: for the user who drags a point of a stack. The other series stay as they are. Where no value gives that end,
/// the nearest that does; the value it has where its share is the same for all: without other values, or as the last of
/// its category. A share can come up to 99.9 %, since all of it would need an infinite value.
[[nodiscard]] PLANVIEW_EXPORT double OwnValueFor(const ChartState& state, int series, int category, double to);

}  // namespace planview
