// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>
#include <utility>

#include "qt/chart/ChartColors.h"
#include "qt/chart/ChartLayout.h"
#include "qt/chart/ChartScene.h"
#include "qt/chart/ChartSeriesPainter.h"

class QPainter;

namespace planview {

/// Paints a chart: the same on the screen, into a picture and into a file.
class ChartPainter {
public:
    /// Scene and layout must outlive the painter.
    ChartPainter(const ChartScene& scene, const ChartLayout& layout);

    void paint(QPainter& painter) const;
    /// The chart without the trend lines of one series (from 1): the ground on which that series can be moved.
    void paintWithoutTrends(QPainter& painter, int series) const;

    [[nodiscard]] const ChartColors& colors() const { return colors_; }

    /// Paints the part of the plot anew that changes when a point moves, and the trend lines that follow it. `state`
    /// and `plot` are those with the new value in them.
    void paintMoved(QPainter& painter, const ChartState& state, const ChartPlot& plot, int series, int category) const;
    /// Where paintMoved() paints when the moved series has no trend lines.
    [[nodiscard]] QRectF movedRect(const ChartPlot& plot, int category) const;

    /// A bubble beside a place: a name and, in bold, what there is to say about it.
    void paintBubble(QPainter& painter, const QRectF& place, const QString& name, const QString& value) const;
    [[nodiscard]] QRectF bubbleRect(const QRectF& place, const QString& name, const QString& value) const;

private:
    void paintChart(QPainter& painter, int withoutTrendsOf) const;
    void paintEmptyHint(QPainter& painter) const;
    void paintTitle(QPainter& painter) const;
    void paintMarks(QPainter& painter) const;
    void paintPlot(QPainter& painter, const ChartState& state, const ChartPlot& plot, const QRectF& clip, int first,
                   int last, int withoutTrendsOf) const;
    void paintGridLines(QPainter& painter, const ChartPlot& plot) const;
    void paintRange(QPainter& painter, const ChartPlot& plot) const;
    void paintOptimum(QPainter& painter, const ChartPlot& plot) const;
    /// Where a text goes that stands over something, or `down` from there; and whether no line runs through it there.
    [[nodiscard]] std::pair<QRectF, bool> placeBesideLines(const ChartPlot& plot, const QRectF& over,
                                                           double down) const;
    [[nodiscard]] bool carriesLine(const ChartPlot& plot, const QRectF& rect) const;
    void paintSelection(QPainter& painter, const ChartSeriesPainter& series) const;

    const ChartScene& scene_;
    const ChartLayout& layout_;
    ChartColors colors_;
};

}  // namespace planview
