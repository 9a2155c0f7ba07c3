// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/GridPlaces.h"

namespace planview {

/// Stands for the key of the line, or the periods, that the user has selected.
inline constexpr std::string_view SelectedPlace = "SELECTED";

/// What a reference names, by 0-based places among all lines and periods; both ends belong to it.
struct MacroPlace {
    int firstLine = -1;
    int lastLine = -1;
    /// -1: no periods are named, those of the macro count.
    int firstPeriod = -1;
    int lastPeriod = -1;

    [[nodiscard]] bool HasPeriods() const noexcept { return firstPeriod >= 0; }
};

/// The planning lines and periods of a grid in the order in which the grid has them, with what they are called. For the
/// length of one action.
class MacroGrid {
public:
    explicit MacroGrid(const GridControl& grid);
    MacroGrid(const MacroGrid&) = delete;
    MacroGrid& operator=(const MacroGrid&) = delete;

    [[nodiscard]] const std::vector<RowId>& Lines() const noexcept { return lineIds_; }
    [[nodiscard]] const std::vector<ColumnId>& Periods() const noexcept { return periodIds_; }
    [[nodiscard]] int LineCount() const noexcept { return static_cast<int>(lineIds_.size()); }
    [[nodiscard]] int PeriodCount() const noexcept { return static_cast<int>(periodIds_.size()); }
    /// As GridPlaces has it.
    [[nodiscard]] std::string LineCaption(int line) const { return lines_.Caption(InGrid(lines_, line)); }
    [[nodiscard]] std::string PeriodCaption(int period) const { return periods_.Caption(InGrid(periods_, period)); }
    [[nodiscard]] const std::string& LineKey(int line) const { return lines_.Key(InGrid(lines_, line)); }
    [[nodiscard]] const std::string& PeriodKey(int period) const { return periods_.Key(InGrid(periods_, period)); }
    [[nodiscard]] std::string CellCaption(int line, int period) const;
    /// Carries text and no planning values.
    [[nodiscard]] bool IsTextLine(int line) const;

    /// As GridPlaces finds them, planning ones only.
    [[nodiscard]] std::optional<int> FindLine(std::string_view key, std::string_view caption) const;
    [[nodiscard]] std::optional<int> FindPeriod(std::string_view key, std::string_view caption) const;
    /// The only line with this caption.
    [[nodiscard]] std::optional<int> FindLineByCaption(std::string_view caption) const;
    /// One period or a range ("COL3:COL8"), in the order of the grid. No value where it is not found: then `missing`
    /// says which, as the user would call it.
    [[nodiscard]] std::optional<PlaceRange> FindPeriods(std::string_view reference, std::string_view captions,
                                                        std::string& missing) const;

    /// What a node's reference ("ROW2:ROW5/COL3:COL8") names, with the captions of its keys. Ends in the wrong order
    /// are exchanged. No value where a line or period is not found: then `missing` says which, as the user would call
    /// it.
    [[nodiscard]] std::optional<MacroPlace> Resolve(std::string_view reference, std::string_view captions,
                                                    std::string& missing) const;
    /// The reference and the captions of a place.
    [[nodiscard]] std::string ReferenceOf(const MacroPlace& place) const;
    [[nodiscard]] std::string CaptionsOf(const MacroPlace& place) const;
    /// As the user reads it: "Retail trade", "Retail trade, Jan 06", "Line 2 to Line 5, Jan 06 to Jun 06".
    [[nodiscard]] std::string TextOf(const MacroPlace& place) const;

    /// The lines (periods) that the user has selected, as whole ones or with some of their cells; those of the current
    /// cell where nothing is selected. Whole columns alone select periods and leave the line to the current cell.
    [[nodiscard]] std::vector<int> SelectedLines() const;
    [[nodiscard]] std::vector<int> SelectedPeriods() const;

private:
    [[nodiscard]] static std::size_t Index(int place) noexcept { return static_cast<std::size_t>(place); }
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
