// SPDX-License-Identifier: MIT
#include "grid/ClipboardCommands.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "clipboard/BlockText.h"
#include "clipboard/HtmlBlock.h"
#include "grid/CellCaption.h"
#include "grid/CellEntry.h"
#include "grid/Percent.h"
#include "grid/SelectedCells.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

/// A block as the screen shows it, line by line from the left. In the switched view a column is a line.
class ShownBlock {
public:
    ShownBlock(const GridControl& grid, SelectedBlock block)
        : block_(std::move(block)), switched_(grid.Settings().switched) {}

    [[nodiscard]] std::size_t Height() const noexcept { return switched_ ? block_.columns.size() : block_.rows.size(); }
    [[nodiscard]] std::size_t Width() const noexcept { return switched_ ? block_.rows.size() : block_.columns.size(); }
    [[nodiscard]] Cell At(std::size_t line, std::size_t place) const {
        return switched_ ? Cell{block_.columns[line], block_.rows[place]}
                         : Cell{block_.columns[place], block_.rows[line]};
    }

private:
    SelectedBlock block_;
    bool switched_;
};

TextBlock ReadBlock(const GridControl& grid) {
    const ShownBlock block(grid, BlockOfSelection(grid));
    TextBlock texts;
    for (std::size_t i = 0; i < block.Height(); ++i) {
        std::vector<std::string>& line = texts.emplace_back();
        for (std::size_t j = 0; j < block.Width(); ++j) {
            line.push_back(grid.Contents(block.At(i, j)));
        }
    }
    return texts;
}

template <class Block>
bool IsSingle(const Block& block) noexcept {
    return block.size() == 1 && block.front().size() == 1;
}

/// A block's values with the cells that they go to.
struct Placement {
    std::vector<NewValue> values;
    int beyondEdge = 0;  ///< values for which there is no cell
};

/// One value goes to every selected cell.
Placement PlaceValue(const GridControl& grid, const Variant& value) {
    Placement placement;
    for (const Cell cell : CellsOfSelection(grid)) {
        placement.values.push_back({cell, value});
    }
    return placement;
}

std::size_t WidthOf(const ValueBlock& block) noexcept {
    std::size_t width = 0;
    for (const std::vector<Variant>& line : block) {
        width = std::max(width, line.size());
    }
    return width;
}

/// Onto the selection when the block fits into it a whole number of times, else from its first cell on. A line that is
/// shorter than others has no values for the rest of its cells.
Placement PlaceBlock(const GridControl& grid, const ValueBlock& block) {
    const SelectedBlock selected = BlockOfSelection(grid);
    const std::size_t width = WidthOf(block);
    Placement placement;
    if (selected.CellCount() == 0 || width == 0) {
        return placement;
    }
    const ShownBlock shown(grid, selected);
    const bool fills = selected.CellCount() > 1 && shown.Height() % block.size() == 0 && shown.Width() % width == 0;
    const ShownBlock target =
        fills ? shown
              : ShownBlock(grid, {ColumnsFrom(grid, selected.columns.front()), RowsFrom(grid, selected.rows.front())});
    const std::size_t lineCount = fills ? target.Height() : block.size();
    const std::size_t placeCount = fills ? target.Width() : width;
    for (std::size_t i = 0; i < lineCount; ++i) {
        const std::vector<Variant>& line = block[i % block.size()];
        for (std::size_t j = 0; j < placeCount; ++j) {
            if (j % width >= line.size()) {
                continue;
            }
            const Variant& value = line[j % width];
            if (i < target.Height() && j < target.Width()) {
                placement.values.push_back({target.At(i, j), value});
            } else if (!value.TextIf() || !value.TextIf()->empty()) {
                ++placement.beyondEdge;
            }
        }
    }
    return placement;
}

bool IsBlock(const GridControl& grid) {
    return CellsOfSelection(grid).size() == BlockOfSelection(grid).CellCount();
}

ClipboardContents ContentsOf(const TextBlock& block) {
    return {IsSingle(block) ? block[0][0] : FormatBlock(block), FormatHtmlBlock(block)};
}

}  // namespace

std::optional<ClipboardContents> ContentsOfSelection(const GridControl& grid) {
    if (!IsBlock(grid) || BlockOfSelection(grid).CellCount() == 0) {
        return std::nullopt;
    }
    return ContentsOf(ReadBlock(grid));
}

/// False, and told to the user, when what is selected is no block: copied cells would come out in other places.
bool ClipboardCommands::SelectionIsBlock(std::string_view verb) {
    if (IsBlock(parts_.grid)) {
        return true;
    }
    parts_.messageBoxes.Show({"The selected cells do not form one block and cannot be " + std::string(verb) +
                                  ". Select a block of cells, then try again.",
                              "Grid", MessageButtons::Ok, MessageIcon::Information, MessageAnswer::Ok});
    return false;
}

bool ClipboardCommands::CopyToClipboard(std::string_view method) {
    const GridControl& grid = parts_.grid;
    const std::optional<Cell> current = grid.CurrentCell();
    if (!current || !SelectionIsBlock("copied")) {
        return false;
    }
    if (TraceEnabled) {
        // A right click inside a selection touches another cell than the current one.
        const Cell touched = grid.FindCell({parts_.keys.column, parts_.keys.row}).value_or(*current);
        TraceWrite("GRIDCTL", "", method,
                   TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row,
                             " - text: ", grid.Contents(touched), "}"));
    }
    parts_.clipboard.Set(ContentsOf(ReadBlock(grid)));
    return true;
}

void ClipboardCommands::Copy() {
    CopyToClipboard("Ctrl-C");
}

