// SPDX-License-Identifier: MIT
#include "qt/chart/ChartMarks.h"

#include <QPainter>
#include <algorithm>

namespace planview::chartmarks {

namespace {

constexpr double SwatchSide = 12;
constexpr double SwatchRadius = 2.5;
constexpr float TintWeight = 0.22F;
constexpr double TrendWidthPart = 0.85;

}  // namespace

// Caps are square: Qt's raster engine paints segments with round ones many times more slowly.
QPen linePen(const ChartScene& scene, QRgb color, double width) {
    return {QColor::fromRgb(color), scene.pixels(width), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

QPen trendPen(const ChartScene& scene, QRgb color, double width) {
    QPen pen(QColor::fromRgb(color), scene.pixels(width * TrendWidthPart), Qt::CustomDashLine, Qt::FlatCap,
             Qt::BevelJoin);
    pen.setDashPattern({3.5, 2.5});
    return pen;
}

QColor tint(QRgb color) {
    QColor tinted = QColor::fromRgb(color);
    tinted.setAlphaF(TintWeight);
    return tinted;
}

QPolygonF polygonOf(const std::vector<ChartPoint>& points) {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const ChartPoint& place : points) {
        polygon << QPointF(place.x, place.y);
    }
    return polygon;
}

void addRoundedColumn(QPainterPath& path, const QRectF& rect, double radius, bool hanging) {
    const double r = std::min({radius, rect.width() / 2, rect.height()});
    const double near = hanging ? rect.top() : rect.bottom();
    const double far = hanging ? rect.bottom() : rect.top();
    const double inward = hanging ? -r : r;
    path.moveTo(rect.left(), near);
    path.lineTo(rect.left(), far + inward);
    path.quadTo(rect.left(), far, rect.left() + r, far);
    path.lineTo(rect.right() - r, far);
    path.quadTo(rect.right(), far, rect.right(), far + inward);
    path.lineTo(rect.right(), near);
    path.closeSubpath();
}

void paintSwatch(QPainter& painter, const ChartScene& scene, const QRectF& place, const QColor& color) {
    const double side = scene.pixels(SwatchSide);
    const double radius = scene.pixels(SwatchRadius);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(place.center().x() - side / 2, place.center().y() - side / 2, side, side), radius,
                            radius);
}

void paintLineSample(QPainter& painter, const ChartScene& scene, const QRectF& place, QRgb color, QRgb ground) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPen pen = linePen(scene, color);
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.drawLine(QPointF(place.left(), place.center().y()), QPointF(place.right(), place.center().y()));
    painter.setBrush(QColor::fromRgb(ground));
    const double radius = scene.pixels(RingRadius);
    painter.drawEllipse(place.center(), radius, radius);
}

void paintTrendSample(QPainter& painter, const ChartScene& scene, const QRectF& place, QRgb color) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(trendPen(scene, color));
    painter.drawLine(QPointF(place.left(), place.center().y()), QPointF(place.right(), place.center().y()));
}

}  // namespace planview::chartmarks
