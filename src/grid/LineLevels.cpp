// SPDX-License-Identifier: MIT
#include "grid/LineLevels.h"

#include <unordered_map>

#include "trace/ErrorTrap.h"

namespace planview {

namespace {

/// By key. Those without a level, or with one that is no number, are left out.
std::unordered_map<std::string, int> LevelsIn(const HostTable& lineIndex) {
    std::unordered_map<std::string, int> levels;
    // Not every table has the field.
    static_cast<void>(ErrorTextOf([&] {
        for (int row = 1; row <= lineIndex.RowCount(); ++row) {
            const auto index = static_cast<HostTable::Row>(row);
            const Variant level = lineIndex.Value(index, "LEVEL");
            const bool isNothing = level.IsEmpty() || (level.TextIf() && level.TextIf()->empty());
            if (!isNothing) {
                levels[lineIndex.Text(index, "GRID_ID")] = level.AsInt32();
            }
        }
    }));
    return levels;
}

int IndentOf(const GridControl& grid, const std::string& key) {
    const std::optional<Cell> label = grid.FindCell({LabelColumnKey, key});
    const std::size_t indent = label ? grid.Contents(*label).find_first_not_of(' ') : std::string::npos;
    return indent == std::string::npos ? 0 : static_cast<int>(indent);
}

}  // namespace

std::vector<int> LineLevels(const GridControl& grid, const HostTable& lineIndex) {
    const std::unordered_map<std::string, int> known =
        lineIndex.IsSet() ? LevelsIn(lineIndex) : std::unordered_map<std::string, int>();
    std::vector<int> levels;
    for (const RowId row : grid.Rows(RowArea::Center)) {
        const std::string& key = grid.Row(row).key;
        const auto found = known.find(key);
        levels.push_back(found == known.end() ? IndentOf(grid, key) : found->second);
    }
    return levels;
}

}  // namespace planview
