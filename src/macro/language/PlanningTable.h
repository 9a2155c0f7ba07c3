// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "macro/language/MacroValues.h"

namespace planview {

/// Stands for the key of the line, or the periods, that the user has selected.
inline constexpr std::string_view SelectedPlace = "SELECTED";

/// The lines and periods that a reference names, by 0-based index; both ends belong to it.
struct MacroRange {
    int firstLine = -1;
    int lastLine = -1;
    /// -1: no periods are named, those of the macro count.
    int firstPeriod = -1;
    int lastPeriod = -1;

    [[nodiscard]] bool HasPeriods() const noexcept { return firstPeriod >= 0; }
};

/// The planning lines and periods that expressions are about, by 0-based index, as far as the language needs to know
/// them: what they are called, which of them a reference names, and what the cells hold.
class PlanningTable {
public:
    virtual ~PlanningTable() = default;

    [[nodiscard]] virtual int LineCount() const noexcept = 0;
    [[nodiscard]] virtual int PeriodCount() const noexcept = 0;
    [[nodiscard]] virtual std::string LineCaption(int line) const = 0;
    [[nodiscard]] virtual std::string PeriodCaption(int period) const = 0;
    [[nodiscard]] virtual std::string CellCaption(int line, int period) const = 0;
    /// Carries text and no planning values.
    [[nodiscard]] virtual bool IsTextLine(int line) const = 0;
    /// The values of a line, by period.
    [[nodiscard]] virtual MacroValues ValuesOf(int line) const = 0;

    /// What a reference ("ROW2:ROW5/COL3:COL8") names, with the captions of its keys. Ends in the wrong order are
    /// exchanged. No value where a line or period is not found: then `missing` says which, as the user would call it.
    [[nodiscard]] virtual std::optional<MacroRange> Resolve(std::string_view reference, std::string_view captions,
                                                            std::string& missing) const = 0;
    /// As the user reads it: "Retail trade", "Retail trade, Jan 06", "Line 2 to Line 5, Jan 06 to Jun 06".
    [[nodiscard]] std::string TextOf(const MacroRange& range) const;

protected:
    PlanningTable() = default;
    PlanningTable(const PlanningTable&) = default;
    PlanningTable& operator=(const PlanningTable&) = default;
};

}  // namespace planview
