// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPolygonF>

#include "components/chart/ChartPlot.h"
#include "qt/chart/ChartColors.h"
#include "qt/chart/ChartScene.h"

class QPainter;

namespace planview {

/// Sets the first two series against each other: the area between them is tinted by which one is higher, and the
/// difference is written beside it as often as there is room.
class ChartComparison {
public:
    ChartComparison(const ChartScene& scene, const ChartState& state, const ChartPlot& plot, const ChartColors& colors);

    [[nodiscard]] bool isShown() const;
    void paintTint(QPainter& painter) const;
    void paintDifferences(QPainter& painter, const QFont& font) const;

private:
    /// The number of the series that the other one is measured by, and of that other one.
    [[nodiscard]] int base() const { return state_.comparisonBase; }
    [[nodiscard]] int measuredNumber() const { return base() == 1 ? 2 : 1; }
    [[nodiscard]] const ChartSeries& measured() const {
        return state_.series[static_cast<std::size_t>(measuredNumber() - 1)];
    }
    [[nodiscard]] double difference(int category) const;
    [[nodiscard]] bool betweenLines() const;
    /// The part of an area that the plot shows, and the height of a point in it or at its border.
    [[nodiscard]] QPolygonF seen(const QPolygonF& outline) const;
    [[nodiscard]] double seenHeight(int series, int category) const;
    void paintBetweenLines(QPainter& painter) const;
    void paintBetweenColumns(QPainter& painter) const;

    const ChartScene& scene_;
    const ChartState& state_;
    const ChartPlot& plot_;
    const ChartColors& colors_;
};

}  // namespace planview
