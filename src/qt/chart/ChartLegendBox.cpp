// SPDX-License-Identifier: MIT
#include "qt/chart/ChartLegendBox.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "components/chart/ChartClip.h"
#include "components/chart/ChartPlot.h"
#include "qt/chart/ChartMarks.h"
#include "qt/chart/ChartNumbers.h"

namespace planview {

namespace {

using Kind = ChartLegendBox::Entry::Kind;

constexpr double Margin = 14;
constexpr double Padding = 4;
constexpr double Swatch = 16;
/// So that a piece of a dashed line shows its dashes.
constexpr double DashedSwatch = 34;
constexpr double SwatchGap = 7;
/// How far an entry may be from the end of its line, in lines of text.
constexpr double FarthestFromEnd = 2;
constexpr double EndGap = 3;
constexpr float LeaderWeight = 0.6F;
constexpr double EntryGap = 14;
constexpr double RowGap = 8;
constexpr double TightRowGap = 2;
/// The greatest width of an entry, in logical pixels; its bubble has the whole text.
constexpr double WidestEntry = 240;
/// The largest share of the chart that a legend takes.
constexpr double WidestPart = 0.34;
constexpr double HighestPart = 0.3;
/// What must remain beside the legend.
constexpr double LeastWidth = 150;
constexpr double LeastHeight = 90;

QString words(const char* text) {
    return QCoreApplication::translate("planview::ChartView", text);
}

/// The upper borders of entries in the order of their ends, a pitch apart and as near to the ends as that allows: those
/// that would overlap stand around the middle of their ends.
std::vector<double> spread(const std::vector<ChartLegendBox::Entry>& entries, double pitch, double top, double bottom) {
    struct Group {
        double sum = 0;
        double count = 0;
        [[nodiscard]] double mean() const { return sum / count; }
    };
    std::vector<Group> groups;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        groups.push_back({entries[i].end->y() - pitch / 2 - static_cast<double>(i) * pitch, 1});
        while (groups.size() > 1 && groups[groups.size() - 2].mean() >= groups.back().mean()) {
            const Group last = groups.back();
            groups.pop_back();
            groups.back().sum += last.sum;
            groups.back().count += last.count;
        }
    }
    const double lowest = std::max(top, bottom - static_cast<double>(entries.size()) * pitch);
    std::vector<double> tops;
    for (const Group& group : groups) {
        for (int i = 0; i < static_cast<int>(group.count); ++i) {
            tops.push_back(std::clamp(group.mean(), top, lowest) + static_cast<double>(tops.size()) * pitch);
        }
    }
    return tops;
}

}  // namespace

ChartLegendBox::ChartLegendBox(const ChartScene& scene, const QFont& font)
    : scene_(scene), font_(font), lineHeight_(QFontMetricsF(font).height()), swatch_(scene.pixels(Swatch)) {}

void ChartLegendBox::collect(const ChartPlot& plot) {
    const ChartState& state = scene_.state;
    if (!state.legend.shown) {
        return;
    }
    for (const int series : seriesInOrder()) {
        const bool column = IsColumnType(state.series[static_cast<std::size_t>(series - 1)].type);
        entries_.push_back({column ? Kind::Column : Kind::Line, series, 0, seriesName(state, series), {}, {}, {}});
        const ChartSeriesLook& look = *state.series[static_cast<std::size_t>(series - 1)].look;
        if (!column && !chartmarks::dashesOf(look).empty()) {
            swatch_ = scene_.pixels(DashedSwatch);
        }
    }
    for (int series = 1; series <= state.SeriesCount(); ++series) {
        const auto count = static_cast<int>(state.series[static_cast<std::size_t>(series - 1)].look->trends.size());
        for (int trend = 1; trend <= count; ++trend) {
            const TrendFit& fit = plot.Fit(series, trend);
            const QString text = trendName(state, series, trend);
            if (fit.IsValid()) {
                entries_.push_back({Kind::Trend, series, trend, text, {}, {}, {}});
            } else {
                const QString reason = QString::fromStdString(fit.Limit(state.categories));
                entries_.push_back({Kind::NoTrend, series, trend, text, reason, {}, {}});
            }
        }
    }
    if (state.IsComparison() && state.SeriesCount() >= 2) {
        const QString measured = seriesName(state, state.comparisonBase == 1 ? 2 : 1);
        entries_.push_back({Kind::Above, 0, 0, words("%1 higher").arg(measured), {}, {}, {}});
        entries_.push_back({Kind::Below, 0, 0, words("%1 lower").arg(measured), {}, {}, {}});
    }
}

