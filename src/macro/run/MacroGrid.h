// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/HostTable.h"
#include "formula/PlanningTable.h"
#include "grid/GridPlaces.h"

namespace planview {

/// The planning lines and periods of a grid, in the grid's order. Must not outlive an action.
class MacroGrid final : public PlanningTable {
public:
    /// `lineIndex`: where the levels of lines are looked up, if it is given.
    explicit MacroGrid(const GridControl& grid, HostTable lineIndex = {});
    MacroGrid(const MacroGrid&) = delete;
    MacroGrid& operator=(const MacroGrid&) = delete;

    [[nodiscard]] RowId LineId(int line) const { return lineIds_[Index(line)]; }
    [[nodiscard]] ColumnId PeriodId(int period) const { return periodIds_[Index(period)]; }
    [[nodiscard]] int LineCount() const noexcept override { return static_cast<int>(lineIds_.size()); }
    [[nodiscard]] int PeriodCount() const noexcept override { return static_cast<int>(periodIds_.size()); }
    /// See GridPlaces::Caption().
    [[nodiscard]] std::string LineCaption(int line) const override { return lines_.Caption(InGrid(lines_, line)); }
    [[nodiscard]] std::string PeriodCaption(int period) const override {
        return periods_.Caption(InGrid(periods_, period));
    }
    [[nodiscard]] const std::string& LineKey(int line) const { return lines_.Key(InGrid(lines_, line)); }
    [[nodiscard]] const std::string& PeriodKey(int period) const { return periods_.Key(InGrid(periods_, period)); }
    [[nodiscard]] std::string CellCaption(int line, int period) const override;
    [[nodiscard]] std::string CellText(int line, int period) const override;
    [[nodiscard]] int LineLevel(int line) const override;
    [[nodiscard]] bool IsTextLine(int line) const override;
    [[nodiscard]] FormulaValues ValuesOf(int line) const override;
    [[nodiscard]] Cell CellAt(int line, int period) const { return {PeriodId(period), LineId(line)}; }

    /// See GridPlaces::Find(); planning lines and periods only.
    [[nodiscard]] std::optional<int> FindLine(std::string_view key, std::string_view caption) const;
    [[nodiscard]] std::optional<int> FindPeriod(std::string_view key, std::string_view caption) const;
    /// The only line with this caption.
    [[nodiscard]] std::optional<int> FindLineByCaption(std::string_view caption) const;
    /// One period or a range ("COL3:COL8"), in the grid's order. Returns no value if it is not found; `missing` then
    /// names it as the user would.
    [[nodiscard]] std::optional<PlaceRange> FindPeriods(std::string_view reference, std::string_view captions,
                                                        std::string& missing) const;

    [[nodiscard]] std::optional<PlanningRange> Resolve(std::string_view reference, std::string_view captions,
                                                       std::string& missing) const override;
    /// The reference and the captions of a range; an area has both ends even if they are equal.
    [[nodiscard]] std::string ReferenceOf(const PlanningRange& range, bool asArea) const;
    [[nodiscard]] std::string CaptionsOf(const PlanningRange& range, bool asArea) const;
    /// The same for periods without lines.
    [[nodiscard]] std::string PeriodsReferenceOf(const PlaceRange& periods) const;
    [[nodiscard]] std::string PeriodsCaptionsOf(const PlaceRange& periods) const;

    /// The lines (periods) with selected cells; those of the current cell if nothing is selected. If only whole columns
    /// are selected, the line is that of the current cell.
    [[nodiscard]] std::vector<int> SelectedLines() const;
    [[nodiscard]] std::vector<int> SelectedPeriods() const;

private:
    [[nodiscard]] static std::size_t Index(int index) noexcept { return static_cast<std::size_t>(index); }
    [[nodiscard]] static int InGrid(const GridPlaces& axis, int planning) noexcept {
        return axis.Planning().first + planning;
    }
    [[nodiscard]] static std::optional<int> Find(const GridPlaces& axis, std::string_view key,
                                                 std::string_view caption);
    [[nodiscard]] static std::optional<PlaceRange> FindRange(const GridPlaces& axis, std::string_view range,
                                                             KeyCaptions& captions, std::string& missing);

    const GridControl& grid_;
    HostTable lineIndex_;
    mutable std::vector<int> levels_;  // of the lines; empty until needed
    GridPlaces lines_;
    GridPlaces periods_;
    std::vector<RowId> lineIds_;
    std::vector<ColumnId> periodIds_;
};

}  // namespace planview
