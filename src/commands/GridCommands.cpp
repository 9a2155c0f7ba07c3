// SPDX-License-Identifier: MIT
#include "commands/GridCommands.h"

#include <algorithm>
#include <charconv>

#include "grid/LoaderSupport.h"
#include "grid/RowColors.h"
#include "grid/Selection.h"
#include "grid/modGrid.h"
#include "trace/modPlan.h"

namespace planview::commands {

namespace {

/// The frame of the commands on whole columns and rows. `operation` answers whether it was done.
template <class Operation>
void Run(CommandParts& on, CommandCall& call, std::string_view method, const Operation& operation) {
    modPlan::TraceWrite("GRIDCTL", "{}", method, "BEGIN");
    const modGrid::WaitingState waiting(on.driver, modGrid::Entries::None);
    on.driver.Redraw();
    call.done = operation();
    on.driver.Redraw();
    on.chartStep();
    if (call.done) {
        on.hostUpdate.StartUpdate();
    }
}

void MirrorSelection(const CommandParts& on) {
    planview::MirrorSelection(on.tables.COLS_INDEX, on.tables.LINE_INDEX, on.driver);
    on.Grid().Redraw();
}

/// Selecting by command is no change of the user's that the grid reports: it marks the tables itself.
template <class Operation>
void Select(const CommandParts& on, CommandCall& call, const HostTable& table, const Operation& operation) {
    call.done = operation(table, on.driver);
    MirrorSelection(on);
}

template <class Operation>
void Deselect(CommandParts& on, CommandCall& call, const HostTable& table, const Operation& operation) {
    Select(on, call, table, operation);
    if (call.done) {
        on.hostUpdate.StartUpdate();
    }
}

/// Leaves the current cell alone selected, so that nothing happens to what can no longer be seen.
bool LeaveHidden(const CommandParts& on) {
    on.driver.DeleteSelection({LabelColumnKey, HeadingRowKey}, NoRedraw);
    MirrorSelection(on);
    return true;
}

/// No value for a text that is no whole number from `least` to `most`.
std::optional<std::int16_t> NumberFrom(const Variant& value, int least, int most) {
    const std::string text = value.AsText();
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && number >= least && number <= most ? std::optional(static_cast<std::int16_t>(number)) : std::nullopt;
}

std::optional<std::int16_t> SizeOf(const CommandCall& call) {
    return NumberFrom(call.value, 1, MaxTrackSize);
}

std::optional<std::int16_t> ColorOf(const CommandCall& call) {
    return NumberFrom(call.value, 0, modGrid::PaletteSize - 1);
}

using SetSize = GridStatus (modGrid::*)(std::string_view key, std::int16_t size, bool redraw);
using TellSize = std::vector<std::string> (SizeEvents::*)(const std::string& key, int size);

void Resize(CommandParts& on, CommandCall& call, std::vector<std::string>& keys, SetSize set, TellSize tell) {
    const std::optional<std::int16_t> size = SizeOf(call);
    call.done = size && !keys.empty();
    if (call.done) {
        const std::string first = keys.front();
        call.done = (on.driver.*set)(first, *size, NoRedraw) == GridStatus::Ok;
        if (call.done) {
            keys = (on.sizeEvents.*tell)(first, *size);
        }
    }
}

void ColorRows(CommandParts& on, CommandCall& call, RowColor which) {
    if (call.value.IsEmpty()) {
        const bool ground = which == RowColor::Background;
        const ColorQuestion question{ColorOfSelectedRow(on.tables.LINE_INDEX, on.driver, which),
                                     ground ? ViewColor::Background : ViewColor::Text};
        if (const std::optional<int> position = on.chooseColor(question)) {
            call.value = modGrid::PaletteIndexOf(*position);
        }
    }
    const std::optional<std::int16_t> color = ColorOf(call);
    call.done = color && ColorSelectedRows(on.tables.LINE_INDEX, on.driver, which, *color);
    if (call.done) {
        on.hostUpdate.StartUpdate();
    }
}

template <class Ids, class Track>
bool AllHidden(const Ids& ids, const std::vector<std::string>& named, const Track& track) {
    return std::all_of(ids.begin(), ids.end(), [&](auto id) {
        return track(id).hidden || std::find(named.begin(), named.end(), track(id).key) != named.end();
    });
}

bool NamesNothing(const CommandCall& call) {
    return call.columns.empty() && call.rows.empty();
}

}  // namespace

// --- Selecting

void SelectAllColumns(CommandParts& on, CommandCall& call) {
    Select(on, call, on.tables.COLS_INDEX, planview::SelectAllColumns);
}

void SelectColumnBlock(CommandParts& on, CommandCall& call) {
    Select(on, call, on.tables.COLS_INDEX, SelectBlockColumns);
}

void DeselectColumns(CommandParts& on, CommandCall& call) {
    Deselect(on, call, on.tables.COLS_INDEX, DeselectAllColumns);
}

void SelectAllRows(CommandParts& on, CommandCall& call) {
    Select(on, call, on.tables.LINE_INDEX, planview::SelectAllRows);
}

void SelectRowBlock(CommandParts& on, CommandCall& call) {
    Select(on, call, on.tables.LINE_INDEX, SelectBlockRows);
}

void DeselectRows(CommandParts& on, CommandCall& call) {
    Deselect(on, call, on.tables.LINE_INDEX, DeselectAllRows);
}

void SelectRow(CommandParts& on, CommandCall& call) {
    GridControl& grid = on.Grid();
    const std::optional<Cell> cell = grid.CurrentCell();
    const std::optional<Cell> end = grid.SelectionEnd();
    const SelectionMode mode = grid.IsAdding() ? SelectionMode::Add : SelectionMode::Replace;
    call.done = cell && grid.SelectRow(cell->row, mode) == GridStatus::Ok;
    if (call.done && mode == SelectionMode::Replace && end->row != cell->row) {
        grid.SelectRow(end->row, SelectionMode::Extend);
    }
}

void SelectColumn(CommandParts& on, CommandCall& call) {
    GridControl& grid = on.Grid();
    const std::optional<Cell> cell = grid.CurrentCell();
    const std::optional<Cell> end = grid.SelectionEnd();
    const SelectionMode mode = grid.IsAdding() ? SelectionMode::Add : SelectionMode::Replace;
    call.done = cell && grid.SelectColumn(cell->column, mode) == GridStatus::Ok;
    if (call.done && mode == SelectionMode::Replace && end->column != cell->column) {
        grid.SelectColumn(end->column, SelectionMode::Extend);
    }
}

void SelectHeadings(CommandParts& on, CommandCall& call) {
    on.driver.DeleteSelection({LabelColumnKey, HeadingRowKey}, NoRedraw);
    const auto select = [&](const CellKeyView& heading) {
        call.done = on.driver.SetSelection(heading, NoRedraw) == GridStatus::Ok && call.done;
    };
    for (const std::string& key : call.columns) {
        select({key, {}});
    }
    for (const std::string& key : call.rows) {
        select({{}, key});
    }
    MirrorSelection(on);
}

// --- Hiding

void HideColumns(CommandParts& on, CommandCall& call) {
    Run(on, call, "#HIDE COLUMNS#", [&] { return HideColumn(on.tables.COLS_INDEX, on.driver) && LeaveHidden(on); });
}

void HideRows(CommandParts& on, CommandCall& call) {
    Run(on, call, "#HIDE ROWS#", [&] { return HideRow(on.tables.LINE_INDEX, on.driver) && LeaveHidden(on); });
}

void ShowColumns(CommandParts& on, CommandCall& call) {
    const HostTable& table = on.tables.COLS_INDEX;
    Run(on, call, "#SHOW COLUMNS#", [&] {
        return call.columns.empty() ? ShowColumn(table, on.driver) : ShowColumn(table, on.driver, call.columns);
    });
}

void ShowRows(CommandParts& on, CommandCall& call) {
    const HostTable& table = on.tables.LINE_INDEX;
    Run(on, call, "#SHOW ROWS#",
        [&] { return call.rows.empty() ? ShowRow(table, on.driver) : ShowRow(table, on.driver, call.rows); });
}

// --- Sizes

void ResetWidths(CommandParts& on, CommandCall& call) {
    Run(on, call, "#RESET WIDTH#", [&] {
        const bool all = ColWidthReset(on.tables.COLS_INDEX, on.driver, ResetScope::All);
        return ColWidthReset(on.tables.COLS_INDEX, on.driver, ResetScope::Selected) && all;
    });
}

void ResetHeights(CommandParts& on, CommandCall& call) {
    Run(on, call, "#RESET HEIGHT#", [&] {
        const bool all = RowHeightReset(on.tables.LINE_INDEX, on.driver, ResetScope::All);
        return RowHeightReset(on.tables.LINE_INDEX, on.driver, ResetScope::Selected) && all;
    });
}

void SetColumnWidth(CommandParts& on, CommandCall& call) {
    Resize(on, call, call.columns, &modGrid::ColumnWidth, &SizeEvents::ColumnResized);
}

void SetColumnHeight(CommandParts& on, CommandCall& call) {
    Resize(on, call, call.columns, &modGrid::ColumnHeight, &SizeEvents::SwitchedColumnResized);
}

void SetRowWidth(CommandParts& on, CommandCall& call) {
    Resize(on, call, call.rows, &modGrid::RowWidth, &SizeEvents::SwitchedRowResized);
}

void SetRowHeight(CommandParts& on, CommandCall& call) {
    Resize(on, call, call.rows, &modGrid::RowHeight, &SizeEvents::RowResized);
}

// --- Colours

void ColorRowBackground(CommandParts& on, CommandCall& call) {
    ColorRows(on, call, RowColor::Background);
}

void ColorRowText(CommandParts& on, CommandCall& call) {
    ColorRows(on, call, RowColor::Foreground);
}

// --- Recorded steps

/// With all of them hidden there would be no heading left to show them again from.
std::optional<std::string> NothingRemains(const CommandParts& on, const CommandCall& call) {
    const GridControl& grid = on.Grid();
    const bool none = call.rows.empty() ? AllHidden(
                                              grid.Columns(ColumnArea::Center),
                                              call.columns, [&](ColumnId id) -> const auto& { return grid.Column(id); })
                                        : AllHidden(
                                              grid.Rows(RowArea::Center),
                                              call.rows, [&](RowId id) -> const auto& { return grid.Row(id); });
    return none || NamesNothing(call) ? std::optional<std::string>("nothing would be left to see") : std::nullopt;
}

std::optional<std::string> NoSize(const CommandParts& /*on*/, const CommandCall& call) {
    return NamesNothing(call) || !SizeOf(call) ? std::optional("\"" + call.value.AsText() + "\" is no size")
                                               : std::nullopt;
}

std::optional<std::string> NoColor(const CommandParts& /*on*/, const CommandCall& call) {
    return call.rows.empty() || !ColorOf(call) ? std::optional("\"" + call.value.AsText() + "\" is no colour")
                                               : std::nullopt;
}

}  // namespace planview::commands
