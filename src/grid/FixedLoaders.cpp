// SPDX-License-Identifier: MIT
#include <string>

#include "grid/LoaderSupport.h"

namespace planview {

namespace {

/// Totals on the right and headings at the top stand out; the others read as what they stand beside.
constexpr std::string_view ProminentFont = ";;Bold";
constexpr std::string_view PlainFont = ";;Normal";

/// Other sides would name planning columns and rows.
bool IsColumnSide(std::string_view side) {
    return side == "L" || side == "R";
}

bool IsRowSide(std::string_view side) {
    return side == "T" || side == "B";
}

std::string NoSide(const std::string& side, const std::string& sides) {
    return "'" + side + "' is no side; it is " + sides;
}

/// The look by which the user sees whether a fixed column or row can be edited.
void SetFixedLook(modGrid& driver, CellKeyView keys, bool readOnly) {
    driver.BackgroundColor(keys, readOnly ? modGrid::ReadOnlyBackground : modGrid::EditableBackground, NoRedraw);
    driver.ReadOnly(keys, readOnly, NoRedraw);
    driver.Relief(keys, true, NoRedraw);
}

void LoadFixedColumn(const LoaderContext& context, HostTable::Row i, AreaPlaces& left, AreaPlaces& right,
                     LoaderRun& run) {
    const HostTable& table = context.tables.FIXED_COLS;
    const std::string side = table.Text(i, "FLG_POSITION");
    if (!IsColumnSide(side)) {
        run.Refuse("FLG_POSITION", NoSide(side, "L or R"));
        return;
    }
    const std::string key = modGrid::ColumnKey(table.Int16(i, "COLUMN_FIX"), side);
    context.keys.column = key;
    AreaPlaces& places = side == "L" ? left : right;
    places.Append([&](std::int16_t position) { return context.driver.CreateColumn(key, position, NoRedraw); });
    ShowFixedColumn(context, i, key, side);
    table.Put(i, "GRID_ID", key);
}

void LoadFixedLine(const LoaderContext& context, HostTable::Row i, AreaPlaces& top, AreaPlaces& bottom,
                   LoaderRun& run) {
    const HostTable& table = context.tables.FIXED_LINES;
    const std::string side = table.Text(i, "FLG_POSITION");
    if (!IsRowSide(side)) {
        run.Refuse("FLG_POSITION", NoSide(side, "T or B"));
        return;
    }
    const std::string key = modGrid::RowKey(table.Int16(i, "LINE_FIX"), side);
    context.keys.row = key;
    AreaPlaces& places = side == "T" ? top : bottom;
    places.Append([&](std::int16_t position) { return context.driver.CreateRow(key, position, NoRedraw); });
    ShowFixedLine(context, i, key, side);
}

}  // namespace

void ShowFixedColumn(const LoaderContext& context, HostTable::Row i, const std::string& key, std::string_view side) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.FIXED_COLS;
    const CellKeyView column{key, {}};
    driver.Font(column, side == "R" ? ProminentFont : PlainFont, NoRedraw);
    driver.ColumnWidth(key, table.Int16(i, "COL_WIDTH"), NoRedraw);
    driver.ColumnHeight(key, table.Int16(i, "COL_HEIGHT"), NoRedraw);
    driver.Format(column, table.Text(i, "COL_FORMAT"), NoRedraw);
    driver.Alignment(column, table.Int16(i, "COL_ALIGN"), NoRedraw);
    if (table.Flag(i, "READONLY")) {
        SetFixedLook(driver, column, true);
    }
}

void ShowFixedLine(const LoaderContext& context, HostTable::Row i, const std::string& key, std::string_view side) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.FIXED_LINES;
    const CellKeyView row{{}, key};
    driver.Font(row, side == "T" ? ProminentFont : PlainFont, NoRedraw);
    driver.RowWidth(key, table.Int16(i, "ROW_WIDTH"), NoRedraw);
    driver.RowHeight(key, table.Int16(i, "ROW_HEIGHT"), NoRedraw);
    driver.Format(row, table.Text(i, "ROW_FORMAT"), NoRedraw);
    driver.Alignment(row, table.Int16(i, "ROW_ALIGN"), NoRedraw);
    if (table.Flag(i, "READONLY")) {
        SetFixedLook(driver, row, true);
    }
}

void FinishFixed(modGrid& driver, CellKeyView keys, bool readOnly) {
    driver.SelectionFlag(keys, NoRedraw);
    SetFixedLook(driver, keys, readOnly);
}

void Creation_FixedColumns(const LoaderContext& context) noexcept {
    const HostTable& table = context.tables.FIXED_COLS;
    const LoaderSource source{"Creation_FixedColumns", table, "COLUMN_FIX", {}, "COL_ALIGN", "COL_FORMAT", true};
    RunLoader(context, source, "#FIXED_COLS#", [&](LoaderRun& run) {
        AreaPlaces left;
        AreaPlaces right;
        run.ForEachRow([&](HostTable::Row i) { LoadFixedColumn(context, i, left, right, run); });
        run.ForEachRow([&](HostTable::Row i) {
            const std::string key = table.Text(i, "GRID_ID");
            context.keys.column = key;
            if (!key.empty() && IsColumnSide(table.Text(i, "FLG_POSITION"))) {
                FinishFixed(context.driver, {key, {}}, table.Flag(i, "READONLY"));
            }
        });
    });
}

void Creation_FixedLines(const LoaderContext& context) noexcept {
    const HostTable& table = context.tables.FIXED_LINES;
    const LoaderSource source{"Creation_FixedLines", table, {}, "LINE_FIX", "ROW_ALIGN", "ROW_FORMAT", true};
    RunLoader(context, source, "#FIXED_LINES#", [&](LoaderRun& run) {
        AreaPlaces top;
        AreaPlaces bottom;
        run.ForEachRow([&](HostTable::Row i) { LoadFixedLine(context, i, top, bottom, run); });
        run.ForEachRow([&](HostTable::Row i) {
            const std::string key = table.Text(i, "GRID_ID");
            context.keys.row = key;
            if (!key.empty() && IsRowSide(table.Text(i, "FLG_POSITION"))) {
                FinishFixed(context.driver, {{}, key}, table.Flag(i, "READONLY"));
            }
        });
    });
}

}  // namespace planview
