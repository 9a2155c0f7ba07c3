// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QLineF>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <QVector>
#include <span>
#include <vector>

#include "components/chart/ChartPlot.h"
#include "qt/chart/ChartScene.h"

class QPainter;

/// The shapes and pens that the chart is drawn with; plot and legend share them. Lengths in logical pixels.
namespace planview::chartmarks {

inline constexpr double LineWidth = 2;
inline constexpr double SelectedLineWidth = 3.5;
inline constexpr double RingRadius = 3.2;
/// Lines carry a marker at every point where these stand at least this far apart,
inline constexpr double MarkerPitch = 14;
/// and else at some of them, about this far apart.
inline constexpr double SparsePitch = 72;
/// Columns get rounded tops where they are at least this wide.
inline constexpr double RoundedWidth = 8;
inline constexpr double TopRadius = 2;

/// How a line tells itself apart where its colour does not: by a marker, and by its dashes from the fifth style on.
enum class Marker { Circle, Square, Diamond, Triangle };
[[nodiscard]] Marker markerOf(const ChartSeriesLook& look);
/// Lengths of dashes and gaps in turn without the caps of the line, in logical pixels; none for a solid line.
[[nodiscard]] std::span<const double> dashesOf(const ChartSeriesLook& look);
/// With the painter's pen and brush. A circle of that radius, or a shape of about its size.
void paintMarker(QPainter& painter, Marker marker, QPointF center, double radius);
/// The dashes of a line that is given as segments; they go on from one segment to the next.
[[nodiscard]] QVector<QLineF> dashed(const ChartScene& scene, const QVector<QLineF>& line,
                                     std::span<const double> dashes);

[[nodiscard]] QPen linePen(const ChartScene& scene, QRgb color, double width = LineWidth);
[[nodiscard]] QPen trendPen(const ChartScene& scene, QRgb color, double width = LineWidth);
/// Of the areas between compared series.
[[nodiscard]] QColor tint(QRgb color);

[[nodiscard]] QPolygonF polygonOf(const std::vector<ChartPoint>& points);
/// A column with its far end rounded: the upper one, or the lower one of a column that hangs down.
void addRoundedColumn(QPainterPath& path, const QRectF& rect, double radius, bool hanging);

void paintSwatch(QPainter& painter, const ChartScene& scene, const QRectF& place, const QColor& color);
/// A piece of a series' line, with its marker.
void paintLineSample(QPainter& painter, const ChartScene& scene, const QRectF& place, const ChartSeriesLook& look,
                     QRgb color, QRgb ground);
void paintTrendSample(QPainter& painter, const ChartScene& scene, const QRectF& place, QRgb color);

}  // namespace planview::chartmarks
