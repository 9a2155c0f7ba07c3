// SPDX-License-Identifier: MIT
#include "qt/chart/MovedPoint.h"

#include <cmath>

#include "components/chart/ChartStacking.h"
#include "qt/chart/ChartNumbers.h"

namespace planview {

MovedPoint::MovedPoint(const ChartState& state, const ChartPlot& plot, int maximumSteps, int series, int category)
    : state_(std::make_unique<ChartState>(state)),
      maximumSteps_(maximumSteps),
      series_(series),
      category_(category),
      from_(state.series[static_cast<std::size_t>(series - 1)].values[static_cast<std::size_t>(category - 1)]),
      to_(from_),
      step_(1),
      dragStep_(1),
      start_(0) {
    ChartValueAxis& axis = state_->valueAxis;
    axis.minimum = plot.Values().minimum;
    axis.maximum = plot.Values().maximum;
    axis.minimumIsAuto = false;
    axis.maximumIsAuto = false;
    plot_ = std::make_unique<ChartPlot>(*state_, plot.Area(), maximumSteps_);
    start_ = plot_->Point(series_, category_).y;
    const ChartSeries& data = state_->series[static_cast<std::size_t>(series_ - 1)];
    const double valueOfPixel = ownValueAt(start_ - 1) - ownValueAt(start_);
    step_ = valueStep(data, valueOfPixel);
    dragStep_ = dragStep(data, valueOfPixel);
}

double MovedPoint::ownValueAt(double y) const {
    const double end = plot_->ValueAt(y, series_);
    const ChartType type = state_->series[static_cast<std::size_t>(series_ - 1)].type;
    return IsStackedType(type) ? OwnValueFor(*state_, series_ - 1, category_ - 1, end) : end;
}

bool MovedPoint::moveTo(double y, bool freely) {
    const double before = to_;
    constexpr double SamePlace = 0.5;
    const double value = std::abs(y - start_) < SamePlace ? from_ : snapped(ownValueAt(y), freely ? step_ : dragStep_);
    setValue(std::isfinite(value) ? value : before);
    return to_ != before;
}

void MovedPoint::setValue(double value) {
    if (value == to_) {
        return;
    }
    to_ = value;
    state_->series[static_cast<std::size_t>(series_ - 1)].values[static_cast<std::size_t>(category_ - 1)] = value;
    plot_ = std::make_unique<ChartPlot>(*state_, plot_->Area(), maximumSteps_);
}

}  // namespace planview
