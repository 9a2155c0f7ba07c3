// SPDX-License-Identifier: MIT
#include "qt/chart/ChartPainter.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/chart/ChartComparison.h"
#include "qt/chart/ChartMarks.h"
#include "qt/chart/ChartNumbers.h"

namespace planview {

namespace {

constexpr double OptimumWidth = 1.5;
constexpr double OptimumGap = 4;
constexpr double BubblePadding = 9;
constexpr double BubbleDistance = 10;
constexpr double BubbleRadius = 4;
constexpr double HintGap = 6;
/// Rings and marks reach this far beyond their points.
constexpr double Reach = 8;

QString words(const char* text) {
    return QCoreApplication::translate("planview::ChartView", text);
}

QRectF areaOf(const ChartPlot& plot) {
    return {plot.Area().x, plot.Area().y, plot.Area().width, plot.Area().height};
}

}  // namespace

ChartPainter::ChartPainter(const ChartScene& scene, const ChartLayout& layout)
    : scene_(scene), layout_(layout), colors_(scene.state, scene.theme) {}

void ChartPainter::paint(QPainter& painter) const {
    paintChart(painter, 0);
}

void ChartPainter::paintWithoutTrends(QPainter& painter, int series) const {
    paintChart(painter, series);
}

void ChartPainter::paintChart(QPainter& painter, int withoutTrendsOf) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(scene_.area, QColor::fromRgb(colors_.ground()));
    paintTitle(painter);
    if (layout_.isEmpty()) {
        paintEmptyHint(painter);
    } else {
        layout_.legend().paint(painter, colors_);
        paintMarks(painter);
        const double reach = scene_.pixels(Reach);
        // Rings at the border of the plot are painted whole; a fixed axis cuts what lies beyond its ends.
        const QRectF clip = layout_.plotRect().adjusted(-reach, -reach, reach, reach / 2);
        const ChartPlot& plot = layout_.plot();
        paintPlot(painter, scene_.state, plot, clip, plot.FirstCategory(), plot.LastCategory(), withoutTrendsOf);
    }
    painter.restore();
}

void ChartPainter::paintTitle(QPainter& painter) const {
    if (layout_.title().isEmpty()) {
        return;
    }
    const QFontMetricsF metrics(layout_.titleFont());
    painter.setFont(layout_.titleFont());
    painter.setPen(QColor::fromRgb(colors_.text()));
    painter.drawText(QPointF(layout_.titleRect().left(), layout_.titleRect().top() + metrics.ascent()),
                     layout_.title());
}

void ChartPainter::paintEmptyHint(QPainter& painter) const {
    const bool noRoom = scene_.state.SeriesCount() > 0 && scene_.state.CategoryCount() > 0;
    if (noRoom) {
        return;
    }
    QFont strong(layout_.textFont());
    strong.setPixelSize(layout_.titleFont().pixelSize());
    const QFontMetricsF metrics(strong);
    const double gap = scene_.pixels(HintGap);
    const double top = scene_.area.center().y() - metrics.height() - gap / 2;
    const QRectF room = scene_.area.adjusted(gap, 0, -gap, 0);
    const QString title = words("Nothing in the chart yet");
    const QString guidance = QString::fromStdString(scene_.state.guidance);
    painter.setFont(strong);
    painter.setPen(QColor::fromRgb(colors_.text()));
    painter.drawText(QRectF(room.left(), top, room.width(), metrics.height()), Qt::AlignCenter,
                     metrics.elidedText(title, Qt::ElideRight, room.width()));
    painter.setFont(layout_.textFont());
    painter.setPen(QColor::fromRgb(colors_.muted()));
    const double below = top + metrics.height() + gap;
    painter.drawText(QRectF(room.left(), below, room.width(), room.bottom() - below),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     guidance.isEmpty() ? words("Select rows in the table and show them in the chart.") : guidance);
}

void ChartPainter::paintMarks(QPainter& painter) const {
    const QFontMetricsF metrics(layout_.textFont());
    painter.setFont(layout_.textFont());
    painter.setPen(QColor::fromRgb(colors_.muted()));
    for (const auto* marks : {&layout_.leftMarks(), &layout_.rightMarks()}) {
        for (const ChartLayout::Mark& mark : *marks) {
            painter.drawText(QPointF(mark.rect.left(), mark.rect.top() + metrics.ascent()), mark.text);
        }
    }
    layout_.categories().paint(painter, colors_.muted());
}

// --- The plot

