// SPDX-License-Identifier: MIT
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
    RaiseLine = 24,
    // CELLMENU
    CopyValue = 31,
    ClearCell = 32,
    RaiseCells = 33,
};

/// The text of the entries that raise, in books that planbook makes or brings up.
inline constexpr const char* RaiseText = "Raise by percent…";

}  // namespace planbook
