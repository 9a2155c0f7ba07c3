// SPDX-License-Identifier: MIT
#pragma once

#include <QLineF>
#include <QPainterPath>
#include <QRectF>
#include <QVector>

#include "components/chart/ChartClip.h"
#include "components/chart/ChartPlot.h"
#include "qt/chart/ChartColors.h"
#include "qt/chart/ChartScene.h"

class QPainter;

namespace planview {

/// Paints what stands in the plot: columns, lines and trend lines, and how two of them compare. Everything that lies
/// outside the given categories is left out, so that a part of a chart can be painted anew.
class ChartSeriesPainter {
public:
    /// `plot` is that of the scene's state, or of one with another value in it.
    ChartSeriesPainter(const ChartScene& scene, const ChartState& state, const ChartPlot& plot,
                       const ChartColors& colors);

    /// From the first to the last of these categories, numbers from 1.
    void setCategories(int first, int last);

    /// All series in the order in which they lie upon each other.
    void paintSeries(QPainter& painter) const;
    void paintTrends(QPainter& painter, int series) const;

    /// Where a point is to be seen: the rectangle of a column, a small one around the point of a line. That of a point
    /// beyond the axis is at the border of the plot.
    [[nodiscard]] QRectF pointRect(int series, int category) const;
    /// A frame or ring around a point.
    void paintPointMark(QPainter& painter, int series, int category, QRgb color) const;
    /// The point itself, standing out because it is being moved.
    void paintMovedPoint(QPainter& painter, int series, int category) const;

private:
    [[nodiscard]] const ChartSeries& seriesAt(int series) const;
    [[nodiscard]] bool isColumn(int series) const;
    [[nodiscard]] bool isSelected(int series) const;
    [[nodiscard]] QRectF columnRect(int series, int category) const;
    [[nodiscard]] bool isHanging(int series, int category) const;
    [[nodiscard]] bool hasFreeEnd(int series, int category) const;
    void paintColumns(QPainter& painter, int series) const;
    void paintColumnFrames(QPainter& painter, int series) const;
    void paintBand(QPainter& painter, int series) const;
    void paintLine(QPainter& painter, int series) const;
    [[nodiscard]] QVector<QLineF> lineBetween(int series, int first, int last) const;
    void paintMarkers(QPainter& painter, int series, bool filled) const;
    void paintTrendPart(QPainter& painter, const QPolygonF& line, QRgb color, bool overColumns, bool marked) const;
    [[nodiscard]] QPointF point(int series, int category) const;
    /// As point(), or where a point beyond the axis leaves the plot.
    [[nodiscard]] QPointF seenPoint(int series, int category) const;

    const ChartScene& scene_;
    const ChartState& state_;
    const ChartPlot& plot_;
    const ChartColors& colors_;
    ChartHeights heights_;
    int first_;
    int last_;
};

}  // namespace planview
