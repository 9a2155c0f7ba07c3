#pragma once

#include <optional>
#include <vector>

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
/// Worked out once for a state, a rectangle and a scale; what a painter draws is what a click hits.
///
/// Series and categories are numbered from 1 here, as in ChartHit.
class ChartPlot {
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
    /// The height of a value on the axis that the series stands on; the axis of values with series 0.
    [[nodiscard]] double YOf(double value, int series = 0) const noexcept;
    /// The value at a height, the reverse of YOf().
    [[nodiscard]] double ValueAt(double y, int series = 0) const noexcept;

    /// Of a column; upright whatever the sign, of height 0 for the value 0.
    [[nodiscard]] ChartRect Column(int series, int category) const;
    /// Of a line, or the end of a column.
    [[nodiscard]] ChartPoint Point(int series, int category) const;
    /// A trend line as points, at least one for each visible category; several pieces where it has gaps.
    [[nodiscard]] std::vector<std::vector<ChartPoint>> Trend(int series, int trend) const;

    /// What lies at a place of the plot area: a point or column first, then a trend line, then a series' line, then the
    /// plot area. `reach` is how far from it a click may be. The uppermost wins; an end of a column can be grabbed even
    /// where its height is 0.
    [[nodiscard]] ChartHit HitTest(ChartPoint place, double reach) const;

private:
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
};

}  // namespace planview
