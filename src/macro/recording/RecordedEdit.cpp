// SPDX-License-Identifier: MIT
#include "macro/recording/RecordedEdit.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "automation/Numbers.h"
#include "grid/CellText.h"

namespace planview {

namespace {

/// The longest text of values in one step. All fields of a step together must fit into one field of a host's table.
constexpr std::size_t MaxValueBytes = 30000;

std::string_view CommandOf(EditKind kind) noexcept {
    switch (kind) {
        case EditKind::Value:
            return MacroCommand::Value;
        case EditKind::Drag:
            return MacroCommand::Drag;
        case EditKind::Paste:
            return MacroCommand::Paste;
        case EditKind::Fill:
            return MacroCommand::Fill;
        case EditKind::Delete:
            return MacroCommand::Delete;
        case EditKind::Raise:
            return MacroCommand::Raise;
    }
    return MacroCommand::Value;
}

/// The value as the user would type it.
std::string TypedText(const Variant& value) {
    return value.TextIf() ? *value.TextIf() : QuietCellText(value);
}

std::vector<std::string> Keys(const std::set<std::string>& keys) {
    return {keys.begin(), keys.end()};
}

/// One step for all lines that are raised in the same periods.
std::vector<MacroStep> StepsOfRaise(const GridControl& grid, const EditNote& note) {
    std::map<std::string, std::set<std::string>> columnsOfRow;
    for (const CellKey& cell : note.meant) {
        columnsOfRow[cell.row].insert(cell.column);
    }
    std::map<std::set<std::string>, std::set<std::string>> rowsOfColumns;
    for (const auto& [row, columns] : columnsOfRow) {
        rowsOfColumns[columns].insert(row);
    }
    std::vector<MacroStep> steps;
    for (const auto& [columns, rows] : rowsOfColumns) {
        steps.push_back({std::string(MacroCommand::Raise), DescribePlaces(grid, PlaceAxis::Columns, Keys(columns)),
                         DescribePlaces(grid, PlaceAxis::Lines, Keys(rows)),
                         NumberText(note.percent, GridDecimalMark)});
    }
    return steps;
}

/// The smallest block that contains the changed cells.
class ValueBlock {
public:
    ValueBlock(const GridControl& grid, const UndoStep& changes) : grid_(grid) {
        for (const CellChange& change : changes) {
            if (grid.FindCell(change.cell)) {
                rows_[change.cell.row][change.cell.column] = TypedText(change.after);
                columns_.insert(change.cell.column);
            }
        }
    }

    [[nodiscard]] std::vector<MacroStep> Steps(std::string_view command) const {
        std::vector<MacroStep> steps;
        if (rows_.empty()) {
            return steps;
        }
        const std::vector<std::string> columns = Expanded(PlaceAxis::Columns, columns_);
        std::set<std::string> changedRows;
        for (const auto& [row, values] : rows_) {
            changedRows.insert(row);
        }
        std::vector<std::string> lines;
        StepValues values;
        const auto end = [&] {
            if (!lines.empty()) {
                steps.push_back({std::string(command), DescribePlaces(grid_, PlaceAxis::Columns, columns),
                                 DescribePlaces(grid_, PlaceAxis::Lines, lines), StepValueText(values)});
            }
            lines.clear();
            values.clear();
        };
        std::size_t bytes = 0;
        for (const std::string& row : Expanded(PlaceAxis::Lines, changedRows)) {
            std::vector<std::optional<std::string>> line = LineOf(row, columns);
            const std::size_t size = StepValueText({line}).size() + 1;
            if (bytes + size > MaxValueBytes) {
                end();
                bytes = 0;
            }
            lines.push_back(row);
            values.push_back(std::move(line));
            bytes += size;
        }
        end();
        return steps;
    }

private:
    [[nodiscard]] std::vector<std::optional<std::string>> LineOf(const std::string& row,
                                                                 const std::vector<std::string>& columns) const {
        std::vector<std::optional<std::string>> line(columns.size());
        const auto found = rows_.find(row);
        for (std::size_t i = 0; found != rows_.end() && i < columns.size(); ++i) {
            if (const auto value = found->second.find(columns[i]); value != found->second.end()) {
                line[i] = value->second;
            }
        }
        return line;
    }

    /// The keys with the planning ones between them, so that a paste beside hidden columns is one block.
    [[nodiscard]] std::vector<std::string> Expanded(PlaceAxis axis, const std::set<std::string>& keys) const {
        PlaceTexts texts = DescribePlaces(grid_, axis, Keys(keys));
        const std::string_view prefix = axis == PlaceAxis::Columns ? "COL" : "ROW";
        const bool planning =
            std::all_of(keys.begin(), keys.end(), [&](const std::string& key) { return key.starts_with(prefix); });
        if (planning && SinglePlace(texts.keys).empty()) {
            const std::size_t first = texts.keys.find_first_of(":,");
            const std::size_t last = texts.keys.find_last_of(":,");
            texts = {texts.keys.substr(0, first) + ":" + texts.keys.substr(last + 1), {}};
        }
        return FindPlaces(grid_, axis, {texts.keys, {}}).keys;
    }

    const GridControl& grid_;
    std::map<std::string, std::map<std::string, std::string>> rows_;  // values by row and column
    std::set<std::string> columns_;
};

}  // namespace

std::vector<MacroStep> StepsOfEdit(const GridControl& grid, const EditNote& note, const UndoStep& changes) {
    return note.kind == EditKind::Raise ? StepsOfRaise(grid, note)
                                        : ValueBlock(grid, changes).Steps(CommandOf(note.kind));
}

}  // namespace planview
