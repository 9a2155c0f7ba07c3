// SPDX-License-Identifier: MIT
#include "qt/chart/ChartSeriesPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/chart/ChartMarks.h"

namespace planview {

namespace {

using namespace chartmarks;

/// Of a column for the value 0, so that it can be seen.
constexpr double FlatHeight = 2;
/// Where columns are this narrow, their borders are not put on pixels: many would vanish.
constexpr double BlurredWidth = 2;
/// Neighbours stand a little apart where they are at least this wide.
constexpr double ApartWidth = 6;
constexpr float BandWeight = 0.16F;
constexpr double MarkDistance = 2.5;
constexpr double MarkWidth = 2;
constexpr double MovedRadius = 5.5;
constexpr double SelectedRingRadius = 4;

}  // namespace

ChartSeriesPainter::ChartSeriesPainter(const ChartScene& scene, const ChartState& state, const ChartPlot& plot,
                                       const ChartColors& colors)
    : scene_(scene),
      state_(state),
      plot_(plot),
      colors_(colors),
      heights_(HeightsOf(plot.Area())),
      first_(plot.FirstCategory()),
      last_(plot.LastCategory()) {}

void ChartSeriesPainter::setCategories(int first, int last) {
    first_ = std::max(first, plot_.FirstCategory());
    last_ = std::min(last, plot_.LastCategory());
}

const ChartSeries& ChartSeriesPainter::seriesAt(int series) const {
    return state_.series[static_cast<std::size_t>(series - 1)];
}

bool ChartSeriesPainter::isColumn(int series) const {
    return IsColumnType(seriesAt(series).type);
}

bool ChartSeriesPainter::isSelected(int series) const {
    const ChartHit& selected = state_.selected;
    return scene_.marks && selected.code == ChartHitCode::Series && selected.series == series;
}

QPointF ChartSeriesPainter::point(int series, int category) const {
    const ChartPoint place = plot_.Point(series, category);
    return {place.x, place.y};
}

QPointF ChartSeriesPainter::seenPoint(int series, int category) const {
    const QPointF place = point(series, category);
    return {place.x(), std::clamp(place.y(), heights_.top, heights_.bottom)};
}

void ChartSeriesPainter::paintSeries(QPainter& painter) const {
    if (first_ > last_) {
        return;
    }
    const int count = state_.SeriesCount();
    for (int series = 1; series <= count; ++series) {
        if (isColumn(series)) {
            paintColumns(painter, series);
        }
    }
    for (int series = 1; series <= count; ++series) {
        if (isColumn(series) && isSelected(series)) {
            paintColumnFrames(painter, series);
        }
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (int series = 1; series <= count; ++series) {
        if (!isColumn(series) && IsStackedType(seriesAt(series).type)) {
            paintBand(painter, series);
        }
    }
    for (int series = 1; series <= count; ++series) {
        if (!isColumn(series)) {
            paintLine(painter, series);
        }
    }
}

// --- Columns

/// On whole pixels, at least a hairline high.
QRectF ChartSeriesPainter::columnRect(int series, int category) const {
    const ChartRect place = plot_.Column(series, category);
    QRectF rect(place.x, place.y, place.width, place.height);
    if (rect.width() * scene_.ratio >= BlurredWidth) {
        const double left = scene_.onPixel(rect.left());
        rect.setRight(std::max(left + 1 / scene_.ratio, scene_.onPixel(rect.right())));
        rect.setLeft(left);
        if (!IsStackedType(seriesAt(series).type) && rect.width() >= scene_.pixels(ApartWidth)) {
            rect.setRight(rect.right() - 1 / scene_.ratio);
            rect.setLeft(rect.left() + 1 / scene_.ratio);
        }
    }
    rect.setTop(scene_.onPixel(rect.top()));
    rect.setBottom(scene_.onPixel(place.Bottom()));
    if (rect.height() <= 0) {
        const double height = scene_.pixels(FlatHeight);
        rect = QRectF(rect.left(), rect.top() - height / 2, rect.width(), height);
    }
    return rect;
}

bool ChartSeriesPainter::isHanging(int series, int category) const {
    const ChartSpan& span =
        plot_.Stack().spans[static_cast<std::size_t>(series - 1)][static_cast<std::size_t>(category - 1)];
    return span.to < span.from;
}

/// Whether no other column of a stack lies on the far end of this one.
bool ChartSeriesPainter::hasFreeEnd(int series, int category) const {
    const ChartType type = seriesAt(series).type;
    if (!IsStackedType(type)) {
        return true;
    }
    const auto at = static_cast<std::size_t>(category - 1);
    const bool hanging = isHanging(series, category);
    for (int other = series + 1; other <= state_.SeriesCount(); ++other) {
        if (seriesAt(other).type == type && seriesAt(other).values[at] != 0 && isHanging(other, category) == hanging) {
            return false;
        }
    }
    return true;
}

void ChartSeriesPainter::paintColumns(QPainter& painter, int series) const {
    const bool blurred = columnRect(series, first_).width() * scene_.ratio < BlurredWidth;
    const bool rounded = columnRect(series, first_).width() >= scene_.pixels(RoundedWidth);
    const bool flatIsSeen = !IsStackedType(seriesAt(series).type);
    QVector<QRectF> rects;
    rects.reserve(last_ - first_ + 1);
    QPainterPath path;
    for (int category = first_; category <= last_; ++category) {
        if (!flatIsSeen && plot_.Column(series, category).height <= 0) {
            continue;
        }
        const QRectF rect = columnRect(series, category);
        if (rounded && hasFreeEnd(series, category)) {
            addRoundedColumn(path, rect, scene_.pixels(TopRadius), isHanging(series, category));
        } else {
            rects.push_back(rect);
        }
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(colors_.series(series)));
    painter.setRenderHint(QPainter::Antialiasing, blurred);
    painter.drawRects(rects);
    if (!path.isEmpty()) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.drawPath(path);
    }
}

void ChartSeriesPainter::paintColumnFrames(QPainter& painter, int series) const {
    painter.setRenderHint(QPainter::Antialiasing, true);
    // Not the accent: a series may have that colour.
    QPen pen(QColor::fromRgb(scene_.focused ? colors_.text() : colors_.muted()), scene_.pixels(MarkWidth));
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    for (int category = first_; category <= last_; ++category) {
        painter.drawRect(columnRect(series, category));
    }
}

// --- Lines

/// What a stacked line adds to the ones below it.
void ChartSeriesPainter::paintBand(QPainter& painter, int series) const {
    const auto& spans = plot_.Stack().spans[static_cast<std::size_t>(series - 1)];
    std::vector<ChartPoint> band;
    for (int category = first_; category <= last_; ++category) {
        band.push_back(plot_.Point(series, category));
    }
    for (int category = last_; category >= first_; --category) {
        const double from = spans[static_cast<std::size_t>(category - 1)].from;
        band.push_back({plot_.CategoryCenter(category), plot_.YOf(from, series)});
    }
    QColor color = QColor::fromRgb(colors_.series(series));
    color.setAlphaF(BandWeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(polygonOf(AreaBetween(std::move(band), heights_)));
}

QVector<QLineF> ChartSeriesPainter::lineBetween(int series, int first, int last) const {
    QVector<QLineF> segments;
    segments.reserve(last - first);
    ChartPoint before = plot_.Point(series, first);
    for (int category = first + 1; category <= last; ++category) {
        const ChartPoint here = plot_.Point(series, category);
        if (const auto seen = SegmentBetween(before, here, heights_)) {
            segments.push_back(QLineF(seen->first.x, seen->first.y, seen->second.x, seen->second.y));
        }
        before = here;
    }
    return segments;
}

/// Dashes begin anew at some of the points, the same ones whatever part of the line is painted.
void ChartSeriesPainter::paintLine(QPainter& painter, int series) const {
    const bool selected = isSelected(series);
    painter.setPen(linePen(scene_, colors_.series(series), selected ? SelectedLineWidth : LineWidth));
    const std::span<const double> dashes = dashesOf(*seriesAt(series).look);
    if (dashes.empty()) {
        painter.drawLines(lineBetween(series, first_, last_));
    } else {
        const int every = std::max(1, static_cast<int>(scene_.pixels(SparsePitch) / plot_.CategoryWidth()));
        for (int from = first_ - (first_ - plot_.FirstCategory()) % every; from < last_; from += every) {
            const int to = std::min(from + every, plot_.LastCategory());
            painter.drawLines(dashed(scene_, lineBetween(series, from, to), dashes));
        }
    }
    paintMarkers(painter, series, selected);
}

/// At every point, or at some of them where they stand closely; those of different lines not one above the other then.
void ChartSeriesPainter::paintMarkers(QPainter& painter, int series, bool filled) const {
    const double radius = scene_.pixels(filled ? SelectedRingRadius : RingRadius);
    const QRgb color = colors_.series(series);
    painter.setPen(linePen(scene_, color));
    painter.setBrush(QColor::fromRgb(filled ? color : colors_.plot()));
    const bool many = plot_.CategoryWidth() < (filled ? 2 * radius : scene_.pixels(MarkerPitch));
    const double pitch = filled ? 3 * radius : scene_.pixels(SparsePitch);
    const int every = many ? static_cast<int>(std::ceil(pitch / plot_.CategoryWidth())) : 1;
    const int shift = many ? (series - 1) * every / state_.SeriesCount() : 0;
    const Marker marker = markerOf(*seriesAt(series).look);
    for (int category = first_; category <= last_; ++category) {
        if ((category - 1) % every == shift && heights_.Contain(plot_.Point(series, category))) {
            paintMarker(painter, marker, point(series, category), radius);
        }
    }
}

// --- Trend lines

void ChartSeriesPainter::paintTrends(QPainter& painter, int series) const {
    const ChartHit& selected = state_.selected;
    const bool marked = scene_.marks && selected.code == ChartHitCode::Trendline && selected.series == series;
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setBrush(Qt::NoBrush);
    const auto& trends = seriesAt(series).look->trends;
    for (int trend = 1; trend <= static_cast<int>(trends.size()); ++trend) {
        const QRgb color = colors_.trend(series, trend);
        for (const std::vector<ChartPoint>& piece : plot_.Trend(series, trend)) {
            for (const std::vector<ChartPoint>& part : LineBetween(piece, heights_)) {
                paintTrendPart(painter, polygonOf(part), color, isColumn(series), marked);
            }
        }
    }
}

void ChartSeriesPainter::paintTrendPart(QPainter& painter, const QPolygonF& line, QRgb color, bool overColumns,
                                        bool marked) const {
    const double width = marked ? SelectedLineWidth : LineWidth;
    if (overColumns) {
        // Its own columns have the same colour.
        painter.setPen(QPen(QColor::fromRgb(colors_.plot()), scene_.pixels(width + 2)));
        painter.drawPolyline(line);
    }
    painter.setPen(trendPen(scene_, color, width));
    painter.drawPolyline(line);
    if (marked) {
        const double radius = scene_.pixels(SelectedRingRadius);
        painter.setPen(linePen(scene_, color));
        painter.setBrush(QColor::fromRgb(colors_.plot()));
        painter.drawEllipse(line.front(), radius, radius);
        painter.drawEllipse(line.back(), radius, radius);
        painter.setBrush(Qt::NoBrush);
    }
}

// --- Single points

QRectF ChartSeriesPainter::pointRect(int series, int category) const {
    if (isColumn(series)) {
        return columnRect(series, category);
    }
    const double radius = scene_.pixels(RingRadius);
    const QPointF center = seenPoint(series, category);
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
}

void ChartSeriesPainter::paintPointMark(QPainter& painter, int series, int category, QRgb color) const {
    const double distance = scene_.pixels(MarkDistance);
    const QRectF rect = pointRect(series, category).adjusted(-distance, -distance, distance, distance);
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPen pen(QColor::fromRgb(color), scene_.pixels(MarkWidth));
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    if (isColumn(series)) {
        painter.drawRoundedRect(rect, distance, distance);
    } else {
        painter.drawEllipse(rect);
    }
}

void ChartSeriesPainter::paintMovedPoint(QPainter& painter, int series, int category) const {
    const QRgb color = colors_.series(series);
    if (isColumn(series)) {
        paintPointMark(painter, series, category, colors_.accent());
        return;
    }
    const double radius = scene_.pixels(MovedRadius);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor::fromRgb(colors_.plot()), scene_.pixels(1)));
    painter.setBrush(QColor::fromRgb(color));
    paintMarker(painter, markerOf(*seriesAt(series).look), seenPoint(series, category), radius);
}

}  // namespace planview
