// SPDX-License-Identifier: MIT
#include <string>

#include "grid/CellText.h"
#include "grid/LoaderSupport.h"

namespace planview {

void FillCells(const LoaderContext& context) noexcept {
    RunLoader("FillCells", "#TAB#", [&] {
        const HostTable& table = context.tables.TAB;
        CurrentKeys& keys = context.keys;
        ForEachRow(table, [&](HostTable::Row i) {
            const std::int16_t columnPosition = table.Int16(i, "C");
            const std::int16_t rowPosition = table.Int16(i, "Z");
            if (columnPosition == 0 || rowPosition == 0) {
                return;  // value entry's record of an edited fixed cell, which has no place of its own here
            }
            const std::string column = modGrid::ColumnKey(columnPosition, "");
            const std::string row = modGrid::RowKey(rowPosition, "");
            keys = {column, row};
            context.driver.Contents({column, row}, CellText(table.Value(i, "V")), NoRedraw);
        });
    });
}

void FillFixedCells(const LoaderContext& context) noexcept {
    RunLoader("FillFixedCells", "#FIXED_TAB#", [&] {
        modGrid& driver = context.driver;
        const HostTable& table = context.tables.FIXED_TAB;
        CurrentKeys& keys = context.keys;
        ForEachRow(table, [&](HostTable::Row i) {
            const std::string column = modGrid::ColumnKey(table.Int16(i, "COLUMN"), table.Text(i, "FLG_COL_FIX"));
            const std::string row = modGrid::RowKey(table.Int16(i, "LINE"), table.Text(i, "FLG_LINE_FIX"));
            keys = {column, row};
            const CellKeyView cell{column, row};
            if (const std::string value = table.Text(i, "VALUE"); !value.empty()) {
                driver.Contents(cell, value, NoRedraw);
            }
            if (const std::string tooltip = table.Text(i, "TOOLTIP"); !tooltip.empty()) {
                driver.Tooltip(cell, tooltip, NoRedraw);
            }
            driver.BackgroundColor(cell, table.Int16(i, "BGCOLOR"), NoRedraw);
            driver.ForegroundColor(cell, table.Int16(i, "FGCOLOR"), NoRedraw);
            driver.Bitmap(cell, table.Text(i, "BITMAP"), table.Int16(i, "BMP_ALIGN"), NoRedraw);
            driver.Alignment(cell, table.Int16(i, "TEXTALIGN"), NoRedraw);
        });
    });
}

void CellAttributes(const LoaderContext& context) noexcept {
    RunLoader("CellAttributes", "#CELL_ATTR#", [&] {
        modGrid& driver = context.driver;
        const HostTable& table = context.tables.CELL_ATTR;
        CurrentKeys& keys = context.keys;
        ForEachRow(table, [&](HostTable::Row i) {
            const std::string column = modGrid::ColumnKey(table.Int16(i, "COLUMN"), "");
            const std::string row = modGrid::RowKey(table.Int16(i, "LINE"), "");
            keys = {column, row};
            const CellKeyView cell{column, row};
            driver.BackgroundColor(cell, table.Int16(i, "BGCOLOR"), NoRedraw);
            driver.ForegroundColor(cell, table.Int16(i, "FGCOLOR"), NoRedraw);
            driver.Bitmap(cell, table.Text(i, "BITMAP"), table.Int16(i, "BMP_ALIGN"), NoRedraw);
            if (const std::string tooltip = table.Text(i, "TOOLTIP"); !tooltip.empty()) {
                driver.Tooltip(cell, tooltip, NoRedraw);
            }
        });
    });
}

}  // namespace planview
