// SPDX-License-Identifier: MIT
#include "qt/chart/ChartLayout.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "qt/chart/ChartNumbers.h"

namespace planview {

namespace {

constexpr double TextPixels = 11;
constexpr double TitlePixels = 13;
constexpr double PixelsPerPoint = 96.0 / 72.0;
constexpr double Margin = 12;
constexpr double TitleGap = 8;
constexpr double MarkGap = 8;
/// Marks of an axis stand at least this many lines apart.
constexpr double MarkPitch = 2.6;
/// Below this the plot is not worth drawing.
constexpr double SmallestPlot = 16;
constexpr double DeepestLabels = 0.34;
constexpr double WidestMarks = 0.4;
/// Label widths and plot sizes depend on each other; they settle after a few rounds.
constexpr int MostRounds = 3;

QFont fontOf(const ChartScene& scene, const ChartFont& wanted, double usual, bool bold) {
    QFont font(scene.family);
    if (!wanted.name.empty()) {
        font.setFamilies({QString::fromStdString(wanted.name), scene.family.family()});
    }
    const double size = wanted.size > 0 ? wanted.size * PixelsPerPoint : usual;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(scene.pixels(size)))));
    font.setBold(bold);
    return font;
}

ChartRect toChartRect(const QRectF& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

}  // namespace

ChartLayout::ChartLayout(const ChartScene& scene)
    : scene_(scene),
      textFont_(fontOf(scene, {scene.state.legend.font.name, 0}, TextPixels, false)),
      titleFont_(fontOf(scene, scene.state.titleFont, TitlePixels, true)),
      lineHeight_(QFontMetricsF(textFont_).height()),
      legend_(scene, fontOf(scene, scene.state.legend.font, TextPixels, false)) {
    const double margin = scene_.pixels(Margin);
    QRectF room = scene_.area.adjusted(margin, margin, -margin, -margin);
    placeTitle(room);
    if (scene_.state.SeriesCount() == 0 || scene_.state.CategoryCount() == 0) {
        return;
    }
    plot_.emplace(scene_.state, toChartRect(room), 1);
    legend_.collect(*plot_);
    legend_.takeFrom(room);
    placePlot(room);
    if (plot_ && !legend_.placeAtEnds(*plot_)) {
        legend_.alignTop(plot_->Area().y);
    }
}

void ChartLayout::placeTitle(QRectF& left) {
    const QFontMetricsF metrics(titleFont_);
    const QString text = QString::fromStdString(scene_.state.title).simplified();
    if (text.isEmpty() || left.height() < 3 * metrics.height()) {
        return;
    }
    title_ = metrics.elidedText(text, Qt::ElideRight, left.width());
    titleRect_ = QRectF(left.left(), left.top(), metrics.horizontalAdvance(title_), metrics.height());
    left.setTop(titleRect_.bottom() + scene_.pixels(TitleGap));
}

bool ChartLayout::usesSharesAlone() const {
    return plot_->Stack().anyOnShares && !plot_->Stack().anyOnValues;
}

void ChartLayout::placePlot(const QRectF& room) {
    QRectF rect = room;
    for (int round = 0; round < MostRounds; ++round) {
        steps_ = std::max(1, static_cast<int>(rect.height() / (lineHeight_ * MarkPitch)));
        plot_.emplace(scene_.state, toChartRect(rect), steps_);
        axisFormat_ = scene_.state.ValueFormat();
        makeMarks();
        const auto areTooWide = [&] { return widthOf(leftMarks_) + widthOf(rightMarks_) > room.width() * WidestMarks; };
        if (areTooWide() && !axisFormat_.empty()) {
            axisFormat_.clear();  // the plain numbers may do
            makeMarks();
        }
        if (areTooWide()) {
            leftMarks_.clear();
            rightMarks_.clear();
        }
        categories_.emplace(scene_, textFont_, plot_->CategoryWidth(), room.height() * DeepestLabels);
        const double overhang = categories_->overhang() - plot_->CategoryWidth() / 2;
        const double beyond = std::min(overhang, room.width() / 4) - scene_.pixels(Margin);
        const double right = std::max(widthOf(rightMarks_), beyond);
        const double top = leftMarks_.empty() ? 0 : lineHeight_ / 2;
        const QRectF next(QPointF(scene_.onPixel(room.left() + widthOf(leftMarks_)), scene_.onPixel(room.top() + top)),
                          QPointF(scene_.onPixel(room.right() - std::max(0.0, right)),
                                  scene_.onPixel(room.bottom() - categories_->depth())));
        if (next == rect) {
            break;
        }
        rect = next;
    }
    if (rect.width() < SmallestPlot || rect.height() < SmallestPlot) {
        plot_.reset();
        return;
    }
    plot_.emplace(scene_.state, toChartRect(rect), steps_);
    const bool sharesAlone = usesSharesAlone() && plot_->Shares();
    placeMarks(leftMarks_, sharesAlone ? *plot_->Shares() : plot_->Values(), sharesAlone, false);
    if (plot_->Shares()) {
        placeMarks(rightMarks_, *plot_->Shares(), true, true);
    }
    categories_->place(*plot_);
    if (!title_.isEmpty()) {
        // Over the plot, as long as the title has room there.
        const double margin = scene_.pixels(Margin);
        const double last = scene_.area.right() - margin - titleRect_.width();
        titleRect_.moveLeft(std::max(scene_.area.left() + margin, std::min(rect.left(), last)));
    }
}

