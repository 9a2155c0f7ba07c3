// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "automation/TableSlots.h"
#include "components/GridTypes.h"

namespace planview {

/// What the keys of a cell say of its place in TAB.
struct KeyPositions {
    std::int16_t column = 0;  ///< the number in the key; 0 for a fixed column
    std::int16_t row = 0;
    /// Both keys are planning keys that the index tables hold.
    bool planning = false;
};

/// Turns keys into positions. Lives for one user action: what it found out about a key it does not ask again.
class KeyLookup {
public:
    explicit KeyLookup(const TableSlots& tables) : colsIndex_(tables.COLS_INDEX), lineIndex_(tables.LINE_INDEX) {}

    [[nodiscard]] KeyPositions PositionsOf(CellKeyView keys);

private:
    struct KeyHash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    using Known = std::unordered_map<std::string, bool, KeyHash, std::equal_to<>>;
    [[nodiscard]] static bool Holds(Known& known, const HostTable& table, std::string_view key);

    HostTable colsIndex_;
    HostTable lineIndex_;
    Known columns_;
    Known rows_;
};

}  // namespace planview
