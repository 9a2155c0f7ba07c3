#include "qt/chart/ChartComparison.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "qt/chart/ChartMarks.h"
#include "qt/chart/ChartNumbers.h"

namespace planview {

namespace {

constexpr double Distance = 7;
constexpr double LabelGap = 8;
/// The part of a category's width that the tint between columns takes.
constexpr double TintPart = 0.86;

}  // namespace

ChartComparison::ChartComparison(const ChartScene& scene, const ChartState& state, const ChartPlot& plot,
                                 const ChartColors& colors)
    : scene_(scene), state_(state), plot_(plot), colors_(colors) {}

bool ChartComparison::isShown() const {
    return state_.comparison && state_.SeriesCount() >= 2;
}

double ChartComparison::difference(int category) const {
    const auto at = static_cast<std::size_t>(category - 1);
    return state_.series[1].values[at] - state_.series[0].values[at];
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

/// From category to category; where the lines cross in between, each side has its own tint.
void ChartComparison::paintBetweenLines(QPainter& painter) const {
    QPainterPath above;
    QPainterPath below;
    const auto point = [this](int series, int category) {
        const ChartPoint place = plot_.Point(series, category);
        return QPointF(place.x, place.y);
    };
    const auto add = [&](bool isAbove, const QPolygonF& area) {
        QPainterPath& path = isAbove ? above : below;
        path.addPolygon(area);
        path.closeSubpath();
    };
    for (int category = plot_.FirstCategory(); category < plot_.LastCategory(); ++category) {
        const QPointF firstFrom = point(1, category);
        const QPointF firstTo = point(1, category + 1);
        const QPointF secondFrom = point(2, category);
        const QPointF secondTo = point(2, category + 1);
        // On the screen: what is higher has the smaller y.
        const double from = firstFrom.y() - secondFrom.y();
        const double to = firstTo.y() - secondTo.y();
        if (from * to >= 0) {
            add(from + to > 0, {firstFrom, firstTo, secondTo, secondFrom});
            continue;
        }
        const double part = from / (from - to);
        const QPointF crossing = firstFrom + (firstTo - firstFrom) * part;
        add(from > 0, {firstFrom, crossing, secondFrom});
        add(to > 0, {firstTo, crossing, secondTo});
    }
    painter.setBrush(chartmarks::tint(colors_.above()));
    painter.drawPath(above);
    painter.setBrush(chartmarks::tint(colors_.below()));
    painter.drawPath(below);
}

void ChartComparison::paintBetweenColumns(QPainter& painter) const {
    const double width = plot_.CategoryWidth() * TintPart;
    for (int category = plot_.FirstCategory(); category <= plot_.LastCategory(); ++category) {
        const double first = plot_.Point(1, category).y;
        const double second = plot_.Point(2, category).y;
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
    for (int category = plot_.FirstCategory(); category <= plot_.LastCategory(); ++category) {
        const double value = difference(category);
        const QString text = differenceText(state_.series[1], value);
        const double width = metrics.horizontalAdvance(text);
        const double x = std::clamp(plot_.CategoryCenter(category) - width / 2, area.left(),
                                    std::max(area.left(), area.right() - width));
        if (x < taken) {
            continue;
        }
        taken = x + width + scene_.pixels(LabelGap);
        const double upper = std::min(plot_.Point(1, category).y, plot_.Point(2, category).y);
        const double lower = std::max(plot_.Point(1, category).y, plot_.Point(2, category).y);
        const double distance = scene_.pixels(Distance);
        // Above both; below both where there is no room above.
        const bool fits = upper - distance - metrics.height() >= area.top();
        const double baseLine = fits ? upper - distance - metrics.descent() : lower + distance + metrics.ascent();
        const bool none = text == valueText(state_.series[1], 0);
        painter.setPen(QColor::fromRgb(none ? colors_.muted() : value > 0 ? colors_.above() : colors_.below()));
        painter.drawText(QPointF(x, baseLine), text);
    }
}

}  // namespace planview
