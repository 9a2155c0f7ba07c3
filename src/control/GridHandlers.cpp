// SPDX-License-Identifier: MIT
#include "control/GridHandlers.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "commands/KeyHandling.h"
#include "control/ChartPart.h"
#include "grid/CellEntry.h"
#include "grid/ForecastLine.h"
#include "grid/IndexAxis.h"
#include "grid/SelectedCells.h"
#include "grid/Selection.h"
#include "grid/modGrid.h"
#include "menus/MenuDispatch.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view GridControlLabel = "GRIDCTL";

std::string KeysText(const CellKey& cell) {
    return TraceText("{cid: ", cell.column, " - rid: ", cell.row, "}").Text();
}

}  // namespace

void GridHandlers::KeepKeys(const CellKey& cell) {
    parts_.grid.keys.column = cell.column;
    parts_.grid.keys.row = cell.row;
}

template <class Resize>
void GridHandlers::Sized(std::string_view method, Command command, int size, const Resize& resize) {
    Trapped(parts_.shared, GridControlLabel, method, [&] {
        TrackHistory::Watch watch(parts_.grid.trackHistory);
        CommandCall call{.value = size};
        resize(call);
        watch.Keep(!call.columns.empty() || !call.rows.empty());
        Record(command, call);
        parts_.runner.Changed();
    });
}

void GridHandlers::ColumnResized(const std::string& column, int width) {
    Sized("ColumnResized", Command::SetColumnWidth, width,
          [&](CommandCall& call) { call.columns = parts_.grid.sizeEvents.ColumnResized(column, width); });
}

void GridHandlers::RowResized(const std::string& row, int height) {
    Sized("RowResized", Command::SetRowHeight, height,
          [&](CommandCall& call) { call.rows = parts_.grid.sizeEvents.RowResized(row, height); });
}

void GridHandlers::HeadingHeightResized(const std::string& column, int height) {
    Sized("SwitchedColumnResized", Command::SetColumnHeight, height,
          [&](CommandCall& call) { call.columns = parts_.grid.sizeEvents.SwitchedColumnResized(column, height); });
}

void GridHandlers::HeadingWidthResized(const std::string& row, int width) {
    Sized("SwitchedRowResized", Command::SetRowWidth, width,
          [&](CommandCall& call) { call.rows = parts_.grid.sizeEvents.SwitchedRowResized(row, width); });
}

/// A selected one takes the other selected ones along, as with its size, unless nothing would be left to see.
void GridHandlers::HideColumn(const std::string& column) {
    Trapped(parts_.shared, GridControlLabel, "#HIDE COLUMNS#", [&] {
        CommandCall call{.columns = {column}};
        const std::vector<std::string> selected = SelectedColumnKeys(parts_.grid.control);
        const bool isSelected = std::find(selected.begin(), selected.end(), column) != selected.end();
        if (isSelected && CommandRunner::StateOf(Command::HideColumns, parts_.runner.Situation()).enabled) {
            call.columns = selected;
        }
        parts_.runner.Run(Command::HideColumns, call);
    });
}

void GridHandlers::HideRow(const std::string& row) {
    Trapped(parts_.shared, GridControlLabel, "#HIDE ROWS#", [&] {
        CommandCall call{.rows = {row}};
        const std::vector<std::string> selected = SelectedRowKeys(parts_.grid.control);
        const bool isSelected = std::find(selected.begin(), selected.end(), row) != selected.end();
        if (isSelected && CommandRunner::StateOf(Command::HideRows, parts_.runner.Situation()).enabled) {
            call.rows = selected;
        }
        parts_.runner.Run(Command::HideRows, call);
    });
}

void GridHandlers::Moved(MovedTracks moved, const std::vector<std::string>& before) {
    Trapped(parts_.shared, GridControlLabel, "Moved",
            [&] { parts_.grid.trackHistory.Moved(moved == MovedTracks::Columns ? ColumnAxis : RowAxis, before); });
    parts_.runner.Changed();
}

/// Nothing for a heading that has no size in the tables.
void GridHandlers::Record(Command command, const CommandCall& call) {
    if (!call.columns.empty() || !call.rows.empty()) {
        parts_.runner.Record(command, call);
    }
}

void GridHandlers::SelectionChanged(const CellKey& cell, bool selected) {
    Trapped(parts_.shared, GridControlLabel, "Selected", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "Selected",
                       TraceText("{cid: ", cell.column, " - rid: ", cell.row, " - selected: ", selected, "}"));
        }
        MirrorSelection(parts_.shared.tables.COLS_INDEX, parts_.shared.tables.LINE_INDEX, parts_.grid.driver);
        parts_.runner.Record(Command::SelectHeadings, {});
        parts_.runner.Changed();
    });
}

void GridHandlers::TextEntered(const CellKey& cell, const std::string& text) {
    Trapped(parts_.shared, GridControlLabel, "ContentsChanged", [&] {
        const std::optional<Cell> place = parts_.grid.control.FindCell(cell);
        const std::optional<EnteredNumber> read = place ? ReadEntry(parts_.grid.control, *place, text) : std::nullopt;
        parts_.grid.valueEntry.Enter(cell, place ? EntryText(parts_.grid.control, *place, text) : text);
        std::vector<GuessedEntry> guesses;
        if (read && read->IsGuess()) {
            guesses.push_back({cell, read->number, *read->other});
        }
        parts_.grid.otherReading.Offer(std::move(guesses), EditKind::Value);
    });
    parts_.runner.Changed();
}