void ClipboardCommands::Cut() {
    if (CopyToClipboard("Ctrl-X")) {
        DeleteSelected();
    }
}

void ClipboardCommands::Paste(const std::optional<ClipboardContents>& offered) {
    if (!parts_.grid.CurrentCell()) {
        return;
    }
    const ClipboardContents contents = offered ? *offered : parts_.clipboard.Get();
    const ValueBlock block = BestBlock(contents.text, contents.html);
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", "Ctrl-V", TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row, "}"));
    }
    if (block.empty() || (!IsSingle(block) && !SelectionIsBlock("filled with several values"))) {
        return;
    }
    Placement placement = IsSingle(block) ? PlaceValue(parts_.grid, block[0][0]) : PlaceBlock(parts_.grid, block);
    std::vector<GuessedEntry> guesses = ReadEntries(parts_.grid, block, placement.values);
    Change(placement.values, "pasted", {EditKind::Paste}, placement.beyondEdge);
    parts_.otherReading.Offer(std::move(guesses), EditKind::Paste);
}

void ClipboardCommands::Fill() {
    const std::vector<Cell> cells = CellsOfSelection(parts_.grid);
    std::vector<NewValue> values;
    for (std::size_t i = 1; i < cells.size(); ++i) {
        values.push_back({cells[i], parts_.grid.Contents(cells.front())});
    }
    Change(values, "filled", {EditKind::Fill});
}

void ClipboardCommands::DeleteCellContents() {
    const GridControl& grid = parts_.grid;
    const std::optional<Cell> current = grid.CurrentCell();
    if (!current) {
        return;
    }
    const bool several = CellsOfSelection(grid).size() > 1;
    if (!several && RefusalOf(grid, *current) != Refusal::None) {
        TellBeside(*current, RefusalOf(grid, *current));
        return;
    }
    if (!several && !IsPlanningCell(grid.KeyOf(*current))) {
        return;
    }
    DeleteSelected();
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", "DeleteCellContents",
                   TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row, "}"));
    }
}

/// Fixed cells among the selected ones stay as they are.
void ClipboardCommands::DeleteSelected() {
    const GridControl& grid = parts_.grid;
    std::vector<NewValue> values;
    for (const Cell cell : CellsOfSelection(grid)) {
        if (IsPlanningCell({grid.Column(cell.column).key, grid.Row(cell.row).key})) {
            values.push_back({cell, ""});
        }
    }
    Change(values, "emptied", {EditKind::Delete});
}

void ClipboardCommands::Raise(double percent) {
    const GridControl& grid = parts_.grid;
    EditNote note{EditKind::Raise, percent};
    std::vector<NewValue> values;
    if (std::isfinite(percent) && std::abs(percent) <= MaxPercent) {
        for (const Cell cell : CellsOfSelection(grid)) {
            const CellKey key = grid.KeyOf(cell);
            if (!IsPlanningCell(key)) {
                continue;
            }
            if (RefusalOf(grid, cell) == Refusal::None) {
                note.meant.push_back(key);
            }
            const std::optional<double> number = TryParseNumber(grid.Contents(cell));
            const std::optional<double> raised = number ? RaisedBy(*number, percent) : std::nullopt;
            if (raised) {
                values.push_back({cell, *raised});
            }
        }
    }
    if (values.empty()) {
        parts_.messageBoxes.Show(
            {"There is nothing to raise: select planning cells that hold numbers, and take a "
             "percentage from -1000000 to 1000000.",
             "Grid", MessageButtons::Ok, MessageIcon::Information, MessageAnswer::Ok});
        return;
    }
    Change(values, "raised", note);
}

void ClipboardCommands::Change(const std::vector<NewValue>& values, std::string_view verb, const EditNote& note,
                               int beyondEdge) {
    if (values.size() == 1 && beyondEdge == 0) {
        const NewValue& only = values.front();
        const Refusal refusal = RefusalOf(parts_.grid, only.cell, only.value.AsText());
        if (refusal != Refusal::None && TellBeside(only.cell, refusal)) {
            return;
        }
    }
    Report(parts_.valueEntry.ChangeCells(values, note), verb, beyondEdge);
}

/// False when there is nobody to show it.
bool ClipboardCommands::TellBeside(Cell cell, Refusal refusal) {
    return parts_.tellBeside && parts_.tellBeside(cell, RefusalText(refusal));
}

void ClipboardCommands::Report(const BulkResult& result, std::string_view verb, int beyondEdge) {
    if (result.Refused() == 0 && beyondEdge == 0 && result.hidden == 0) {
        return;
    }
    std::string text = Counted(result.changed, "cell") + " " + std::string(verb);
    text += result.hidden > 0 ? ", " + std::to_string(result.hidden) + " of them hidden" : "";
    text += result.Refused() > 0 ? ", " + Counted(result.Refused(), "cell") + " left alone:" : ".";
    if (result.readOnly > 0) {
        text += "\n" + Counted(result.readOnly, "cell") + " cannot be edited";
    }
    if (result.noNumber > 0) {
        text += "\n" + Counted(result.noNumber, "cell") + " would have got a text that is not a number";
    }
    if (result.firstRefused) {
        text += "\nThe first one is " + CellCaption(parts_.grid, *result.firstRefused) + ".";
    }
    if (beyondEdge > 0) {
        text += "\n" + Counted(beyondEdge, "value") + " would have gone beyond the edge of the table.";
    }
    parts_.messageBoxes.Show({text, "Grid", MessageButtons::Ok, MessageIcon::Information, MessageAnswer::Ok});
}

}  // namespace planview