void ChartLayout::makeMarks() {
    const bool labelled = scene_.state.valueAxis.visible;
    const bool sharesAlone = usesSharesAlone() && plot_->Shares();
    leftMarks_ =
        labelled ? marksOf(sharesAlone ? *plot_->Shares() : plot_->Values(), sharesAlone) : std::vector<Mark>();
    const bool second = labelled && plot_->Shares() && !sharesAlone;
    rightMarks_ = second ? marksOf(*plot_->Shares(), true) : std::vector<Mark>();
}

std::vector<ChartLayout::Mark> ChartLayout::marksOf(const ChartScale& scale, bool share) const {
    std::vector<Mark> marks;
    for (int i = 0; i < scale.markCount; ++i) {
        marks.push_back({0, share ? shareMarkText(scale, i) : markText(scale, i, axisFormat_), {}});
    }
    return marks;
}

double ChartLayout::widthOf(const std::vector<Mark>& marks) const {
    const QFontMetricsF metrics(textFont_);
    double widest = 0;
    for (const Mark& mark : marks) {
        widest = std::max(widest, metrics.horizontalAdvance(mark.text));
    }
    return marks.empty() ? 0 : std::ceil(widest + scene_.pixels(MarkGap));
}

/// Leaves marks that have been given up as they are: none.
void ChartLayout::placeMarks(std::vector<Mark>& marks, const ChartScale& scale, bool share, bool onRight) const {
    if (marks.empty()) {
        return;
    }
    marks = marksOf(scale, share);
    const ChartRect& area = plot_->Area();
    const QFontMetricsF metrics(textFont_);
    const double gap = scene_.pixels(MarkGap);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        Mark& mark = marks[i];
        const double part = (scale.Mark(static_cast<int>(i)) - scale.minimum) / (scale.maximum - scale.minimum);
        mark.y = area.Bottom() - part * area.height;
        const double width = metrics.horizontalAdvance(mark.text);
        const double x = onRight ? area.Right() + gap : area.x - gap - width;
        mark.rect = QRectF(x, mark.y - lineHeight_ / 2, width, lineHeight_);
    }
}

QRectF ChartLayout::plotRect() const {
    if (!plot_) {
        return {};
    }
    const ChartRect& area = plot_->Area();
    return {area.x, area.y, area.width, area.height};
}

ChartHit ChartLayout::hitTest(QPointF place, double reach) const {
    if (!scene_.area.contains(place)) {
        return {};
    }
    if (!title_.isEmpty() && titleRect_.contains(place)) {
        return {ChartHitCode::Title, 0, 0};
    }
    if (!plot_) {
        return {ChartHitCode::ChartArea, 0, 0};
    }
    if (const ChartLegendBox::Entry* entry = legend_.entryAt(place); entry && entry->series > 0) {
        return {entry->trend > 0 ? ChartHitCode::Trendline : ChartHitCode::Series, entry->series, 0};
    }
    if (legend_.isShown() && legend_.box().contains(place)) {
        return {ChartHitCode::Legend, 0, 0};
    }
    const QRectF plot = plotRect();
    if (plot.adjusted(-reach, -reach, reach, reach).contains(place)) {
        const ChartHit hit = plot_->HitTest({place.x(), place.y()}, reach);
        if (hit.series > 0 || plot.contains(place)) {
            return hit;
        }
    }
    if (place.y() > plot.bottom() && place.x() >= plot.left() && place.x() <= plot.right() &&
        place.y() <= plot.bottom() + categories_->depth()) {
        return {ChartHitCode::CategoryAxis, 0, 0};
    }
    const bool beside = place.y() >= plot.top() && place.y() <= plot.bottom();
    const double left = leftMarks_.empty() ? plot.left() : plot.left() - widthOf(leftMarks_);
    if (beside && place.x() >= left && place.x() <= plot.right() + widthOf(rightMarks_)) {
        return {ChartHitCode::ValueAxis, 0, 0};
    }
    return {ChartHitCode::ChartArea, 0, 0};
}

}  // namespace planview
