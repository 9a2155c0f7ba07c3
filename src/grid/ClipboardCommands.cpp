#include "grid/ClipboardCommands.h"

#include <algorithm>
#include <vector>

#include "automation/BlockText.h"
#include "grid/SelectedCells.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

TextBlock ReadBlock(const GridControl& grid, const SelectedBlock& block) {
    TextBlock texts;
    for (const RowId row : block.rows) {
        std::vector<std::string>& line = texts.emplace_back();
        for (const ColumnId column : block.columns) {
            line.push_back(grid.Contents({column, row}));
        }
    }
    return texts;
}

bool IsSingle(const TextBlock& block) noexcept {
    return block.size() == 1 && block.front().size() == 1;
}

/// Where a block goes: onto the selection when it fits into it a whole number of times, else from its first cell on.
std::vector<NewValue> PlaceBlock(const GridControl& grid, const TextBlock& block) {
    const SelectedBlock selected = BlockOfSelection(grid);
    if (selected.CellCount() == 0) {
        return {};
    }
    const std::size_t width = block.front().size();
    const bool fills = !grid.Selection().IsEmpty() && selected.CellCount() > 1 &&
                       selected.rows.size() % block.size() == 0 && selected.columns.size() % width == 0;
    const std::vector<ColumnId> columns = fills ? selected.columns : ColumnsFrom(grid, selected.columns.front());
    const std::vector<RowId> rows = fills ? selected.rows : RowsFrom(grid, selected.rows.front());
    const std::size_t rowCount = fills ? rows.size() : std::min(rows.size(), block.size());

    std::vector<NewValue> values;
    for (std::size_t r = 0; r < rowCount; ++r) {
        const std::vector<std::string>& line = block[r % block.size()];
        const std::size_t columnCount = fills ? columns.size() : std::min(columns.size(), line.size());
        for (std::size_t c = 0; c < columnCount && !line.empty(); ++c) {
            values.push_back({{columns[c], rows[r]}, line[c % line.size()]});
        }
    }
    return values;
}

}  // namespace

void ClipboardCommands::CopyToClipboard(std::string_view method) {
    const GridControl& grid = parts_.grid;
    const std::optional<Cell> current = grid.CurrentCell();
    if (!current) {
        return;
    }
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", method,
                   TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row,
                             " - text: ", grid.Contents(*current), "}"));
    }
    const TextBlock block = ReadBlock(grid, BlockOfSelection(grid));
    parts_.clipboard.Set({IsSingle(block) ? block[0][0] : FormatBlock(block), FormatHtmlBlock(block)});
}

void ClipboardCommands::Copy() {
    CopyToClipboard("Ctrl-C");
}

void ClipboardCommands::Cut() {
    CopyToClipboard("Ctrl-X");
    DeleteSelected();
}

void ClipboardCommands::Paste() {
    if (!parts_.grid.CurrentCell()) {
        return;
    }
    const TextBlock block = ParseBlock(parts_.clipboard.Get().text);
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", "Ctrl-V", TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row, "}"));
    }
    if (!block.empty()) {
        Report(parts_.valueEntry.ChangeCells(PlaceBlock(parts_.grid, block)), "pasted");
    }
}

void ClipboardCommands::Fill() {
    const std::vector<Cell> cells = CellsOfSelection(parts_.grid);
    std::vector<NewValue> values;
    for (std::size_t i = 1; i < cells.size(); ++i) {
        values.push_back({cells[i], parts_.grid.Contents(cells.front())});
    }
    Report(parts_.valueEntry.ChangeCells(values), "filled");
}

void ClipboardCommands::DeleteCellContents() {
    const GridControl& grid = parts_.grid;
    const std::optional<Cell> current = grid.CurrentCell();
    if (!current) {
        return;
    }
    if (CellsOfSelection(grid).size() > 1) {
        DeleteSelected();
    } else if (IsPlanningCell(grid.KeyOf(*current)) && RefusalOf(grid, *current) == Refusal::None) {
        const NewValue empty{*current, ""};
        parts_.valueEntry.ChangeCells({&empty, 1});
    } else {
        return;
    }
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", "DeleteCellContents",
                   TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row, "}"));
    }
}

void ClipboardCommands::DeleteSelected() {
    std::vector<NewValue> values;
    for (const Cell cell : CellsOfSelection(parts_.grid)) {
        values.push_back({cell, ""});
    }
    Report(parts_.valueEntry.ChangeCells(values), "emptied");
}

void ClipboardCommands::Report(const BulkResult& result, std::string_view verb) {
    if (result.Refused() == 0) {
        return;
    }
    const auto cells = [](int count) { return std::to_string(count) + (count == 1 ? " cell" : " cells"); };
    std::string text =
        cells(result.changed) + " " + std::string(verb) + ", " + cells(result.Refused()) + " left alone:";
    if (result.readOnly > 0) {
        text += "\n" + cells(result.readOnly) + " cannot be edited";
    }
    if (result.noNumber > 0) {
        text += "\n" + cells(result.noNumber) + " would have got a text that is not a number";
    }
    const GridControl& grid = parts_.grid;
    const CellKey& first = *result.firstRefused;
    const auto label = [&](CellKeyView keys, const std::string& key) {
        const std::optional<Cell> cell = grid.FindCell(keys);
        return cell && !grid.Contents(*cell).empty() ? grid.Contents(*cell) : key;
    };
    text += "\nThe first one is " + label({LabelColumnKey, first.row}, first.row) + ", " +
            label({first.column, HeadingRowKey}, first.column) + ".";
    parts_.messageBoxes.Show({text, "Grid", MessageButtons::Ok, MessageIcon::Information, MessageAnswer::Ok});
}

}  // namespace planview
