// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "components/chart/ChartPlot.h"
#include "qt/chart/CategoryLabels.h"
#include "qt/chart/ChartLegendBox.h"
#include "qt/chart/ChartScene.h"

namespace planview {

/// Where the parts of a chart stand in its area: title, legend, axes and what is left for the plot. Computed once for a
/// scene, which must outlive it.
class ChartLayout {
public:
    explicit ChartLayout(const ChartScene& scene);
    ChartLayout(const ChartLayout&) = delete;
    ChartLayout& operator=(const ChartLayout&) = delete;

    /// Nothing to draw, or no room for it.
    [[nodiscard]] bool isEmpty() const { return !plot_; }
    /// Only where it is not empty.
    [[nodiscard]] const ChartPlot& plot() const { return *plot_; }
    [[nodiscard]] QRectF plotRect() const;
    [[nodiscard]] int maximumSteps() const { return steps_; }

    [[nodiscard]] const QString& title() const { return title_; }
    [[nodiscard]] const QRectF& titleRect() const { return titleRect_; }
    [[nodiscard]] const ChartLegendBox& legend() const { return legend_; }
    [[nodiscard]] const CategoryLabels& categories() const { return *categories_; }

    struct Mark {
        double y = 0;
        QString text;
        QRectF rect;  ///< of the text
    };
    /// Of the axis on the left, and of the second one on the right.
    [[nodiscard]] const std::vector<Mark>& leftMarks() const { return leftMarks_; }
    [[nodiscard]] const std::vector<Mark>& rightMarks() const { return rightMarks_; }

    [[nodiscard]] const QFont& textFont() const { return textFont_; }
    [[nodiscard]] const QFont& titleFont() const { return titleFont_; }

    /// What lies at a place of the area; nothing outside of it. `reach` as in ChartPlot::HitTest().
    [[nodiscard]] ChartHit hitTest(QPointF place, double reach) const;

private:
    void placeTitle(QRectF& left);
    void placePlot(const QRectF& room);
    [[nodiscard]] std::vector<Mark> marksOf(const ChartScale& scale, bool share) const;
    void makeMarks();
    [[nodiscard]] double widthOf(const std::vector<Mark>& marks) const;
    void placeMarks(std::vector<Mark>& marks, const ChartScale& scale, bool share, bool onRight) const;
    [[nodiscard]] bool usesSharesAlone() const;

    const ChartScene& scene_;
    QFont textFont_;
    QFont titleFont_;
    double lineHeight_;
    QString title_;
    QRectF titleRect_;
    ChartLegendBox legend_;
    std::optional<CategoryLabels> categories_;
    std::optional<ChartPlot> plot_;
    int steps_ = 1;
    std::string axisFormat_;
    std::vector<Mark> leftMarks_;
    std::vector<Mark> rightMarks_;
};

}  // namespace planview
