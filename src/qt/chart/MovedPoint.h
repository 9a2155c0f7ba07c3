// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "components/chart/ChartPlot.h"

namespace planview {

/// A point of a chart on its way to another value: the chart as it would be then. Its axes stay as they were at the
/// start, so that nothing but the point moves below the user's hand.
class MovedPoint {
public:
    /// Copies what it needs. Numbers from 1; `maximumSteps` as in ChartPlot.
    MovedPoint(const ChartState& state, const ChartPlot& plot, int maximumSteps, int series, int category);

    [[nodiscard]] int series() const { return series_; }
    [[nodiscard]] int category() const { return category_; }
    [[nodiscard]] double from() const { return from_; }
    [[nodiscard]] double to() const { return to_; }
    /// What values change by, by keys and where the hand moves freely.
    [[nodiscard]] double step() const { return step_; }
    [[nodiscard]] bool isMoved() const { return to_ != from_; }

    /// Moves the point to a height of the plot, or as near as a stack and the axis's steps allow; `freely` by the finer
    /// ones of step(). Says whether it moved.
    bool moveTo(double y, bool freely = false);

    [[nodiscard]] const ChartState& state() const { return *state_; }
    [[nodiscard]] const ChartPlot& plot() const { return *plot_; }

private:
    [[nodiscard]] double ownValueAt(double y) const;
    void setValue(double value);

    std::unique_ptr<ChartState> state_;
    std::unique_ptr<ChartPlot> plot_;
    int maximumSteps_;
    int series_;
    int category_;
    double from_;
    double to_;
    double step_;
    double dragStep_;
    double start_;  ///< the height of the point at the start, where it keeps its value whatever the step
};

}  // namespace planview
