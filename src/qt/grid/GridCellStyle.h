// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "components/GridControl.h"
#include "qt/grid/GridColors.h"
#include "qt/grid/TrackLooks.h"

namespace planview {

/// A cell on its way to the screen.
struct PlacedCell {
    Cell cell;
    const TrackLook& horizontal;
    const TrackLook& vertical;
    const TrackLook& column;
    const TrackLook& row;

    /// In the headings along the top.
    [[nodiscard]] bool top() const { return vertical.heading; }
    /// In the headings along the left side.
    [[nodiscard]] bool left() const { return horizontal.heading; }
};

struct GridCellStyle {
    QRgb ground = 0;
    QRgb text = 0;
    bool bold = false;
    bool italic = false;
    bool marked = false;  ///< a heading that the selection reaches
    GridAlignment alignment = GridAlignment::Left;
};

/// Gives a cell its colours, font style and alignment: what the control says, and where it says nothing, what the
/// cell's place in the grid asks for.
class GridStyler {
public:
    GridStyler(const GridControl& grid, const GridTheme& theme, GridColors& colors, std::optional<Cell> current)
        : grid_(grid), theme_(theme), colors_(colors), current_(current) {}

    /// `number` is the value of the contents, if they are a number.
    [[nodiscard]] GridCellStyle style(const PlacedCell& cell, const CellLook& look, std::optional<double> number);

private:
    [[nodiscard]] QRgb ownGround(const PlacedCell& cell, const CellLook& look) const;
    [[nodiscard]] QRgb ownText(const PlacedCell& cell, const CellLook& look) const;
    void setFontStyle(const PlacedCell& cell, const CellLook& look, GridCellStyle& style) const;

    const GridControl& grid_;
    GridTheme theme_;
    GridColors& colors_;
    std::optional<Cell> current_;
};

}  // namespace planview
