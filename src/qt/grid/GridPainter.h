// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <vector>

#include "qt/grid/CellContentPainter.h"
#include "qt/grid/GridCellStyle.h"
#include "qt/grid/GridColors.h"
#include "qt/grid/GridScene.h"
#include "qt/grid/TrackLooks.h"

class QPainter;

namespace planview {

/// The frame around the current cell, in logical pixels.
inline constexpr int CurrentFrameWidth = 2;

/// Paints the grid: all nine regions in one pass, only what is visible and lies in the clip.
///
/// The painter's coordinates must be the geometry's paint pixels. Fills are merged, and texts are painted once per font
/// and colour, so that a cell costs no change of the painter's state.
class GridPainter {
public:
    explicit GridPainter(const GridScene& scene);

    void paint(QPainter& painter, const QRect& clip);

    /// Whether the cell is visible and its text is not shown in full (cut, or "###").
    [[nodiscard]] bool isCut(Cell cell);

private:
    using Area = AxisLayout::Area;
    struct Fill {
        QRect rect;
        QRgb color = 0;
    };
    struct Dot {
        QRect rect;
        RowDot look;
    };

    void paintRegion(QPainter& painter, Area horizontal, Area vertical, const QRect& clip);
    void paintRow(QPainter& painter, const std::vector<PlacedTrack>& columns, const PlacedTrack& row);
    void addSpillFromLeft(const PlacedTrack& first, const PlacedTrack& row);
    void addMarks(const PlacedTrack& horizontal, const PlacedTrack& vertical, const GridCellStyle& style, bool relief);
    void addPendingCorner(const QRect& inner);
    void addDot(const PlacedTrack& horizontal, const PlacedTrack& vertical);
    void paintDots(QPainter& painter);
    void addHiddenHint(const PlacedTrack& track, const QRect& heading, bool alongTop);
    void paintLines(QPainter& painter, const std::vector<PlacedTrack>& columns,
                    const std::vector<PlacedTrack>& rows) const;
    void paintEdges(QPainter& painter) const;
    void paintCurrentCell(QPainter& painter) const;

    GridScene scene_;
    GridColors colors_;
    TrackLooks looks_;
    GridStyler styler_;
    CellContentPainter contents_;
    std::vector<Fill> marks_;  // over the lines
    std::vector<Dot> dots_;    // round
    int line_;
};

}  // namespace planview
