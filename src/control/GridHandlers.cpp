// SPDX-License-Identifier: MIT
#include "control/GridHandlers.h"

#include <array>
#include <utility>
#include <vector>

#include "commands/KeyHandling.h"
#include "control/ChartPart.h"
#include "grid/CellEntry.h"
#include "grid/ForecastLine.h"
#include "grid/IndexAxis.h"
#include "grid/Selection.h"
#include "grid/modGrid.h"
#include "menus/MenuDispatch.h"
#include "trace/ErrorTrap.h"
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

void GridHandlers::ColumnResized(const std::string& column, int width) {
    ErrorTrap(GridControlLabel, "ColumnResized", [&] {
        Record(Command::SetColumnWidth,
               {.columns = parts_.grid.sizeEvents.ColumnResized(column, width), .value = width});
    });
}

void GridHandlers::RowResized(const std::string& row, int height) {
    ErrorTrap(GridControlLabel, "RowResized", [&] {
        Record(Command::SetRowHeight, {.rows = parts_.grid.sizeEvents.RowResized(row, height), .value = height});
    });
}

void GridHandlers::HeadingHeightResized(const std::string& column, int height) {
    ErrorTrap(GridControlLabel, "SwitchedColumnResized", [&] {
        Record(Command::SetColumnHeight,
               {.columns = parts_.grid.sizeEvents.SwitchedColumnResized(column, height), .value = height});
    });
}

void GridHandlers::HeadingWidthResized(const std::string& row, int width) {
    ErrorTrap(GridControlLabel, "SwitchedRowResized", [&] {
        Record(Command::SetRowWidth, {.rows = parts_.grid.sizeEvents.SwitchedRowResized(row, width), .value = width});
    });
}

/// Nothing for a heading that has no size in the tables.
void GridHandlers::Record(Command command, const CommandCall& call) {
    if (!call.columns.empty() || !call.rows.empty()) {
        parts_.runner.Record(command, call);
    }
}

void GridHandlers::SelectionChanged(const CellKey& cell, bool selected) {
    ErrorTrap(GridControlLabel, "Selected", [&] {
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
    ErrorTrap(GridControlLabel, "ContentsChanged", [&] {
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
    ErrorTrap(GridControlLabel, "GridStayCell", [&] { parts_.keyHandling.GridStayCell(); });
}

void GridHandlers::DoubleClick(const CellKey& cell) {
    ErrorTrap(GridControlLabel, "GridCellDblClick", [&] {
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
    ErrorTrap(GridControlLabel, "SimpleClick", [&] {
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

void GridHandlers::MouseDown(const CellKey& cell, MouseButton button, ShiftState shift) {
    ErrorTrap(GridControlLabel, "OnMouseDown", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "OnMouseDown",
                       TraceText("{cid: ", cell.column, " - rid: ", cell.row, " - mousebutton: ", button,
                                 " - shift: ", shift, "}"));
        }
        if (button == MouseButton::Right) {
            parts_.menus.Open(cell.column, cell.row, PopupPlace::Mouse);
        }
    });
}

void GridHandlers::MenuKey(const CellKey& cell) {
    ErrorTrap(GridControlLabel, "MenuKey", [&] {
        KeepKeys(cell);
        parts_.menus.Open(cell.column, cell.row, PopupPlace::CurrentCell);
    });
}

bool GridHandlers::KeyDown(std::int16_t shift, std::int16_t keyCode) {
    bool taken = false;
    const bool done =
        ErrorTrap(GridControlLabel, "GridKeyDown", [&] { taken = parts_.keyHandling.GridKeyDown(shift, keyCode); });
    return taken || !done;
}

void GridHandlers::KeyPress(std::int16_t character) {
    ErrorTrap(GridControlLabel, "GridKeyPress", [&] { parts_.keyHandling.GridKeyPress(character); });
}

void GridHandlers::ShowHiddenColumns(const std::vector<std::string>& columns) {
    ErrorTrap(GridControlLabel, "#SHOW COLUMNS#",
              [&] { parts_.runner.Run(Command::ShowColumns, {.columns = columns}); });
}

void GridHandlers::ShowHiddenRows(const std::vector<std::string>& rows) {
    ErrorTrap(GridControlLabel, "#SHOW ROWS#", [&] { parts_.runner.Run(Command::ShowRows, {.rows = rows}); });
}

void GridHandlers::FocusIn() {
    TraceWrite(GridControlLabel, "{}", "FocusInGrid", "");
}

void GridHandlers::FocusOut() {
    TraceWrite(GridControlLabel, "{}", "FocusOutGrid", "");
}

}  // namespace planview
