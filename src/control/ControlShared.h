// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "dialogs/FormControls.h"
#include "grid/GridSettings.h"
#include "layout/PaneLayout.h"
#include "platform/Desktop.h"
#include "trace/ErrorTrap.h"
#include "trace/Failures.h"

namespace planview {

/// What all parts of a control use.
struct ControlShared {
    explicit ControlShared(const Desktop& desktop);

    Desktop desktop;
    TableSlots tables;
    GridSettings settings;
    PaneLayout layout{settings};
    EventSource events;
    /// Hears of what ends at a trap while a FailureScope of it stands.
    std::shared_ptr<Failures> failures = std::make_shared<Failures>();
    /// Set while the control itself changes the grid; keys and popups wait for its end.
    bool busy = false;
    /// The "Colors" popup.
    ColorChooser chooseColor;
};

/// The frame of what a view reports: an error trap whose failures belong to this control.
template <class Body>
bool Trapped(const ControlShared& shared, std::string_view control, std::string_view method, Body&& body) noexcept {
    const FailureScope failures(shared.failures);
    return ErrorTrap(control, method, body);
}

}  // namespace planview
