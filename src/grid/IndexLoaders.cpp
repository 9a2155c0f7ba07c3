// SPDX-License-Identifier: MIT
#include <string>

#include "grid/LineCaption.h"
#include "grid/LoaderSupport.h"
#include "grid/LockedLine.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

void SetRowLook(const LoaderContext& context, HostTable::Row i, CellKeyView row) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.LINE_INDEX;
    driver.CenterBgColor(row, table.Int16(i, "ROW_BG"), NoRedraw);
    driver.CenterFgColor(row, table.Int16(i, "ROW_FG"), NoRedraw);
    driver.CenterReadOnly(row, table.Flag(i, "READONLY"), NoRedraw);
    driver.CenterTextLine(row, table.Text(i, "ROW_TEXT"), NoRedraw);
    driver.CenterHelpLine(row, table.Text(i, "LINETYPE"), NoRedraw);
    driver.CenterRelief(row, table.Flag(i, "RELIEF"), NoRedraw);
    driver.CenterFormat(row, table.Text(i, "ROW_FORMAT"), NoRedraw);
    driver.CenterFont(row, table.Text(i, "ROW_FONT"), NoRedraw);
    driver.CenterAlignment(row, table.Int16(i, "ROW_ALIGN"), NoRedraw);
}

void LoadColumn(const LoaderContext& context, HostTable::Row i, AreaPlaces& places) {
    const std::string key = modGrid::ColumnKey(context.tables.COLS_INDEX.Int16(i, "COLUMN"), "");
    context.keys.column = key;
    places.Append([&](std::int16_t position) { return context.driver.CreateColumn(key, position, NoRedraw); });
    ShowColumn(context, i, key);
}

void LoadRow(const LoaderContext& context, HostTable::Row i, AreaPlaces& places) {
    const HostTable& table = context.tables.LINE_INDEX;
    if (table.Text(i, "LINETYPE") != "H") {
        context.keys.column.clear();
    }
    const std::string key = modGrid::RowKey(table.Int16(i, "LINE"), "");
    context.keys.row = key;
    places.Append([&](std::int16_t position) { return context.driver.CreateRow(key, position, NoRedraw); });
    ShowRow(context, i, key);
}

}  // namespace

void ShowColumn(const LoaderContext& context, HostTable::Row i, const std::string& key) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.COLS_INDEX;
    driver.ColumnWidth(key, table.Int16(i, "COL_WIDTH"), NoRedraw);
    driver.ColumnHeight(key, table.Int16(i, "COL_HEIGHT"), NoRedraw);

    const CellKeyView heading{key, HeadingRowKey};
    driver.Bitmap(heading, table.Text(i, "BITMAP"), table.Int16(i, "BMP_ALIGN"), NoRedraw);
    const std::string period = table.Text(i, "PERDY");
    driver.Contents(heading, period, NoRedraw);
    driver.Tooltip(heading, period, NoRedraw);
    driver.CenterHidden({key, {}}, table.Flag(i, "COL_HIDDEN"), NoRedraw);
    table.Put(i, "GRID_ID", key);
}

void ShowRow(const LoaderContext& context, HostTable::Row i, const std::string& key) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.LINE_INDEX;
    driver.RowWidth(key, table.Int16(i, "ROW_WIDTH"), NoRedraw);
    driver.RowHeight(key, table.Int16(i, "ROW_HEIGHT"), NoRedraw);
    SetRowLook(context, i, {{}, key});

    const CellKeyView label{LabelColumnKey, key};
    driver.Bitmap(label, table.Text(i, "BITMAP"), table.Int16(i, "BMP_ALIGN"), NoRedraw);
    const std::string caption = LineCaption(table, i);
    driver.Contents(label, caption, NoRedraw);
    driver.Tooltip(label, caption, NoRedraw);
    driver.CenterHidden({{}, key}, table.Flag(i, "ROW_HIDDEN"), NoRedraw);
    table.Put(i, "GRID_ID", key);
}

void LockRow(const LoaderContext& context, HostTable::Row i) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.LINE_INDEX;
    if (!IsLockedLine(table, i)) {
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
    driver.ReadOnly(row, true, NoRedraw);
    ShowLocked(driver, row);
    table.Put(i, "GRID_ID", key);
}

void Creation_Columns(const LoaderContext& context) noexcept {
    const HostTable& table = context.tables.COLS_INDEX;
    RunLoader(context, {"Creation_Columns", table, "COLUMN", {}}, "#COLS_INDEX#", [&](LoaderRun& run) {
        AreaPlaces places;
        run.ForEachRow([&](HostTable::Row i) { LoadColumn(context, i, places); });
    });
}

void Creation_Rows(const LoaderContext& context) noexcept {
    const HostTable& table = context.tables.LINE_INDEX;
    RunLoader(context, {"Creation_Rows", table, {}, "LINE"}, "#LINE_INDEX#", [&](LoaderRun& run) {
        AreaPlaces places;
        run.ForEachRow([&](HostTable::Row i) { LoadRow(context, i, places); });
        run.ForEachRow([&](HostTable::Row i) { LockRow(context, i); });
    });
}

}  // namespace planview
