// SPDX-License-Identifier: MIT
#include "macro/language/MacroGrid.h"

#include <algorithm>

#include "automation/Texts.h"
#include "grid/SelectedCells.h"

namespace planview {

namespace {

/// Labels may be indented.
std::string Trimmed(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char next) { return next == CaptionMark || (next >= 0 && next < ' '); }, ' ');
    const std::size_t start = text.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : text.substr(start, text.find_last_not_of(' ') - start + 1);
}

std::string CaptionOf(const GridControl& grid, CellKeyView heading, const std::string& key) {
    const std::optional<Cell> cell = grid.FindCell(heading);
    std::string caption = cell ? Trimmed(grid.Contents(*cell)) : std::string();
    return caption.empty() ? key : caption;
}

std::string KeyRange(const std::string& first, const std::string& last, bool always) {
    return first == last && !always ? first : first + RangeMark + last;
}

std::string CaptionRange(const std::string& first, const std::string& last) {
    return first == last ? first : first + " to " + last;
}

}  // namespace

template <class Id>
void MacroGrid::Axis<Id>::IndexAll() {
    for (std::size_t i = 0; i < ids.size(); ++i) {
        byKey.emplace(keys[i], static_cast<int>(i));
        byCaption[captions[i]].push_back(static_cast<int>(i));
    }
}

template <class Id>
std::optional<int> MacroGrid::Axis<Id>::OnlyOne(std::string_view caption) const {
    const auto found = byCaption.find(caption);
    return found != byCaption.end() && found->second.size() == 1 ? std::optional(found->second.front()) : std::nullopt;
}

template <class Id>
std::optional<int> MacroGrid::Axis<Id>::Find(std::string_view key, std::string_view caption) const {
    const auto found = byKey.find(key);
    if (found != byKey.end() && (caption.empty() || captions[Index(found->second)] == caption)) {
        return found->second;
    }
    return caption.empty() ? std::nullopt : OnlyOne(caption);
}

MacroGrid::MacroGrid(const GridControl& grid) : grid_(grid) {
    for (const RowId row : grid.Rows(RowArea::Center)) {
        lines_.ids.push_back(row);
        lines_.keys.push_back(grid.Row(row).key);
        lines_.captions.push_back(CaptionOf(grid, {LabelColumnKey, lines_.keys.back()}, lines_.keys.back()));
    }
    for (const ColumnId column : grid.Columns(ColumnArea::Center)) {
        periods_.ids.push_back(column);
        periods_.keys.push_back(grid.Column(column).key);
        periods_.captions.push_back(CaptionOf(grid, {periods_.keys.back(), HeadingRowKey}, periods_.keys.back()));
    }
    lines_.IndexAll();
    periods_.IndexAll();
}

std::string MacroGrid::CellCaption(int line, int period) const {
    return LineCaption(line) + ", " + PeriodCaption(period);
}

bool MacroGrid::IsTextLine(int line) const {
    return !periods_.ids.empty() && grid_.Look({periods_.ids.front(), lines_.ids[Index(line)]}).textLine;
}

std::optional<int> MacroGrid::FindLine(std::string_view key, std::string_view caption) const {
    return lines_.Find(key, caption);
}

std::optional<int> MacroGrid::FindPeriod(std::string_view key, std::string_view caption) const {
    return periods_.Find(key, caption);
}

std::optional<int> MacroGrid::FindLineByCaption(std::string_view caption) const {
    return lines_.OnlyOne(caption);
}

std::optional<MacroPlace> MacroGrid::Resolve(std::string_view reference, std::string_view captions,
                                             std::string& missing) const {
    const std::vector<std::string_view> names = SplitAt(captions, CaptionMark);
    const std::vector<std::string_view> axes = SplitAt(reference, AxisMark);
    std::size_t next = 0;
    // Both ends of a range, in their order.
    const auto ends = [&](const auto& axis, std::string_view range, int& first, int& last) {
        const std::vector<std::string_view> keys = SplitAt(range, RangeMark);
        std::vector<int> found;
        for (const std::string_view key : keys) {
            const std::string_view caption = next < names.size() ? names[next++] : std::string_view();
            const std::optional<int> place = axis.Find(key, caption);
            if (!place) {
                missing = caption.empty() ? std::string(key) : std::string(caption);
                return false;
            }
            found.push_back(*place);
        }
        if (found.size() > 2) {
            missing = range;
            return false;
        }
        first = std::min(found.front(), found.back());
        last = std::max(found.front(), found.back());
        return true;
    };
    MacroPlace place;
    if (axes.size() > 2 || !ends(lines_, axes[0], place.firstLine, place.lastLine) ||
        (axes.size() == 2 && !ends(periods_, axes[1], place.firstPeriod, place.lastPeriod))) {
        missing = missing.empty() ? std::string(reference) : missing;
        return std::nullopt;
    }
    return place;
}

std::string MacroGrid::ReferenceOf(const MacroPlace& place) const {
    const bool area = place.firstLine != place.lastLine || place.firstPeriod != place.lastPeriod;
    std::string text = KeyRange(LineKey(place.firstLine), LineKey(place.lastLine), area);
    if (place.HasPeriods()) {
        text += AxisMark + KeyRange(PeriodKey(place.firstPeriod), PeriodKey(place.lastPeriod), area);
    }
    return text;
}

std::string MacroGrid::CaptionsOf(const MacroPlace& place) const {
    const bool area = place.firstLine != place.lastLine || place.firstPeriod != place.lastPeriod;
    std::string text = LineCaption(place.firstLine);
    if (area) {
        text += CaptionMark + LineCaption(place.lastLine);
    }
    if (place.HasPeriods()) {
        text += CaptionMark + PeriodCaption(place.firstPeriod);
        if (area) {
            text += CaptionMark + PeriodCaption(place.lastPeriod);
        }
    }
    return text;
}

std::string MacroGrid::TextOf(const MacroPlace& place) const {
    std::string text = CaptionRange(LineCaption(place.firstLine), LineCaption(place.lastLine));
    if (place.HasPeriods()) {
        text += ", " + CaptionRange(PeriodCaption(place.firstPeriod), PeriodCaption(place.lastPeriod));
    }
    return text;
}

std::vector<int> MacroGrid::SelectedLines() const {
    std::vector<int> selected;
    const GridSelection& selection = grid_.Selection();
    std::vector<RowId> rows = BlockOfSelection(grid_).rows;
    if (selection.HasWholeColumns() && !selection.HasWholeRows() && selection.Ranges().empty()) {
        const std::optional<Cell> current = grid_.CurrentCell();
        rows = current ? std::vector<RowId>{current->row} : std::vector<RowId>();
    }
    for (const RowId row : rows) {
        if (const std::optional<int> line = lines_.Find(grid_.Row(row).key, {})) {
            selected.push_back(*line);
        }
    }
    return selected;
}

std::vector<int> MacroGrid::SelectedPeriods() const {
    std::vector<int> selected;
    for (const ColumnId column : BlockOfSelection(grid_).columns) {
        if (const std::optional<int> period = periods_.Find(grid_.Column(column).key, {})) {
            selected.push_back(*period);
        }
    }
    return selected;
}

}  // namespace planview
