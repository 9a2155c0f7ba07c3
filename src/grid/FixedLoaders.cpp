// SPDX-License-Identifier: MIT
#include <string>

#include "grid/LoaderSupport.h"
#include "grid/modGrid.h"

namespace planview {

namespace {

/// Totals on the right and headings at the top stand out; the others read as what they stand beside.
constexpr std::string_view ProminentFont = ";;Bold";
constexpr std::string_view PlainFont = ";;Normal";

/// The look by which the user sees whether a fixed column or row can be edited.
void SetFixedLook(GridControl& grid, CellKeyView keys, bool readOnly) {
    modGrid::BackgroundColor(grid, keys, readOnly ? modGrid::ReadOnlyBackground : modGrid::EditableBackground,
                             NoRedraw);
    modGrid::ReadOnly(grid, keys, readOnly, NoRedraw);
    modGrid::Relief(grid, keys, true, NoRedraw);
}

/// The second pass: fixed headers are no part of the selection, so that only planning columns and rows are marked.
void FinishFixed(GridControl& grid, CellKeyView keys, bool readOnly) {
    modGrid::SelectionFlag(grid, keys, NoRedraw);
    SetFixedLook(grid, keys, readOnly);
}

void LoadFixedColumn(const LoaderContext& context, HostTable::Row i, AreaPlaces& left, AreaPlaces& right) {
    GridControl& grid = context.grid;
    const HostTable& table = context.tables.FIXED_COLS;
    const std::string side = table.Text(i, "FLG_POSITION");

    const std::string key = modGrid::ColumnKey(table.Int16(i, "COLUMN_FIX"), side);
    context.keys.column = key;
    if (side == "L" || side == "R") {
        AreaPlaces& places = side == "L" ? left : right;
        places.Append([&](std::int16_t position) { modGrid::CreateColumn(grid, key, position, NoRedraw); });
    }
    const CellKeyView column{key, {}};
    modGrid::Font(grid, column, side == "R" ? ProminentFont : PlainFont, NoRedraw);
    modGrid::ColumnWidth(grid, key, table.Int16(i, "COL_WIDTH"), NoRedraw);
    modGrid::ColumnHeight(grid, key, table.Int16(i, "COL_HEIGHT"), NoRedraw);
    modGrid::Format(grid, column, table.Text(i, "COL_FORMAT"), NoRedraw);
    modGrid::Alignment(grid, column, table.Int16(i, "COL_ALIGN"), NoRedraw);
    if (table.Flag(i, "READONLY")) {
        SetFixedLook(grid, column, true);
    }
    table.Put(i, "GRID_ID", key);
}

void LoadFixedLine(const LoaderContext& context, HostTable::Row i, AreaPlaces& top, AreaPlaces& bottom) {
    GridControl& grid = context.grid;
    const HostTable& table = context.tables.FIXED_LINES;
    const std::string side = table.Text(i, "FLG_POSITION");

    const std::string key = modGrid::RowKey(table.Int16(i, "LINE_FIX"), side);
    context.keys.row = key;
    if (side == "T" || side == "B") {
        AreaPlaces& places = side == "T" ? top : bottom;
        places.Append([&](std::int16_t position) { modGrid::CreateRow(grid, key, position, NoRedraw); });
    }
    const CellKeyView row{{}, key};
    modGrid::Font(grid, row, side == "T" ? ProminentFont : PlainFont, NoRedraw);
    modGrid::RowWidth(grid, key, table.Int16(i, "ROW_WIDTH"), NoRedraw);
    modGrid::RowHeight(grid, key, table.Int16(i, "ROW_HEIGHT"), NoRedraw);
    modGrid::Format(grid, row, table.Text(i, "ROW_FORMAT"), NoRedraw);
    modGrid::Alignment(grid, row, table.Int16(i, "ROW_ALIGN"), NoRedraw);
    if (table.Flag(i, "READONLY")) {
        SetFixedLook(grid, row, true);
    }
}

}  // namespace

void Creation_FixedColumns(const LoaderContext& context) noexcept {
    RunLoader("Creation_FixedColumns", "#FIXED_COLS#", [&] {
        const HostTable& table = context.tables.FIXED_COLS;
        AreaPlaces left;
        AreaPlaces right;
        ForEachRow(table, [&](HostTable::Row i) { LoadFixedColumn(context, i, left, right); });
        ForEachRow(table, [&](HostTable::Row i) {
            const std::string key = table.Text(i, "GRID_ID");
            context.keys.column = key;
            if (!key.empty()) {
                FinishFixed(context.grid, {key, {}}, table.Flag(i, "READONLY"));
            }
        });
    });
}

void Creation_FixedLines(const LoaderContext& context) noexcept {
    RunLoader("Creation_FixedLines", "#FIXED_LINES#", [&] {
        const HostTable& table = context.tables.FIXED_LINES;
        AreaPlaces top;
        AreaPlaces bottom;
        ForEachRow(table, [&](HostTable::Row i) { LoadFixedLine(context, i, top, bottom); });
        ForEachRow(table, [&](HostTable::Row i) {
            const std::string key = table.Text(i, "GRID_ID");
            context.keys.row = key;
            if (!key.empty()) {
                FinishFixed(context.grid, {{}, key}, table.Flag(i, "READONLY"));
            }
        });
    });
}

}  // namespace planview
