// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "components/GridControl.h"
#include "components/GridSelection.h"
#include "qt/grid/GridGeometry.h"

class QKeyEvent;

namespace planview {

/// Where a key moves the current cell to, as the screen shows it.
enum class GridMove {
    Left,
    Right,
    Up,
    Down,
    EdgeLeft,  ///< to the edge of the data in that direction
    EdgeRight,
    EdgeUp,
    EdgeDown,
    LineStart,
    LineEnd,
    GridStart,
    GridEnd,
    PageLeft,
    PageRight,
    PageUp,
    PageDown,
    Next,      ///< to the right, then to the start of the next line
    Previous,  ///< to the left, then to the end of the line before
};

/// Where Return and Tab lead to, within the grid and from an entry that they end; no value for another key.
[[nodiscard]] std::optional<GridMove> entryMove(const QKeyEvent& event);

/// What a key does to the grid.
struct GridKey {
    enum class Action { Move, Extend, SelectAll, ClearSelection };
    Action action = Action::Move;
    GridMove move = GridMove::Right;

    /// No value for a key that is none of the grid's.
    [[nodiscard]] static std::optional<GridKey> of(const QKeyEvent& event);
};

/// Finds the cell that a move leads to. Headings and hidden cells are never a target.
class GridNavigation {
public:
    GridNavigation(const GridControl& grid, const GridGeometry& geometry) : grid_(grid), geometry_(geometry) {}

    /// The cell itself where the move leads nowhere; no value where it would leave the grid (Next, Previous).
    [[nodiscard]] std::optional<Cell> target(Cell from, GridMove move) const;

private:
    /// A place among the cells of the screen, counted from the first cell behind the headings.
    struct Place {
        int horizontal = 0;
        int vertical = 0;
    };
    [[nodiscard]] Place step(Place from, GridMove move) const;
    [[nodiscard]] int dataEdge(Place from, bool horizontal, int direction) const;
    [[nodiscard]] std::optional<Place> nextInLine(Place from, int direction) const;
    [[nodiscard]] Cell cellAt(Place place) const;

    const GridControl& grid_;
    const GridGeometry& geometry_;
};

}  // namespace planview
