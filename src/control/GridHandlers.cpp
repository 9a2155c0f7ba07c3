// SPDX-License-Identifier: MIT
#include "control/GridHandlers.h"

#include <array>

#include "control/ControlContext.h"
#include "grid/ForecastLine.h"
#include "grid/IndexAxis.h"
#include "grid/Selection.h"
#include "grid/modGrid.h"
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
    context_.keys.column = cell.column;
    context_.keys.row = cell.row;
}

void GridHandlers::ColumnResized(const std::string& column, int width) {
    ErrorTrap(GridControlLabel, "ColumnResized", [&] {
        Record(Command::SetColumnWidth, {.columns = context_.sizeEvents.ColumnResized(column, width), .value = width});
    });
}

void GridHandlers::RowResized(const std::string& row, int height) {
    ErrorTrap(GridControlLabel, "RowResized", [&] {
        Record(Command::SetRowHeight, {.rows = context_.sizeEvents.RowResized(row, height), .value = height});
    });
}

void GridHandlers::HeadingHeightResized(const std::string& column, int height) {
    ErrorTrap(GridControlLabel, "SwitchedColumnResized", [&] {
        Record(Command::SetColumnHeight,
               {.columns = context_.sizeEvents.SwitchedColumnResized(column, height), .value = height});
    });
}

void GridHandlers::HeadingWidthResized(const std::string& row, int width) {
    ErrorTrap(GridControlLabel, "SwitchedRowResized", [&] {
        Record(Command::SetRowWidth, {.rows = context_.sizeEvents.SwitchedRowResized(row, width), .value = width});
    });
}

/// Nothing for a heading that has no size in the tables.
void GridHandlers::Record(Command command, const CommandCall& call) {
    if (!call.columns.empty() || !call.rows.empty()) {
        context_.runner.Record(command, call);
    }
}

void GridHandlers::SelectionChanged(const CellKey& cell, bool selected) {
    ErrorTrap(GridControlLabel, "Selected", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "Selected",
                       TraceText("{cid: ", cell.column, " - rid: ", cell.row, " - selected: ", selected, "}"));
        }
        MirrorSelection(context_.tables.COLS_INDEX, context_.tables.LINE_INDEX, context_.driver);
        context_.runner.Record(Command::SelectHeadings, {});
        context_.runner.Changed();
    });
}

void GridHandlers::TextEntered(const CellKey& cell, const std::string& text) {
    ErrorTrap(GridControlLabel, "ContentsChanged", [&] { context_.valueEntry.Enter(cell, text); });
    context_.runner.Changed();
}

void GridHandlers::StayCell() {
    ErrorTrap(GridControlLabel, "GridStayCell", [&] { context_.keyHandling.GridStayCell(); });
}

void GridHandlers::DoubleClick(const CellKey& cell) {
    ErrorTrap(GridControlLabel, "GridCellDblClick", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "GridCellDblClick", KeysText(cell));
        }
        const std::array<Variant, 5> arguments{modGrid::PositionOf(cell.column), cell.column,
                                               modGrid::PositionOf(cell.row), cell.row,
                                               context_.settings.switched ? "X" : ""};
        context_.events.Raise(EventId::GridCellDblClick, arguments);
    });
}

void GridHandlers::SimpleClick(const CellKey& cell) {
    ErrorTrap(GridControlLabel, "SimpleClick", [&] {
        KeepKeys(cell);
        if (TraceEnabled) {
            TraceWrite(GridControlLabel, "", "SimpleClick", KeysText(cell));
        }
        const bool onRowHeading = cell.column == LabelColumnKey && cell.row.starts_with(RowAxis.keyPrefix);
        if (context_.chartCommands.IsForecastView() && onRowHeading) {
            ChooseForecastLine(context_.tables.LINE_INDEX, cell.row);
            context_.ChartStep();
            context_.hostUpdate.StartUpdate();
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
            context_.menus.Open(cell.column, cell.row, PopupPlace::Mouse);
        }
    });
}

void GridHandlers::MenuKey(const CellKey& cell) {
    ErrorTrap(GridControlLabel, "MenuKey", [&] {
        KeepKeys(cell);
        context_.menus.Open(cell.column, cell.row, PopupPlace::CurrentCell);
    });
}

bool GridHandlers::KeyDown(std::int16_t shift, std::int16_t keyCode) {
    bool taken = false;
    const bool done =
        ErrorTrap(GridControlLabel, "GridKeyDown", [&] { taken = context_.keyHandling.GridKeyDown(shift, keyCode); });
    return taken || !done;
}

void GridHandlers::KeyPress(std::int16_t character) {
    ErrorTrap(GridControlLabel, "GridKeyPress", [&] { context_.keyHandling.GridKeyPress(character); });
}

void GridHandlers::ShowHiddenColumns(const std::vector<std::string>& columns) {
    ErrorTrap(GridControlLabel, "#SHOW COLUMNS#",
              [&] { context_.runner.Run(Command::ShowColumns, {.columns = columns}); });
}

void GridHandlers::ShowHiddenRows(const std::vector<std::string>& rows) {
    ErrorTrap(GridControlLabel, "#SHOW ROWS#", [&] { context_.runner.Run(Command::ShowRows, {.rows = rows}); });
}

void GridHandlers::FocusIn() {
    TraceWrite(GridControlLabel, "{}", "FocusInGrid", "");
}

void GridHandlers::FocusOut() {
    TraceWrite(GridControlLabel, "{}", "FocusOutGrid", "");
}

}  // namespace planview
