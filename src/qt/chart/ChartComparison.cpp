// SPDX-License-Identifier: MIT
#include "qt/chart/ChartComparison.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

#include "components/chart/ChartClip.h"
#include "qt/chart/ChartMarks.h"
#include "qt/chart/ChartNumbers.h"

namespace planview {

namespace {

constexpr double Distance = 7;
constexpr double LabelGap = 8;
/// The part of a category's width that the tint between columns takes.
constexpr double TintPart = 0.86;
constexpr float Veil = 0.8F;

}  // namespace

ChartComparison::ChartComparison(const ChartScene& scene, const ChartState& state, const ChartPlot& plot,
                                 const ChartColors& colors)
    : scene_(scene), state_(state), plot_(plot), colors_(colors) {}

bool ChartComparison::isShown() const {
    return state_.IsComparison() && state_.SeriesCount() >= 2;
}

double ChartComparison::difference(int category) const {
    const auto at = static_cast<std::size_t>(category - 1);
    return measured().values[at] - state_.series[static_cast<std::size_t>(base() - 1)].values[at];
}

bool ChartComparison::betweenLines() const {
    return !IsColumnType(state_.series[0].type) && !IsColumnType(state_.series[1].type);
}

void ChartComparison::paintTint(QPainter& painter) const {
    painter.setPen(Qt::NoPen);
    if (betweenLines()) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        paintBetweenLines(painter);
    } else {
        painter.setRenderHint(QPainter::Antialiasing, false);
        paintBetweenColumns(painter);
    }
}

QPolygonF ChartComparison::seen(const QPolygonF& outline) const {
    std::vector<ChartPoint> points;
    points.reserve(static_cast<std::size_t>(outline.size()));
    for (const QPointF& place : outline) {
        points.push_back({place.x(), place.y()});
    }
    return chartmarks::polygonOf(AreaBetween(std::move(points), HeightsOf(plot_.Area())));
}

double ChartComparison::seenHeight(int series, int category) const {
    return std::clamp(plot_.Point(series, category).y, plot_.Area().y, plot_.Area().Bottom());
}

/// One area from each crossing of the lines to the next.
void ChartComparison::paintBetweenLines(QPainter& painter) const {
    const auto point = [this](int series, int category) {
        const ChartPoint place = plot_.Point(series, category);
        return QPointF(place.x, place.y);
    };
    QPolygonF first;
    QPolygonF second;
    double higher = 0;  // of the second, somewhere in the area
    const auto finish = [&] {
        if (first.size() > 1 && higher != 0) {
            std::reverse(second.begin(), second.end());
            painter.setBrush(chartmarks::tint(higher > 0 ? colors_.above() : colors_.below()));
            painter.drawPolygon(seen(first + second));
        }
        first.clear();
        second.clear();
    };
    for (int category = plot_.FirstCategory(); category <= plot_.LastCategory(); ++category) {
        const QPointF one = point(base(), category);
        const QPointF other = point(measuredNumber(), category);
        // On the screen: what is higher has the smaller y.
        const double now = one.y() - other.y();
        if (higher * now < 0) {
            const double before = first.back().y() - second.back().y();
            const QPointF crossing = first.back() + (one - first.back()) * (before / (before - now));
            first << crossing;
            second << crossing;
            finish();
            first << crossing;
            second << crossing;
        }
        higher = now != 0 ? now : higher;
        first << one;
        second << other;
    }
    finish();
}

void ChartComparison::paintBetweenColumns(QPainter& painter) const {
    const double width = plot_.CategoryWidth() * TintPart;
    for (int category = plot_.FirstCategory(); category <= plot_.LastCategory(); ++category) {
        const double first = seenHeight(base(), category);
        const double second = seenHeight(measuredNumber(), category);
        const QRectF rect(plot_.CategoryCenter(category) - width / 2, std::min(first, second), width,
                          std::abs(first - second));
        painter.fillRect(rect, chartmarks::tint(second < first ? colors_.above() : colors_.below()));
    }
}

void ChartComparison::paintDifferences(QPainter& painter, const QFont& font) const {
    QFont bold(font);
    bold.setBold(true);
    const QFontMetricsF metrics(bold);
    painter.setFont(bold);
    painter.setRenderHint(QPainter::Antialiasing, true);
    const QRectF area(plot_.Area().x, plot_.Area().y, plot_.Area().width, plot_.Area().height);
    double taken = area.left() - metrics.height();
    // Lines and columns may run behind the texts.
    QColor veil = QColor::fromRgb(colors_.plot());
    veil.setAlphaF(Veil);
    for (int category = plot_.FirstCategory(); category <= plot_.LastCategory(); ++category) {
        const double value = difference(category);
        const QString text = differenceText(measured(), value);
        const double width = metrics.horizontalAdvance(text);
        const double x = std::clamp(plot_.CategoryCenter(category) - width / 2, area.left(),
                                    std::max(area.left(), area.right() - width));
        if (x < taken) {
            continue;
        }
        taken = x + width + scene_.pixels(LabelGap);
        const double upper = std::min(seenHeight(1, category), seenHeight(2, category));
        const double lower = std::max(seenHeight(1, category), seenHeight(2, category));
        const double distance = scene_.pixels(Distance);
        // Above both. Lines leave room below, too.
        const bool above = upper - distance - metrics.height() >= area.top();
        const double below = betweenLines() ? std::min(lower + distance, area.bottom() - metrics.height()) : area.top();
        const double top = above ? upper - distance - metrics.height() : below;
        const QRectF rect(x - distance / 2, top, width + distance, metrics.height());
        painter.setPen(Qt::NoPen);
        painter.setBrush(veil);
        painter.drawRoundedRect(rect, distance / 2, distance / 2);
        const double baseLine = top + metrics.ascent();
        const bool none = text == valueText(measured(), 0);
        painter.setPen(QColor::fromRgb(none ? colors_.muted() : value > 0 ? colors_.above() : colors_.below()));
        painter.drawText(QPointF(x, baseLine), text);
    }
}

}  // namespace planview
