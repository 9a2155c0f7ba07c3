// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "commands/CommandCall.h"
#include "commands/CommandParts.h"

namespace planview {

/// What is true of the planning columns or rows.
struct HeadingState {
    bool any = false;
    bool selected = false;         ///< at least one whole one
    bool selectedVisible = false;  ///< one that is selected and visible
    bool selectedHidden = false;   ///< one that is selected and hidden
    bool remainsVisible = false;   ///< one that is visible and not selected
};

/// The control as commands find it at one moment, for what can be run and what is checked. Costly answers
/// are computed once, when first asked for. Do not keep one across changes.
class CommandSituation {
public:
    explicit CommandSituation(const CommandParts& parts, CommandPlace clicked = {})
        : on(parts), place(std::move(clicked)) {}

    const CommandParts& on;
    const CommandPlace place;

    [[nodiscard]] const HeadingState& Columns() const;
    [[nodiscard]] const HeadingState& Rows() const;
    [[nodiscard]] bool IsClicked() const noexcept { return !place.cell.column.empty(); }
    /// The clicked cell, or the current one where none was clicked.
    [[nodiscard]] std::optional<Cell> AskedCell() const;
    [[nodiscard]] bool SeveralCellsSelected() const;
    /// The type of the series that is selected in the chart.
    [[nodiscard]] std::optional<ChartType> SeriesType() const;
    /// The clicked node of the macro tree, or the selected one; empty for none.
    [[nodiscard]] std::string Node() const;

private:
    mutable std::optional<HeadingState> columns_;
    mutable std::optional<HeadingState> rows_;
};

}  // namespace planview
