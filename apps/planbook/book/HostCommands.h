#pragma once

#include <cstdint>

namespace planbook {

/// `PFID` of the menu entries that planbook answers. A book may leave some out, give them other texts, or disable them.
enum class HostCommand : std::int32_t {
    // GRIDMENU
    Reload = 1,
    AcceptChanges = 2,
    RevertChanges = 3,
    // COLMENU
    CopyPeriod = 11,
    ClearPeriod = 12,
    // ROWMENU
    CopyLine = 21,
    SpreadTotal = 22,
    ClearLine = 23,
    // CELLMENU
    CopyValue = 31,
    ClearCell = 32,
};

}  // namespace planbook
