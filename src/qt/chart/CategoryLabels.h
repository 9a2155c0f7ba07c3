// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPolygonF>
#include <QString>
#include <vector>

#include "components/chart/ChartTypes.h"
#include "components/chart/Periods.h"
#include "qt/chart/ChartScene.h"

class QPainter;

namespace planview {

class ChartPlot;

/// The texts under the category axis. They never overlap: what does not fit side by side is thinned out where the
/// categories are many, else slanted or turned and, in the end, shortened so that they still differ. Months are thinned
/// out to quarters and years.
class CategoryLabels {
public:
    /// How the texts stand and how deep they reach, for categories of this width. `room` is the greatest depth.
    CategoryLabels(const ChartScene& scene, const QFont& font, double categoryWidth, double room);

    /// What the texts need below the axis, the gap included; 0 without texts.
    [[nodiscard]] double depth() const { return depth_; }
    /// How far the text of the last category reaches beyond the middle of it.
    [[nodiscard]] double overhang() const;
    /// Puts the texts below the finished plot. A text that would leave the scene's area sideways is moved or left out.
    void place(const ChartPlot& plot);
    void paint(QPainter& painter, QRgb color) const;

    struct Label {
        int category = 0;
        QString text;
        QPointF at;         ///< the start of the base line
        QPolygonF outline;  ///< around the text
    };
    [[nodiscard]] const std::vector<Label>& labels() const { return labels_; }

private:
    /// What is left out of a text that is too long. Within: what all texts begin and end with, then the end.
    enum class Shortening { End, Middle, Start, Within };

    void chooseStand(double categoryWidth, LabelOrientation orientation);
    void standHorizontally(double categoryWidth);
    void stand(double angle, double categoryWidth);
    void placeHorizontal(const ChartPlot& plot);
    void placeTurned(const ChartPlot& plot);
    [[nodiscard]] QString text(int category) const;
    [[nodiscard]] LabelSteps stepsIn(const ChartPlot& plot) const;
    void chooseShortening();
    [[nodiscard]] QString shortened(const QString& text, double longest) const;

    const ChartScene& scene_;
    QFont font_;
    double ascent_;
    double height_;
    double gap_;       ///< between axis and texts
    double distance_;  ///< between two texts
    double widest_ = 0;
    double longest_ = 0;  ///< that a text may be
    double angle_ = 0;    ///< degrees, anticlockwise
    double depth_ = 0;
    double room_;
    int every_ = 1;  ///< at least so many categories from one text to the next
    Shortening shortening_ = Shortening::End;
    // What all texts have in common, in letters.
    qsizetype commonStart_ = 0;
    qsizetype commonEnd_ = 0;
    std::vector<Label> labels_;
};

}  // namespace planview
