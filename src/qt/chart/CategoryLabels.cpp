// SPDX-License-Identifier: MIT
#include "qt/chart/CategoryLabels.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QSet>
#include <QStringList>
#include <QTransform>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "components/chart/ChartPlot.h"

namespace planview {

namespace {

constexpr double Gap = 7;
constexpr double Distance = 10;
constexpr double LongestText = 150;
constexpr double Slanted = 45;
constexpr double Vertical = 90;
/// Slanted lines side by side need more than their height.
constexpr double SlantedPitch = 1.5;
constexpr double VerticalPitch = 1.1;
/// A text is shortened no further than to this many of its line's heights.
constexpr double ShortestLines = 3;

int pitchOf(double needed, double width) {
    constexpr double Most = 10000;
    return width <= 0 ? 1 : static_cast<int>(std::clamp(std::ceil(needed / width - 1e-9), 1.0, Most));
}

}  // namespace

CategoryLabels::CategoryLabels(const ChartScene& scene, const QFont& font, double categoryWidth, double room)
    : scene_(scene), font_(font), gap_(scene.pixels(Gap)), distance_(scene.pixels(Distance)), room_(room) {
    const QFontMetricsF metrics(font_);
    ascent_ = metrics.ascent();
    height_ = metrics.height();
    const ChartState& state = scene_.state;
    if (!state.categoryAxis.visible || room < height_ + gap_) {
        return;
    }
    longest_ = scene_.pixels(LongestText);
    for (int i = 0; i < state.VisibleCount(); ++i) {
        widest_ = std::max(widest_, metrics.horizontalAdvance(text(state.FirstVisible() + i)));
    }
    if (widest_ > 0) {
        widest_ = std::min(widest_, longest_);
        chooseStand(categoryWidth, state.categoryAxis.orientation);
        chooseShortening();
    }
}

QString CategoryLabels::text(int category) const {
    return QString::fromStdString(scene_.state.categories[static_cast<std::size_t>(category - 1)]).simplified();
}

void CategoryLabels::chooseStand(double categoryWidth, LabelOrientation orientation) {
    switch (orientation) {
        case LabelOrientation::Horizontal:
            standHorizontally(categoryWidth);
            return;
        case LabelOrientation::Slanted:
            stand(Slanted, categoryWidth);
            return;
        case LabelOrientation::Vertical:
            stand(Vertical, categoryWidth);
            return;
        case LabelOrientation::Automatic:
            break;
    }
    if (widest_ + distance_ <= categoryWidth || categoryWidth < height_ * SlantedPitch) {
        standHorizontally(categoryWidth);
    } else {
        stand(Slanted, categoryWidth);
    }
}

void CategoryLabels::standHorizontally(double categoryWidth) {
    every_ = pitchOf(widest_ + distance_, categoryWidth);
    depth_ = gap_ + height_;
}

void CategoryLabels::stand(double angle, double categoryWidth) {
    angle_ = angle;
    const double sine = std::sin(qDegreesToRadians(angle));
    const double cosine = std::cos(qDegreesToRadians(angle));
    every_ = pitchOf(height_ * (angle == Vertical ? VerticalPitch : SlantedPitch), categoryWidth);
    const double lineDepth = height_ * cosine;
    longest_ = std::min(longest_, std::max((room_ - gap_ - lineDepth) / sine, ShortestLines * height_));
    widest_ = std::min(widest_, longest_);
    depth_ = std::min(gap_ + widest_ * sine + lineDepth, std::max(room_, 0.0));
}

/// The one that leaves the most texts different from each other.
void CategoryLabels::chooseShortening() {
    const QFontMetricsF metrics(font_);
    QStringList texts;
    bool tooLong = false;
    for (int i = 0; i < scene_.state.VisibleCount(); ++i) {
        texts << text(scene_.state.FirstVisible() + i);
        tooLong = tooLong || metrics.horizontalAdvance(texts.back()) > longest_;
    }
    texts.removeDuplicates();
    if (!tooLong || texts.size() < 2) {
        return;
    }
    const QString& first = texts.front();
    commonStart_ = first.size();
    commonEnd_ = first.size();
    for (const QString& other : texts) {
        const auto starts = std::mismatch(first.begin(), first.end(), other.begin(), other.end());
        const auto ends = std::mismatch(first.rbegin(), first.rend(), other.rbegin(), other.rend());
        if (other != first) {
            commonStart_ = std::min<qsizetype>(commonStart_, starts.first - first.begin());
            commonEnd_ = std::min<qsizetype>(commonEnd_, ends.first - first.rbegin());
        }
    }
    qsizetype most = 0;
    Shortening best = Shortening::End;
    for (const Shortening each : {Shortening::End, Shortening::Middle, Shortening::Start, Shortening::Within}) {
        shortening_ = each;
        QSet<QString> seen;
        for (const QString& text : texts) {
            seen.insert(shortened(text, longest_));
        }
        if (seen.size() > most) {
            most = seen.size();
            best = each;
        }
    }
    shortening_ = best;
}

QString CategoryLabels::shortened(const QString& text, double longest) const {
    const QFontMetricsF metrics(font_);
    switch (shortening_) {
        case Shortening::End:
            break;
        case Shortening::Middle:
            return metrics.elidedText(text, Qt::ElideMiddle, longest);
        case Shortening::Start:
            return metrics.elidedText(text, Qt::ElideLeft, longest);
        case Shortening::Within:
            if (metrics.horizontalAdvance(text) > longest) {
                const qsizetype length = std::max<qsizetype>(1, text.size() - commonStart_ - commonEnd_);
                const QString differing = text.mid(commonStart_, length);
                return metrics.elidedText(commonStart_ > 0 ? QChar(0x2026) + differing : differing, Qt::ElideRight,
                                          longest);
            }
            break;
    }
    return metrics.elidedText(text, Qt::ElideRight, longest);
}

double CategoryLabels::overhang() const {
    return angle_ == 0 && depth_ > 0 ? widest_ / 2 : height_ / 2;
}

void CategoryLabels::place(const ChartPlot& plot) {
    labels_.clear();
    if (depth_ <= 0) {
        return;
    }
    if (angle_ == 0) {
        placeHorizontal(plot);
    } else {
        placeTurned(plot);
    }
}

LabelSteps CategoryLabels::stepsIn(const ChartPlot& plot) const {
    return StepsOf(scene_.state.categories, plot.FirstCategory(), plot.LastCategory(), every_);
}

void CategoryLabels::placeHorizontal(const ChartPlot& plot) {
    const QFontMetricsF metrics(font_);
    double taken = scene_.area.left();
    const LabelSteps steps = stepsIn(plot);
    for (int category = steps.first; category <= plot.LastCategory(); category += steps.every) {
        const QString shown = shortened(text(category), longest_);
        const double width = metrics.horizontalAdvance(shown);
        const double left = std::clamp(plot.CategoryCenter(category) - width / 2, scene_.area.left(),
                                       std::max(scene_.area.left(), scene_.area.right() - width));
        if (shown.isEmpty() || left < taken || left + width > scene_.area.right()) {
            continue;
        }
        taken = left + width + distance_ / 2;
        const QRectF rect(left, plot.Area().Bottom() + gap_, width, height_);
        labels_.push_back({category, shown, QPointF(left, rect.top() + ascent_), QPolygonF(rect)});
    }
}

/// The texts end below the middle of their categories and read upwards.
void CategoryLabels::placeTurned(const ChartPlot& plot) {
    const QFontMetricsF metrics(font_);
    const double cosine = std::cos(qDegreesToRadians(angle_));
    const LabelSteps steps = stepsIn(plot);
    for (int category = steps.first; category <= plot.LastCategory(); category += steps.every) {
        const double center = plot.CategoryCenter(category);
        const double toBorder = center - scene_.area.left();
        const double longest = cosine > 0.1 ? std::min(longest_, toBorder / cosine) : longest_;
        const QString shown = shortened(text(category), longest);
        if (shown.isEmpty() || longest < height_) {
            continue;
        }
        const double width = metrics.horizontalAdvance(shown);
        QTransform turn;
        turn.translate(center, plot.Area().Bottom() + gap_);
        turn.rotate(-angle_);
        // The upper right corner of a slanted text, the middle of the end of an upright one, is at the category.
        const double top = angle_ == Vertical ? -height_ / 2 : 0;
        labels_.push_back({category, shown, turn.map(QPointF(-width, top + ascent_)),
                           turn.map(QPolygonF(QRectF(-width, top, width, height_)))});
    }
}

void CategoryLabels::paint(QPainter& painter, QRgb color) const {
    painter.setFont(font_);
    painter.setPen(QColor::fromRgb(color));
    for (const Label& label : labels_) {
        if (angle_ == 0) {
            painter.drawText(label.at, label.text);
            continue;
        }
        painter.save();
        painter.translate(label.at);
        painter.rotate(-angle_);
        painter.drawText(QPointF(0, 0), label.text);
        painter.restore();
    }
}

}  // namespace planview