/// From the top down beside the plot, where the series of a stack lie upon each other.
std::vector<int> ChartLegendBox::seriesInOrder() const {
    const ChartState& state = scene_.state;
    std::vector<int> order(state.series.size());
    std::iota(order.begin(), order.end(), 1);
    const LegendPosition position = state.legend.position;
    const bool beside = position == LegendPosition::Left || position == LegendPosition::Right;
    const bool stacked = std::all_of(state.series.begin(), state.series.end(),
                                     [](const ChartSeries& series) { return IsStackedType(series.type); });
    if (beside && stacked) {
        std::reverse(order.begin(), order.end());
    }
    return order;
}

double ChartLegendBox::swatchWidth() const {
    return swatch_ + scene_.pixels(SwatchGap);
}

double ChartLegendBox::fullWidth(const Entry& entry) const {
    QFont bold(font_);  // as the entry of what is selected
    bold.setBold(true);
    return swatchWidth() + QFontMetricsF(bold).horizontalAdvance(entry.text + entry.remark()) + 1;
}

double ChartLegendBox::entryWidth(const Entry& entry) const {
    return std::min(fullWidth(entry), scene_.pixels(WidestEntry));
}

QString ChartLegendBox::Entry::remark() const {
    return reason.isEmpty() ? QString() : QLatin1Char(' ') + words("(not possible)");
}

void ChartLegendBox::takeFrom(QRectF& area) {
    if (entries_.empty()) {
        return;
    }
    switch (scene_.state.legend.position) {
        case LegendPosition::Right:
            placeInColumn(area, false);
            break;
        case LegendPosition::Left:
            placeInColumn(area, true);
            break;
        case LegendPosition::Top:
            placeInRows(area, true);
            break;
        case LegendPosition::Bottom:
            placeInRows(area, false);
            break;
    }
}

/// Keeps `count` entries; the last of them then says how many are missing.
void ChartLegendBox::cutTo(std::size_t count) {
    if (entries_.size() <= count) {
        return;
    }
    count = std::max<std::size_t>(count, 1);
    const int missing = static_cast<int>(entries_.size() - count) + 1;
    entries_.resize(count);
    entries_.back() = {Kind::More, 0, 0, words("+%1 more").arg(missing), {}, entries_.back().rect, {}};
}

void ChartLegendBox::placeInColumn(QRectF& area, bool left) {
    const double padding = scene_.pixels(Padding);
    const double margin = scene_.pixels(Margin);
    double width = 0;
    for (const Entry& entry : entries_) {
        width = std::max(width, entryWidth(entry));
    }
    width = std::min(width, area.width() * WidestPart);
    const double taken = width + 2 * padding + margin;
    if (area.width() - taken < scene_.pixels(LeastWidth) || area.height() < lineHeight_ + 2 * padding) {
        return;
    }
    const double room = area.height() - 2 * padding;
    const auto count = static_cast<double>(entries_.size());
    double pitch = lineHeight_ + scene_.pixels(RowGap);
    if (count * pitch > room) {
        pitch = std::max(lineHeight_ + scene_.pixels(TightRowGap), room / count);
    }
    cutTo(static_cast<std::size_t>(std::max(1.0, room / pitch + 1e-6)));
    const double x = left ? area.left() : area.right() - width - 2 * padding;
    box_ = QRectF(x, area.top(), width + 2 * padding, static_cast<double>(entries_.size()) * pitch + 2 * padding);
    double y = box_.top() + padding;
    for (Entry& entry : entries_) {
        entry.rect = QRectF(x + padding, y, width, pitch);
        y += pitch;
    }
    if (left) {
        area.setLeft(area.left() + taken);
    } else {
        area.setRight(area.right() - taken);
    }
}

