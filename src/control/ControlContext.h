#pragma once

#include <string>

#include <planview/PlanView.h>
#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/GridControl.h"
#include "grid/CurrentKeys.h"
#include "grid/GridConstruction.h"
#include "grid/GridSettings.h"
#include "layout/PaneLayout.h"

namespace planview {

/// What the parts of one control share. Each part is handed only what it uses.
struct ControlContext {
    explicit ControlContext(const Platform& desktop);

    Platform platform;
    TableSlots tables;
    GridSettings settings;
    CurrentKeys keys;
    GridControl grid;
    PaneLayout layout;
    EventSource events;
    GridConstruction construction;

    /// The macro tree node last made active by the host.
    std::string activeNode;
    /// "TRE" while a node command runs, else empty; the host's choice of a node waits for that.
    std::string macroTreeState;
};

/// The control's state; outlives the control when the host destroys it from inside an event.
struct PlanView::State {
    explicit State(const Platform& platform) : context(platform) {}

    ControlContext context;
    bool terminated = false;
};

}  // namespace planview
