// SPDX-License-Identifier: MIT
#include "grid/ProposedChanges.h"

#include <optional>
#include <vector>

#include "automation/Texts.h"
#include "grid/CellText.h"

namespace planview {

namespace {

std::string ContentsOf(const GridControl& grid, CellKeyView keys) {
    const std::optional<Cell> cell = grid.FindCell(keys);
    return cell ? grid.Contents(*cell) : std::string();
}

/// None where the cell is gone or another one than it was.
std::optional<Cell> CellOf(const GridControl& grid, const UploadChange& change) {
    const std::optional<Cell> cell = grid.FindCell({change.column, change.row});
    const bool same = cell && grid.Contents(*cell) == change.before &&
                      ContentsOf(grid, {LabelColumnKey, change.row}) == change.line &&
                      ContentsOf(grid, {change.column, HeadingRowKey}) == change.period;
    return same ? cell : std::nullopt;
}

}  // namespace

UploadChange ProposedChange(const GridControl& grid, Cell cell, const Variant& value) {
    UploadChange change;
    change.column = grid.Column(cell.column).key;
    change.row = grid.Row(cell.row).key;
    change.line = ContentsOf(grid, {LabelColumnKey, change.row});
    change.period = ContentsOf(grid, {change.column, HeadingRowKey});
    change.before = grid.Contents(cell);
    change.after = QuietCellText(value);
    change.value = value;
    return change;
}

UploadResult ApplyTicked(const GridControl& grid, ValueEntry& valueEntry, std::span<const UploadChange> changes) {
    UploadResult result;
    std::vector<NewValue> values;
    for (const UploadChange& change : changes) {
        if (!change.taken || change.IsRefused()) {
            continue;
        }
        if (const std::optional<Cell> cell = CellOf(grid, change)) {
            values.push_back({*cell, change.value});
        } else {
            ++result.outdated;
        }
    }
    const BulkResult changed = valueEntry.ChangeCells(values);
    result.changed = changed.changed;
    result.refused = changed.Refused() + changed.failed;
    return result;
}

std::string TextOf(const UploadResult& result, std::string_view since) {
    std::string text = Counted(result.changed, "cell") + " changed.";
    if (result.outdated > 0) {
        text += "\n" + Counted(result.outdated, "cell") + " left alone: the table was changed since " +
                std::string(since) + ".";
    }
    if (result.refused > 0) {
        text += "\n" + Counted(result.refused, "cell") + " could not be changed.";
    }
    return text;
}

}  // namespace planview
