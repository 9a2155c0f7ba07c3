// SPDX-License-Identifier: MIT
#include <string>

#include "grid/LineCaption.h"
#include "grid/LoaderSupport.h"
#include "grid/modGrid.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

void LoadColumn(const LoaderContext& context, HostTable::Row i, AreaPlaces& places) {
    GridControl& grid = context.grid;
    const HostTable& table = context.tables.COLS_INDEX;

    const std::string key = modGrid::ColumnKey(table.Int16(i, "COLUMN"), "");
    context.keys.column = key;
    places.Append([&](std::int16_t position) { modGrid::CreateColumn(grid, key, position, NoRedraw); });
    modGrid::ColumnWidth(grid, key, table.Int16(i, "COL_WIDTH"), NoRedraw);
    modGrid::ColumnHeight(grid, key, table.Int16(i, "COL_HEIGHT"), NoRedraw);

    const CellKeyView heading{key, HeadingRowKey};
    modGrid::Bitmap(grid, heading, table.Text(i, "BITMAP"), table.Int16(i, "BMP_ALIGN"), NoRedraw);
    const std::string period = table.Text(i, "PERDY");
    modGrid::Contents(grid, heading, period, NoRedraw);
    modGrid::Tooltip(grid, heading, period, NoRedraw);
    modGrid::CenterHidden(grid, {key, {}}, table.Flag(i, "COL_HIDDEN"), NoRedraw);
    table.Put(i, "GRID_ID", key);
}

void SetRowLook(const LoaderContext& context, HostTable::Row i, CellKeyView row) {
    GridControl& grid = context.grid;
    const HostTable& table = context.tables.LINE_INDEX;
    modGrid::CenterBgColor(grid, row, table.Int16(i, "ROW_BG"), NoRedraw);
    modGrid::CenterFgColor(grid, row, table.Int16(i, "ROW_FG"), NoRedraw);
    modGrid::CenterReadOnly(grid, row, table.Flag(i, "READONLY"), NoRedraw);
    modGrid::CenterTextLine(grid, row, table.Text(i, "ROW_TEXT"), NoRedraw);
    modGrid::CenterHelpLine(grid, row, table.Text(i, "LINETYPE"), NoRedraw);
    modGrid::CenterRelief(grid, row, table.Flag(i, "RELIEF"), NoRedraw);
    modGrid::CenterFormat(grid, row, table.Text(i, "ROW_FORMAT"), NoRedraw);
    modGrid::CenterFont(grid, row, table.Text(i, "ROW_FONT"), NoRedraw);
    modGrid::CenterAlignment(grid, row, table.Int16(i, "ROW_ALIGN"), NoRedraw);
}

void LoadRow(const LoaderContext& context, HostTable::Row i, AreaPlaces& places) {
    GridControl& grid = context.grid;
    const HostTable& table = context.tables.LINE_INDEX;

    if (table.Text(i, "LINETYPE") != "H") {
        context.keys.column.clear();
    }
    const std::string key = modGrid::RowKey(table.Int16(i, "LINE"), "");
    context.keys.row = key;
    places.Append([&](std::int16_t position) { modGrid::CreateRow(grid, key, position, NoRedraw); });
    modGrid::RowWidth(grid, key, table.Int16(i, "ROW_WIDTH"), NoRedraw);
    modGrid::RowHeight(grid, key, table.Int16(i, "ROW_HEIGHT"), NoRedraw);
    SetRowLook(context, i, {{}, key});

    const CellKeyView label{LabelColumnKey, key};
    modGrid::Bitmap(grid, label, table.Text(i, "BITMAP"), table.Int16(i, "BMP_ALIGN"), NoRedraw);
    const std::string caption = LineCaption(table, i);
    modGrid::Contents(grid, label, caption, NoRedraw);
    modGrid::Tooltip(grid, label, caption, NoRedraw);
    modGrid::CenterHidden(grid, {{}, key}, table.Flag(i, "ROW_HIDDEN"), NoRedraw);
    table.Put(i, "GRID_ID", key);
}

/// The second pass: lines that only show planning values.
void LockRow(const LoaderContext& context, HostTable::Row i) {
    GridControl& grid = context.grid;
    const HostTable& table = context.tables.LINE_INDEX;
    if (!table.Flag(i, "READONLY") || table.Flag(i, "ROW_TEXT")) {
        return;
    }
    const std::string key = table.Text(i, "GRID_ID");
    if (key.empty()) {
        return;  // the host has not kept the key
    }
    context.keys.row = key;
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite("GRIDCTL", "", "Column in the past",
                            TraceText("{cid: ", context.keys.column, " - rid: ", key, "}"));
    }
    const CellKeyView row{{}, key};
    modGrid::ReadOnly(grid, row, true, NoRedraw);
    modGrid::BackgroundColor(grid, row, modGrid::ReadOnlyBackground, NoRedraw);
    modGrid::ForegroundColor(grid, row, modGrid::ReadOnlyForeground, NoRedraw);
    table.Put(i, "GRID_ID", key);
}

}  // namespace

void Creation_Columns(const LoaderContext& context) noexcept {
    RunLoader("Creation_Columns", "#COLS_INDEX#", [&] {
        AreaPlaces places;
        ForEachRow(context.tables.COLS_INDEX, [&](HostTable::Row i) { LoadColumn(context, i, places); });
    });
}

void Creation_Rows(const LoaderContext& context) noexcept {
    RunLoader("Creation_Rows", "#LINE_INDEX#", [&] {
        AreaPlaces places;
        ForEachRow(context.tables.LINE_INDEX, [&](HostTable::Row i) { LoadRow(context, i, places); });
        ForEachRow(context.tables.LINE_INDEX, [&](HostTable::Row i) { LockRow(context, i); });
    });
}

}  // namespace planview
