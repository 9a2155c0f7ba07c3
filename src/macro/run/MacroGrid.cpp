// SPDX-License-Identifier: MIT
#include "macro/run/MacroGrid.h"

#include <algorithm>
#include <span>
#include <utility>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "grid/CellCaption.h"
#include "grid/LineLevels.h"
#include "grid/SelectedCells.h"

namespace planview {

namespace {

std::string Ends(const std::string& first, char mark, const std::string& last, bool both) {
    return both ? first + mark + last : first;
}

}  // namespace

MacroGrid::MacroGrid(const GridControl& grid, HostTable lineIndex)
    : grid_(grid),
      lineIndex_(std::move(lineIndex)),
      lines_(grid, PlaceAxis::Lines),
      periods_(grid, PlaceAxis::Columns) {
    const std::span<const RowId> rows = grid.Rows(RowArea::Center);
    const std::span<const ColumnId> columns = grid.Columns(ColumnArea::Center);
    lineIds_.assign(rows.begin(), rows.end());
    periodIds_.assign(columns.begin(), columns.end());
}

std::string MacroGrid::CellCaption(int line, int period) const {
    return planview::CellCaption(grid_, CellAt(line, period));
}

std::string MacroGrid::CellText(int line, int period) const {
    return grid_.Contents(CellAt(line, period));
}

FormulaValues MacroGrid::ValuesOf(int line) const {
    FormulaValues values(periodIds_.size(), FormulaValue());
    for (std::size_t period = 0; period < periodIds_.size(); ++period) {
        const std::string& text = grid_.Contents({periodIds_[period], lineIds_[Index(line)]});
        if (!text.empty()) {
            const std::optional<double> number = TryParseNumber(text);
            values.Set(period, {number.value_or(0), number ? FormulaKind::Number : FormulaKind::Text});
        }
    }
    return values;
}

int MacroGrid::LineLevel(int line) const {
    if (levels_.empty()) {
        levels_ = LineLevels(grid_, lineIndex_);
    }
    return levels_[Index(line)];
}

bool MacroGrid::IsTextLine(int line) const {
    return !periodIds_.empty() && grid_.Look({periodIds_.front(), lineIds_[Index(line)]}).textLine;
}

std::optional<int> MacroGrid::Find(const GridPlaces& axis, std::string_view key, std::string_view caption) {
    PlaceFault fault;
    const std::optional<int> found = axis.Find(key, caption, fault);
    return found && axis.IsPlanning(*found) ? std::optional(*found - axis.Planning().first) : std::nullopt;
}

std::optional<PlaceRange> MacroGrid::FindRange(const GridPlaces& axis, std::string_view range, KeyCaptions& captions,
                                               std::string& missing) {
    PlaceFault fault;
    const std::optional<PlaceRange> found = axis.FindRange(range, captions, fault);
    if (!found || !axis.IsPlanning(found->first)) {
        missing = found ? std::string(range) : fault.missing;
        return std::nullopt;
    }
    const auto [first, last] = std::minmax(found->first, found->last);
    return PlaceRange{first - axis.Planning().first, last - axis.Planning().first};
}

std::optional<int> MacroGrid::FindLine(std::string_view key, std::string_view caption) const {
    return Find(lines_, key, caption);
}

std::optional<int> MacroGrid::FindPeriod(std::string_view key, std::string_view caption) const {
    return Find(periods_, key, caption);
}

std::optional<int> MacroGrid::FindLineByCaption(std::string_view caption) const {
    const std::optional<int> found = lines_.FindCaption(caption);
    return found ? std::optional(*found - lines_.Planning().first) : std::nullopt;
}

std::optional<PlaceRange> MacroGrid::FindPeriods(std::string_view reference, std::string_view captions,
                                                 std::string& missing) const {
    KeyCaptions names(reference, captions);
    return FindRange(periods_, reference, names, missing);
}

std::optional<PlanningRange> MacroGrid::Resolve(std::string_view reference, std::string_view captions,
                                                std::string& missing) const {
    const std::vector<std::string_view> axes = SplitAt(reference, AxisMark);
    if (axes.size() > 2) {
        missing = reference;
        return std::nullopt;
    }
    KeyCaptions names(reference, captions);
    const std::optional<PlaceRange> lines = FindRange(lines_, axes[0], names, missing);
    if (!lines) {
        return std::nullopt;
    }
    PlanningRange range;
    range.firstLine = lines->first;
    range.lastLine = lines->last;
    if (axes.size() == 2) {
        const std::optional<PlaceRange> periods = FindRange(periods_, axes[1], names, missing);
        if (!periods) {
            return std::nullopt;
        }
        range.firstPeriod = periods->first;
        range.lastPeriod = periods->last;
    }
    return range;
}

std::string MacroGrid::ReferenceOf(const PlanningRange& range, bool asArea) const {
    std::string text = Ends(LineKey(range.firstLine), RangeMark, LineKey(range.lastLine), asArea);
    if (range.HasPeriods()) {
        text += AxisMark + Ends(PeriodKey(range.firstPeriod), RangeMark, PeriodKey(range.lastPeriod), asArea);
    }
    return text;
}

std::string MacroGrid::CaptionsOf(const PlanningRange& range, bool asArea) const {
    std::string text = Ends(LineCaption(range.firstLine), CaptionMark, LineCaption(range.lastLine), asArea);
    if (range.HasPeriods()) {
        text +=
            CaptionMark + Ends(PeriodCaption(range.firstPeriod), CaptionMark, PeriodCaption(range.lastPeriod), asArea);
    }
    return text;
}

std::string MacroGrid::PeriodsReferenceOf(const PlaceRange& periods) const {
    return Ends(PeriodKey(periods.first), RangeMark, PeriodKey(periods.last), periods.first != periods.last);
}

std::string MacroGrid::PeriodsCaptionsOf(const PlaceRange& periods) const {
    return Ends(PeriodCaption(periods.first), CaptionMark, PeriodCaption(periods.last), periods.first != periods.last);
}

std::vector<int> MacroGrid::SelectedLines() const {
    std::vector<int> selected;
    const GridSelection& selection = grid_.Selection();
    std::vector<RowId> rows = BlockOfSelection(grid_, HiddenCells::LeftOut).rows;
    if (selection.HasWholeColumns() && !selection.HasWholeRows() && selection.Ranges().empty()) {
        const std::optional<Cell> current = grid_.CurrentCell();
        rows = current ? std::vector<RowId>{current->row} : std::vector<RowId>();
    }
    for (const RowId row : rows) {
        if (const std::optional<int> line = FindLine(grid_.Row(row).key, {})) {
            selected.push_back(*line);
        }
    }
    return selected;
}

std::vector<int> MacroGrid::SelectedPeriods() const {
    std::vector<int> selected;
    for (const ColumnId column : BlockOfSelection(grid_, HiddenCells::LeftOut).columns) {
        if (const std::optional<int> period = FindPeriod(grid_.Column(column).key, {})) {
            selected.push_back(*period);
        }
    }
    return selected;
}

}  // namespace planview
