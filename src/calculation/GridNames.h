// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/HostTable.h"
#include "formula/Formula.h"
#include "grid/GridPlaces.h"

namespace planview {

/// The planning lines and periods of a grid as formulas name them. Must not outlive an action.
class GridNames final : public FormulaNames {
public:
    /// `lineIndex`: where the levels of lines are looked up.
    GridNames(const GridControl& grid, const HostTable& lineIndex);

    [[nodiscard]] int Count(FormulaAxis axis) const override;
    [[nodiscard]] std::string Key(FormulaAxis axis, int place) const override;
    [[nodiscard]] std::string Caption(FormulaAxis axis, int place) const override;
    [[nodiscard]] std::optional<int> Find(FormulaAxis axis, std::string_view key) const override;
    [[nodiscard]] bool IsTextLine(int line) const override;
    [[nodiscard]] int Level(int line) const override;

private:
    [[nodiscard]] const GridPlaces& Of(FormulaAxis axis) const noexcept {
        return axis == FormulaAxis::Lines ? lines_ : periods_;
    }

    const GridControl& grid_;
    GridPlaces lines_;
    GridPlaces periods_;
    HostTable lineIndex_;
    mutable std::vector<int> levels_;  // empty until needed: a formula that is only shown asks for none
};

}  // namespace planview
