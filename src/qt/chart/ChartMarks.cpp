// SPDX-License-Identifier: MIT
#include "qt/chart/ChartMarks.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace planview::chartmarks {

namespace {

constexpr double SwatchSide = 12;
constexpr double SwatchRadius = 2.5;
constexpr float TintWeight = 0.22F;
constexpr double TrendWidthPart = 0.85;

// The caps of a line make each dash longer by its width, and each gap shorter.
constexpr std::array<double, 2> LongDashes{7, 6};
constexpr std::array<double, 4> DashesAndDots{7, 5, 0.5, 5};
constexpr std::array<double, 2> ShortDashes{2, 5};
constexpr int Markers = 4;

}  // namespace

Marker markerOf(const ChartSeriesLook& look) {
    return static_cast<Marker>(look.style % Markers);
}

std::span<const double> dashesOf(const ChartSeriesLook& look) {
    switch (look.style / Markers) {
        case 1:
            return LongDashes;
        case 2:
            return DashesAndDots;
        case 3:
            return ShortDashes;
        default:
            return {};
    }
}

void paintMarker(QPainter& painter, Marker marker, QPointF center, double radius) {
    constexpr double SquarePart = 0.89;
    constexpr double DiamondPart = 1.3;
    constexpr double TrianglePart = 1.35;
    switch (marker) {
        case Marker::Circle:
            painter.drawEllipse(center, radius, radius);
            break;
        case Marker::Square: {
            const double half = radius * SquarePart;
            painter.drawRect(QRectF(center.x() - half, center.y() - half, 2 * half, 2 * half));
            break;
        }
        case Marker::Diamond: {
            const double half = radius * DiamondPart;
            painter.drawConvexPolygon(QPolygonF({center + QPointF(0, -half), center + QPointF(half, 0),
                                                 center + QPointF(0, half), center + QPointF(-half, 0)}));
            break;
        }
        case Marker::Triangle: {
            const double half = radius * TrianglePart;
            painter.drawConvexPolygon(QPolygonF({center + QPointF(0, -half), center + QPointF(half, half * 0.75),
                                                 center + QPointF(-half, half * 0.75)}));
            break;
        }
    }
}

// A dashed pen begins anew with each segment of drawLines(), and drawPolyline() is many times slower.
QVector<QLineF> dashed(const ChartScene& scene, const QVector<QLineF>& line, std::span<const double> dashes) {
    if (dashes.empty()) {
        return line;
    }
    QVector<QLineF> pieces;
    std::size_t part = 0;
    double left = scene.pixels(dashes[0]);
    for (const QLineF& segment : line) {
        const double length = segment.length();
        for (double at = 0; at < length;) {
            const double end = std::min(length, at + left);
            if (part % 2 == 0) {
                pieces.push_back(QLineF(segment.pointAt(at / length), segment.pointAt(end / length)));
            }
            left -= end - at;
            at = end;
            if (at < length) {
                part = (part + 1) % dashes.size();
                left = scene.pixels(dashes[part]);
            }
        }
    }
    return pieces;
}

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

void paintLineSample(QPainter& painter, const ChartScene& scene, const QRectF& place, const ChartSeriesLook& look,
                     QRgb color, QRgb ground) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPen pen = linePen(scene, color);
    const std::span<const double> dashes = dashesOf(look);
    if (dashes.empty()) {
        pen.setCapStyle(Qt::FlatCap);
    }
    painter.setPen(pen);
    const double y = place.center().y();
    painter.drawLines(dashed(scene, {QLineF(place.left(), y, place.right(), y)}, dashes));
    painter.setPen(linePen(scene, color));
    painter.setBrush(QColor::fromRgb(ground));
    paintMarker(painter, markerOf(look), place.center(), scene.pixels(RingRadius));
}

void paintTrendSample(QPainter& painter, const ChartScene& scene, const QRectF& place, QRgb color) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(trendPen(scene, color));
    painter.drawLine(QPointF(place.left(), place.center().y()), QPointF(place.right(), place.center().y()));
}

}  // namespace planview::chartmarks
