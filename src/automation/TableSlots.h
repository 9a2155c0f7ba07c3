// SPDX-License-Identifier: MIT
#pragma once

#include "automation/HostTable.h"

namespace planview {

/// The seventeen tables that the host hands to the control, in the order in which they are declared and released.
struct TableSlots {
    HostTable GRID_ATTR;
    HostTable COLS_INDEX;
    HostTable LINE_INDEX;
    HostTable TAB;
    HostTable TAB_OLD;
    HostTable FIXED_COLS;
    HostTable FIXED_LINES;
    HostTable FIXED_TAB;
    HostTable CELL_ATTR;
    HostTable GRID_TREE;
    HostTable MACRO_TREE;
    HostTable TEXTS;
    HostTable COLMENU;
    HostTable ROWMENU;
    HostTable GRIDMENU;
    HostTable CELLMENU;
    HostTable MACROREC;
};

}  // namespace planview
