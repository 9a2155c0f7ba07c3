// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "formula/FormulaValues.h"

namespace planview {

/// Used as a key: the line or the periods that the user has selected.
inline constexpr std::string_view SelectedPlace = "SELECTED";

/// The lines and periods that a reference names, by 0-based index, both ends included.
struct PlanningRange {
    int firstLine = -1;
    int lastLine = -1;
    /// -1: the periods of the macro.
    int firstPeriod = -1;
    int lastPeriod = -1;

    [[nodiscard]] bool HasPeriods() const noexcept { return firstPeriod >= 0; }
};

/// What the language needs to know of the planning lines and periods, by 0-based index: their captions, which of them a
/// reference names, and what the cells hold.
class PlanningTable {
public:
    virtual ~PlanningTable() = default;

    [[nodiscard]] virtual int LineCount() const noexcept = 0;
    [[nodiscard]] virtual int PeriodCount() const noexcept = 0;
    [[nodiscard]] virtual std::string LineCaption(int line) const = 0;
    [[nodiscard]] virtual std::string PeriodCaption(int period) const = 0;
    [[nodiscard]] virtual std::string CellCaption(int line, int period) const = 0;
    /// How deep the line stands in the outline; more is deeper.
    [[nodiscard]] virtual int LineLevel(int line) const = 0;
    /// Has texts instead of planning values.
    [[nodiscard]] virtual bool IsTextLine(int line) const = 0;
    /// What the cell holds, as it is kept.
    [[nodiscard]] virtual std::string CellText(int line, int period) const = 0;
    /// The values of a line, by period.
    [[nodiscard]] virtual FormulaValues ValuesOf(int line) const = 0;

    /// The range that a reference ("ROW2:ROW5/COL3:COL8") with these captions names; reversed ends are swapped. Returns
    /// no value if a line or period is not found; `missing` then names it as the user would.
    [[nodiscard]] virtual std::optional<PlanningRange> Resolve(std::string_view reference, std::string_view captions,
                                                               std::string& missing) const = 0;
    /// As the user reads it: "Retail trade", "Retail trade, Jan 06", "Line 2 to Line 5, Jan 06 to Jun 06".
    [[nodiscard]] std::string TextOf(const PlanningRange& range) const;

protected:
    PlanningTable() = default;
    PlanningTable(const PlanningTable&) = default;
    PlanningTable& operator=(const PlanningTable&) = default;
};

}  // namespace planview
