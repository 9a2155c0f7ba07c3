// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "components/GridControl.h"

namespace planview {

/// The mark between two keys of a range ("ROW2:ROW5"), and between its lines and its periods ("ROW2:ROW5/COL3:COL8").
inline constexpr char RangeMark = ':';
inline constexpr char AxisMark = '/';
/// The mark between the captions of a reference (`NODENAME`); they stand in the order of its keys. In a caption it
/// stands as a blank.
inline constexpr char CaptionMark = '|';
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

    [[nodiscard]] const std::vector<RowId>& Lines() const noexcept { return lines_.ids; }
    [[nodiscard]] const std::vector<ColumnId>& Periods() const noexcept { return periods_.ids; }
    [[nodiscard]] int LineCount() const noexcept { return static_cast<int>(lines_.ids.size()); }
    [[nodiscard]] int PeriodCount() const noexcept { return static_cast<int>(periods_.ids.size()); }
    /// The heading without the blanks around it; the key where it is empty.
    [[nodiscard]] const std::string& LineCaption(int line) const { return lines_.captions[Index(line)]; }
    [[nodiscard]] const std::string& PeriodCaption(int period) const { return periods_.captions[Index(period)]; }
    [[nodiscard]] const std::string& LineKey(int line) const { return lines_.keys[Index(line)]; }
    [[nodiscard]] const std::string& PeriodKey(int period) const { return periods_.keys[Index(period)]; }
    /// "Durable goods, Apr 06".
    [[nodiscard]] std::string CellCaption(int line, int period) const;
    /// Carries text and no planning values.
    [[nodiscard]] bool IsTextLine(int line) const;

    /// The line that has this key and, unless `caption` is empty, this caption; else the only one with this caption.
    [[nodiscard]] std::optional<int> FindLine(std::string_view key, std::string_view caption) const;
    [[nodiscard]] std::optional<int> FindPeriod(std::string_view key, std::string_view caption) const;
    /// The only line with this caption.
    [[nodiscard]] std::optional<int> FindLineByCaption(std::string_view caption) const;

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
    template <class Id>
    struct Axis {
        std::vector<Id> ids;
        std::vector<std::string> keys;
        std::vector<std::string> captions;
        std::unordered_map<std::string_view, int> byKey;                   // into `keys`
        std::unordered_map<std::string_view, std::vector<int>> byCaption;  // into `captions`

        void IndexAll();
        [[nodiscard]] std::optional<int> OnlyOne(std::string_view caption) const;
        [[nodiscard]] std::optional<int> Find(std::string_view key, std::string_view caption) const;
    };
    [[nodiscard]] static std::size_t Index(int place) noexcept { return static_cast<std::size_t>(place); }

    const GridControl& grid_;
    Axis<RowId> lines_;
    Axis<ColumnId> periods_;
};

}  // namespace planview
