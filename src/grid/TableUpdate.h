// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "grid/Loaders.h"

namespace planview {

/// Reads parts of the grid again from the tables, as a build would, and shows them as one change. Columns and rows
/// neither come nor go by it; a key that the grid does not have is passed over. Of a table that cannot
/// be read to its end no cell is shown again.
class TableUpdate {
public:
    explicit TableUpdate(const LoaderContext& context);
    TableUpdate(const TableUpdate&) = delete;
    TableUpdate& operator=(const TableUpdate&) = delete;

    /// Planning and fixed cells.
    void AddCells(std::span<const CellKey> cells);
    /// Whole columns and rows: what the tables say of them, and all their cells.
    void AddColumns(std::span<const std::string> keys);
    void AddRows(std::span<const std::string> keys);
    void Run();

private:
    struct Found {
        bool whole = false;  ///< the table could be read to its end
        std::vector<std::pair<CellKey, HostTable::Row>> rows{};
    };

    [[nodiscard]] bool Wants(std::string_view column, std::string_view row) const;
    void ReadTracks();
    void ReadColumn(const HostTable& table, HostTable::Row i);
    void ReadRow(const HostTable& table, HostTable::Row i);
    void ReadCells();
    template <class KeyOf>
    [[nodiscard]] Found Find(const HostTable& table, std::string_view method, const KeyOf& keyOf) const;
    void ReadValues(const std::vector<CellKey>& wanted);
    [[nodiscard]] std::vector<CellKey> WantedCells() const;

    TableSlots held_;  // the host may take its tables back while one of them is being read
    CurrentKeys keys_;
    LoaderContext context_;
    std::unordered_set<std::string> columns_;
    std::unordered_set<std::string> rows_;
    std::unordered_set<std::string> cells_;
    std::vector<CellKey> single_;
};

}  // namespace planview
