// SPDX-License-Identifier: MIT
#include <string>
#include <utility>

#include "grid/CellText.h"
#include "grid/LoaderSupport.h"

namespace planview {

void FillCells(const LoaderContext& context) noexcept {
    const HostTable& table = context.tables.TAB;
    RunLoader(context, {"FillCells", table, "C", "Z"}, "#TAB#", [&](LoaderRun& run) {
        CurrentKeys& keys = context.keys;
        run.ForEachRow([&](HostTable::Row i) {
            const std::int16_t columnPosition = table.Int16(i, "C");
            const std::int16_t rowPosition = table.Int16(i, "Z");
            if (columnPosition == 0 || rowPosition == 0) {
                return;  // value entry's record of an edited fixed cell, which has no place of its own here
            }
            const std::string column = modGrid::ColumnKey(columnPosition, "");
            const std::string row = modGrid::RowKey(rowPosition, "");
            keys = {column, row};
            const std::string text = table.At(i, "V", [&] { return CellText(table.Value(i, "V")); });
            context.driver.Contents({column, row}, text, NoRedraw);
        });
    });
}

void ShowFixedCell(const LoaderContext& context, HostTable::Row i, CellKeyView cell) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.FIXED_TAB;
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
}

void ShowCellAttributes(const LoaderContext& context, HostTable::Row i, CellKeyView cell) {
    modGrid& driver = context.driver;
    const HostTable& table = context.tables.CELL_ATTR;
    driver.BackgroundColor(cell, table.Int16(i, "BGCOLOR"), NoRedraw);
    driver.ForegroundColor(cell, table.Int16(i, "FGCOLOR"), NoRedraw);
    driver.Bitmap(cell, table.Text(i, "BITMAP"), table.Int16(i, "BMP_ALIGN"), NoRedraw);
    if (const std::string tooltip = table.Text(i, "TOOLTIP"); !tooltip.empty()) {
        driver.Tooltip(cell, tooltip, NoRedraw);
    }
}

CellKey FixedCellKey(const HostTable& fixedTab, HostTable::Row i) {
    std::string column = modGrid::ColumnKey(fixedTab.Int16(i, "COLUMN"), fixedTab.Text(i, "FLG_COL_FIX"));
    return {std::move(column), modGrid::RowKey(fixedTab.Int16(i, "LINE"), fixedTab.Text(i, "FLG_LINE_FIX"))};
}

CellKey AttributedCellKey(const HostTable& cellAttr, HostTable::Row i) {
    std::string column = modGrid::ColumnKey(cellAttr.Int16(i, "COLUMN"), "");
    return {std::move(column), modGrid::RowKey(cellAttr.Int16(i, "LINE"), "")};
}

void FillFixedCells(const LoaderContext& context) noexcept {
    const HostTable& table = context.tables.FIXED_TAB;
    const LoaderSource source{"FillFixedCells", table, "COLUMN", "LINE", "TEXTALIGN", {}, true};
    RunLoader(context, source, "#FIXED_TAB#", [&](LoaderRun& run) {
        run.ForEachRow([&](HostTable::Row i) {
            const CellKey cell = FixedCellKey(table, i);
            context.keys = {cell.column, cell.row};
            ShowFixedCell(context, i, cell);
        });
    });
}

void CellAttributes(const LoaderContext& context) noexcept {
    const HostTable& table = context.tables.CELL_ATTR;
    const LoaderSource source{"CellAttributes", table, "COLUMN", "LINE", {}, {}, true};
    RunLoader(context, source, "#CELL_ATTR#", [&](LoaderRun& run) {
        run.ForEachRow([&](HostTable::Row i) {
            const CellKey cell = AttributedCellKey(table, i);
            context.keys = {cell.column, cell.row};
            ShowCellAttributes(context, i, cell);
        });
    });
}

}  // namespace planview
