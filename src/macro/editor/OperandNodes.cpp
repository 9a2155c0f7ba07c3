// SPDX-License-Identifier: MIT
#include "macro/editor/OperandNodes.h"

#include <algorithm>
#include <functional>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "grid/SelectedCells.h"

namespace planview {

namespace {

constexpr MacroNodeType OwnTypes[] = {MacroNodeType::OwnLine, MacroNodeType::OwnElement, MacroNodeType::OwnArea};
constexpr const char* SelectFirst = "Select a line, a cell or a block of cells in the grid first.";

/// Whether all between the first and the last are selected or hidden.
bool StandTogether(const std::vector<int>& indexes, const std::function<bool(int)>& isShown) {
    for (std::size_t i = 1; i < indexes.size(); ++i) {
        for (int between = indexes[i - 1] + 1; between < indexes[i]; ++between) {
            if (isShown(between)) {
                return false;
            }
        }
    }
    return true;
}

/// The only line with this caption, ignoring case.
std::optional<int> LineCalled(const MacroGrid& table, std::string_view text) {
    if (const std::optional<int> exact = table.FindLineByCaption(text)) {
        return exact;
    }
    std::optional<int> found;
    for (int line = 0; line < table.LineCount(); ++line) {
        if (EqualIgnoringCase(table.LineCaption(line), text)) {
            if (found) {
                return std::nullopt;
            }
            found = line;
        }
    }
    return found;
}

NewMacroNode NodeOf(const MacroGrid& table, const PlanningRange& range, bool asArea = false) {
    NewMacroNode node;
    const bool oneLine = range.firstLine == range.lastLine;
    const bool onePeriod = range.firstPeriod == range.lastPeriod;
    const bool isArea = asArea || !oneLine || !onePeriod;
    node.type = isArea               ? MacroNodeType::TableArea
                : range.HasPeriods() ? MacroNodeType::TableElement
                                     : MacroNodeType::TableLine;
    node.value = table.ReferenceOf(range, isArea);
    node.name = table.CaptionsOf(range, isArea);
    node.text = table.TextOf(range);
    return node;
}

std::optional<PlanningRange> RangeFromText(const MacroGrid& table, std::string_view text) {
    std::string missing;
    if (const std::optional<PlanningRange> range = table.Resolve(text, {}, missing)) {
        return range;
    }
    PlanningRange range;
    if (const std::optional<int> line = LineCalled(table, text)) {
        range.firstLine = range.lastLine = *line;
        return range;
    }
    // The last comma separates the line from the period.
    const std::size_t comma = text.rfind(',');
    if (comma == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<int> line = LineCalled(table, Trimmed(text.substr(0, comma)));
    const std::optional<int> period = table.FindPeriod({}, Trimmed(text.substr(comma + 1)));
    if (!line || !period) {
        return std::nullopt;
    }
    range.firstLine = range.lastLine = *line;
    range.firstPeriod = range.lastPeriod = *period;
    return range;
}

/// The periods that stand under the selected cells of a fixed row, each from its text to before the next one, as months
/// stand under their years.
std::optional<PlaceRange> PeriodsUnderSelection(const GridControl& grid, const MacroGrid& table) {
    const SelectedBlock block = BlockOfSelection(grid);
    if (block.rows.size() != 1 || grid.Row(block.rows.front()).area == RowArea::Center) {
        return std::nullopt;
    }
    const std::optional<int> first = table.FindPeriod(grid.Column(block.columns.front()).key, {});
    const std::optional<int> last = table.FindPeriod(grid.Column(block.columns.back()).key, {});
    if (!first || !last) {
        return std::nullopt;
    }
    const auto hasText = [&](int period) {
        return !Trimmed(grid.Contents({table.PeriodId(period), block.rows.front()})).empty();
    };
    PlaceRange range{*first, *last};
    while (range.first > 0 && !hasText(range.first)) {
        --range.first;
    }
    while (range.last + 1 < table.PeriodCount() && !hasText(range.last + 1)) {
        ++range.last;
    }
    return hasText(range.first) ? std::optional(range) : std::nullopt;
}

NewMacroNode PeriodsNodeOf(const MacroGrid& table, const PlaceRange& range) {
    return PeriodsNode(table.PeriodsReferenceOf(range), table.PeriodsCaptionsOf(range));
}

}  // namespace

NewMacroNode PeriodsNode(const std::string& value, const std::string& captions) {
    NewMacroNode node;
    node.type = MacroNodeType::Attribute;
    node.value = "PERIODS=" + value;
    node.name = captions;
    std::vector<std::string> ends;
    for (const std::string_view caption : SplitAt(captions, CaptionMark)) {
        ends.emplace_back(caption);
    }
    node.text = value == "ALL"           ? "For all periods"
                : value == SelectedPlace ? "For the selected periods"
                                         : "For " + Joined(ends, " to ");
    return node;
}

std::optional<NewMacroNode> NodeFromSelection(const GridControl& grid, std::string& refusal) {
    const GridSelection& selection = grid.Selection();
    const MacroGrid table(grid);
    const std::vector<int> lines = table.SelectedLines();
    const std::vector<int> periods = table.SelectedPeriods();
    const bool cells = !selection.Ranges().empty() || selection.IsEmpty();
    const bool onlyLines = selection.HasWholeRows() && !cells && !selection.HasWholeColumns();
    const bool onlyPeriods = selection.HasWholeColumns() && !cells && !selection.HasWholeRows();
    if (const std::optional<PlaceRange> range = PeriodsUnderSelection(grid, table)) {
        return PeriodsNodeOf(table, *range);
    }
    if (lines.empty() || periods.empty()) {
        refusal = SelectFirst;
        return std::nullopt;
    }
    const bool linesTogether = StandTogether(lines, [&](int line) { return !grid.Row(table.LineId(line)).hidden; });
    const bool periodsTogether =
        StandTogether(periods, [&](int period) { return !grid.Column(table.PeriodId(period)).hidden; });
    if ((!onlyPeriods && !linesTogether) || (!onlyLines && !periodsTogether)) {
        refusal = "The selected lines or periods do not stand together. Select neighbours only.";
        return std::nullopt;
    }
    if (onlyPeriods) {
        return PeriodsNodeOf(table, {periods.front(), periods.back()});
    }
    PlanningRange range;
    range.firstLine = lines.front();
    range.lastLine = lines.back();
    if (!onlyLines) {
        range.firstPeriod = periods.front();
        range.lastPeriod = periods.back();
    }
    return NodeOf(table, range);
}

std::optional<NewMacroNode> NodeFromSelectionAs(const GridControl& grid, MacroNodeType type, std::string& refusal) {
    const MacroGrid table(grid);
    const std::vector<int> lines = table.SelectedLines();
    const std::vector<int> periods = table.SelectedPeriods();
    if (lines.empty() || periods.empty()) {
        refusal = SelectFirst;
        return std::nullopt;
    }
    const bool isArea = type == MacroNodeType::TableArea;
    PlanningRange range;
    range.firstLine = lines.front();
    range.lastLine = isArea ? lines.back() : lines.front();
    if (type == MacroNodeType::TableElement) {
        const std::optional<Cell> current = grid.CurrentCell();
        const std::optional<int> line = current ? table.FindLine(grid.Row(current->row).key, {}) : std::nullopt;
        const std::optional<int> period =
            current ? table.FindPeriod(grid.Column(current->column).key, {}) : std::nullopt;
        range.firstLine = range.lastLine = line.value_or(lines.front());
        range.firstPeriod = range.lastPeriod = period.value_or(periods.front());
    } else if (isArea && !grid.Selection().HasWholeRows()) {
        range.firstPeriod = periods.front();
        range.lastPeriod = periods.back();
    }
    return NodeOf(table, range, isArea);
}

std::optional<NewMacroNode> NodeFromText(const GridControl& grid, const MacroOutline& outline,
                                         const std::string& text) {
    NewMacroNode node;
    node.value = text;
    node.text = text;
    if (TryParseNumber(text)) {
        node.type = MacroNodeType::Constant;
        return node;
    }
    for (const MacroNodeType type : OwnTypes) {
        for (const std::string& name : OwnNames(outline, type)) {
            if (EqualIgnoringCase(name, text)) {
                node.type = type;
                node.value = node.text = name;
                return node;
            }
        }
    }
    if (EqualIgnoringCase(text, SelectedLineText) || text == SelectedPlace) {
        node.type = MacroNodeType::TableLine;
        node.value = SelectedPlace;
        node.text = SelectedLineText;
        return node;
    }
    const MacroGrid table(grid);
    const std::optional<PlanningRange> range = RangeFromText(table, text);
    return range ? std::optional(NodeOf(table, *range)) : std::nullopt;
}

std::optional<EnteredNumber> ReadConstant(const GridControl& grid, const MacroOutline& outline, int at,
                                          std::string_view text) {
    const MacroGrid table(grid);
    for (int i = std::min(at, outline.Count() - 1); i >= 0 && table.PeriodCount() > 0; --i) {
        const MacroNode& node = outline.At(i);
        const bool isOfTable = node.type == MacroNodeType::TableLine || node.type == MacroNodeType::TableElement ||
                               node.type == MacroNodeType::TableArea;
        std::string missing;
        const std::optional<PlanningRange> range =
            isOfTable ? table.Resolve(node.value, node.name, missing) : std::nullopt;
        if (range) {
            return ReadEntered(text, grid.Look(table.CellAt(range->firstLine, 0)).format);
        }
    }
    return ReadEntered(text, nullptr);
}

std::string GuessText(const EnteredNumber& read) {
    return read.IsGuess() ? "Taken as " + SpokenNumber(read.number) + ". For the other number enter \"" +
                                NumberText(*read.other, GridDecimalMark) + "\"."
                          : std::string();
}

std::vector<std::string> OwnNames(const MacroOutline& outline, MacroNodeType type) {
    std::vector<std::string> names;
    for (int i = 0; i < outline.Count(); ++i) {
        const MacroNode& node = outline.At(i);
        if (node.type == type && !node.value.empty() &&
            std::find(names.begin(), names.end(), node.value) == names.end()) {
            names.push_back(node.value);
        }
    }
    return names;
}

std::vector<std::string> OperandTexts(const GridControl& grid, const MacroOutline& outline) {
    std::vector<std::string> texts{std::string(SelectedLineText)};
    for (const MacroNodeType type : OwnTypes) {
        const std::vector<std::string> names = OwnNames(outline, type);
        texts.insert(texts.end(), names.begin(), names.end());
    }
    const MacroGrid table(grid);
    for (int line = 0; line < table.LineCount(); ++line) {
        if (!table.IsTextLine(line)) {
            texts.push_back(table.LineCaption(line));
        }
    }
    return texts;
}

}  // namespace planview
