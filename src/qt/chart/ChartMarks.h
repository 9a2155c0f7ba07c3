// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <vector>

#include "components/chart/ChartPlot.h"
#include "qt/chart/ChartScene.h"

class QPainter;

/// The shapes and pens that the chart is drawn with; plot and legend share them. Lengths in logical pixels.
namespace planview::chartmarks {

inline constexpr double LineWidth = 2;
inline constexpr double SelectedLineWidth = 3.5;
inline constexpr double RingRadius = 3.2;
/// Lines carry rings where their points stand at least this far apart.
inline constexpr double RingPitch = 14;
/// Columns get rounded tops where they are at least this wide.
inline constexpr double RoundedWidth = 8;
inline constexpr double TopRadius = 2;

[[nodiscard]] QPen linePen(const ChartScene& scene, QRgb color, double width = LineWidth);
[[nodiscard]] QPen trendPen(const ChartScene& scene, QRgb color, double width = LineWidth);
/// Of the areas between compared series.
[[nodiscard]] QColor tint(QRgb color);

[[nodiscard]] QPolygonF polygonOf(const std::vector<ChartPoint>& points);
/// A column with its far end rounded: the upper one, or the lower one of a column that hangs down.
void addRoundedColumn(QPainterPath& path, const QRectF& rect, double radius, bool hanging);

void paintSwatch(QPainter& painter, const ChartScene& scene, const QRectF& place, const QColor& color);
void paintLineSample(QPainter& painter, const ChartScene& scene, const QRectF& place, QRgb color, QRgb ground);
void paintTrendSample(QPainter& painter, const ChartScene& scene, const QRectF& place, QRgb color);

}  // namespace planview::chartmarks
