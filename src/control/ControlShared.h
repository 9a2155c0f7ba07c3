// SPDX-License-Identifier: MIT
#pragma once

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "dialogs/FormControls.h"
#include "grid/GridSettings.h"
#include "layout/PaneLayout.h"
#include "platform/Desktop.h"

namespace planview {

/// What all parts of a control use.
struct ControlShared {
    explicit ControlShared(const Desktop& desktop);

    Desktop desktop;
    TableSlots tables;
    GridSettings settings;
    PaneLayout layout{settings};
    EventSource events;
    /// Set while the control itself changes the grid; keys and popups wait for its end.
    bool busy = false;
    /// The "Colors" popup.
    ColorChooser chooseColor;
};

}  // namespace planview
