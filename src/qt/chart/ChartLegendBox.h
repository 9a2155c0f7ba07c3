// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <optional>
#include <vector>

#include "qt/chart/ChartColors.h"
#include "qt/chart/ChartScene.h"

class QPainter;

namespace planview {

class ChartPlot;

/// The legend: an entry for each series, each trend line and, in a comparison, for what the tints mean. The entries of
/// a legend on the right stand at the ends of their lines where all are lines and find room there.
class ChartLegendBox {
public:
    struct Entry {
        enum class Kind { Column, Line, Trend, NoTrend, Above, Below, More };
        Kind kind = Kind::Column;
        int series = 0;
        int trend = 0;
        QString text;
        QString reason;  ///< of NoTrend: why there is no such trend line
        QRectF rect;
        std::optional<QPointF> end;  ///< of its line, where the entry stands beside that

        /// What follows the text, however much of that is cut off.
        [[nodiscard]] QString remark() const;
    };

    ChartLegendBox(const ChartScene& scene, const QFont& font);

    /// `plot` knows which trend lines there are.
    void collect(const ChartPlot& plot);
    /// Takes its part of the remaining area, which shrinks; takes nothing if too little would remain.
    void takeFrom(QRectF& area);
    /// Moves all entries to the ends of their lines, each at most two lines of text away from it, in the order
    /// of the ends. Leaves them where they are, and says so, if one of them is no line or finds no room.
    bool placeAtEnds(const ChartPlot& plot);
    /// A legend at the side begins beside the plot.
    void alignTop(double y);
    void paint(QPainter& painter, const ChartColors& colors) const;

    [[nodiscard]] bool isShown() const { return !box_.isEmpty(); }
    [[nodiscard]] const QRectF& box() const { return box_; }
    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    /// Null beside the entries.
    [[nodiscard]] const Entry* entryAt(QPointF point) const;
    /// Whether there is no room for all of its text.
    [[nodiscard]] bool isCut(const Entry& entry) const;

private:
    [[nodiscard]] std::vector<int> seriesInOrder() const;
    void placeInColumn(QRectF& area, bool left);
    void placeInRows(QRectF& area, bool top);
    void cutTo(std::size_t count);
    [[nodiscard]] double fullWidth(const Entry& entry) const;
    [[nodiscard]] double entryWidth(const Entry& entry) const;
    [[nodiscard]] double swatchWidth() const;
    [[nodiscard]] bool mayStandAtEnds() const;
    [[nodiscard]] static std::optional<QPointF> endOf(const Entry& entry, const ChartPlot& plot);
    void paintLeader(QPainter& painter, const ChartColors& colors, const Entry& entry) const;
    void paintSwatch(QPainter& painter, const ChartColors& colors, const Entry& entry) const;

    const ChartScene& scene_;
    QFont font_;
    double lineHeight_;
    double swatch_;
    std::vector<Entry> entries_;
    QRectF box_;
};

}  // namespace planview
