// SPDX-License-Identifier: MIT
#include "grid/KeyLookup.h"

#include "grid/CellRules.h"
#include "grid/modGrid.h"

namespace planview {

KeyPositions KeyLookup::PositionsOf(CellKeyView keys) {
    return {modGrid::PositionOf(keys.column), modGrid::PositionOf(keys.row),
            IsPlanningCell(keys) && Holds(columns_, colsIndex_, keys.column) && Holds(rows_, lineIndex_, keys.row)};
}

bool KeyLookup::Holds(Known& known, const HostTable& table, std::string_view key) {
    if (const auto found = known.find(key); found != known.end()) {
        return found->second;
    }
    return known.emplace(key, table.FindRow("GRID_ID", key) != 0).first->second;
}

}  // namespace planview
