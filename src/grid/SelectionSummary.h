// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <planview/Export.h>

#include "components/GridControl.h"

namespace planview {

/// What the selected cells come to; of the current cell alone when nothing is selected.
struct SelectionSummary {
    int cells = 0;    ///< all visible ones
    int numbers = 0;  ///< those that hold a number
    double sum = 0;
    [[nodiscard]] std::optional<double> Mean() const noexcept {
        return numbers > 0 ? std::optional(sum / numbers) : std::nullopt;
    }
    friend bool operator==(const SelectionSummary&, const SelectionSummary&) = default;
};

[[nodiscard]] PLANVIEW_EXPORT SelectionSummary SummaryOfSelection(const GridControl& grid);

}  // namespace planview
