// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <set>
#include <utility>

#include "components/GridTypes.h"

namespace planview {

class GridAccessibleTable;
class GridView;

/// Makes every GridView known to assistive tools as a table: cells with their texts, named column and row headings.
void installGridAccessibility();

/// Tells assistive tools, where there are any, of what changes in a grid: each thing once.
class GridTeller {
public:
    /// Told in their order; headings have -1 as their row or column.
    using Places = std::set<std::pair<int, int>>;
    /// No more selected cells are told one by one.
    static constexpr std::size_t MostCells = 256;

    explicit GridTeller(GridView& view) : view_(view) {}

    /// Columns or rows are others, or stand elsewhere.
    void layoutChanged();
    /// Any number of cells, the selection and the current cell may have changed.
    void cellsChanged();
    /// The focus comes back from elsewhere, and whoever listens must hear again where it is: after this event, for Qt
    /// itself then names the table as a whole.
    void focusReturned();

private:
    [[nodiscard]] GridAccessibleTable* table() const;
    void tellSelection(const GridAccessibleTable& table);
    void tellFocus(const GridAccessibleTable& table, bool again);

    GridView& view_;
    std::optional<Cell> focus_;
    bool focusDue_ = false;
    Places selected_;
};

}  // namespace planview