void ChartPainter::paintPlot(QPainter& painter, const ChartState& state, const ChartPlot& plot, const QRectF& clip,
                             int first, int last, int withoutTrendsOf) const {
    painter.save();
    painter.setClipRect(clip, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (colors_.plot() != colors_.ground()) {
        painter.fillRect(areaOf(plot), QColor::fromRgb(colors_.plot()));
    }
    paintRange(painter, plot);
    paintGridLines(painter, plot);
    const ChartComparison comparison(scene_, state, plot, colors_);
    ChartSeriesPainter series(scene_, state, plot, colors_);
    series.setCategories(first, last);
    if (comparison.isShown()) {
        comparison.paintTint(painter);
    }
    series.paintSeries(painter);
    for (int number = 1; number <= state.SeriesCount(); ++number) {
        if (number != withoutTrendsOf) {
            series.paintTrends(painter, number);
        }
    }
    paintOptimum(painter, plot);
    if (comparison.isShown()) {
        comparison.paintDifferences(painter, layout_.textFont());
    }
    paintSelection(painter, series);
    painter.restore();
}

void ChartPainter::paintGridLines(QPainter& painter, const ChartPlot& plot) const {
    const bool shares = !plot.Stack().anyOnValues && plot.Stack().anyOnShares && plot.Shares();
    const ChartScale& scale = shares ? *plot.Shares() : plot.Values();
    const double hairline = std::max(1.0, std::floor(scene_.ratio)) / scene_.ratio;
    const QRectF area = areaOf(plot);
    const auto line = [&](double value, QRgb color) {
        const double part = (value - scale.minimum) / (scale.maximum - scale.minimum);
        const double y = scene_.onPixel(area.bottom() - part * area.height());
        painter.fillRect(QRectF(area.left(), y, area.width(), hairline), QColor::fromRgb(color));
    };
    for (int i = 0; i < scale.markCount; ++i) {
        line(scale.Mark(i), colors_.line());
    }
    if (scale.minimum <= 0 && scale.maximum >= 0) {
        line(0, mixColors(colors_.line(), colors_.muted(), 0.5));
    }
}

void ChartPainter::paintRange(QPainter& painter, const ChartPlot& plot) const {
    const ChartValueAxis& axis = scene_.state.valueAxis;
    const bool shown = axis.rangeMinimum.IsShown() || axis.rangeMaximum.IsShown();
    if (!shown || !plot.Stack().anyOnValues) {
        return;
    }
    const QRectF area = areaOf(plot);
    const auto inside = [&area](double y) { return std::clamp(y, area.top(), area.bottom()); };
    const double bottom = axis.rangeMinimum.IsShown() ? inside(plot.YOf(axis.rangeMinimum.value)) : area.bottom();
    const double top = axis.rangeMaximum.IsShown() ? inside(plot.YOf(axis.rangeMaximum.value)) : area.top();
    const double y = scene_.onPixel(std::min(top, bottom));
    painter.fillRect(QRectF(area.left(), y, area.width(), scene_.onPixel(std::max(top, bottom)) - y),
                     QColor::fromRgb(colors_.band()));
}

void ChartPainter::paintOptimum(QPainter& painter, const ChartPlot& plot) const {
    const ChartLimit& optimum = scene_.state.valueAxis.optimum;
    const QRectF area = areaOf(plot);
    if (!optimum.IsShown() || !plot.Stack().anyOnValues) {
        return;
    }
    const double y = plot.YOf(optimum.value);
    if (y < area.top() || y > area.bottom()) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPen pen(QColor::fromRgb(colors_.accent()), scene_.pixels(OptimumWidth), Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({1, 2.5});
    painter.setPen(pen);
    painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));

    const QFontMetricsF metrics(layout_.textFont());
    const QString text = words("optimum %1").arg(limitText(optimum.value));
    const double gap = scene_.pixels(OptimumGap);
    const double width = metrics.horizontalAdvance(text);
    const QRectF over(area.right() - width - 2 * gap, y - gap / 2 - metrics.height(), width + 2 * gap,
                      metrics.height());
    const auto [ground, isFree] = placeBesideLines(plot, over, metrics.height() + gap);
    // Columns may stand behind the text, lines may not.
    QColor veil = QColor::fromRgb(colors_.plot());
    veil.setAlphaF(isFree ? 0.75F : 0.0F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(veil);
    painter.drawRoundedRect(ground, gap / 2, gap / 2);
    painter.setFont(layout_.textFont());
    painter.setPen(QColor::fromRgb(colors_.accent()));
    painter.drawText(QPointF(ground.left() + gap, ground.top() + metrics.ascent()), text);
}

/// Above or below, at the right or the left end, wherever no line runs; where one runs everywhere, above or below.
std::pair<QRectF, bool> ChartPainter::placeBesideLines(const ChartPlot& plot, const QRectF& over, double down) const {
    const QRectF area = areaOf(plot);
    const double left = area.left() - over.left();
    const QRectF places[] = {over, over.translated(0, down), over.translated(left, 0), over.translated(left, down)};
    const auto isInside = [&](const QRectF& place) {
        return place.top() >= area.top() && place.bottom() <= area.bottom();
    };
    // A ring beside the text is better than one that touches it, but both are seen.
    for (const double ring : {scene_.pixels(Reach), scene_.pixels(Reach) / 2}) {
        for (const QRectF& place : places) {
            if (isInside(place) && !carriesLine(plot, place.adjusted(-ring, -ring, ring, ring))) {
                return {place, true};
            }
        }
    }
    return {isInside(over) ? over : places[1], false};
}

/// Whether a line runs through there.
bool ChartPainter::carriesLine(const ChartPlot& plot, const QRectF& rect) const {
    const auto runsThrough = [&rect](const ChartPoint& from, const ChartPoint& to) {
        const double begin = std::max(rect.left(), from.x);
        const double end = std::min(rect.right(), to.x);
        const double slope = to.x > from.x ? (to.y - from.y) / (to.x - from.x) : 0;
        const auto [top, bottom] = std::minmax({from.y + (begin - from.x) * slope, from.y + (end - from.x) * slope});
        return begin <= end && bottom >= rect.top() && top <= rect.bottom();
    };
    for (int series = 1; series <= scene_.state.SeriesCount(); ++series) {
        if (IsColumnType(scene_.state.series[static_cast<std::size_t>(series - 1)].type)) {
            continue;
        }
        ChartPoint before = plot.Point(series, plot.FirstCategory());
        for (int category = plot.FirstCategory(); category <= plot.LastCategory(); ++category) {
            const ChartPoint at = plot.Point(series, category);
            if (runsThrough(before, at)) {
                return true;
            }
            before = at;
        }
    }
    return false;
}

void ChartPainter::paintSelection(QPainter& painter, const ChartSeriesPainter& series) const {
    const ChartHit& selected = scene_.state.selected;
    const ChartPlot& plot = layout_.plot();
    if (scene_.marks && selected.code == ChartHitCode::Point && selected.series <= scene_.state.SeriesCount() &&
        selected.category >= plot.FirstCategory() && selected.category <= plot.LastCategory()) {
        series.paintPointMark(painter, selected.series, selected.category, colors_.focus(scene_.focused));
    }
}

// --- A point on its way

QRectF ChartPainter::movedRect(const ChartPlot& plot, int category) const {
    const double reach = scene_.pixels(Reach);
    const double half = std::max(plot.CategoryWidth(), reach);
    const double middle = plot.CategoryCenter(category);
    const QRectF area = areaOf(plot);
    return QRectF(QPointF(middle - half - reach, area.top() - reach),
                  QPointF(middle + half + reach, area.bottom() + reach / 2)) &
           area.adjusted(-reach, -reach, reach, reach / 2);
}

void ChartPainter::paintMoved(QPainter& painter, const ChartState& state, const ChartPlot& plot, int series,
                              int category) const {
    painter.save();
    const QRectF clip = movedRect(plot, category);
    painter.setClipRect(clip, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(clip, QColor::fromRgb(colors_.ground()));
    // Some categories more than those in the clip: rings and lines reach over.
    constexpr int Neighbours = 2;
    const int more = Neighbours + static_cast<int>(2 * scene_.pixels(Reach) / std::max(1.0, plot.CategoryWidth()));
    paintPlot(painter, state, plot, clip, category - more, category + more, series);
    painter.restore();

    painter.save();
    painter.setClipRect(areaOf(plot), Qt::IntersectClip);
    const ChartSeriesPainter moved(scene_, state, plot, colors_);
    moved.paintTrends(painter, series);
    painter.restore();
    moved.paintMovedPoint(painter, series, category);
}

// --- Bubble

QRectF ChartPainter::bubbleRect(const QRectF& place, const QString& name, const QString& value) const {
    QFont bold(layout_.textFont());
    bold.setBold(true);
    const QFontMetricsF metrics(layout_.textFont());
    const QFontMetricsF boldMetrics(bold);
    const double padding = scene_.pixels(BubblePadding);
    const double distance = scene_.pixels(BubbleDistance);
    const double text = std::max(metrics.horizontalAdvance(name), boldMetrics.horizontalAdvance(value));
    const int lines = value.isEmpty() ? 1 : 2;
    const double width = std::min(std::ceil(text) + 2 * padding, scene_.area.width());
    const double height = lines * metrics.height() + padding;
    const double above = place.top() - distance - height;
    const double below = std::min(place.bottom() + distance, scene_.area.bottom() - height);
    const double y = above >= scene_.area.top() ? above : below;
    const double x = std::clamp(place.center().x() - distance, scene_.area.left(),
                                std::max(scene_.area.left(), scene_.area.right() - width));
    return {scene_.onPixel(x), scene_.onPixel(y), width, height};
}

void ChartPainter::paintBubble(QPainter& painter, const QRectF& place, const QString& name,
                               const QString& value) const {
    const QRectF rect = bubbleRect(place, name, value);
    const double padding = scene_.pixels(BubblePadding);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(scene_.theme.text));
    painter.drawRoundedRect(rect, scene_.pixels(BubbleRadius), scene_.pixels(BubbleRadius));
    painter.setPen(QColor::fromRgb(scene_.theme.base));
    QFont font(layout_.textFont());
    double y = rect.top() + padding / 2;
    for (const QString& text : {name, value}) {
        painter.setFont(font);
        const QFontMetricsF metrics(font);
        painter.drawText(QPointF(rect.left() + padding, y + metrics.ascent()),
                         metrics.elidedText(text, Qt::ElideRight, rect.width() - 2 * padding));
        y += metrics.height();
        font.setBold(true);
    }
}

}  // namespace planview