void ChartLegendBox::placeInRows(QRectF& area, bool top) {
    const double pitch = lineHeight_ + scene_.pixels(Padding);
    const double gap = scene_.pixels(EntryGap);
    const double margin = scene_.pixels(Margin) / 2;
    const double room = std::min(area.height() * HighestPart, area.height() - scene_.pixels(LeastHeight)) - margin;
    const int mostRows = static_cast<int>(room / pitch);
    if (mostRows < 1) {
        return;
    }
    const double left = area.left();
    double x = left;
    int row = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const double width = std::min(entryWidth(entries_[i]), area.width());
        if (x > left && x + width > area.right()) {
            x = left;
            ++row;
        }
        if (row == mostRows) {
            --row;
            cutTo(i);
            entries_.back().rect.setWidth(
                std::min(entryWidth(entries_.back()), area.right() - entries_.back().rect.left()));
            break;
        }
        entries_[i].rect = QRectF(x, row * pitch, width, pitch);
        x += width + gap;
    }
    const double height = (row + 1) * pitch;
    const double y = top ? area.top() : area.bottom() - height;
    for (Entry& entry : entries_) {
        entry.rect.translate(0, y);
    }
    box_ = QRectF(left, y, area.width(), height);
    if (top) {
        area.setTop(area.top() + height + margin);
    } else {
        area.setBottom(area.bottom() - height - margin);
    }
}

/// A legend with a ground or a border of its own stays a box.
bool ChartLegendBox::mayStandAtEnds() const {
    const ChartColors colors(scene_.state, scene_.theme);
    return isShown() && scene_.state.legend.position == LegendPosition::Right && colors.legend() == colors.ground() &&
           colors.legendBorder() == colors.legend() && !scene_.state.IsComparison() &&
           std::all_of(entries_.begin(), entries_.end(),
                       [](const Entry& entry) { return entry.kind == Kind::Line || entry.kind == Kind::Trend; });
}

/// The last point of a line that is seen, where it does not leave the plot before.
std::optional<QPointF> ChartLegendBox::endOf(const Entry& entry, const ChartPlot& plot) {
    std::optional<ChartPoint> end;
    if (entry.kind == Kind::Line) {
        end = plot.Point(entry.series, plot.LastCategory());
    } else if (const auto pieces = plot.Trend(entry.series, entry.trend); !pieces.empty()) {
        end = pieces.back().back();
    }
    const bool seen = end && HeightsOf(plot.Area()).Contain(*end);
    return seen ? std::optional(QPointF(end->x, end->y)) : std::nullopt;
}

bool ChartLegendBox::placeAtEnds(const ChartPlot& plot) {
    if (!mayStandAtEnds()) {
        return false;
    }
    std::vector<Entry> placed = entries_;
    for (Entry& entry : placed) {
        entry.end = endOf(entry, plot);
        if (!entry.end) {
            return false;
        }
    }
    std::stable_sort(placed.begin(), placed.end(),
                     [](const Entry& one, const Entry& other) { return one.end->y() < other.end->y(); });
    const double pitch = lineHeight_ + scene_.pixels(EndGap);
    const double top = std::max(plot.Area().y - pitch, box_.top());  // below the title
    const double bottom = plot.Area().Bottom() + pitch;
    const std::vector<double> tops = spread(placed, pitch, top, bottom);
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const double middle = tops[i] + pitch / 2;
        if (std::abs(middle - placed[i].end->y()) > FarthestFromEnd * lineHeight_ || tops[i] + pitch > bottom + 1) {
            return false;
        }
        placed[i].rect.moveTop(tops[i]);
        placed[i].rect.setHeight(pitch);
    }
    entries_ = std::move(placed);
    box_.setTop(entries_.front().rect.top());
    box_.setBottom(entries_.back().rect.bottom());
    return true;
}

