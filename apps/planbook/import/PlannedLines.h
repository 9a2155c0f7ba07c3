// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "import/NamesFile.h"
#include "import/SourceTable.h"

namespace planbook {

/// One line of the book to be: the source's numbers, which it does not keep, and what the names file says about them.
struct PlannedLine {
    /// More digits behind the mark are kept but not shown.
    static constexpr int MaxDecimals = 4;

    LineName name;
    const std::vector<std::optional<double>>* values;
    int decimals = 0;  ///< digits that the numbers need behind the mark
    std::optional<double> mean;

    PlannedLine(LineName lineName, const SourceLine& source);

    [[nodiscard]] int MeanDecimals() const noexcept;
    [[nodiscard]] bool IsHelp() const noexcept { return name.kind == LineKind::Help; }
    [[nodiscard]] bool IsEditable() const noexcept { return name.kind == LineKind::Plain; }
};

/// The lines that the names file names, in its order, then the others of the table. Where it says nothing of a chart,
/// the first lines that can be edited are drawn in one.
[[nodiscard]] std::vector<PlannedLine> PlanLines(const SourceTable& source, const NamesFile& names);

}  // namespace planbook
