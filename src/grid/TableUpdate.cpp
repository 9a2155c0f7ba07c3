// SPDX-License-Identifier: MIT
#include "grid/TableUpdate.h"

#include <optional>
#include <unordered_map>
#include <utility>

#include "grid/CellRules.h"
#include "grid/CellText.h"
#include "grid/IndexAxis.h"
#include "grid/LoaderSupport.h"

namespace planview {

namespace {

std::string Joined(std::string_view column, std::string_view row) {
    std::string joined(column);
    joined += '/';
    joined += row;
    return joined;
}

bool IsTrackText(const CellKey& cell) {
    return cell.column == LabelColumnKey || cell.row == HeadingRowKey;
}

}  // namespace

TableUpdate::TableUpdate(const LoaderContext& context)
    : held_(context.tables), keys_(context.keys), context_{context.driver, held_, keys_} {}

void TableUpdate::AddCells(std::span<const CellKey> cells) {
    for (const CellKey& cell : cells) {
        if (cells_.insert(Joined(cell.column, cell.row)).second) {
            single_.push_back(cell);
        }
    }
}

void TableUpdate::AddColumns(std::span<const std::string> keys) {
    columns_.insert(keys.begin(), keys.end());
}

void TableUpdate::AddRows(std::span<const std::string> keys) {
    rows_.insert(keys.begin(), keys.end());
}

void TableUpdate::Run() {
    const modGrid::RedrawAtEnd redraw(context_.driver, modGrid::Entries::None);
    ReadTracks();
    ReadCells();
}

bool TableUpdate::Wants(std::string_view column, std::string_view row) const {
    return columns_.contains(std::string(column)) || rows_.contains(std::string(row)) ||
           (!cells_.empty() && cells_.contains(Joined(column, row)));
}

// --- Columns and rows

void TableUpdate::ReadTracks() {
    const auto walk = [&](bool wanted, const HostTable& table, std::string_view method, const auto& body) {
        if (wanted && table.IsSet()) {
            ErrorTrap("GRIDCTL", method, [&] { ForEachRow(table, [&](HostTable::Row i) { body(table, i); }); });
        }
    };
    const auto column = [&](const HostTable& table, HostTable::Row i) { ReadColumn(table, i); };
    const auto row = [&](const HostTable& table, HostTable::Row i) { ReadRow(table, i); };
    walk(!columns_.empty(), held_.COLS_INDEX, "UpdateColumns", column);
    walk(!columns_.empty(), held_.FIXED_COLS, "UpdateColumns", column);
    walk(!rows_.empty(), held_.LINE_INDEX, "UpdateRows", row);
    walk(!rows_.empty(), held_.FIXED_LINES, "UpdateRows", row);
}

void TableUpdate::ReadColumn(const HostTable& table, HostTable::Row i) {
    modGrid& driver = context_.driver;
    const std::string key = table.Text(i, "GRID_ID");
    if (!columns_.contains(key) || !driver.Grid().FindColumn(key)) {
        return;
    }
    if (&table == &held_.COLS_INDEX) {
        ShowColumn(context_, i, key);
        return;
    }
    driver.Grid().ResetLook({key, {}}, NoRedraw);
    ShowFixedColumn(context_, i, key, table.Text(i, "FLG_POSITION"));
    FinishFixed(driver, {key, {}}, table.Flag(i, "READONLY"));
}

void TableUpdate::ReadRow(const HostTable& table, HostTable::Row i) {
    modGrid& driver = context_.driver;
    const bool planning = &table == &held_.LINE_INDEX;
    // A build leaves GRID_ID of FIXED_LINES as the host has it.
    const std::string key = planning ? table.Text(i, "GRID_ID")
                                     : modGrid::RowKey(table.Int16(i, "LINE_FIX"), table.Text(i, "FLG_POSITION"));
    if (!rows_.contains(key) || !driver.Grid().FindRow(key)) {
        return;
    }
    driver.Grid().ResetLook({{}, key}, NoRedraw);
    if (planning) {
        ShowRow(context_, i, key);
        LockRow(context_, i);
    } else if (key.starts_with('F')) {
        ShowFixedLine(context_, i, key, table.Text(i, "FLG_POSITION"));
        FinishFixed(driver, {{}, key}, table.Flag(i, "READONLY"));
    }
}

// --- Cells

template <class KeyOf>
TableUpdate::Found TableUpdate::Find(const HostTable& table, std::string_view method, const KeyOf& keyOf) const {
    Found found;
    found.whole = !table.IsSet() || ErrorTrap("GRIDCTL", method, [&] {
        ForEachRow(table, [&](HostTable::Row i) {
            CellKey cell = keyOf(table, i);
            if (Wants(cell.column, cell.row)) {
                found.rows.emplace_back(std::move(cell), i);
            }
        });
    });
    return found;
}

std::vector<CellKey> TableUpdate::WantedCells() const {
    const GridControl& grid = context_.driver.Grid();
    std::vector<CellKey> wanted;
    for (const CellKey& cell : single_) {
        if (grid.FindCell(cell)) {
            wanted.push_back(cell);
        }
    }
    if (columns_.empty() && rows_.empty()) {
        return wanted;
    }
    for (const ColumnArea columns : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
        for (const ColumnId column : grid.Columns(columns)) {
            const bool whole = columns_.contains(grid.Column(column).key);
            for (const RowArea rows : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
                for (const RowId row : grid.Rows(rows)) {
                    if (whole || rows_.contains(grid.Row(row).key)) {
                        wanted.push_back(grid.KeyOf({column, row}));
                    }
                }
            }
        }
    }
    return wanted;
}

void TableUpdate::ReadCells() {
    modGrid& driver = context_.driver;
    const std::vector<CellKey> wanted = WantedCells();
    ReadValues(wanted);
    const Found fixed = Find(held_.FIXED_TAB, "FillFixedCells", FixedCellKey);
    const Found attributed = Find(held_.CELL_ATTR, "CellAttributes", AttributedCellKey);
    for (const CellKey& cell : wanted) {
        if (IsTrackText(cell)) {
            continue;  // their texts are those of the index tables; FIXED_TAB may stand over them
        }
        const bool planning = IsPlanningCell(cell);
        if ((planning ? attributed : fixed).whole) {
            driver.Grid().ResetLook(cell, NoRedraw);
            driver.Tooltip(cell, {}, NoRedraw);
        }
        if (!planning && fixed.whole) {
            driver.Contents(cell, {}, NoRedraw);
        }
    }
    const auto show = [&](const Found& found, const HostTable& table, std::string_view method, const auto& showRow) {
        if (found.whole && table.IsSet()) {
            ErrorTrap("GRIDCTL", method, [&] {
                for (const auto& [cell, row] : found.rows) {
                    showRow(context_, row, cell);
                }
            });
        }
    };
    show(fixed, held_.FIXED_TAB, "FillFixedCells", ShowFixedCell);
    show(attributed, held_.CELL_ATTR, "CellAttributes", ShowCellAttributes);
}

/// Of several rows for one cell the last one counts, as in a build.
void TableUpdate::ReadValues(const std::vector<CellKey>& wanted) {
    modGrid& driver = context_.driver;
    std::unordered_map<std::string, std::string> texts;
    const HostTable& table = held_.TAB;
    const bool read = ErrorTrap("GRIDCTL", "FillCells", [&] {
        ForEachRow(table, [&](HostTable::Row i) {
            const std::int16_t column = table.Int16(i, "C");
            const std::int16_t row = table.Int16(i, "Z");
            if (column == 0 || row == 0) {
                return;
            }
            std::string columnKey = modGrid::ColumnKey(column, {});
            const std::string rowKey = modGrid::RowKey(row, {});
            if (Wants(columnKey, rowKey)) {
                texts[Joined(columnKey, rowKey)] = table.At(i, "V", [&] { return CellText(table.Value(i, "V")); });
            }
        });
    });
    if (!read) {
        return;
    }
    for (const CellKey& cell : wanted) {
        if (IsPlanningCell(cell)) {
            const auto text = texts.find(Joined(cell.column, cell.row));
            driver.Contents(cell, text == texts.end() ? std::string_view() : text->second, NoRedraw);
        }
    }
}

}  // namespace planview
