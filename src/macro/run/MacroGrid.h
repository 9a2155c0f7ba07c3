// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/GridPlaces.h"
#include "macro/language/PlanningTable.h"

namespace planview {

/// The planning lines and periods of a grid in the order in which the grid has them, with what they are called. For the
/// length of one action.
class MacroGrid final : public PlanningTable {
public:
    explicit MacroGrid(const GridControl& grid);
    MacroGrid(const MacroGrid&) = delete;
    MacroGrid& operator=(const MacroGrid&) = delete;

    [[nodiscard]] const std::vector<RowId>& Lines() const noexcept { return lineIds_; }
    [[nodiscard]] const std::vector<ColumnId>& Periods() const noexcept { return periodIds_; }
    [[nodiscard]] int LineCount() const noexcept override { return static_cast<int>(lineIds_.size()); }
    [[nodiscard]] int PeriodCount() const noexcept override { return static_cast<int>(periodIds_.size()); }
    /// As GridPlaces has it.
    [[nodiscard]] std::string LineCaption(int line) const override { return lines_.Caption(InGrid(lines_, line)); }
    [[nodiscard]] std::string PeriodCaption(int period) const override {
        return periods_.Caption(InGrid(periods_, period));
    }
    [[nodiscard]] const std::string& LineKey(int line) const { return lines_.Key(InGrid(lines_, line)); }
    [[nodiscard]] const std::string& PeriodKey(int period) const { return periods_.Key(InGrid(periods_, period)); }
    [[nodiscard]] std::string CellCaption(int line, int period) const override;
    [[nodiscard]] bool IsTextLine(int line) const override;
    [[nodiscard]] MacroValues ValuesOf(int line) const override;
    [[nodiscard]] Cell CellAt(int line, int period) const { return {periodIds_[Index(period)], lineIds_[Index(line)]}; }

    /// As GridPlaces finds them, planning ones only.
    [[nodiscard]] std::optional<int> FindLine(std::string_view key, std::string_view caption) const;
    [[nodiscard]] std::optional<int> FindPeriod(std::string_view key, std::string_view caption) const;
    /// The only line with this caption.
    [[nodiscard]] std::optional<int> FindLineByCaption(std::string_view caption) const;
    /// One period or a range ("COL3:COL8"), in the order of the grid. No value where it is not found: then `missing`
    /// says which, as the user would call it.
    [[nodiscard]] std::optional<PlaceRange> FindPeriods(std::string_view reference, std::string_view captions,
                                                        std::string& missing) const;

    [[nodiscard]] std::optional<MacroRange> Resolve(std::string_view reference, std::string_view captions,
                                                    std::string& missing) const override;
    /// The reference and the captions of a range; `asArea` with both ends even where they are the same.
    [[nodiscard]] std::string ReferenceOf(const MacroRange& range, bool asArea) const;
    [[nodiscard]] std::string CaptionsOf(const MacroRange& range, bool asArea) const;

    /// The lines (periods) that the user has selected, as whole ones or with some of their cells; those of the current
    /// cell where nothing is selected. Whole columns alone select periods and leave the line to the current cell.
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
    GridPlaces lines_;
    GridPlaces periods_;
    std::vector<RowId> lineIds_;
    std::vector<ColumnId> periodIds_;
};

}  // namespace planview
