// SPDX-License-Identifier: MIT
#include "grid/TrackOrder.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "grid/LoaderSupport.h"

namespace planview {

namespace {

/// Not every table has the field.
bool HasOrderField(const IndexAxis& axis, const HostTable& table) {
    return !ErrorTextOf([&] {
        if (table.RowCount() > 0) {
            static_cast<void>(table.Value(1, axis.orderField));
        }
    });
}

bool Has(const GridControl& grid, const IndexAxis& axis, std::string_view key) {
    return axis.columns ? grid.FindColumn(key).has_value() : grid.FindRow(key).has_value();
}

}  // namespace

std::vector<std::string> OrderedKeys(const GridControl& grid, const IndexAxis& axis) {
    std::vector<std::string> keys;
    if (axis.columns) {
        for (const ColumnId column : grid.Columns(ColumnArea::Center)) {
            keys.push_back(grid.Column(column).key);
        }
    } else {
        for (const RowId row : grid.Rows(RowArea::Center)) {
            keys.push_back(grid.Row(row).key);
        }
    }
    return keys;
}

void Arrange(GridControl& grid, const IndexAxis& axis, const std::vector<std::string>& keys) {
    std::vector<std::string> wanted = keys;
    std::vector<std::string> present = OrderedKeys(grid, axis);
    std::sort(wanted.begin(), wanted.end());
    std::sort(present.begin(), present.end());
    if (wanted != present) {
        return;
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const auto place = static_cast<std::int16_t>(i + 1);
        if (axis.columns && grid.Column(grid.Columns(ColumnArea::Center)[i]).key != keys[i]) {
            grid.MoveColumn(keys[i], place, NoRedraw);
        } else if (!axis.columns && grid.Row(grid.Rows(RowArea::Center)[i]).key != keys[i]) {
            grid.MoveRow(keys[i], place, NoRedraw);
        }
    }
}

void ArrangeAmong(GridControl& grid, const IndexAxis& axis, const std::vector<std::string>& keys) {
    std::vector<std::string> arranged = OrderedKeys(grid, axis);
    const std::unordered_set<std::string> present(arranged.begin(), arranged.end());
    std::unordered_set<std::string> meant;
    std::vector<std::string> wanted;
    for (const std::string& key : keys) {
        if (present.contains(key) && meant.insert(key).second) {
            wanted.push_back(key);
        }
    }
    std::size_t next = 0;
    for (std::string& key : arranged) {
        if (meant.contains(key)) {
            key = wanted[next++];
        }
    }
    Arrange(grid, axis, arranged);
}

void ArrangeAsKept(GridControl& grid, const IndexAxis& axis, const HostTable& table) noexcept {
    ResumeNext([&] {
        struct Kept {
            std::string key;
            int place = 0;
            bool own = false;  ///< that of the table
        };
        std::vector<Kept> kept;
        bool any = false;
        ForEachRow(table, [&](HostTable::Row i) {
            const int place = table.Int16(i, axis.orderField, 0);
            any = any || place > 0;
            std::string key = table.Text(i, "GRID_ID");
            if (Has(grid, axis, key)) {
                kept.push_back({std::move(key), place > 0 ? place : i, place <= 0});
            }
        });
        if (!any) {
            return;
        }
        std::stable_sort(kept.begin(), kept.end(), [](const Kept& left, const Kept& right) {
            return left.place != right.place ? left.place < right.place : left.own < right.own;
        });
        std::vector<std::string> keys;
        for (Kept& one : kept) {
            keys.push_back(std::move(one.key));
        }
        Arrange(grid, axis, keys);
    });
}

std::vector<KeptPlace> KeptOrder(const IndexAxis& axis, const HostTable& table) {
    std::vector<KeptPlace> kept;
    if (HasOrderField(axis, table)) {
        ForEachRow(table, [&](HostTable::Row i) {
            kept.push_back({table.Text(i, "GRID_ID"), table.Value(i, axis.orderField)});
        });
    }
    return kept;
}

bool KeepOrder(const GridControl& grid, const IndexAxis& axis, const HostTable& table) {
    if (!HasOrderField(axis, table)) {
        return false;
    }
    std::unordered_map<std::string, int> places;
    for (std::string& key : OrderedKeys(grid, axis)) {
        const int place = static_cast<int>(places.size()) + 1;
        places.emplace(std::move(key), place);
    }
    bool moved = false;
    int last = 0;
    std::vector<int> kept;
    ForEachRow(table, [&](HostTable::Row i) {
        const auto found = places.find(table.Text(i, "GRID_ID"));
        kept.push_back(found == places.end() ? 0 : found->second);
        moved = moved || (kept.back() != 0 && kept.back() < last);
        last = std::max(last, kept.back());
    });
    for (std::size_t i = 0; i < kept.size(); ++i) {
        const auto row = static_cast<HostTable::Row>(i + 1);
        const auto place = static_cast<std::int16_t>(moved ? kept[i] : 0);
        if (table.Int16(row, axis.orderField, 0) != place) {
            table.Put(row, axis.orderField, place);
        }
    }
    return true;
}

}  // namespace planview
