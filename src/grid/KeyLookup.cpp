#include "grid/KeyLookup.h"

#include "grid/CellRules.h"
#include "grid/modGrid.h"

namespace planview {

KeyPositions KeyLookup::PositionsOf(CellKeyView keys) {
    return {modGrid::PositionOf(keys.column), modGrid::PositionOf(keys.row),
            IsPlanningCell(keys) && Holds(columns_, colsIndex_, keys.column) && Holds(rows_, lineIndex_, keys.row)};
}

bool KeyLookup::Holds(Known& known, const HostTable& table, std::string_view key) {
    const auto [entry, isNew] = known.try_emplace(std::string(key), false);
    if (isNew) {
        entry->second = table.FindRow("GRID_ID", key) != 0;
    }
    return entry->second;
}

}  // namespace planview
