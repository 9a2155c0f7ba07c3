// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include <planview/Export.h>

#include "components/chart/ChartScale.h"
#include "components/chart/ChartStacking.h"
#include "components/chart/TrendFit.h"

namespace planview {

struct ChartPoint {
    double x = 0;
    double y = 0;
};

struct ChartRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    [[nodiscard]] double Right() const noexcept { return x + width; }
    [[nodiscard]] double Bottom() const noexcept { return y + height; }
};

/// Where everything of a chart stands inside a plot area, in the units and the direction (y downwards) of that area.
/// Computed once for a state, a rectangle and a scale; what a painter draws is what a click hits.
///
/// Series and categories are numbered from 1 here, as in ChartHit.
class PLANVIEW_EXPORT ChartPlot {
public:
    /// `maximumSteps` as in ChartScaleRequest. The state must outlive the plot.
    ChartPlot(const ChartState& state, const ChartRect& area, int maximumSteps);

    [[nodiscard]] const ChartRect& Area() const noexcept { return area_; }
    [[nodiscard]] const ChartStack& Stack() const noexcept { return stack_; }
    /// The axis of values and, where series stand on it, that of shares (0 .. 1).
    [[nodiscard]] const ChartScale& Values() const noexcept { return values_; }
    [[nodiscard]] const std::optional<ChartScale>& Shares() const noexcept { return shares_; }

    [[nodiscard]] int FirstCategory() const noexcept { return first_; }
    [[nodiscard]] int LastCategory() const noexcept { return last_; }
    [[nodiscard]] double CategoryCenter(int category) const noexcept;
    [[nodiscard]] double CategoryWidth() const noexcept { return slot_; }
    /// The height of a value on the axis that the series stands on; the axis of values with series 0. Values far
    /// outside of the axis stop at a height that a painter can still draw to.
    [[nodiscard]] double YOf(double value, int series = 0) const noexcept;
    /// The value at a height, the reverse of YOf().
    [[nodiscard]] double ValueAt(double y, int series = 0) const noexcept;

    /// Of a column, as far as it lies in the plot area; upright whatever the sign, of height 0 for the value 0. Empty
    /// for a line.
    [[nodiscard]] ChartRect Column(int series, int category) const;
    /// Of a line, or the end of a column.
    [[nodiscard]] ChartPoint Point(int series, int category) const;
    /// The trend line (from 1) of a series: through its points as they stand, those of a stacked one on what is below.
    [[nodiscard]] const TrendFit& Fit(int series, int trend) const;
    /// It as points, at least one for each visible category; several pieces where it has gaps, none where it is not
    /// valid. May leave the plot area.
    [[nodiscard]] std::vector<std::vector<ChartPoint>> Trend(int series, int trend) const;

    /// What lies at a place of the plot area: a point of a line first, then a trend line, a column, a series' line and
    /// the plot area. `reach` is how far from it a click may be, so that a column of height 0 can be grabbed, too. The
    /// nearest wins, and of those equally near the uppermost.
    [[nodiscard]] ChartHit HitTest(ChartPoint place, double reach) const;

private:
    struct Nearest;

    void PlaceColumns();
    void FitTrends();
    [[nodiscard]] ChartScaleRequest ValueRequest(int maximumSteps) const;
    void IncludeTrends(ChartScaleRequest& request) const;
    [[nodiscard]] const ChartScale& ScaleOf(int series) const noexcept;
    [[nodiscard]] const ChartSpan& SpanOf(int series, int category) const;
    [[nodiscard]] bool IsColumn(int series) const;
    [[nodiscard]] double ColumnLeft(int series, int category) const;
    void FindPoints(Nearest& nearest, int first, int last) const;
    void FindColumns(Nearest& nearest, int first, int last) const;
    void FindTrends(Nearest& nearest) const;
    void FindLines(Nearest& nearest, int first, int last) const;

    const ChartState& state_;
    ChartRect area_;
    ChartStack stack_;
    ChartScale values_;
    std::optional<ChartScale> shares_;
    int first_ = 1;
    int last_ = 0;
    double slot_ = 0;
    /// Of a series among the columns of a category: which one from the left, and how many stand side by side.
    std::vector<int> columnPlace_;
    int columnPlaces_ = 0;
    std::vector<std::vector<TrendFit>> fits_;  // by series
};

}  // namespace planview