void ChartLegendBox::alignTop(double y) {
    const LegendPosition position = scene_.state.legend.position;
    if (position != LegendPosition::Right && position != LegendPosition::Left) {
        return;
    }
    const double shift = std::max(0.0, std::min(y, scene_.area.bottom() - box_.height()) - box_.top());
    box_.translate(0, shift);
    for (Entry& entry : entries_) {
        entry.rect.translate(0, shift);
    }
}

const ChartLegendBox::Entry* ChartLegendBox::entryAt(QPointF point) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [point](const Entry& entry) { return entry.rect.contains(point); });
    return isShown() && found != entries_.end() ? &*found : nullptr;
}

bool ChartLegendBox::isCut(const Entry& entry) const {
    return fullWidth(entry) > entry.rect.width() + 1;
}

void ChartLegendBox::paint(QPainter& painter, const ChartColors& colors) const {
    if (!isShown()) {
        return;
    }
    if (colors.legend() != colors.ground()) {
        painter.fillRect(box_, QColor::fromRgb(colors.legend()));
    }
    if (colors.legendBorder() != colors.legend()) {
        painter.setPen(QPen(QColor::fromRgb(colors.legendBorder()), 1 / scene_.ratio));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(box_);
    }
    const QFontMetricsF metrics(font_);
    for (const Entry& entry : entries_) {
        paintLeader(painter, colors, entry);
        paintSwatch(painter, colors, entry);
        const ChartHit& selected = scene_.state.selected;
        const bool marked = scene_.marks && entry.series > 0 && entry.series == selected.series &&
                            (entry.trend > 0) == (selected.code == ChartHitCode::Trendline);
        QFont font(font_);
        font.setBold(marked);
        painter.setFont(font);
        const bool steppedBack = entry.kind == Kind::NoTrend || entry.kind == Kind::More;
        painter.setPen(QColor::fromRgb(steppedBack ? colors.legendMuted() : colors.legendText()));
        const QRectF rect = entry.rect.adjusted(swatchWidth(), 0, 0, 0);
        const QFontMetricsF used(font);
        const double room = rect.width() - used.horizontalAdvance(entry.remark());
        const QString text = used.elidedText(entry.text, Qt::ElideRight, room) + entry.remark();
        painter.drawText(QPointF(rect.left(), rect.center().y() - metrics.height() / 2 + metrics.ascent()), text);
    }
}

/// From the end of a line to its name.
void ChartLegendBox::paintLeader(QPainter& painter, const ChartColors& colors, const Entry& entry) const {
    if (!entry.end) {
        return;
    }
    QColor color = QColor::fromRgb(entry.kind == Kind::Trend ? colors.trend(entry.series, entry.trend)
                                                             : colors.series(entry.series));
    color.setAlphaF(LeaderWeight);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(color, scene_.pixels(1)));
    const double from = entry.end->x() + scene_.pixels(chartmarks::RingRadius + 1);
    painter.drawLine(QPointF(from, entry.end->y()), QPointF(entry.rect.left(), entry.rect.center().y()));
}

void ChartLegendBox::paintSwatch(QPainter& painter, const ChartColors& colors, const Entry& entry) const {
    const double width = swatch_;
    const QRectF place(entry.rect.left(), entry.rect.center().y() - width / 2, width, width);
    switch (entry.kind) {
        case Kind::Column:
            chartmarks::paintSwatch(painter, scene_, place, QColor::fromRgb(colors.series(entry.series)));
            break;
        case Kind::Line:
            chartmarks::paintLineSample(painter, scene_, place,
                                        *scene_.state.series[static_cast<std::size_t>(entry.series - 1)].look,
                                        colors.series(entry.series), colors.legend());
            break;
        case Kind::Trend:
            chartmarks::paintTrendSample(painter, scene_, place, colors.trend(entry.series, entry.trend));
            break;
        case Kind::NoTrend:
            chartmarks::paintTrendSample(painter, scene_, place, colors.legendMuted());
            break;
        case Kind::Above:
        case Kind::Below:
            chartmarks::paintSwatch(painter, scene_, place,
                                    chartmarks::tint(entry.kind == Kind::Above ? colors.above() : colors.below()));
            break;
        case Kind::More:
            break;
    }
}

}  // namespace planview