void GridHandlers::StayCell() {
    Trapped(parts_.shared, GridControlLabel, "GridStayCell", [&] { parts_.keyHandling.GridStayCell(); });
}

void GridHandlers::DoubleClick(const CellKey& cell) {
    Trapped(parts_.shared, GridControlLabel, "GridCellDblClick", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "GridCellDblClick", KeysText(cell));
        }
        const std::array<Variant, 5> arguments{modGrid::PositionOf(cell.column), cell.column,
                                               modGrid::PositionOf(cell.row), cell.row,
                                               parts_.shared.settings.switched ? "X" : ""};
        parts_.shared.events.Raise(EventId::GridCellDblClick, arguments);
    });
}

void GridHandlers::SimpleClick(const CellKey& cell) {
    Trapped(parts_.shared, GridControlLabel, "SimpleClick", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "SimpleClick", KeysText(cell));
        }
        const bool onRowHeading = cell.column == LabelColumnKey && cell.row.starts_with(RowAxis.keyPrefix);
        if (parts_.chart.commands.IsForecastView() && onRowHeading) {
            ChooseForecastLine(parts_.shared.tables.LINE_INDEX, cell.row);
            parts_.chart.Step();
            parts_.grid.hostUpdate.StartUpdate();
        }
    });
}

/// A fixed cell beside a planning row, or above a planning column, has the popup of that row or column, which acts on
/// what is selected.
void GridHandlers::SelectOwner(const CellKey& key) {
    GridControl& grid = parts_.grid.control;
    const std::optional<Cell> cell = grid.FindCell(key);
    if (!cell || parts_.shared.busy) {
        return;
    }
    const bool beside = key.column.starts_with("FLC") && key.column != LabelColumnKey;
    const bool above = key.row.starts_with("FTR") && key.row != HeadingRowKey;
    if (beside && key.row.starts_with(RowAxis.keyPrefix) && !grid.Selection().HasRow(cell->row)) {
        grid.SelectRow(cell->row, SelectionMode::Replace);
    } else if (above && key.column.starts_with(ColumnAxis.keyPrefix) && !grid.Selection().HasColumn(cell->column)) {
        grid.SelectColumn(cell->column, SelectionMode::Replace);
    }
}

void GridHandlers::MouseDown(const CellKey& cell, MouseButton button, ShiftState shift) {
    Trapped(parts_.shared, GridControlLabel, "OnMouseDown", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "OnMouseDown",
                       TraceText("{cid: ", cell.column, " - rid: ", cell.row, " - mousebutton: ", button,
                                 " - shift: ", shift, "}"));
        }
        if (button == MouseButton::Right) {
            SelectOwner(cell);
            parts_.menus.Open(cell.column, cell.row, PopupPlace::Mouse);
        }
    });
}

void GridHandlers::Dropped(const CellKey& cell, const std::string& text, const std::string& html) {
    ErrorTrap(GridControlLabel, "DragDrop", [&] {
        if (parts_.shared.busy) {
            return;
        }
        KeepKeys(cell);
        CommandCall call;
        call.contents = ClipboardContents{text, html};
        parts_.runner.Run(Command::Paste, std::move(call));
    });
}

void GridHandlers::MenuKey(const CellKey& cell) {
    Trapped(parts_.shared, GridControlLabel, "MenuKey", [&] {
        KeepKeys(cell);
        SelectOwner(cell);
        parts_.menus.Open(cell.column, cell.row, PopupPlace::CurrentCell);
    });
}

bool GridHandlers::KeyDown(std::int16_t shift, std::int16_t keyCode) {
    bool taken = false;
    const bool done = Trapped(parts_.shared, GridControlLabel, "GridKeyDown",
                              [&] { taken = parts_.keyHandling.GridKeyDown(shift, keyCode); });
    return taken || !done;
}

void GridHandlers::KeyPress(std::int16_t character) {
    Trapped(parts_.shared, GridControlLabel, "GridKeyPress", [&] { parts_.keyHandling.GridKeyPress(character); });
}

void GridHandlers::ShowHiddenColumns(const std::vector<std::string>& columns) {
    Trapped(parts_.shared, GridControlLabel, "#SHOW COLUMNS#",
            [&] { parts_.runner.Run(Command::ShowColumns, {.columns = columns}); });
}

void GridHandlers::ShowHiddenRows(const std::vector<std::string>& rows) {
    Trapped(parts_.shared, GridControlLabel, "#SHOW ROWS#",
            [&] { parts_.runner.Run(Command::ShowRows, {.rows = rows}); });
}

void GridHandlers::FocusIn() {
    TraceWrite(GridControlLabel, "{}", "FocusInGrid", "");
}

void GridHandlers::FocusOut() {
    TraceWrite(GridControlLabel, "{}", "FocusOutGrid", "");
}

}  // namespace planview
